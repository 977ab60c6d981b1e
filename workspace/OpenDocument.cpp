#include "workspace/OpenDocument.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "document/TabFileCheck.h"
#include "workspace/Dialogs.h"
#include "workspace/ForeignFile.h"
#include "workspace/LoadDocument.h"
#include "workspace/Margins.h"
#include "workspace/Pages.h"
#include "workspace/RecentFiles.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/SaveDocument.h"

namespace velmora {
namespace {

constexpr const char* kOpenPlace = "Called form Sub:OpenFile";

/// Of rows without a header no column that was chosen stays hidden for want of a field.
template <typename Source> LoadOutcome LoadSource(MainModule& main, const Source& source) {
    if (!source.header) {
        const int fields = std::max<int>(main.document.setup.NoOfFields, FieldsInUse(source));
        Write(main.settings, kNoOfFields, std::to_string(fields));
    }
    return LoadDocument(main, source);
}

LoadOutcome LoadImported(MainModule& main, const Imported& imported) {
    if (const auto* file = std::get_if<TabFile>(&imported))
        return LoadSource(main, *file);
    return LoadSource(main, std::get<Worksheet>(imported));
}

/// A file as it was found: its stamp is taken before the reading, so that a change during it is noticed.
struct FoundFile {
    std::filesystem::path path;
    std::optional<FileStamp> stamp = StampOf(path);
};

/// Once it is loaded: a tab file of version 7 or 8, or a workbook of tabs alone.
bool IsOwn(const MainModule& main, const FoundFile& found, const Imported& imported) {
    if (const auto* file = std::get_if<TabFile>(&imported))
        return TestVersion7(file->FirstLine()) || TestVersion8(file->FirstLine());
    return IsOwnWorkbook(main, found.path, std::get<Worksheet>(imported).leftOut);
}

/// What is not the program's own does not hold what a save would write: the document counts as changed, and Save asks
/// before it overwrites the file.
void TakeOver(MainModule& main, const FoundFile& file, const Imported& imported) {
    const bool foreign = !IsOwn(main, file, imported);
    main.document.Stamp = file.stamp;
    main.document.DocFileName = file.path;
    main.document.Foreign = foreign;
    main.document.ForeignFindings = foreign ? ForeignFindings(imported, file.path) : "";
    main.document.DocChanged = foreign;
    RememberFile(main.settings, file.path);
}

/// `tabsPerPage` is set for a document that is too large.
LoadOutcome LoadOrNotePage(MainModule& main, const Imported& imported, std::int16_t& tabsPerPage) {
    try {
        return LoadImported(main, imported);
    } catch (const OverflowError&) {
        tabsPerPage = main.document.setup.TabsPerPage;
        throw;
    }
}

void TellOverfullLines(UserInterface& ui, const Imported& imported) {
    const auto* file = std::get_if<TabFile>(&imported);
    const std::string found = file && file->header ? OverfullFindings(*file) : "";
    if (!found.empty())
        Tell(ui, found);
}

/// Of another program's file; the printer's margins, which have to be decided on, stay in front.
void TellImported(MainModule& main) {
    std::size_t tabs = 0;
    for (std::int32_t tab = 1; tab <= main.document.TabCount; ++tab)
        tabs += IsEmptyTab(main.document, tab) ? 0 : 1;
    main.status->Tell({Counted(tabs, "tab") + " imported"});
    TellOtherMargins(main);
}

OpenOutcome ReplaceBy(MainModule& main, const FoundFile& file, const Imported& imported) {
    std::int16_t tabsPerPage = 0;
    main.document.FileError = false;
    try {
        const LoadOutcome outcome = ReplaceDocument(main, [&] {
            const LoadOutcome loaded = LoadOrNotePage(main, imported, tabsPerPage);
            TakeOver(main, file, imported);
            return loaded;
        });
        if (outcome == LoadOutcome::NoPrinter)
            return OpenOutcome::NoPrinter;
        TellOverfullLines(main.ui, imported);
        if (main.document.Foreign)
            TellImported(main);
        return OpenOutcome::Opened;
    } catch (const OverflowError&) {
        TellMostPages(main.ui, tabsPerPage);
    } catch (const std::exception& error) {
        ReportError(main.ui, error.what(), kLoadPlace);
    }
    main.document.FileError = true;
    Tell(main.ui, "Could not finish process");
    return OpenOutcome::Failed;
}

/// False when the person wants to stay with the open document, or it could not be saved.
bool MayReplaceDocument(MainModule& main) {
    if (main.document.DocFileName.empty())
        return true;
    const Answer answer = AskToSave(main.ui);
    if (answer == Answer::Yes)
        return SaveLabels(main, SaveKind::Save) == SaveOutcome::Saved;
    return answer == Answer::No;
}

Imported Import(MainModule& main, const std::filesystem::path& path) {
    return WorkbookFormatOf(path) ? ImportWorkbook(main, path) : ImportText(main, path);
}

/// A save in place that was cut short may have left the file a mixture of old and new; the new text is whole elsewhere.
void OfferInterruptedSave(MainModule& main, const std::filesystem::path& path) {
    const auto copy = UnfinishedSave(path);
    if (copy && Ask(main.ui,
                    "Saving the following file was interrupted, and it may be damaged: [" + PathText(path) +
                        "]\r\nDo you want to have back what was to be saved?",
                    Buttons::YesNo) == Answer::Yes)
        ReplaceFile(path, ReadFile(*copy));
}

/// `read` says what the file holds.
OpenOutcome Open(MainModule& main, const std::filesystem::path& path,
                 Imported (*read)(MainModule&, const std::filesystem::path&)) {
    if (!FileExists(path)) {
        main.document.FileError = true;
        Tell(main.ui, "Could not load the following file [" + PathText(path) + "]", Icon::Critical);
        return OpenOutcome::Failed;
    }
    OfferInterruptedSave(main, path);
    const FoundFile file{path};
    const Imported imported = read(main, path);
    const auto* ended = std::get_if<OpenOutcome>(&imported);
    return ended ? *ended : ReplaceBy(main, file, imported);
}

OpenOutcome OpenTrapped(MainModule& main, const std::filesystem::path& path,
                        Imported (*read)(MainModule&, const std::filesystem::path&)) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main.ui, kOpenPlace, [&] { outcome = Open(main, path, read); });
    return outcome;
}

