// One run of the tab report, from its records to paper or to a file: what a preview window needs, without its rules.
// Slots of its first sheet that are used up are its own, never the document's.
#pragma once

#include "print/PrintModule.h"
#include "report/PdfReport.h"
#include "report/PrepareReport.h"
#include "report/PrintChecks.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

enum class SheetChoice { All, Shown, Filled, Range, Tabs };

class PrintRun {
public:
    /// `report` has been through SetupPrinter. Raises what the report's steps raise.
    PrintRun(PrintModule& print, rptVelmor& report, std::string caption, const ReportRequest& request);

    const std::string& Caption() const { return caption_; }
    /// Ready for LayOutSheet.
    rptVelmor& Report() { return report_; }
    const MainModule& Main() const { return print_.main; }
    /// A check of all sheets, with what the printer says of the paper. It holds until the used slots change.
    PrintCheck Check();
    /// False, and the person is told why, when no job can go to the printer.
    bool CanPrint();
    /// What a check finds and what the printer says, in words; empty: nothing that paper would show.
    std::string Doubts();
    /// The person heard the doubts and wants to print: nothing asks again.
    void GoOnInSpite() { asked_ = true; }
    const FontCatalogue& Catalogue() const { return print_.catalogue; }

    int LabelsPerSheet() const { return request_.rows * request_.cols; }
    /// Slots of the first sheet that are used up, from 1: this run's, never the document's.
    const std::vector<int>& UsedSlots() const { return request_.labels.used; }
    /// Lets the tabs flow around them, which may change the number of sheets. A failure is shown, and the run stays as
    /// it was; false then.
    bool SetUsedSlots(const std::vector<int>& used);

    /// The report's printer is a real one: a PDF file takes no labels.
    bool UsesPaper() const { return report_.Printer.DeviceName != kPdfPrinter; }
    /// Of the sheet that goes on being used, which an earlier job left; empty: there is none.
    std::vector<int> LabelsInUse() const;
    /// What these sheets, once printed, leave of the last one is offered to the next job; none: the next one begins
    /// with a whole sheet.
    void KeepLabelsInUse(const std::vector<int>& sheets);

    /// The tabs that are printed alone; empty: all.
    const TabNumbers& ChosenTabs() const { return request_.labels.tabs; }
    /// They come to their own places, whatever slots are used up.
    bool KeepsPlaces() const { return !ChosenTabs().empty() && request_.labels.places == TabPlaces::Own; }
    /// Takes tabs of the whole document, typed as a list such as "300,305-307"; nullopt: all that the run was made for.
    /// Raises Error, in words for the person, for what is no such list, and the run stays as it was.
    void ChooseTabs(const std::optional<std::string>& list, TabPlaces places = TabPlaces::Flowing);
    /// Such a list of the tabs that are marked in the editor, else of the one in use; empty without an editor.
    std::string TabsAtHand() const;

    /// The sheets of a choice; never none. `shown` is the sheet on screen, `list` what was typed. Raises Error, in
    /// words for the person, for a list that is none and where no sheet has a text.
    std::vector<int> Sheets(SheetChoice choice, int shown, const std::string& list) const;

    /// What the report's printer lets one choose from.
    PaperSources Sources() const { return print_.main.printers.SourcesOf(report_.Printer.DeviceName); }
    /// Sends sheets, numbered from 1, to the report's printer; none: all. The built-in printer asks for a path. False
    /// when the person cancelled, and after a failure, which is shown: nothing is printed then.
    bool Print(const std::vector<int>& sheets = {}, const JobOptions& options = {});
    /// The same as a PDF file, at a path that is asked for.
    bool SaveAsPdf(const std::vector<int>& sheets = {});
    /// What the status line was told of the sheets that went out last.
    const std::string& Told() const { return told_; }

private:
    void Prepare(const ReportRequest& request);
    TabNumbers ParseTabs(const std::string& list) const;
    bool Send(const std::string& printer, const std::vector<int>& sheets, const JobOptions& options = {});
    SheetSeries Series(const std::vector<int>& sheets);
    std::string JobTitle() const;

    PrintModule& print_;
    rptVelmor& report_;
    std::string caption_;
    ReportRequest request_;
    std::string told_;
    bool asked_ = false; ///< about the doubts
};

} // namespace velmora
