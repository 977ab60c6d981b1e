#include "print/ui/PrintBox.h"

#include "print/NumberList.h"
#include "print/ui/Breakable.h"
#include "print/ui/JobChoice.h"
#include "print/ui/TabsRow.h"
#include "widgets/AnswerLabel.h"
#include "widgets/Controls.h"

#include <QButtonGroup>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

/// The first in capitals: what stands alone is a sentence.
QString Sentence(const char* text) {
    QString sentence = QString::fromUtf8(text);
    return sentence.left(1).toUpper() + sentence.mid(1) + ".";
}

} // namespace

PrintBox::PrintBox(PrintRun& run, QWidget* parent)
    : QGroupBox(parent), run_(run), optSheets_(new QButtonGroup(this)), lblRange_(Named(new AnswerLabel, "lblRange")),
      lblPrinted_(Named(new AnswerLabel, "lblPrinted")) {
    setTitle(tr("Print on %1").arg(QString::fromStdString(run.Report().Printer.DeviceName).replace('&', "&&")));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(AddOption(SheetChoice::All, "optAll", ""));
    layout->addWidget(AddOption(SheetChoice::Shown, "optShown", ""));
    layout->addWidget(AddOption(SheetChoice::Filled, "optFilled", ""));
    layout->addLayout(BuildRange());
    tabs_ = new TabsRow(this); // here, for the order of Tab
    layout->addWidget(tabs_);
    optSheets_->addButton(&tabs_->Option(), static_cast<int>(SheetChoice::Tabs));
    layout->addWidget(lblRange_);
    job_ = new JobChoice(run, this);
    layout->addWidget(job_);
    job_->setVisible(run.UsesPaper());
    layout->addLayout(BuildButtons());
    layout->addWidget(lblPrinted_);
    for (QLabel* label : {lblRange_, lblPrinted_}) {
        label->setWordWrap(true);
        label->hide();
    }
    Choose(SheetChoice::All);
    cmdPrint_->setDefault(true);
    connect(optSheets_, &QButtonGroup::idToggled, this, &PrintBox::LeadTabToChoice);
    connect(optSheets_, &QButtonGroup::idToggled, this,
            [this](int option) { option == static_cast<int>(SheetChoice::Tabs) ? TakeTabs() : ShowChoice(sheet_); });
    connect(tabs_, &TabsRow::Edited, this, [this] {
        const bool chosen = IsChosen(SheetChoice::Tabs);
        Choose(SheetChoice::Tabs);
        if (chosen)
            TakeTabs();
    });
}

QRadioButton* PrintBox::AddOption(SheetChoice choice, const char* name, const QString& text) {
    auto* option = Named(new QRadioButton(text), name);
    optSheets_->addButton(option, static_cast<int>(choice));
    return option;
}

bool PrintBox::IsChosen(SheetChoice choice) const {
    return optSheets_->checkedId() == static_cast<int>(choice);
}

void PrintBox::Choose(SheetChoice choice) {
    optSheets_->button(static_cast<int>(choice))->setChecked(true);
}

/// Not to the entries of another option. By itself Tab would go to the first option until one had the focus.
void PrintBox::LeadTabToChoice() {
    const auto policy = [](bool chosen) { return chosen ? Qt::StrongFocus : Qt::ClickFocus; };
    for (QAbstractButton* option : optSheets_->buttons())
        option->setFocusPolicy(policy(option->isChecked()));
    txtRange_->setFocusPolicy(policy(IsChosen(SheetChoice::Range)));
    tabs_->SetFocusPolicy(policy(IsChosen(SheetChoice::Tabs)));
}

void PrintBox::Begin(const TabNumbers& tabs) {
    tabs_->Show(tabs.empty() ? run_.TabsAtHand() : NumberListText(tabs), TabPlaces::Flowing);
    const std::size_t filled = run_.Report().FilledSheets().size();
    if (filled > 0 && filled < static_cast<std::size_t>(run_.Report().SheetCount()))
        Choose(SheetChoice::Filled);
    if (!tabs.empty())
        Choose(SheetChoice::Tabs);
}

