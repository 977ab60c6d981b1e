#include "document/SaveDocument.h"

#include "app/settings/Validate.h"
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/TabFile.h"

#include <algorithm>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kTabsNamed = 10;

Answer Ask(MainModule& main, const std::string& text, Icon icon, Buttons buttons,
           std::optional<Answer> defaultButton = std::nullopt) {
    return main.ui.Show({text, main.settings.SettingsAppName, icon, buttons, defaultButton});
}

void Tell(MainModule& main, const std::string& text, Icon icon = Icon::Information) {
    Ask(main, text, icon, Buttons::Ok);
}

bool HoldsComma(const TabDocument& document, int tab) {
    for (int field = 0; field < kFieldsPerTab; ++field)
        if (document.Field(field)(tab).find(',') != std::string::npos)
            return true;
    return false;
}

/// The format has no quoting: who typed a comma must know what becomes of it.
void WarnOfCommas(MainModule& main) {
    std::size_t count = 0;
    std::string named;
    for (int tab = 1; tab <= main.document.TabCount; ++tab)
        if (HoldsComma(main.document, tab) && ++count <= kTabsNamed)
            named += (named.empty() ? "" : ", ") + std::to_string(tab);
    if (count == 0)
        return;
    if (count > kTabsNamed)
        named += " and " + std::to_string(count - kTabsNamed) + " more";
    Tell(main, "These tabs hold commas: " + named +
                   ".\r\nA comma separates the fields in the file. When it is opened again, the text after a comma "
                   "moves into the next field.");
}

/// Nothing when written; the system's refusal otherwise.
std::optional<FileAccessError> TryWrite(MainModule& main, const fs::path& path) {
    const std::string bytes = TabFileBytes(main.document, main.settings, main.ui);
    try {
        ReplaceFile(path, bytes);
        return std::nullopt;
    } catch (const FileAccessError& error) {
        return error;
    }
}

bool WantsRetry(MainModule& main, const fs::path& path, const FileAccessError& error) {
    return Ask(main,
               "The application encountered the following error when it attempted to save the following file: [" +
                   path.string() + "]\r\nError Nommer:" + std::to_string(error.Number()) +
                   "\r\nError Description:" + error.Cause(),
               Icon::Critical, Buttons::RetryCancel) == Answer::Retry;
}

/// False when the person gave up.
bool WriteWithRetries(MainModule& main, const fs::path& path) {
    for (;;) {
        const auto error = TryWrite(main, path);
        if (error && !WantsRetry(main, path, *error)) {
            Tell(main, "File was NOT saved succesfully!");
            return false;
        }
        if (error)
            continue;
        if (FileExists(path))
            return true;
        if (Ask(main, "The file was not saved.  Do you want to retry?", Icon::Question, Buttons::YesNo) != Answer::Yes)
            return false;
    }
}

void RememberFolder(MainModule& main, const fs::path& path) {
    SaveSetting(main.settings, main.settings.SettingsAppName, "Paths", "Lables", (path.parent_path() / "").string());
    main.globals.TabsPath = path.parent_path() / "";
}

/// True when the person wants this path, which may have to be overwritten.
bool MayWrite(MainModule& main, const fs::path& path, bool exists) {
    if (!exists)
        return true;
    if (Ask(main, "Do you want to overwrite the following file?\r\n[" + path.string() + "]", Icon::Question,
            Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    try {
        AtomicFile probe(path);
        return true;
    } catch (const FileAccessError&) {
        Tell(main,
             "You can not overwrite the following file [" + path.string() +
                 "]\r\nThe file may be open or you may not have permission to overwrite it.  Please select a new "
                 "file name.",
             Icon::Critical);
        return false;
    }
}

SaveOutcome SaveUnder(MainModule& main, const fs::path& path) {
    SaveFile(main, path);
    if (main.document.FileError)
        return SaveOutcome::Failed;
    main.document.DocFileName = path;
    main.document.DocChanged = false;
    return SaveOutcome::Saved;
}

SaveOutcome AskAndSave(MainModule& main) {
    const std::string name = main.document.DocFileName.filename().string();
    for (;;) {
        const auto path = main.ui.ChooseFile({"SAVE", "Save as", main.globals.TabsPath,
                                              "Velmora file(*.csv)|*.csv", name.empty() ? "Tabs.csv" : name});
        if (!path)
            return SaveOutcome::Cancelled;
        const bool exists = FileExists(*path);
        if (!MayWrite(main, *path, exists))
            continue;
        const SaveOutcome outcome = SaveUnder(main, *path);
        if (outcome == SaveOutcome::Saved && exists) // kept: a new file is saved without a word
            Tell(main, "File saved successfully");
        if (outcome == SaveOutcome::Saved)
            RememberFolder(main, *path);
        return outcome;
    }
}

} // namespace

void SaveFile(MainModule& main, const fs::path& path) {
    main.document.FileError = false;
    WarnOfCommas(main);
    try {
        main.document.FileError = !WriteWithRetries(main, path);
    } catch (const std::exception& error) {
        main.document.FileError = true;
        ReportError(main, error.what(), "Called form Sub:SaveFile");
    }
    if (main.document.FileError)
        Tell(main, "Could not finish process");
}

SaveOutcome SaveLabels(MainModule& main, bool saveAs) {
    SaveLabel(main, main.document.CurrentPage, main.document.TabsPerPage);
    SaveOutcome outcome;
    if (saveAs || main.document.DocFileName.empty()) {
        outcome = AskAndSave(main);
    } else {
        outcome = SaveUnder(main, main.document.DocFileName);
        if (outcome == SaveOutcome::Saved)
            Tell(main, "File saved successfully");
    }
    ShowCaption(main);
    return outcome;
}

} // namespace velmora
