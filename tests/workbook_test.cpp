// Workbooks: those of other programs, our own, and everything that can be wrong with one.
#include "base/AtomicFile.h"
#include "base/Numbers.h"
#include "document/OpenDocument.h"
#include "document/TextList.h"
#include "platform/linux/LibraryWorkbooks.h"
#include "platform/linux/NumberFormat.h"
#include "tests/support/TestProgram.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora {
namespace {

using Rows = std::vector<std::vector<std::string>>;

std::filesystem::path Data(const std::string& name) {
    return std::filesystem::path(VELMORA_TEST_DATA) / "workbooks" / name;
}

struct WorkbookTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    LibraryWorkbooks workbooks;

    static Rows Read(Workbook& workbook, const std::string& sheet, const std::vector<int>& columns) {
        Rows rows;
        workbook.ReadSheet(sheet, columns, [&](std::int32_t row, const std::vector<std::string>& texts) {
            rows.resize(static_cast<std::size_t>(row));
            rows.back() = texts;
            return true;
        });
        return rows;
    }
    std::string Written(WorkbookFormat format, const Rows& rows) {
        std::string bytes;
        std::size_t next = 0;
        const auto source = [&](std::vector<std::string>& row) {
            if (next == rows.size())
                return false;
            row = rows[next++];
            return true;
        };
        workbooks.Write(format, "Tabs", source, [&](std::string_view piece) { bytes += piece; });
        return bytes;
    }
    std::unique_ptr<Workbook> OpenBytes(const std::string& bytes) {
        std::ofstream(program.folder / "book", std::ios::binary) << bytes; // hundreds of them: no flush to disk
        return workbooks.Open(program.folder / "book");
    }
};

TEST_F(WorkbookTest, CellsComeAsAPersonSeesThem) {
    for (const char* file : {"cells.xls", "cells95.xls", "cells.xlsx", "cells.ods"}) {
        const auto book = workbooks.Open(Data(file));
        Rows rows = Read(*book, "Cells", {3, 1, 2});
        const Rows expected = {{"42", "Müller, Ž 日本", "007"},
                               {"1,234.50", "0007", "01/03/2024"},
                               {},
                               {"0.1", "two lines", "TRUE"},
                               {"-25.0%", "3", "ab"}};
        if (file == std::string("cells95.xls")) // has no room for other scripts
            rows[0][1] = expected[0][1];
        EXPECT_EQ(rows, expected) << file;
        EXPECT_THROW(Read(*book, "Missing", {1}), WorkbookError) << file;
    }
}

TEST_F(WorkbookTest, SheetsComeInOrderWithoutHiddenOnes) {
    for (const char* file : {"three.xls", "three.xlsx", "three.ods"}) {
        const auto book = workbooks.Open(Data(file));
        EXPECT_EQ(book->SheetNames(), (std::vector<std::string>{"Erste", "Zweite é", "Third"})) << file;
        EXPECT_EQ(Read(*book, "Third", {1}), (Rows{{"three"}})) << file;
    }
}

TEST_F(WorkbookTest, AHeaderInAnyLetterCaseReachesTheDocument) {
    for (const char* file : {"header.xls", "header.xlsx", "header.ods"}) {
        const auto book = workbooks.Open(Data(file));
        EXPECT_TRUE(TestVersion8(ReadFirstCell(*book, "Tabs"))) << file;
        ASSERT_EQ(LoadDocument(program.main, ReadWorksheet(*book, "Tabs", {})), LoadOutcome::Loaded) << file;
        const TabDocument& document = program.main.document;
        EXPECT_EQ(document.OptType, 4);
        EXPECT_EQ(document.StationeryType, "DL_v");
        EXPECT_EQ(document.TabCount, 21) << "one page of 3 x 7";
        EXPECT_EQ(document.FieldA(1) + document.FieldB(1), "Smith2024");
        EXPECT_EQ(program.Stored("Settings", "Margin Value Top"), "-2") << file;
        EXPECT_EQ(program.main.fonts[0], (FieldFont{"ARIAL", 12, true, false, false, 0, 1}));
        EXPECT_EQ(program.ui.progressTexts.back(), "Importing Microsoft Excel Worksheet.  Please standby ...");
    }
}

TEST_F(WorkbookTest, WhatIsWrittenComesBackAsText) {
    Rows rows = {{"007", "=1+1", "Ž 日本 😀"}, {"", "b", ""}, {std::string(9000, 'x'), "007", "<&>"}};
    for (int i = 0; i < 3000; ++i) // over many records and sectors
        rows.push_back({"text " + std::to_string(i), std::string(static_cast<std::size_t>(i % 97) + 1, 'y'), "é"});
    for (const WorkbookFormat format : {WorkbookFormat::Xls, WorkbookFormat::Xlsx})
        EXPECT_EQ(Read(*OpenBytes(Written(format, rows)), "Tabs", {1, 2, 3}), rows);
    EXPECT_THROW(Written(WorkbookFormat::Xls, Rows(65537, {"x"})), WorkbookError);
}

