#include "setup/PrinterWizard.h"

#include "base/Error.h"
#include "base/Version.h"
#include "workspace/Dialogs.h"
#include "workspace/TakePageBack.h"
#include "workspace/Transaction.h"

#include <algorithm>

namespace velmora {
namespace {

bool MayEmpty(UserInterface& ui) {
    return Ask(ui, kEmptyingQuestion, Buttons::YesNo, Answer::No) == Answer::Yes;
}

} // namespace

void TellPrinterAdvice(UserInterface& ui, bool othersPrint) {
    const char* const advice =
        othersPrint ? "This means that Velmora is having trouble reading your printer drivers. You should try to use a "
                      "different stationary settings in the wizard. If you are still having problems you should ask "
                      "your network administrator to help you, after which you can contact Quenmark for technicial "
                      "support."
                    : "Well it is best now to call your network technician who will be able to fix your printing "
                      "problem !";
    ui.Show({advice, std::string(kProgramName) + " - Information ...", Icon::Information});
}

PrinterWizard::PrinterWizard(MainModule& main) : main_(main), draft_(SetupDraft(main.document.setup)) {
    const std::string standard = main.printers.DefaultPrinter().value_or("");
    for (const std::string& name : main.printers.Printers())
        printers_.push_back({name, name == standard});
    if (!printers_.empty())
        printer_ = printers_.front().name;
    ChoosePrinter(standard);
    ChoosePrinter(main.globals.PrinterName);
}

void PrinterWizard::ChoosePrinter(const std::string& name) {
    if (std::any_of(printers_.begin(), printers_.end(), [&](const auto& printer) { return printer.name == name; }))
        printer_ = name;
}

std::vector<std::string> PrinterWizard::StationeryLabels() {
    std::vector<std::string> labels;
    for (const velmora::TabType& type : kCatalogue)
        labels.emplace_back(type.label);
    return labels;
}

void PrinterWizard::ChooseType(int type) {
    if (FindTabType(type))
        SetDraftType(draft_, type);
}

void PrinterWizard::ChooseLayout(const std::string& layout) {
    if (!HasLayouts() || (layout != "DL_v" && layout != "DL_h"))
        return;
    draft_.StationeryType = layout;
    SetDraftType(draft_, draft_.OptType);
}

void PrinterWizard::PrintTestPage(const std::function<void(std::int32_t)>& print) {
    const Transaction trial(main_); // never committed
    const auto margins = NewMargins(main_, draft_, printer_);
    TabDocument& document = main_.document;
    document.setup.OptType = draft_.OptType;
    document.setup.StationeryType = draft_.StationeryType;
    document.setup.LayoutName = draft_.LayoutName;
    SetRowsAndStationery(document.setup, draft_.OptType);
    SetColsPerPage(document.setup, draft_.OptType);
    main_.globals.PrinterName = printer_;
    Write(main_.settings, kPrinter, printer_);
    if (margins)
        UseMargins(main_.settings, *margins);
    print(draft_.RowsPerPage * draft_.ColsPerPage);
}

bool PrinterWizard::Changes() const {
    return printer_ != main_.globals.PrinterName || !SameChoices(draft_, main_.document.setup);
}

std::string PrinterWizard::MarginsText() const {
    try {
        const auto margins = NewMargins(main_, draft_, printer_);
        if (!margins)
            return "Margins as before: " + MarginsInWords(ActiveMargins(main_.settings)) + ".";
        const std::string layout = LayoutDisplayName(draft_.LayoutName, draft_.OptType);
        return PrinterMargins(main_.settings, printer_, draft_)
                   ? "Margins of " + printer_ + " on " + layout + ": " + MarginsInWords(*margins) + "."
                   : printer_ + " was not calibrated on " + layout +
                         " yet. The default margins are taken: " + MarginsInWords(*margins) + ".";
    } catch (const OverflowError& error) { // out of the stored defaults, which Finish will report
        return std::string("Default margins: ") + error.what();
    }
}

bool PrinterWizard::Finish() {
    if (!CanFinish())
        return false;
    if (!Changes()) {
        SaveGlobals(main_); // what a first start has to leave filled
        return true;
    }
    TakePageBack(main_);
    if (TakesTextsAway(main_.document, draft_.OptType) && !MayEmpty(main_.ui))
        return false;
    const std::string margins = MarginsText();
    if (!ApplySetup(main_, draft_, printer_, "Printer Setup"))
        return false;
    main_.status->Tell({margins});
    return true;
}

} // namespace velmora
