#include "app/Start.h"

#include "app/Commands.h"
#include "app/LostDocuments.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "workspace/Dialogs.h"
#include "workspace/FolderSearch.h"
#include "workspace/Globals.h"
#include "workspace/Margins.h"
#include "workspace/OpenDocument.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr int kSearchesBeforeQuestion = 5;

void SetVersionTitle(Program& program) {
    program.main.settings.SettingsAppName = kProgramName;
    program.Title = program.main.settings.SettingsAppName + " [Version " + kVersion + "]";
}

/// A folder from section "Paths". The default stands in for a stored path that the settings cut at their longest value,
/// and for one that moved in from a machine with drives.
fs::path ReadFolder(SettingsStore& settings, const char* key, const fs::path& fallback) {
    const std::string otherwise = PathText(WithSeparator(fallback));
    const std::string stored = Read(settings, {"Paths", key, otherwise});
    const bool cut = CharacterCount(stored) >= kIniValueCharacters && otherwise.starts_with(stored);
    const bool foreign = PathOf(stored).is_relative() && DriveOf(stored) != "NO DRIVE";
    return WithSeparator(PathOf(cut || foreign ? otherwise : stored));
}

bool IsMissing(const fs::path& folder) {
    return folder.empty() || !FolderExists(folder);
}

/// False when the person gives up.
bool FindApplicationFolder(MainModule& main) {
    const FolderWanted wanted = {kProgramFile, "Application", "Application", false};
    fs::path& folder = main.globals.AppPath;
    folder = ReadFolder(main.settings, "Application", main.settings.ProgramFolder);
    for (int searches = 0; IsMissing(folder); ++searches) {
        if (searches == kSearchesBeforeQuestion) {
            if (Ask(main.ui, "Do you want to exit the installtion prosedure of Velmora", Buttons::YesNo) == Answer::Yes)
                return false;
            searches = 0;
        }
        if (folder.empty())
            folder = ReadFolder(main.settings, "Application", folder);
        folder = WithSeparator(SearchFolder(main, folder, wanted).value_or(folder));
    }
    return true;
}

/// The folder made, found or chosen; who gives up has the default for this run.
void FindFolder(MainModule& main, fs::path& folder, const fs::path& fallback, const FolderWanted& wanted) {
    folder = ReadFolder(main.settings, wanted.key.c_str(), fallback);
    if (!IsMissing(folder))
        return;
    const auto found = SearchFolder(main, folder.empty() ? fallback : folder, wanted);
    if (!found)
        FolderExists(fallback, true);
    folder = WithSeparator(found.value_or(fallback));
}

bool FindFolders(MainModule& main) {
    if (!FindApplicationFolder(main))
        return false;
    const fs::path& application = main.globals.AppPath;
    FindFolder(main, main.globals.ImagesPath, application / "Images", {"A4_alpha_New.gif", "Images", "Images", true});
    FindFolder(main, main.globals.TabsPath, application / "Tabs", {"Tabs.csv", "Lables", "Lables", true});
    return true;
}

/// First load of a document's properties, with the limits and the layout that go with them.
LoadOutcome LoadConfiguration(MainModule& main) {
    main.document.CurrentPage = 0;
    main.document.NoOfPages = 0;
    main.document.DocChanged = false;
    const LoadOutcome outcome = LoadGlobals(main);
    SetLayoutFromType(main.document.setup);
    SetFieldLimits(main.document.setup);
    // The margins stored last may be those of a document from elsewhere.
    if (const auto margins = PrinterMargins(main.settings, main.globals.PrinterName, main.document.setup))
        UseMargins(main.settings, *margins);
    return outcome;
}

const std::string kAboutMargins = "Every printer feeds its paper a little differently. With margins of its own, the "
                                  "texts stand in the middle of the tabs. This can wait until the first sheet is "
                                  "printed: File > Margin Setup.\r\n\r\n";

/// True when the person wants to do it now. With the tick the question does not come again.
bool WantsNow(MainModule& main, const SettingKey& ask, const std::string& text) {
    bool notAgain = false;
    const Answer answer = main.ui.Show({text + "\r\nDo you want to do it now?", kProgramName, Icon::Question,
                                        Buttons::YesNo, std::nullopt, &notAgain});
    if (notAgain)
        Write(main.settings, ask, "False");
    return answer == Answer::Yes;
}

/// Whom the system's default printer was given without a question is asked once.
void OfferPrinterSetup(MainModule& main, Forms& forms) {
    const bool complete = SetupComplete(main.settings);
    if (!ToFlag(ReadAccepted(main.settings, AskForPrinter(!complete))) ||
        !WantsNow(main, AskForPrinter(!complete), "You have to configure a printer."))
        return;
    Write(main.settings, AskForPrinter(!complete), "False");
    forms.ShowPrinterSetup();
}

/// What is not set up yet is offered, one dialog after the other. The page set-up is for a document that begins, a
/// printer for who came for no document.
LoadOutcome OfferSetup(MainModule& main, Forms& forms, bool begins) {
    if (begins)
        OfferPrinterSetup(main, forms);
    if (!MarginsReady(main) && ToFlag(ReadAccepted(main.settings, kAskForMargins)) &&
        WantsNow(main, kAskForMargins, kAboutMargins + "You have to setup margins for the tabs."))
        forms.ShowMarginSetup();
    return main.globals.StartWithSetup && begins ? forms.ShowPageSetup() : LoadOutcome::Loaded;
}

/// What was lost, or the copy that the command line names, which is none to open then. True when a document came back.
bool RecoverFirst(Program& program, fs::path& file, Forms& forms) {
    MainModule& main = program.main;
    if (!main.recovery.Holds(file))
        return OfferLost(main, *program.desktop, file, [&](const auto& lost) { return forms.ShowLost(lost); });
    return RestoreCommand(main, {std::exchange(file, {}), {}, {}});
}

} // namespace

StartOutcome Main(Program& program, const CommandLine& commandLine, Forms& forms) {
    MainModule& main = program.main;
    main.history.KeepSteps();
    main.settings.SaveMode = 1;
    SetVersionTitle(program);
    main.settings.IniFile = main.settings.OwnIniFile();
    if (commandLine.kind == CommandLine::Kind::SettingsEditor) {
        forms.ShowSettingsEditor();
        return StartOutcome::Ended;
    }
    if (LoadConfiguration(main) == LoadOutcome::NoPrinter || !FindFolders(main))
        return StartOutcome::Ended;
    main.recovery.Open(main.settings.ProgramFolder / "Recovery", [] { return std::chrono::system_clock::now(); });
    forms.ShowMainWindow();
    const std::vector<fs::path>& files = commandLine.files;
    fs::path file = files.empty() ? fs::path() : files.front();
    const bool restored = RecoverFirst(program, file, forms);
    if (!restored && file.empty())
        forms.ShowStartPage();
    if (!restored && !file.empty() && OpenPath(main, file) == OpenOutcome::NoPrinter)
        return StartOutcome::Ended;
    if (!files.empty())
        OpenBeside(main.ui, *program.desktop, {files.begin() + 1, files.end()});
    if (OfferSetup(main, forms, !restored && files.empty()) == LoadOutcome::NoPrinter)
        return StartOutcome::Ended;
    return StartOutcome::Running;
}

} // namespace velmora
