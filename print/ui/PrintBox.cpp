#include "print/ui/PrintBox.h"

#include "print/ui/JobChoice.h"
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
    layout->addWidget(lblRange_);
    job_ = new JobChoice(run, this);
    layout->addWidget(job_);
    job_->setVisible(run.Report().Printer.DeviceName != kPdfPrinter);
    layout->addLayout(BuildButtons());
    layout->addWidget(lblPrinted_);
    for (QLabel* label : {lblRange_, lblPrinted_}) {
        label->setWordWrap(true);
        label->hide();
    }
    optSheets_->button(static_cast<int>(SheetChoice::All))->setChecked(true);
    cmdPrint_->setDefault(true);
    connect(optSheets_, &QButtonGroup::idToggled, this, [this] { ShowChoice(sheet_); });
}

QRadioButton* PrintBox::AddOption(SheetChoice choice, const char* name, const QString& text) {
    auto* option = Named(new QRadioButton(text), name);
    optSheets_->addButton(option, static_cast<int>(choice));
    return option;
}

QHBoxLayout* PrintBox::BuildRange() {
    txtRange_ = Named(new QLineEdit, "txtRange");
    txtRange_->setPlaceholderText("1-3,7");
    txtRange_->setAccessibleName(tr("Sheets to print"));
    connect(txtRange_, &QLineEdit::textEdited, this, [this] {
        optSheets_->button(static_cast<int>(SheetChoice::Range))->setChecked(true);
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
    const auto label = [&](SheetChoice choice, const QString& text) {
        optSheets_->button(static_cast<int>(choice))->setText(text);
    };
    label(SheetChoice::All, tr("&All sheets (%1)").arg(run_.Report().SheetCount()));
    label(SheetChoice::Shown, tr("&This sheet"));
    label(SheetChoice::Filled, tr("&Filled sheets only (%1)").arg(run_.Report().FilledSheets().size()));
}

std::vector<int> PrintBox::ChosenSheets() const {
    return run_.Sheets(static_cast<SheetChoice>(optSheets_->checkedId()), sheet_, txtRange_->text().toStdString());
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
    const bool waiting = optSheets_->checkedId() == static_cast<int>(SheetChoice::Range) && txtRange_->text().isEmpty();
    lblRange_->Say(waiting ? "" : fault);
    lblRange_->setVisible(!lblRange_->text().isEmpty());
    cmdPrint_->setEnabled(fault.isEmpty());
    cmdSavePdf_->setEnabled(fault.isEmpty());
}

void PrintBox::Print(bool toFile) {
    const std::vector<int> sheets = ChosenSheets();
    const bool file = toFile || run_.Report().Printer.DeviceName == kPdfPrinter;
    if (!(toFile ? run_.SaveAsPdf(sheets) : run_.Print(sheets, job_->Options())))
        return;
    lblPrinted_->Say((file ? tr("%n sheet(s) saved as PDF.", nullptr, static_cast<int>(sheets.size()))
                           : tr("%n sheet(s) sent to the printer.", nullptr, static_cast<int>(sheets.size())))
                         .replace("(s)", sheets.size() == 1 ? "" : "s"));
    lblPrinted_->show();
}

} // namespace velmora
