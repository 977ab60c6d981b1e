// What a start is told by its command line.
#include "app/CommandLine.h"
#include "base/Paths.h"

#include <gtest/gtest.h>

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
                {{"/", "tabs.csv"}, Kind::Documents, {path("/"), path("tabs.csv")}},
                {{"FILE://localhost/a%C3%AB%2"}, Kind::Documents, {fs::absolute(PathOf("/a\xC3\xAB%2"))}},
                {{"file://elsewhere/a"}, Kind::Documents, {path("file://elsewhere/a")}}};
    for (const auto& [arguments, kind, files] : rows) {
        const CommandLine read = ReadCommandLine(arguments);
        EXPECT_EQ(read.kind, kind);
        EXPECT_EQ(read.files, files);
    }
}

} // namespace
} // namespace velmora