/// While tabs are chosen the run is of them alone. What is still to be typed, or wrong, leaves it as it is.
void PrintBox::TakeTabs() {
    const bool alone = IsChosen(SheetChoice::Tabs);
    try {
        run_.ChooseTabs(alone ? std::optional(tabs_->List()) : std::nullopt, tabs_->Places());
        emit TabsChosen();
    } catch (const std::exception&) {
        // ShowChoice says it
    }
    ShowChoice(sheet_);
}

QHBoxLayout* PrintBox::BuildRange() {
    txtRange_ = Named(new QLineEdit, "txtRange");
    txtRange_->setPlaceholderText("1-3,7");
    txtRange_->setAccessibleName(tr("Sheets to print"));
    connect(txtRange_, &QLineEdit::textEdited, this, [this] {
        Choose(SheetChoice::Range);
        ShowChoice(sheet_);
    });
    auto* range = new QHBoxLayout;
    range->addWidget(AddOption(SheetChoice::Range, "optRange", tr("S&heets:")));
    range->addWidget(txtRange_, 1);
    return range;
}

QHBoxLayout* PrintBox::BuildButtons() {
    cmdPrint_ = Named(new QPushButton(tr("&Print")), "cmdPrint");
    cmdSavePdf_ = Named(new QPushButton(tr("Save as P&DF ...")), "cmdSavePdf");
    connect(cmdPrint_, &QPushButton::clicked, this, [this] { Print(false); });
    connect(cmdSavePdf_, &QPushButton::clicked, this, [this] { Print(true); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSavePdf_);
    buttons->addWidget(cmdPrint_, 1);
    return buttons;
}

void PrintBox::ShowCounts() {
    if (!run_.ChosenTabs().empty())
        return; // the counts are those of the whole run
    const auto label = [&](SheetChoice choice, const QString& text) {
        optSheets_->button(static_cast<int>(choice))->setText(text);
    };
    label(SheetChoice::All, tr("&All sheets (%1)").arg(run_.Report().SheetCount()));
    label(SheetChoice::Shown, tr("&This sheet"));
    label(SheetChoice::Filled, tr("&Filled sheets only (%1)").arg(run_.Report().FilledSheets().size()));
}

std::vector<int> PrintBox::ChosenSheets() const {
    const std::string list = IsChosen(SheetChoice::Tabs) ? tabs_->List() : txtRange_->text().toStdString();
    return run_.Sheets(static_cast<SheetChoice>(optSheets_->checkedId()), sheet_, list);
}

/// Says beside the choice why it cannot be printed; a range that is still to come is no mistake.
void PrintBox::ShowChoice(int sheet) {
    sheet_ = sheet;
    lblPrinted_->Say("");
    lblPrinted_->hide();
    QString fault;
    try {
        ChosenSheets();
    } catch (const std::exception& error) {
        fault = Sentence(error.what());
    }
    const bool waiting = (IsChosen(SheetChoice::Range) && txtRange_->text().isEmpty()) ||
                         (IsChosen(SheetChoice::Tabs) && tabs_->List().empty());
    lblRange_->Say(waiting ? "" : fault);
    lblRange_->setVisible(!lblRange_->text().isEmpty());
    cmdPrint_->setEnabled(fault.isEmpty());
    cmdSavePdf_->setEnabled(fault.isEmpty());
}

void PrintBox::Print(bool toFile) {
    const std::vector<int> sheets = ChosenSheets();
    if (!(toFile ? run_.SaveAsPdf(sheets) : run_.Print(sheets, job_->Options())))
        return;
    if (!toFile && run_.UsesPaper())
        emit Printed(sheets); // after which the run may go on behind them, and be shown anew
    lblPrinted_->Say(Breakable(QString::fromStdString(run_.Told()) + "."));
    lblPrinted_->show();
}

} // namespace velmora
