#include "batch/BatchProgram.h"

#include "base/AtomicFile.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "document/TabFileForm.h"
#include "platform/Machine.h"
#include "settings/IniText.h"
#include "workspace/LoadDocument.h"
#include "workspace/OpenDocument.h"

#include <array>
#include <iostream>

namespace velmora {
namespace {

constexpr const char* kStandardStream = "-";

class NoProgress : public Progress {
public:
    void Advance(int) override {}
};

std::string ReadStandardInput() {
    std::string bytes;
    std::array<char, 65536> piece{};
    while (std::cin.read(piece.data(), piece.size()), std::cin.gcount() > 0) {
        bytes.append(piece.data(), static_cast<std::size_t>(std::cin.gcount()));
        RefuseLargeList(bytes, bytes.size());
    }
    if (std::cin.bad())
        throw Error("cannot be read");
    return bytes;
}

template <typename Source> void LoadOrExplain(MainModule& main, const Source& source) {
    try {
        LoadDocument(main, source);
    } catch (const OverflowError& error) {
        throw Error(std::string(error.what()) + ": a document of this tab type holds at most " +
                    std::to_string(MostTabs(main.document.setup.OptType)) + " tabs");
    }
}

} // namespace

void CheckIsIniFile(const std::filesystem::path& file) {
    const std::string text = ReadIniFile(file);
    const std::string start = text.substr(0, 4);
    if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF") || start.find('\0') != std::string::npos)
        throw Error(PathText(file) + ": neither UTF-8 nor Windows-1252");
    if (!Trim(text).empty() && IniText(text).ListSections().empty())
        throw Error(PathText(file) + ": holds no settings, not one [section]");
}

std::string DisplayName(const std::string& file) {
    return file == kStandardStream ? "standard input" : file;
}

Answer BatchInterface::Show(const Message& message) {
    if (message.icon == Icon::Critical || message.icon == Icon::Exclamation)
        throw Error(message.text);
    told = message.text;
    return Answer::Ok;
}

std::unique_ptr<Progress> BatchInterface::StartProgress(const std::string&, int) {
    return std::make_unique<NoProgress>();
}

std::unique_ptr<Progress> BatchInterface::StartCancellable(const std::string& text, int total) {
    return StartProgress(text, total);
}

BatchProgram::BatchProgram()
    : registry_(std::filesystem::path()),
      settings_(registry_, ui_), main_{settings_, ui_, printers_, workbooks_, {}, {}, {}} {
    settings_.SettingsAppName = kProgramName;
    settings_.InMemory = true;
    main_.language = DesktopLanguage(SystemEnvironment());
}

void BatchProgram::UseSettings(const std::filesystem::path& iniFile) {
    CheckIsIniFile(iniFile);
    settings_.Object.File().CopyToMemory(iniFile);
}

void BatchProgram::UseOwnSettings(const std::string& iniFile) {
    settings_.ProgramFolder = FindProgramFolder(SystemEnvironment());
    const std::filesystem::path file = iniFile.empty() ? settings_.OwnIniFile() : PathOf(iniFile);
    if (!iniFile.empty() || FileExists(file))
        UseSettings(file);
}

TabFile BatchProgram::Load(const std::string& file) {
    return NamingFile(file, [&] {
        TabFile read = ParseTabFile(ReadInput(file));
        if (SpreadsheetSeparator(read.text))
            throw Error("was saved by a spreadsheet; \"velmora-batch convert\" makes a tab file of it");
        Load(read);
        if (const std::string found = OverfullFindings(read); !found.empty())
            std::cerr << "velmora-batch: " << DisplayName(file) << ": " << OneLine(found) << '\n';
        if (file != kStandardStream)
            main_.document.DocFileName = PathOf(file);
        return read;
    });
}

void BatchProgram::Load(const TabFile& file) {
    LoadOrExplain(main_, file);
}

void BatchProgram::Load(const Worksheet& sheet) {
    LoadOrExplain(main_, sheet);
}

void RaiseWithFile(const std::string& file, const Error& error) {
    throw Error(DisplayName(file) + ": " + error.what(), error.Number());
}

void MentionInterruptedSave(const std::string& file) {
    if (const auto copy = UnfinishedSave(PathOf(file)))
        std::cerr << "velmora-batch: " << DisplayName(file)
                  << ": saving it was interrupted, and it may be damaged. What was to be saved is in ["
                  << PathText(*copy) << "]\n";
}

std::string ReadInput(const std::string& file) {
    if (file == kStandardStream)
        return ReadStandardInput();
    MentionInterruptedSave(file);
    IsLargeTabFile(PathOf(file)); // which refuses a list of that size
    return ReadFile(PathOf(file));
}

void WriteOutput(const std::string& file,
                 const std::function<void(const std::function<void(std::string_view)>&)>& produce) {
    if (file != kStandardStream) {
        AtomicFile output(PathOf(file));
        produce([&](std::string_view bytes) { output.Write(bytes); });
        output.Commit();
        return;
    }
    produce([](std::string_view bytes) { std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size())); });
}

} // namespace velmora
