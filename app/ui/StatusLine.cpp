#include "app/ui/StatusLine.h"

#include "widgets/ElidedLabel.h"

#include <QPushButton>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kPanelMargin = 4;
constexpr std::size_t kAboutTheSheet = 3; ///< the first panels, which are not read while one types
constexpr double kShareOfDone = 0.4;      ///< of the line, that what was done takes from these

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent), lblBox_(new ElidedLabel(false)), lblDone_(new ElidedLabel(true, Elided::Middle)),
      cmdDone_(new QPushButton) {
    setObjectName("StatusBar1");
    setSizeGripEnabled(false);
    for (std::size_t i = 0; i < panels_.size(); ++i)
        Add(panels_[i] = new ElidedLabel(i < kAboutTheSheet, Elided::Caption), QString("Panel%1").arg(i + 1));
    Add(lblBox_, "lblBox");
    Add(lblDone_, "lblDone");
    lblDone_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblDone_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // what the panels leave
    addWidget(lblDone_, 1);
    cmdDone_->setObjectName("cmdDone");
    cmdDone_->setFocusPolicy(Qt::TabFocus); // a click leaves the box in use
    QSizePolicy place = cmdDone_->sizePolicy();
    place.setRetainSizeWhenHidden(true); // the sheet above stays as it is
    cmdDone_->setSizePolicy(place);
    cmdDone_->hide();
    addWidget(cmdDone_);
    connect(cmdDone_, &QPushButton::clicked, this, [this] {
        if (const DoneMessage done = done_; done.undo)
            emit UndoWanted();
        else if (done.printerMargins)
            emit PrinterMarginsWanted();
        else
            emit OpenWanted(done.file);
    });
}

void StatusLine::Add(ElidedLabel* label, const QString& name) {
    label->setObjectName(name);
    label->setMargin(kPanelMargin);
    addWidget(label);
}

void StatusLine::SetPanel(int panel, const std::string& text) {
    panels_.at(static_cast<std::size_t>(panel - 1))->Show(QString::fromStdString(text));
}

void StatusLine::ShowBox(const QString& text) {
    lblBox_->Show(text);
}

void StatusLine::Tell(const DoneMessage& done) {
    done_ = done;
    const QString text = QString::fromStdString(done.text);
    lblDone_->Show(text);
    lblDone_->setMinimumWidth(0); // its size hint is no smaller
    lblDone_->setMinimumWidth(std::min(lblDone_->sizeHint().width(), static_cast<int>(width() * kShareOfDone)));
    cmdDone_->setText(done.undo ? tr("&Undo") : done.printerMargins ? tr("Use this &printer's") : tr("&Open"));
    cmdDone_->setAccessibleName(cmdDone_->text().remove('&') + ": " + text);
    cmdDone_->setVisible(done.undo || done.printerMargins || !done.file.empty());
    spoken_.Give(window()->focusWidget(), text);
}

void StatusLine::Forget() {
    if (!done_.text.empty())
        Tell({});
}

void StatusLine::ForgetUndo() {
    if (done_.undo)
        Forget();
}

} // namespace velmora
