// One run of the tab report, from its records to paper or to a file: what a preview window needs, without its rules.
#pragma once

#include "print/PrintModule.h"
#include "report/PrintChecks.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// What a run prints, as its caller names it.
struct RunArguments {
    std::string mode; ///< "TEST": the fixed texts of the test page
    std::int16_t tabType = 0;
    std::int32_t count = 0; ///< of tabs, whole sheets
    std::int16_t numFields = 1;
    std::int16_t rows = 1;
    std::int16_t cols = 1;
    bool pageOnly = false; ///< the page shown alone
};

enum class SheetChoice { All, Shown, Filled, Range };

class PrintRun {
public:
    /// `report` has been through SetupPrinter. Raises what the report's steps raise.
    PrintRun(PrintModule& print, rptVelmor& report, std::string caption, RunArguments arguments);

    const std::string& Caption() const { return caption_; }
    const RunArguments& Arguments() const { return arguments_; }
    /// Ready for LayOutSheet.
    rptVelmor& Report() { return report_; }
    const MainModule& Main() const { return print_.main; }
    /// A check of all sheets, with what the printer says of the paper. It holds until the used slots change.
    PrintCheck Check();
    /// False when the person was told what a check finds, and does not want to print.
    bool WantedAnyway();
    const FontCatalogue& Catalogue() const { return print_.catalogue; }

    /// Slots of the first sheet that are used up, from 1.
    const std::vector<int>& UsedSlots() const { return used_; }
    /// Lets the tabs flow around them, which may change the number of sheets. A failure is shown, and the run stays as
    /// it was; false then.
    bool SetUsedSlots(const std::vector<int>& used);

    /// The sheets of a choice; never none. `shown` is the sheet on screen, `range` what was typed. Raises Error, in
    /// words for the person, for a range that is none and where no sheet has a text.
    std::vector<int> Sheets(SheetChoice choice, int shown, const std::string& range) const;

    /// Sends sheets, numbered from 1, to the report's printer; none: all. The built-in printer asks for a path. False
    /// when the person cancelled, and after a failure, which is shown: nothing is printed then.
    bool Print(const std::vector<int>& sheets = {});
    /// The same as a PDF file, at a path that is asked for.
    bool SaveAsPdf(const std::vector<int>& sheets = {});

private:
    void Prepare(const std::vector<int>& used);

    PrintModule& print_;
    rptVelmor& report_;
    std::string caption_;
    RunArguments arguments_;
    std::vector<int> used_;
};

} // namespace velmora
