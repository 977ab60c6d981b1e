// A test of a program without windows: its state, and what is asked, told and looked at everywhere.
#pragma once

#include "base/AtomicFile.h"
#include "tests/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velmora {

struct ProgramTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = program.main;
    TabDocument& document = main.document;

    void Tell(const std::string& text, Icon icon = Icon::Information) { program.ui.Expect(text, icon); }
    void Fail(const std::string& text) { Tell(text, Icon::Critical); }
    void Ask(const std::string& question, Answer answer, std::optional<Answer> byDefault = std::nullopt) {
        program.ui.Expect(question, Icon::Question, Buttons::YesNo, answer, byDefault);
    }
    void AskOrCancel(const std::string& question, Answer answer) {
        program.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, answer);
    }
    std::filesystem::path Put(const std::string& name, const std::string& bytes) const {
        ReplaceFile(program.folder / name, bytes);
        return program.folder / name;
    }
    /// Of a tab file with these tabs.
    static std::string TabFileOf(const std::string& setup, const std::string& tabs) {
        return "Version 8\r\n" + setup + "\r\n0,0\r\nA\r\nB\r\nC\r\n" + tabs + "\r\n";
    }
    void SetType(int type, int fields) {
        document.setup.OptType = static_cast<std::int16_t>(type);
        document.setup.NoOfFields = static_cast<std::int16_t>(fields);
    }
    void ExpectWholePages(int pages) {
        EXPECT_EQ(document.NoOfPages, pages);
        EXPECT_EQ(document.TabCount, pages * document.setup.TabsPerPage);
        EXPECT_EQ(program.Stored("Settings", "No Of Pages"), std::to_string(pages));
        for (int field = 0; field < kFieldsPerTab; ++field)
            EXPECT_EQ(document.Field(field).Count(), document.TabCount);
    }
};

} // namespace velmora
