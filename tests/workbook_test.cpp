// Workbooks: those of other programs, our own, and everything that can be wrong with one.
#include "base/Numbers.h"
#include "document/SheetTable.h"
#include "tests/support/ProgramTest.h"
#include "tests/support/StoredZip.h"
#include "workbook/LibraryWorkbooks.h"
#include "workbook/NumberFormat.h"
#include "workbook/WorkbookParts.h"
#include "workspace/LoadDocument.h"
#include "workspace/OpenDocument.h"

#include <fstream>

namespace velmora {
namespace {

using Rows = std::vector<std::vector<std::string>>;

std::filesystem::path Data(const std::string& name) {
    return std::filesystem::path(VELMORA_TEST_DATA) / "workbooks" / name;
}

struct WorkbookTest : ProgramTest {
    LibraryWorkbooks workbooks;

    static Rows Read(Workbook& workbook, const std::string& sheet, const std::vector<int>& columns) {
        Rows rows;
        workbook.ReadSheet(sheet, columns, [&](const SheetRow& row) {
            rows.resize(static_cast<std::size_t>(row.number));
            return rows.back() = row.texts, true;
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
        return workbooks.Open(program.folder / "book", {});
    }
};

TEST_F(WorkbookTest, CellsComeAsAPersonSeesThem) {
    for (const char* file : {"cells.xls", "cells95.xls", "cells.xlsx", "cells.ods"}) {
        const auto book = workbooks.Open(Data(file), {});
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

/// With the first `from` in another's place, of the same length.
std::string Replaced(std::string bytes, const std::string& from, const std::string& to) {
    const std::size_t at = bytes.find(from);
    EXPECT_NE(at, std::string::npos);
    return bytes.replace(at, from.size(), to);
}

TEST_F(WorkbookTest, DaysOfAnXlsMayCountFrom1904) {
    for (const char* file : {"cells.xls", "cells95.xls"}) {
        const std::string record("\x22\0\x02\0", 4);
        const std::string bytes = Replaced(ReadFile(Data(file)), record + std::string(2, '\0'), record + '\1' + '\0');
        EXPECT_EQ(Read(*OpenBytes(bytes), "Cells", {2}).at(1), std::vector<std::string>{"02/03/2028"}) << file;
    }
}

TEST_F(WorkbookTest, SheetsComeInOrderWithoutHiddenOnesUntilTheWatchRaises) {
    for (const char* file : {"three.xls", "three.xlsx", "three.ods"}) {
        const auto book = workbooks.Open(Data(file), {});
        EXPECT_EQ(book->SheetNames(), (std::vector<std::string>{"Erste", "Zweite é", "Third"})) << file;
        EXPECT_EQ(Read(*book, "Third", {1}), (Rows{{"three"}})) << file;
    }
    const auto raise = [] { throw TestOver(); };
    for (const char* file : {"cells.xlsx", "cells.ods"})
        EXPECT_THROW(workbooks.Open(Data(file), raise), TestOver) << file;
    const auto xls = workbooks.Open(Data("cells.xls"), raise); // whose sheets are what takes long
    EXPECT_THROW(Read(*xls, "Cells", {9}), TestOver);
}

TEST_F(WorkbookTest, WhatIsWrittenComesBackAsText) {
    Rows rows = {{"007", "=1+1", "Ž 日本 😀"}, {"", "b", ""}, {std::string(9000, 'x'), "007", "<&>"}};
    for (int i = 0; i < 3000; ++i) // over many records and sectors
        rows.push_back({"text " + std::to_string(i), std::string(static_cast<std::size_t>(i % 97) + 1, 'y'), "é"});
    for (const WorkbookFormat format : {WorkbookFormat::Xls, WorkbookFormat::Xlsx})
        EXPECT_EQ(Read(*OpenBytes(Written(format, rows)), "Tabs", {1, 2, 3}), rows);
    const std::string bytes = Written(WorkbookFormat::Xlsx, {{"a\uFFFEb\x01\uFFFD\uFFFF", "z"}});
    EXPECT_EQ(Read(*OpenBytes(bytes), "Tabs", {1, 2}), (Rows{{"a b \uFFFD", "z"}})) << "what XML does not allow";
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

/// A workbook whose sheet "S" has these rows in XML; days count from 1904, and the cell styles 1 to 4 are built-in
/// formats 14, 22, 37 and 4.
std::string XlsxBytes(const std::string& rows, std::uint32_t flags = 0) {
    const auto related = [](const std::string& id, const std::string& type, const std::string& target) {
        return "<Relationship Id='" + id + "' Type='http://schemas.openxmlformats.org/officeDocument/2006/" +
               "relationships/" + type + "' Target='" + target + "'/>";
    };
    return StoredZip(
        {{"[Content_Types].xml", "<Types/>"},
         {"_rels/.rels", "<Relationships>" + related("r1", "officeDocument", "xl/workbook.xml") + "</Relationships>"},
         {"xl/workbook.xml", "<workbook xmlns:r='r'><workbookPr date1904='1'/><sheets><sheet name='Chart' r:id='c'/>"
                             "<sheet name='S' r:id='s'/></sheets></workbook>"},
         {"xl/_rels/workbook.xml.rels",
          "<Relationships>" + related("c", "chartsheet", "chartsheets/c.xml") +
              related("s", "worksheet", "worksheets/s.xml") + related("t", "styles", "styles.xml") +
              related("x", "sharedStrings", "/xl/sharedStrings.xml") + "</Relationships>"},
         {"xl/sharedStrings.xml",
          "<sst><si><t>one &amp; all</t></si><si><r><t xml:space='preserve'>a </t></r><r><rPr/><t>b</t></r>"
          "<rPh sb='0' eb='1'><t>no</t></rPh></si><si><t/></si><si><t>c_x000D_d</t></si></sst>"},
         {"xl/styles.xml", "<styleSheet><cellXfs><xf numFmtId='0'/><xf numFmtId='14'/><xf numFmtId='22'/>"
                           "<xf numFmtId='37'/><xf numFmtId='4'/></cellXfs></styleSheet>"},
         {"xl/worksheets/s.xml",
          "<worksheet><dimension ref='A1:XFD1048576'/><sheetData>" + rows + "</sheetData></worksheet>"}},
        flags);
}

TEST_F(WorkbookTest, XlsxCellsOfEveryKind) {
    const struct {
        const char* cell;
        const char* text;
    } cases[] = {{"<c s='1'><v>0</v></c>", "1904-01-01"},
                 {"<c s='2'><v>1.5</v></c>", "1904-01-02 12:00"},
                 {"<c s='3'><v>-3000</v></c>", "(3,000)"},
                 {"<c s='4'><f>1/3</f><v>0.333333</v></c>", "0.33"},
                 {"<c t='str'><f>A1&amp;B1</f><v>a&lt;b</v></c>", "a<b"},
                 {"<c t='e'><f>1/0</f><v>#DIV/0!</v></c>", "#DIV/0!"},
                 {"<c t='inlineStr'><is><r><t>a_x000D_</t></r><r><t>b</t></r><rPh><t>no</t></rPh></is></c>", "a b"},
                 {"<c t='inlineStr'><is><t>_x005F_x000D_ _xyz_ _x12</t></is></c>", "_x000D_ _xyz_ _x12"},
                 {"<c t='s'><v>1</v></c>", "a b"},
                 {"<c t='s'><v>3</v></c>", "c d"},
                 {"<c t='d' s='1'><v>2024-03-01</v></c>", "2024-03-01"},
                 {"<c t='d' s='2'><v>1904-01-02T12:00:00Z</v></c>", "1904-01-02 12:00"},
                 {"<c t='d' s='4'><v>T06:00:00.0</v></c>", "0.25"},
                 {"<c t='d'><v>2024-03-01</v></c>", "2024-03-01"},
                 {"<c t='d' s='2'><v>2024-02-30</v></c>", "2024-02-30"},
                 {"<c><v>1e999</v></c>", "1e999"}};
    for (const auto& [cell, text] : cases) {
        const auto book = OpenBytes(XlsxBytes("<row r='2'>" + std::string(cell) + "</row>"));
        EXPECT_EQ(book->SheetNames(), std::vector<std::string>{"S"}) << "a chart is no worksheet";
        EXPECT_EQ(Read(*book, "S", {1}), (Rows{{}, {text}})) << cell;
    }
    for (const char* index : {"4", "-1", "x", "99999999999999999999999"}) { // of a text that is not there
        const auto book = OpenBytes(XlsxBytes("<row><c t='s'><v>" + std::string(index) + "</v></c></row>"));
        EXPECT_THROW(Read(*book, "S", {1}), WorkbookError) << index;
    }
}

TEST_F(WorkbookTest, ASheetOfAMillionRowsCostsWhatItHolds) {
    const auto book = OpenBytes(XlsxBytes("<row r='1'><c t='str'><v>first</v></c><c r='IV1' t='str'><v>x</v></c></row>"
                                          "<row r='1048576'><c t='str'><v>last</v></c></row>"));
    EXPECT_EQ(SheetTable(*book, "S", [] {}).FirstRows(20, false).at(0).size(), 256u);
    const Worksheet sheet = ReadWorksheet(*book, "S", {});
    EXPECT_EQ(sheet.rows.size(), 1u);
    EXPECT_EQ(sheet.lines, 1048576) << "too many, which the loading finds";
    EXPECT_THROW(LoadDocument(main, sheet), OverflowError);
}

std::string OdsBytes(const std::string& rows, const std::string& manifest = "<manifest/>") {
    return StoredZip(
        {{"content.xml", "<d xmlns:t='t' xmlns:x='x' xmlns:o='o'><t:table t:name='S'>" + rows + "</t:table></d>"},
         {"META-INF/manifest.xml", manifest}});
}

TEST_F(WorkbookTest, HostileOnesEndInAnErrorBeforeTheyCostMuch) {
    std::string deep, names;
    for (int i = 0; i < 300; ++i)
        deep = "<x>" + deep + "</x>";
    for (int i = 0; i < 40000; ++i)
        names += "<n" + std::to_string(i) + "/>";
    const std::string wide = "<c><v>" + std::string(200000, '1') + "</v></c>";
    for (const std::string& rows :
         {deep, names, "<row a='" + std::string(500000, 'x') + "'/>", "<row>" + wide + "</row>"})
        EXPECT_THROW(Read(*OpenBytes(XlsxBytes(rows)), "S", {1}), WorkbookError) << rows.substr(0, 20);
    TextTable strings;
    EXPECT_THROW(for (int i = 0; i < 5'000'000; ++i) strings.Add(""), WorkbookError);
    for (const char* declared : {"[<!ATTLIST m a CDATA 'x'>]><m/>", "[<!ENTITY a 'aaaa'>]><m>&a;&a;</m>"})
        EXPECT_THROW(OpenBytes(OdsBytes("", std::string("<!DOCTYPE m ") + declared)), WorkbookError) << declared;
    const std::string named = "<!DOCTYPE m PUBLIC \"-//OpenOffice.org//DTD Manifest 1.0//EN\" \"Manifest.dtd\"><m/>";
    EXPECT_NO_THROW(OpenBytes(OdsBytes("", named)));
    std::vector<std::pair<std::string, std::string>> parts(30000, {"x", ""});
    parts.emplace_back("content.xml", "<d xmlns:t='t'><t:table t:name='S'/></d>");
    EXPECT_THROW(OpenBytes(StoredZip(parts)), WorkbookError);
}

TEST_F(WorkbookTest, OdsRowsAndCellsMayBeRepeatedOrMerged) {
    const auto cell = [](const std::string& text, const std::string& attributes = "") {
        return "<t:table-cell " + attributes + ">" + text + "</t:table-cell>";
    };
    const std::string rows =
        "<t:table-row t:number-rows-repeated='2'>" + cell("<x:p>a</x:p>", "t:number-columns-repeated='2'") +
        cell("<o:annotation><x:p>note</x:p></o:annotation><x:p>c<x:s x:c='2'/>d</x:p><x:p>e</x:p>") +
        "</t:table-row><t:table-row t:number-rows-repeated='3'>" + cell("", "t:number-columns-repeated='16384'") +
        "</t:table-row><t:table-row>" + cell("<x:p>merged</x:p>", "t:number-columns-spanned='2'") +
        "<t:covered-table-cell/>" + cell("<x:p>\u22125</x:p>", "o:value-type='float' o:value='-5'") +
        "</t:table-row><t:table-row t:number-rows-repeated='1048570'>" + cell("") + "</t:table-row>";
    const std::vector<std::string> repeated = {"a", "a", "c  d e"};
    EXPECT_EQ(Read(*OpenBytes(OdsBytes(rows)), "S", {1, 2, 3}),
              (Rows{repeated, repeated, {}, {}, {}, {"merged", "", "-5"}}));
    const std::string endless =
        "<t:table-row t:number-rows-repeated='2147483647'>" + cell("<x:p>x</x:p>") + "</t:table-row>";
    std::int32_t last = 0;
    const auto sink = [&](const SheetRow& row) { return last = row.number, true; };
    OpenBytes(OdsBytes(endless + endless))->ReadSheet("S", {1}, sink);
    EXPECT_EQ(last, 1048576);
    int looks = 0;
    const auto book = OpenBytes(OdsBytes(endless));
    const Worksheet sheet = SheetTable(*book, "S", [&] { ++looks; }).Take({});
    EXPECT_LT(looks, 33000) << "a document takes no more";
    EXPECT_THROW(LoadDocument(main, sheet), OverflowError);
}

/// A formula without a result is no blank cell, and none that was not chosen matters.
TEST_F(WorkbookTest, FormulasAreKnownWithAndWithoutResults) {
    const std::string ods =
        "<t:table-row><t:table-cell/><t:table-cell/><t:table-cell t:formula='A1'/>"
        "<t:table-cell t:formula='A1' o:value-type='string'><x:p>x</x:p></t:table-cell></t:table-row>";
    const std::string xlsx = "<row><c r='C1'><f>A2+1</f><v/></c><c t='str'><f>A2</f><v>x</v></c>"
                             "<c r='E1'/><c r='IV1' t='str'><f>A</f><v/></c></row>";
    for (const std::string& bytes : {XlsxBytes(xlsx), OdsBytes(ods)}) {
        const auto book = OpenBytes(bytes);
        const SheetTable table(*book, "S", [] {});
        const Worksheet sheet = table.Take({{4, 3, 5}});
        EXPECT_EQ(sheet.rows.at(0)[0], "x");
        EXPECT_EQ(UnresolvedFindings(sheet),
                  "Formulas without a stored result, whose texts are missing: C1.\r\nA spreadsheet program stores the "
                  "results when it opens the workbook and saves it.");
        EXPECT_EQ(UnresolvedFindings(table.Take({{4}})), "");
        EXPECT_TRUE(table.Take({}).leftOut.formulas);
    }
    Worksheet many;
    many.unresolved.assign(12, "AA7");
    EXPECT_NE(UnresolvedFindings(many).find("AA7, AA7 and 2 more.\r\n"), std::string::npos);
    EXPECT_EQ(ColumnLetters(26) + ColumnLetters(27) + ColumnLetters(703), "ZAAAAA");
}

TEST_F(WorkbookTest, ATextBehindTheLastColumnIsKnown) {
    const auto ods = [](int before) {
        return OdsBytes("<t:table-row><t:table-cell t:number-columns-repeated='" + std::to_string(before) +
                        "'/><t:table-cell><x:p>x</x:p></t:table-cell></t:table-row>");
    };
    const auto xlsx = [](const std::string& cell) { return XlsxBytes("<row><c r='" + cell + "'><v>1</v></c></row>"); };
    for (const auto& [bytes, further] :
         {std::pair(xlsx("IV1"), false), {xlsx("IW1"), true}, {ods(255), false}, {ods(256), true}})
        EXPECT_EQ(SheetTable(*OpenBytes(bytes), "S", [] {}).Take({}).leftOut.further, further);
}

/// Rows 2 and 3 are hidden, the third is blank.
TEST_F(WorkbookTest, HiddenRowsMayBeLeftOut) {
    const auto odsRow = [](const std::string& attributes, const std::string& text) {
        return "<t:table-row " + attributes + "><t:table-cell><x:p>" + text + "</x:p></t:table-cell></t:table-row>";
    };
    for (const std::string& bytes :
         {XlsxBytes("<row><c t='str'><v>a</v></c></row><row hidden='1'><c t='str'><v>x</v></c></row>"
                    "<row hidden='true'/><row><c t='str'><v>b</v></c><c t='str'><v>other</v></c></row>"),
          OdsBytes(odsRow("", "a") + odsRow("t:visibility='filter'", "x") + odsRow("t:visibility='collapse'", "") +
                   odsRow("", "b"))}) {
        const auto book = OpenBytes(bytes);
        for (const std::size_t kept : {std::size_t{1} << 20, std::size_t{100}}) { // the second has to be read again
            const auto watch = [] {};
            const SheetTable table(*book, "S", watch, kept);
            EXPECT_EQ(table.HiddenRows(), 1);
            const Worksheet all = table.Take({});
            EXPECT_TRUE(all.rows.size() == 4 && !all.leftOut.hiddenRows);
            const Worksheet visible = table.Take({.columns = {1}, .heading = true, .visibleOnly = true});
            ASSERT_EQ(visible.rows.size(), 1u) << "the heading and the hidden ones are none";
            EXPECT_EQ(visible.rows[0][0], "b");
            EXPECT_TRUE(visible.leftOut.hiddenRows && visible.leftOut.heading);
        }
    }
    for (const char* file : {"cells.xls", "cells95.xls"}) {
        std::string bytes = ReadFile(Data(file));
        const std::string record("\x08\x02\x10\0", 4);
        const std::size_t second = bytes.find(record + '\1'); // of the rows 1, 2, 4 and 5
        bytes.at(second + 16) = 0x20;
        bytes.at(second + 20 + 4) = 2;
        bytes.at(second + 20 + 16) = 0x20;
        const auto book = OpenBytes(bytes);
        const SheetTable table(*book, "Cells", [] {});
        EXPECT_EQ(table.HiddenRows(), 1) << file;
        EXPECT_EQ(table.FirstRows(2, true).at(1).at(0), "two lines");
    }
}

/// A stream's name as the directory of a compound file has it, and its length.
std::string StreamName(const std::string& name) {
    std::string text;
    for (const char letter : name)
        (text += letter) += '\0';
    text.resize(64);
    return text + static_cast<char>(2 * name.size() + 2) + '\0';
}

TEST_F(WorkbookTest, APasswordIsNamedAsTheReason) {
    const std::string xls = Written(WorkbookFormat::Xls, {{"x"}});
    const std::pair<const char*, std::string> cases[] = {
        {".xls", Replaced(xls, std::string("\x93\x02\x04\0", 4), std::string("\x2F\0\x04\0", 4))},
        {".xlsx", Replaced(xls, StreamName("Workbook"), StreamName("EncryptedPackage"))},
        {".ods",
         OdsBytes("", "<m:manifest xmlns:m='m'><m:file-entry><m:encryption-data/></m:file-entry></m:manifest>")},
        {"zip", XlsxBytes("", 1)}};
    for (const auto& [what, bytes] : cases)
        try {
            OpenBytes(bytes);
            ADD_FAILURE() << what << " was opened";
        } catch (const WorkbookError& error) {
            EXPECT_STREQ(error.what(), "the workbook is protected by a password") << what;
        }
}

TEST_F(WorkbookTest, PartsThatAreNotWhatTheDirectorySaysAreDamaged) {
    const std::string whole = ReadFile(Data("cells.xlsx"));
    const std::size_t entry = whole.rfind("PK\x01\x02", whole.rfind("sheet1.xml"));
    for (const std::size_t field : {16u, 24u}) { // its checksum, its size: now 16 bytes
        std::string bytes = whole;
        bytes.replace(entry + field, 4, std::string("\x10\0\0\0", 4));
        Rows rows;
        EXPECT_THROW(rows = Read(*OpenBytes(bytes), "Cells", {1}), WorkbookError) << field;
    }
}

TEST(NumberFormatTest, LaysNumbersOut) {
    using Texts = std::vector<std::pair<double, const char*>>;
    const std::pair<std::string_view, Texts> cases[] = {
        {"General", {{5, "5"}}},
        {"", {{1.0 / 3, "0.3333333333"}, {4006381333931, "4006381333931"}, {1e20, "1E+20"}}},
        {"#,##0.00", {{1234567.5, "1,234,567.50"}, {8001015009087, "8,001,015,009,087.00"}}},
        {"0.00", {{-0.001, "0.00"}, {2.675, "2.68"}}},
        {"0.0", {{99.95, "100.0"}}},
        {"0;-0;\"none\"", {{0, "none"}}},
        {"0.0%", {{0.256, "25.6%"}}},
        {"0.00E+00", {{12345, "1.23E+04"}}},
        {"###-####", {{5551234, "555-1234"}}},
        {"0.0,\"k\"", {{1500, "1.5k"}}},
        {"[$\u20AC-407] 0", {{3, "\u20AC 3"}}},
        {"d mmm yyyy h:mm AM/PM", {{45352.78125, "1 Mar 2024 6:45 PM"}}},
        {"d/m/yy", {{59, "28/2/00"}}},
        {"[h]:mm", {{1.5, "36:00"}}},
        {"0.0000000000000000", {{0.1 + 0.2, "0.3000000000000000"}}},
        {"# ?/?", {{0.5, " 1/2"}, {-2.75, "-2 3/4"}, {3, "3"}, {0.99, "1"}}},
        {"# ?\?/??", {{0.333333, "  1/3 "}}},
        {"?/?", {{1.25, "5/4"}}},
        {"0 ?/16\"in\"", {{0.3, "0 5/16in"}}},
        // The examples that the codes' public documentation gives.
        {"0.#", {{.631, "0.6"}}},
        {"#.0#", {{1234.568, "1234.57"}}},
        {"???.???", {{44.398, " 44.398"}}},
        {"0.0,,", {{12200000, "12.2"}}},
        {"0.0E-00", {{0.00052, "5.2E-04"}, {12345.58, "1.2E04"}}},
        {"\"length=\"0.00\\m", {{12.14, "length=12.14m"}}},
        {"$#,##0.00_);[Red]($#,##0.00)", {{-5678, "($5,678.00)"}}},
        {"[<=100]\"low\";[Blue]\"high\"", {{100, "low"}, {101, "high"}}},
        // Built-in codes of the file formats' standards.
        {BuiltInNumberFormat(48), {{12200000, "12.2E+6"}, {999.96, "1.0E+3"}, {0.00012, "120.0E-6"}}},
        {BuiltInNumberFormat(39), {{-1234.5, "(1,234.50)"}}},
        {BuiltInNumberFormat(7), {{-1234.5, "($1,234.50)"}}},
        {BuiltInNumberFormat(44), {{0, " $-   "}}},
        {BuiltInNumberFormat(12), {{1.5, "1 1/2"}}}};
    for (const auto& [code, texts] : cases)
        for (const auto& [value, text] : texts)
            EXPECT_EQ(FormatNumber(value, code, false), text) << code;
}

} // namespace
} // namespace velmora