TEST_F(WorkbookTest, DamagedOnesRaiseAnErrorAndNothingElse) {
    for (const char* file : {"cells.xls", "cells95.xls", "cells.xlsx", "cells.ods"}) {
        const std::string whole = ReadFile(Data(file));
        const Rows all = Read(*OpenBytes(whole), "Cells", {1, 2, 3});
        for (std::size_t at = 0; at < whole.size(); at += 97)
            for (const bool cut : {true, false}) {
                std::string bytes = cut ? whole.substr(0, at) : whole;
                if (!cut)
                    bytes[at] = static_cast<char>(bytes[at] ^ 0x5A);
                try {
                    const auto book = OpenBytes(bytes);
                    for (const std::string& name : book->SheetNames()) {
                        const Rows rows = Read(*book, name, {1, 2, 3});
                        EXPECT_TRUE(!cut || rows == all) << file << " lost rows, cut at " << at;
                    }
                    EXPECT_FALSE(cut && whole.starts_with("PK")) << file << " cut at " << at;
                } catch (const Error&) {}
            }
    }
}

TEST_F(WorkbookTest, OthersThanWorkbooksAreRefused) {
    std::string claims = ReadFile(Data("cells.xlsx"));
    const std::size_t entry = claims.find("PK\x01\x02");
    claims.replace(entry + 24, 4, std::string("\0\0\0\x7F", 4)); // 2 GB, says the directory
    for (const std::string& bytes : {std::string("a,b\r\n"), std::string(),
                                     std::string("PK\x05\x06") + std::string(18, '\0'), std::string("<html>"), claims})
        EXPECT_THROW(OpenBytes(bytes), WorkbookError) << bytes.substr(0, 10);
}

TEST(WorksheetBuilderTest, KeepsWhatIsBetweenAndCutsWhatTrails) {
    WorksheetBuilder builder({{2, 1}, true});
    builder.Add(1, {"Name", "Year"});
    builder.Add(2, {"a, b", "1"});
    builder.Add(5, {"", "", "", "fourth"});
    builder.Add(9, {"", "", "", "", "fifth"});
    const Worksheet sheet = builder.Take();
    ASSERT_EQ(sheet.lines, 4);
    EXPECT_EQ(sheet.rows[0], (std::array<std::string, 3>{"1", "a, b", ""}));
    WorksheetBuilder full({});
    EXPECT_TRUE(full.Add(32767, {"x"}));
    EXPECT_FALSE(full.Add(32768, {"x"}));
}

TEST(NumberFormatTest, LaysNumbersOut) {
    const struct {
        double value;
        const char* code;
        const char* text;
    } cases[] = {{5, "General", "5"},
                 {1.0 / 3, "", "0.3333333333"},
                 {4006381333931, "", "4006381333931"},
                 {7, "0000", "0007"},
                 {1234567.5, "#,##0.00", "1,234,567.50"},
                 {-3, "0;(0)", "(3)"},
                 {-0.001, "0.00", "0.00"},
                 {0, "0;-0;\"none\"", "none"},
                 {0.256, "0.0%", "25.6%"},
                 {12345, "0.00E+00", "1.23E+04"},
                 {5551234, "###-####", "555-1234"},
                 {2.675, "0.00", "2.68"},
                 {12, "0.##", "12."},
                 {1500, "0.0,\"k\"", "1.5k"},
                 {3, "[$\u20AC-407] 0", "\u20AC 3"},
                 {45352.78125, "d mmm yyyy h:mm AM/PM", "1 Mar 2024 6:45 PM"},
                 {1.5, "[h]:mm", "36:00"},
                 {45352.5, "yyyy-mm-dd hh:mm:ss", "2024-03-01 12:00:00"},
                 {0.5, "# ?/?", "0.5"},
                 {59, "d/m/yy", "28/2/00"},
                 {1e20, "", "1E+20"}};
    for (const auto& [value, code, text] : cases)
        EXPECT_EQ(FormatNumber(value, code, false), text) << code;
}

TEST(TextListTest, GuessesTheDelimiterAndKnowsQuotes) {
    EXPECT_EQ(GuessDelimiter("a;b,c;d\r\ne;f;g\r\n"), ';');
    EXPECT_EQ(GuessDelimiter("a\tb, c\n\nd\te\n"), '\t');
    EXPECT_EQ(GuessDelimiter("one\ntwo\n"), ',');
    EXPECT_EQ(ParseTextList("\"a;\"\"b\"\"\";c\r\n\r\n\"x\ny\";5\" disk\rlast;\"open", ';'),
              (Rows{{"a;\"b\"", "c"}, {""}, {"x\ny", "5\" disk"}, {"last", "\"open"}}));
}

} // namespace
} // namespace velmora
