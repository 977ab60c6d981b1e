// The printer set-up wizard (frmAutoPrtWiz1 and the pages after it): printer, stationery and layout, a test page, and
// advice when it came out wrong. All choices are a draft until Finish.
#pragma once

#include "setup/PageSetup.h"

#include <functional>
#include <string>
#include <vector>

namespace velmora {

/// What frmFix1 and frmFix2 ask about the test page.
inline constexpr const char* kFix1Question = "The test page did not come out of the printer.\r\n"
                                             "Can you print from another program on the same printer?";
inline constexpr const char* kFix2Question = "The test page came out, but not on the paper that you chose.\r\n"
                                             "Does another program print correctly on this paper?";
/// Before Finish empties the document.
inline constexpr const char* kEmptyingQuestion =
    "The chosen stationery empties the document, because no tab but the first is in use. Edit > Undo brings its texts "
    "back. To let them flow onto the new sheets, leave the wizard and click into any other tab before.\r\nDo you want "
    "to empty it?";
/// The wizard's last page.
inline constexpr const char* kUpsideDownAdvice =
    "The reason why the labels were printed upside-down is because you fed the paper in upside-down.  Please feed it "
    "in the opposite way round.";

/// The advice that ends either question.
void TellPrinterAdvice(UserInterface& ui, bool othersPrint);

struct InstalledPrinter {
    std::string name;
    bool isDefault = false;
};

class PrinterWizard {
public:
    /// Starts with the configured printer, or the default one where that is not installed, and the document's
    /// stationery.
    explicit PrinterWizard(MainModule& main);

    const std::vector<InstalledPrinter>& Printers() const { return printers_; }
    const std::string& Printer() const { return printer_; } ///< empty on a machine without printers
    /// No effect for one that is not installed.
    void ChoosePrinter(const std::string& name);

    /// Labels of tab types 0 to 5.
    static std::vector<std::string> StationeryLabels();
    int TabType() const { return draft_.OptType; }
    /// No effect outside 0 to 5. A DL type starts with "DL_v".
    void ChooseType(int type);
    bool HasLayouts() const { return draft_.PageSize == "DL"; }
    const std::string& Layout() const { return draft_.StationeryType; } ///< "A4", "DL_v" or "DL_h"
    /// "DL_v" or "DL_h"; no effect for other texts and for A4 types.
    void ChooseLayout(const std::string& layout);

    bool CanFinish() const { return !printer_.empty(); }
    /// Calls `print` with the number of tabs of one sheet while printer, stationery and margins are the chosen ones,
    /// and puts everything back after it, also where it raises an error.
    void PrintTestPage(const std::function<void(std::int32_t tabs)>& print);

    /// Whose margins the test page has, and the document once it is finished, in words.
    std::string MarginsText() const;

    /// Stores the choices and takes the document to them, as ApplySetup says; the document stays untouched where
    /// nothing was changed, and all does unless CanFinish. Asks before it empties the document. False when they were
    /// not stored.
    bool Finish();

private:
    bool Changes() const;

    MainModule& main_;
    std::vector<InstalledPrinter> printers_;
    std::string printer_;
    DocumentSetup draft_;
};

} // namespace velmora