OpenOutcome AskAndOpen(MainModule& main, OpenKind kind) {
    const std::string workbooks = "*.xlsx *.xlsm *.xltx *.xltm *.xlt";
    constexpr int kAll = 5;
    if (!MayReplaceDocument(main))
        return OpenOutcome::Cancelled;
    FileRequest request{"OPEN", kind == OpenKind::Import ? "Import" : "Open", main.globals.TabsPath,
                        "Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls", "Tabs.csv"};
    request.moreFilters = "Workbook|" + workbooks +
                          "|OpenDocument|*.ods *.ots|Text list|*.txt|Spreadsheets and lists|" + "*.xls " + workbooks +
                          " *.ods *.ots *.csv *.txt";
    request.chosenFilter = kind == OpenKind::Import ? kAll : 0;
    const auto path = main.ui.ChooseFile(request);
    if (!path)
        return OpenOutcome::Cancelled;
    if (!FileExists(*path)) {
        Tell(main.ui, "You have to select a valid file!");
        return OpenOutcome::Failed;
    }
    return OpenPath(main, *path);
}

} // namespace

std::optional<std::filesystem::path> UnfinishedSave(const std::filesystem::path& path) {
    auto copy = InterruptedSave(path);
    if (copy && ReadFile(*copy) == ReadFile(path))
        copy.reset(); // finished but for the tidying up
    return copy;
}

std::string OverfullFindings(const TabFile& file) {
    const std::vector<std::int32_t> lines = OverfullLines(file);
    return lines.empty() ? ""
                         : "Lines with more than three fields: " + NumberList(lines) +
                               ".\r\nWhat follows the third field was not read, and a save leaves it out.";
}

OpenOutcome OpenFile(MainModule& main, const std::filesystem::path& path) {
    return OpenTrapped(main, path, ReadOwnFile);
}

OpenOutcome OpenPath(MainModule& main, const std::filesystem::path& path) {
    return OpenTrapped(main, path, Import);
}

OpenOutcome OpenInstead(MainModule& main, const std::filesystem::path& path) {
    return MayReplaceDocument(main) ? OpenPath(main, path) : OpenOutcome::Cancelled;
}

OpenOutcome OpenNewFile(MainModule& main, OpenKind kind) {
    OpenOutcome outcome = OpenOutcome::Failed;
    Trapped(main.ui, "Called form Function:OpenNewFile", [&] { outcome = AskAndOpen(main, kind); });
    return outcome;
}

} // namespace velmora
