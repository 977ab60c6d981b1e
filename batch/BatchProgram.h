// The program behind the command line: the same document, settings and report as the desktop program's, without a
// person in front of it and with settings of its own, kept in memory.
#pragma once

#include "base/AtomicFile.h"
#include "base/Text.h"
#include "document/TabFile.h"
#include "document/Worksheet.h"
#include "platform/BuiltInPrinters.h"
#include "platform/UserInterface.h"
#include "report/rptVelmor.h"
#include "settings/RegistryFile.h"
#include "settings/mdlSettings.h"
#include "workbook/LibraryWorkbooks.h"
#include "workspace/mdlMain.h"

#include <filesystem>
#include <functional>
#include <string>

namespace velmora {

/// Wrong use of the command line, found after it was parsed.
class UsageError : public Error {
public:
    using Error::Error;
};

/// Nobody can answer: a critical message becomes the command's error, any other is kept for the command that wants it.
class BatchInterface : public UserInterface {
public:
    std::string told; ///< the last message that was passed over
    Answer Show(const Message& message) override;
    void Beep() override {}
    std::unique_ptr<Progress> StartProgress(const std::string& text, int total) override;
    std::unique_ptr<Progress> StartCancellable(const std::string& text, int total) override;
    std::optional<std::filesystem::path> ChooseFile(const FileRequest&) override { return std::nullopt; }
    std::optional<std::filesystem::path> ChooseFolder(const std::string&, const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<Credentials> AskForCredentials(const CredentialsRequest&) override { return std::nullopt; }
};

class BatchProgram {
public:
    BatchProgram();

    /// Takes over the settings of an INI file, which is only read.
    void UseSettings(const std::filesystem::path& iniFile);
    /// Of that INI file, or for "" the person's own program's, where there are any.
    void UseOwnSettings(const std::string& iniFile);
    /// Reads and loads a tab file, "-" for standard input. Raises Error with the file's name in front.
    TabFile Load(const std::string& file);
    /// Raise Error for more tabs than the tab type holds.
    void Load(const TabFile& file);
    void Load(const Worksheet& sheet);

    SettingsStore& Settings() { return settings_; }
    MainModule& Main() { return main_; }
    const MainModule& Main() const { return main_; }
    LayoutValues& Layout() { return layout_; }
    /// The last message that a person would have read and clicked away, in one line.
    std::string Told() const { return OneLine(ui_.told); }

private:
    BatchInterface ui_;
    RegistryFile registry_;
    BuiltInPrinters printers_{true};
    LibraryWorkbooks workbooks_;
    SettingsStore settings_;
    MainModule main_;
    LayoutValues layout_;
};

/// Raises why the file cannot be read, also for one that is too large or in UTF-16, or of text without one section.
void CheckIsIniFile(const std::filesystem::path& file);

/// The file's name, "standard input" for "-".
std::string DisplayName(const std::string& file);

[[noreturn]] void RaiseWithFile(const std::string& file, const Error& error);

/// Runs `work` and puts the file's name in front of the error that it raises.
template <typename Work> auto NamingFile(const std::string& file, Work work) {
    try {
        return work();
    } catch (const FileAccessError&) {
        throw; // names the file itself
    } catch (const Error& error) {
        RaiseWithFile(file, error);
    }
}

/// Names the copy that an interrupted save of that file left; no effect where there is none. Before a file is read: it
/// may be damaged.
void MentionInterruptedSave(const std::string& file);

/// The bytes of a file, "-" for standard input. Raises FileAccessError, and Error for a list that is too large.
std::string ReadInput(const std::string& file);

/// Lets `produce` write through its sink to a file, which is replaced when all is written, or to standard output
/// for "-".
void WriteOutput(const std::string& file,
                 const std::function<void(const std::function<void(std::string_view)>& sink)>& produce);

} // namespace velmora
