#include "print/ui/UsedBox.h"

#include "widgets/Controls.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace velmora {

UsedBox::UsedBox(PrintRun& run, QWidget* parent)
    : QGroupBox(tr("First sheet"), parent), run_(run), labels_(run.LabelsPerSheet()),
      lblUsed_(Named(new QLabel(tr("Click the labels that are gone, drag over them, or Shift+click the last one. Keys: "
                                   "the arrows and the space bar.")),
                     "lblUsed")),
      chkGoesOn_(Named(new QCheckBox(tr("This sheet &goes on being used")), "chkGoesOn")) {
    chkGoesOn_->setToolTip(tr("The next job begins with the labels that this one leaves on its last sheet; a PDF file "
                              "takes none"));
    chkGoesOn_->setEnabled(run.UsesPaper());
    lblUsed_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(BuildFirstLine());
    layout->addLayout(BuildFirstFree());
    layout->addWidget(lblUsed_);
    layout->addWidget(chkGoesOn_);
    connect(chkPartlyUsed_, &QCheckBox::toggled, this, &UsedBox::TellRun);
    connect(chkPartlyUsed_, &QCheckBox::clicked, this, [this](bool partly) {
        if (partly)
            emit MarkingBegins();
    });
    ShowLabels();
}

QHBoxLayout* UsedBox::BuildFirstLine() {
    chkPartlyUsed_ = Named(new QCheckBox(tr("Partly &used")), "chkPartlyUsed");
    chkPartlyUsed_->setToolTip(tr("The tabs flow around the labels that are gone"));
    cmdClearUsed_ = Named(new QPushButton(tr("C&lear")), "cmdClearUsed");
    connect(cmdClearUsed_, &QPushButton::clicked, this, [this] {
        labels_.Set({});
        TellRun();
    });
    auto* line = new QHBoxLayout;
    line->addWidget(chkPartlyUsed_, 1);
    line->addWidget(cmdClearUsed_);
    return line;
}

QHBoxLayout* UsedBox::BuildFirstFree() {
    lblFirstFree_ = new QLabel(tr("Fir&st free label:"));
    txtFirstFree_ = Named(new QSpinBox, "txtFirstFree");
    txtFirstFree_->setRange(1, run_.LabelsPerSheet());
    lblFirstFree_->setBuddy(txtFirstFree_);
    connect(txtFirstFree_, &QSpinBox::valueChanged, this, [this](int label) {
        labels_.StartAt(label);
        TellRun();
    });
    auto* line = new QHBoxLayout;
    line->addWidget(lblFirstFree_, 1);
    line->addWidget(txtFirstFree_);
    return line;
}

std::optional<std::set<int>> UsedBox::Labels() const {
    return isEnabled() && chkPartlyUsed_->isChecked() ? std::optional(labels_.Labels()) : std::nullopt;
}

void UsedBox::Toggle(int label) {
    labels_.Toggle(label);
    TellRun();
}

void UsedBox::ExtendTo(int label) {
    labels_.ExtendTo(label);
    TellRun();
}

void UsedBox::Begin(bool partly) {
    const std::vector<int> left = run_.LabelsInUse();
    labels_.Set(left);
    chkGoesOn_->setChecked(chkGoesOn_->isChecked() || !left.empty());
    chkPartlyUsed_->setChecked(partly || !left.empty());
}

void UsedBox::ShowPlaces() {
    setEnabled(!run_.KeepsPlaces());
}

void UsedBox::Keep(const std::vector<int>& sheets) {
    if (!isEnabled())
        return; // tabs in their own places went onto another sheet
    if (chkGoesOn_->isChecked()) {
        run_.KeepLabelsInUse(sheets);
        Begin(true); // what is printed next must not come onto the labels just used
        TellRun();
    } else if (chkPartlyUsed_->isChecked()) {
        run_.KeepLabelsInUse({});
    }
}

void UsedBox::TellRun() {
    ShowLabels();
    const auto labels = chkPartlyUsed_->isChecked() ? labels_.Labels() : std::set<int>();
    if (run_.SetUsedSlots({labels.begin(), labels.end()}))
        emit Changed();
}

void UsedBox::ShowLabels() {
    const bool partly = chkPartlyUsed_->isChecked();
    cmdClearUsed_->setEnabled(partly && !labels_.Labels().empty());
    for (QWidget* widget :
         {static_cast<QWidget*>(lblFirstFree_), static_cast<QWidget*>(txtFirstFree_), static_cast<QWidget*>(lblUsed_)})
        widget->setVisible(partly);
    const QSignalBlocker silent(txtFirstFree_);
    txtFirstFree_->setValue(labels_.FirstFree());
}

} // namespace velmora
