#include "app/Start.h"

#include "app/Commands.h"
#include "app/LostDocuments.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "setup/Margins.h"
#include "workspace/Dialogs.h"
#include "workspace/FolderSearch.h"
#include "workspace/Globals.h"
#include "workspace/OpenDocument.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr int kSearchesBeforeQuestion = 5;
/// The search goes for an older installation; a person may choose any folder.
const FolderWanted kApplicationFolder = {"Velmor.exe", "Application", "Application", false, false};

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
        folder = WithSeparator(SearchFolder(main, folder, kApplicationFolder));
    }
    return true;
}

/// Goes on until there is a folder, made or chosen.
void FindFolder(MainModule& main, fs::path& folder, const fs::path& fallback, const FolderWanted& wanted) {
    folder = ReadFolder(main.settings, wanted.key.c_str(), fallback);
    while (IsMissing(folder)) {
        if (folder.empty())
            folder = ReadFolder(main.settings, wanted.key.c_str(), fallback);
        folder = WithSeparator(SearchFolder(main, folder.empty() ? fallback : folder, wanted));
    }
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
    return outcome;
}

/// What is not set up yet is offered, one dialog after the other. The page set-up is for a document that begins.
LoadOutcome OfferSetup(MainModule& main, Forms& forms, bool restored) {
    const auto wanted = [&](const char* what) {
        return Ask(main.ui, std::string(what) + "\r\nDo you want to do it now?", Buttons::YesNo) == Answer::Yes;
    };
    if (!SetupComplete(main.settings) && wanted("You have to configure a printer."))
        forms.ShowPrinterSetup();
    if (!MarginsReady(main) && wanted("You have to setup margins for the tabs."))
        forms.ShowMarginSetup();
    return main.globals.StartWithSetup && !restored ? forms.ShowPageSetup() : LoadOutcome::Loaded;
}

/// What was lost, or the copy that the command line names, which is none to open then. True when a document came back.
bool RecoverFirst(Program& program, fs::path& file, Forms& forms) {
    MainModule& main = program.main;
    if (!main.recovery.Holds(file))
        return OfferLost(main, *program.desktop, file, [&](const auto& lost) { return forms.ShowLost(lost); });
    return RestoreCommand(main, {std::exchange(file, {}), {}, {}});
}

} // namespace

StartOutcome Main(Program& program, const std::string& commandLine, Forms& forms) {
    MainModule& main = program.main;
    main.history.KeepSteps();
    main.settings.SaveMode = 1;
    SetVersionTitle(program);
    main.settings.IniFile = main.settings.OwnIniFile();
    if (EqualsNoCase(commandLine, "SETTINGS")) {
        forms.ShowSettingsEditor();
        return StartOutcome::Ended;
    }
    if (LoadConfiguration(main) == LoadOutcome::NoPrinter || !FindFolders(main))
        return StartOutcome::Ended;
    main.recovery.Open(main.settings.ProgramFolder / "Recovery", [] { return std::chrono::system_clock::now(); });
    forms.ShowMainWindow();
    fs::path file = commandLine.empty() ? fs::path() : fs::absolute(PathOf(commandLine));
    const bool restored = RecoverFirst(program, file, forms);
    if (OfferSetup(main, forms, restored) == LoadOutcome::NoPrinter)
        return StartOutcome::Ended;
    if (!restored && !file.empty() && OpenPath(main, file) == OpenOutcome::NoPrinter)
        return StartOutcome::Ended;
    return StartOutcome::Running;
}

} // namespace velmora
