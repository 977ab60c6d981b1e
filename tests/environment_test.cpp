// What a start finds: its command line, the folder of the program and the desktop's language.
#include "app/CommandLine.h"
#include "platform/Machine.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST(CommandLineTest, TellsFilesFromOptions) {
    using Kind = CommandLine::Kind;
    const auto path = [](const char* name) { return fs::absolute(name); };
    const struct {
        std::vector<std::string> arguments;
        Kind kind;
        std::vector<fs::path> files;
    } rows[] = {{{}, Kind::Documents, {}},
                {{""}, Kind::Documents, {}},
                {{"Settings"}, Kind::SettingsEditor, {}},
                {{"--help"}, Kind::Help, {}},
                {{"-h"}, Kind::Help, {}},
                {{"a", "--version"}, Kind::Version, {}},
                {{"-x"}, Kind::UnknownOption, {}},
                {{"--", "-x"}, Kind::Documents, {path("-x")}},
                {{"My", "tabs.csv"}, Kind::Documents, {path("My tabs.csv")}},
                {{"/", "tabs.csv"}, Kind::Documents, {"/", path("tabs.csv")}},
                {{"FILE://localhost/a%C3%AB%2"}, Kind::Documents, {"/a\xC3\xAB%2"}},
                {{"file://elsewhere/a"}, Kind::Documents, {path("file://elsewhere/a")}}};
    for (const auto& [arguments, kind, files] : rows) {
        const CommandLine read = ReadCommandLine(arguments);
        EXPECT_EQ(read.kind, kind);
        EXPECT_EQ(read.files, files);
    }
}

TEST(ProgramFolder, FollowsTheEnvironmentAndTheInstallation) {
    const TemporaryFolder root;
    for (const char* folder : {"portable", "usr/bin", "usr/share/velmora"})
        fs::create_directories(root / folder);
    std::map<std::string, std::string> variables = {{"HOME", "/home/x"}};
    const Environment environment = [&](const char* name) {
        return variables.contains(name) ? std::optional(variables.at(name)) : std::nullopt;
    };
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), root / "portable");
    EXPECT_EQ(FindProgramFolder(root / "usr/bin", environment), "/home/x/.config/velmora");
    variables["XDG_CONFIG_HOME"] = "/config";
    EXPECT_EQ(FindProgramFolder(root / "usr/bin", environment), "/config/velmora");
    variables["VELMORA_HOME"] = "/else";
    EXPECT_EQ(FindProgramFolder(root / "portable", environment), "/else");
}

TEST(DesktopLanguage, IsATagOrNotKnown) {
    const std::pair<const char*, const char*> cases[] = {
        {"de_CH.UTF-8", "de-CH"}, {"sr_RS@latin", "sr-RS"}, {"C.UTF-8", "und"}, {"POSIX", "und"}, {"a)b", "und"}};
    for (const auto& [locale, tag] : cases)
        EXPECT_EQ(DesktopLanguage([text = locale](const char*) { return std::optional<std::string>(text); }), tag);
    EXPECT_EQ(DesktopLanguage([](const char*) { return std::nullopt; }), "und");
}

} // namespace
} // namespace velmora
