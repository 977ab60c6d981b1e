// Which columns of a list become which fields: joined ones, a heading that is guessed, and what is remembered.
#include "app/Commands.h"
#include "base/AtomicFile.h"
#include "document/ListHeading.h"
#include "document/Worksheet.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TestProgram.h"
#include "workspace/Globals.h"
#include "workspace/ImportMemory.h"

#include <gtest/gtest.h>

#include <array>

namespace velmora {
namespace {

using Rows = std::vector<std::vector<std::string>>;

TEST(Columns, AFieldIsOneOrTwo) {
    EXPECT_EQ(ParseColumns("2"), std::pair(2, 0));
    EXPECT_EQ(ParseColumns("256+1"), std::pair(256, 1));
    for (const char* wrong : {"", "+1", "2+", "2+1+3", "257", "2+257", "-1", "2 "})
        EXPECT_EQ(ParseColumns(wrong), std::nullopt) << wrong;
}

TEST(Columns, JoinedTextsAreKeptApartWhereThereAreTwo) {
    const WorksheetOptions options{.columns = {2, 3}, .joined = {1, 0, 5}, .between = ", "};
    const Worksheet sheet = WorksheetOf("John, Smith ,7,,z\n,Jones\nAnn\n,,,,y\n", ',', options);
    const std::array<std::string, 3> rows[] = {{"Smith, John", "7", "z"}, {"Jones"}, {"Ann"}, {"", "", "y"}};
    EXPECT_TRUE(std::equal(sheet.rows.begin(), sheet.rows.end(), std::begin(rows), std::end(rows)));
    EXPECT_TRUE(sheet.leftOut.columns.empty()) << "a joined column is taken";
}

TEST(Columns, KeepWhatIsBetweenAndCutWhatTrails) {
    WorksheetBuilder builder({.columns = {2, 1}, .heading = true});
    builder.Add({1, {"Name", "Year"}});
    builder.Add({2, {"a, b", "1"}});
    builder.Add({5, {"", "", "", "fourth"}});
    builder.Add({9, {"", "", "", "", "fifth"}});
    const Worksheet sheet = builder.Take();
    ASSERT_EQ(sheet.lines, 4);
    EXPECT_EQ(sheet.rows[0], (std::array<std::string, 3>{"1", "a, b", ""}));
    WorksheetBuilder full({});
    EXPECT_TRUE(full.Add({32767, {"x"}}));
    EXPECT_FALSE(full.Add({32768, {"x"}}));
}

TEST(Columns, AHeadingIsGuessedFromItsNamesOrFromNumbersBelow) {
    const std::pair<Rows, bool> cases[] = {
        {{{"Client", "Box"}, {"Smith", "x"}}, true},
        {{{" KLI\xC3\x8BNT"}, {"Botha"}}, true},
        {{{"Box", "Surname and  Initials"}, {"x", "Smith"}}, true},
        {{{"File of Botha"}, {"Smith"}}, false},
        {{{"Firm", "Box", ""}, {"Smith", "A-1"}, {"", ""}, {"Jones", "A-2", "x"}}, true},
        {{{"Firm", "Box"}, {"Smith", "A-1"}}, false}, // one number may be part of a name
        {{{"Smith", "Box"}, {"7 Stars", "x"}, {"Jones", "y"}}, false},
        {{{"Name", "2024"}, {"Smith", "2025"}, {"Jones", "2026"}}, false},
        {{{"Box 1"}, {"1"}, {"2"}}, false},
        {{{"Name"}}, false},
        {{}, false}};
    for (const auto& [rows, heading] : cases)
        EXPECT_EQ(LooksLikeHeading(rows), heading) << (rows.empty() ? "" : rows[0][0]);
}

struct RememberedColumns : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    ScriptedDialogs dialogs;
    MainModule& main = program.main;

    RememberedColumns() {
        main.dialogs.Take(dialogs);
        LoadGlobals(main);
    }
    /// The first tab of the list as it is imported, after `change` was made to the choice.
    std::string Import(const std::string& list, std::function<bool(ImportChoice&)> change = {}) {
        dialogs.change = std::move(change);
        const auto path = program.folder / "list.csv";
        ReplaceFile(path, list);
        program.ui.Expect(
            "The file: [" + path.string() +
                "] is not an Velmora version 7 or version 8 file.\r\n\r\nVelmora will attempt to import it!",
            Icon::Information);
        OpenPath(main, path);
        return main.document.FieldA(1) + "|" + main.document.FieldB(1);
    }
};

TEST_F(RememberedColumns, NextMonthsListIsTakenAsThisMonthsWas) {
    const std::string month = "First,Last,Box\r\n";
    EXPECT_EQ(Import(month + "John,Smith,x\r\n"), "First|Last") << "nobody would guess that";
    EXPECT_EQ(program.Stored("Import Lists", "List 1"), "(none)") << "and nobody said it";
    const auto say = [](ImportChoice& choice) {
        choice.cells = {.columns = {2, 3, 0}, .joined = {1, 0, 0}, .between = " & ", .heading = true};
        return true;
    };
    EXPECT_EQ(Import(month + "John,Smith,x\r\n", say), "Smith & John|x");
    EXPECT_EQ(Import("first, LAST,box\r\nAnn,Jones,y\r\n"), "Jones & Ann|y");
    EXPECT_EQ(Import("First,Last\r\nAnn,Jones\r\n"), "First|Last") << "another list";
    const auto unsay = [](ImportChoice& choice) {
        choice.cells.heading = false;
        return true;
    };
    EXPECT_EQ(Import(month + "Ann,Jones,y\r\n", unsay), "Last & First|Box");
    EXPECT_EQ(Import(month + "Ann,Jones,y\r\n"), "First|Last") << "no heading, as was said";
}

TEST_F(RememberedColumns, ListsTakenInSeveralProgramsAtOnceAreAllKept) {
    SettingsStore other(program.registry, program.ui);
    other.IniFile = program.settings.IniFile;
    {
        const SettingsBatch importing(program.settings);
        RememberColumns(program.settings, {"a"}, {.heading = true});
        RememberColumns(other, {"b"}, {.heading = true});
    }
    EXPECT_TRUE(RecallColumns(other, {"a"}) && RecallColumns(other, {"b"}));
    const FileIdentity written = IdentityOf(other.IniFile);
    RememberColumns(other, {"a"}, {.heading = true});
    EXPECT_EQ(IdentityOf(other.IniFile), written) << "it was the first";
    RememberColumns(other, {"a"}, {.columns = {3}, .heading = true});
    EXPECT_EQ(RecallColumns(other, {"a"}).value().columns[0], 3);
}

TEST_F(RememberedColumns, TheLastTwentyAreKept) {
    for (int list = 0; list <= 21; ++list)
        RememberColumns(main.settings, {std::to_string(list)}, {.columns = {1, 2, list + 1}, .heading = true});
    EXPECT_EQ(RecallColumns(main.settings, {"1"}), std::nullopt);
    EXPECT_EQ(RecallColumns(main.settings, {"2"}).value().columns[2], 3);
    for (const char* damaged : {"x", "List", " 1+0 2+0 3+0 20", " 1+0 2+0 x 20"}) {
        const std::string stored = program.Stored("Import Lists", "List 1");
        program.Store("Import Lists", "List 1", stored.substr(0, stored.find(' ')) + damaged);
        const bool whole = std::string(damaged).ends_with("3+0 20");
        EXPECT_EQ(RecallColumns(main.settings, {"21"}).has_value(), whole) << damaged;
        program.Store("Import Lists", "List 1", stored);
    }
}

} // namespace
} // namespace velmora
