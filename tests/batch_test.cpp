// The batch program as a person runs it: real files, real processes, and PDFs measured by other programs.
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "tests/support/PdfWords.h"
#include "tests/support/StoredZip.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct BatchTest : testing::Test {
    TemporaryFolder folder;

    Result Batch(const std::string& arguments, const std::string& before = "") {
        return Shell(before + "cd '" + folder.Path().string() + "' && VELMORA_HOME='" + folder.Path().string() + "' '" +
                     VELMORA_BATCH + "' " + arguments);
    }
    using Refusals = std::vector<std::pair<std::string, std::string>>; ///< arguments, and the one line of the program
    void Refuses(int code, const Refusals& cases) {
        for (const auto& [arguments, output] : cases) {
            const Result result = Batch(arguments);
            EXPECT_EQ(result.code, code) << arguments;
            EXPECT_EQ(result.output, "velmora-batch: " + output + "\n");
        }
    }
    void Exits(int code, const std::vector<std::string>& cases) {
        for (const std::string& arguments : cases)
            EXPECT_EQ(Batch(arguments).code, code) << arguments;
    }
    void Write(const std::string& name, const std::string& text) { ReplaceFile(folder / name, text); }
};

struct Grid {
    int type, rows, columns;
    double columnMm, rowMm, gapMm;
};

// In millimetres as the stationery is cut; 56.7 twips count as one.
constexpr Grid kGrids[] = {{0, 8, 3, 60, 33, 0}, {1, 8, 6, 30, 33, 0}, {2, 9, 3, 60, 30, 0},
                           {3, 9, 6, 30, 30, 0}, {4, 3, 7, 29, 31, 0}, {5, 3, 4, 51, 31, 2}};
constexpr double kMmPerUnit = 56.7 / 1440 * 25.4;
constexpr double kTolerance = 0.2;

/// Where field 0 to 2 of a tab stands within its cell: left, right, top and bottom in units of 56.7 twips.
Word FieldBox(const Grid& grid, int fields, int field) {
    const double top = grid.rowMm - 10;
    if (fields == 1)
        return {0, top, grid.columnMm, top + 10};
    if (field == 0)
        return {0, top, grid.columnMm, top + 5};
    const double half = fields == 2 ? grid.columnMm : grid.columnMm / 2 - grid.gapMm;
    if (field == 1)
        return {0, top + 5, half, top + 10};
    return {half, top + 5, grid.columnMm - grid.gapMm, top + 10};
}

/// All words of a sheet of which each text has its field's letter and its tab's number.
void ExpectWordsOnTheirTabs(const Grid& grid, int fields, double left0, double top0, const fs::path& pdf) {
    const auto words = Words(pdf);
    ASSERT_EQ(words.size(), static_cast<std::size_t>(grid.rows * grid.columns * fields + 1));
    EXPECT_NEAR(words.at("").right, grid.type < 4 ? 210 : 220, 0.1);
    EXPECT_NEAR(words.at("").bottom, grid.type < 4 ? 297 : 110, 0.1);
    for (int tab = 0; tab < grid.rows * grid.columns; ++tab)
        for (int field = 0; field < fields; ++field) {
            const std::string text = std::string(1, static_cast<char>('A' + field)) + std::to_string(tab + 1);
            const Word& word = words.at(text);
            const Word box = FieldBox(grid, fields, field);
            const double cellLeft = left0 + tab % grid.columns * grid.columnMm;
            const int row = tab / grid.columns;
            const double cellTop = top0 + row * grid.rowMm;
            const double left = (cellLeft + box.left) * kMmPerUnit, right = (cellLeft + box.right) * kMmPerUnit;
            const double part = field / 2.0; // left, centred, right
            EXPECT_NEAR(word.left * (1 - part) + word.right * part, left * (1 - part) + right * part, kTolerance)
                << grid.type << " " << text;
            EXPECT_GE(word.left, left - kTolerance) << text;
            EXPECT_LE(word.right, right + kTolerance) << text;
            EXPECT_GE(word.top, (cellTop + box.top) * kMmPerUnit - kTolerance) << grid.type << " " << text;
            EXPECT_LE(word.bottom, (cellTop + box.bottom) * kMmPerUnit + kTolerance) << grid.type << text;
        }
}

TEST_F(BatchTest, EveryWordStandsOnItsTab) {
    constexpr std::pair<double, double> kMargins[] = {{4, 3}, {-2, 2.5}, {2.5, -2}};
    for (const Grid& grid : kGrids)
        for (int fields = 1; fields <= 3; ++fields) {
            const auto [left, top] = kMargins[fields - 1];
            const auto line = [](int tab) {
                const std::string n = std::to_string(tab);
                return "A" + n + ",B" + n + ",C" + n;
            };
            Write("in.csv", TabFileText(grid.type, fields, std::to_string(left) + "," + std::to_string(top),
                                        grid.rows * grid.columns, line));
            ASSERT_EQ(Batch("pdf in.csv -o out.pdf").output, "");
            ExpectWordsOnTheirTabs(grid, fields, left, top, folder / "out.pdf");
        }
}

TEST_F(BatchTest, ThePdfIsSoundAndHasThePagesAskedFor) {
    Write("Môre.csv", TabFileText(0, 1, "0,0", 72, [](int tab) { return tab == 30 ? "Bêre office,," : "x,,"; }));
    ASSERT_EQ(Batch("pdf Môre.csv --pages 2,1-2 -o out.pdf").code, 0);
    const std::string pdf = "'" + (folder / "out.pdf").string() + "'";
    EXPECT_EQ(Shell("qpdf --check " + pdf).code, 0);
    const std::string info = Shell("pdfinfo " + pdf).output;
    EXPECT_NE(info.find("Pages:           3"), std::string::npos) << info;
    EXPECT_NE(info.find("Title:           Môre\n"), std::string::npos) << info;
    EXPECT_NE(Shell("pdftotext -l 1 " + pdf + " -").output.find("Bêre office"), std::string::npos);
    ASSERT_EQ(Batch("pdf Môre.csv --test -o - > test.pdf").code, 0);
    EXPECT_NE(Shell("pdftotext '" + (folder / "test.pdf").string() + "' -").output.find("Field 1"), std::string::npos);
}

// Numbers stand behind their ticks, or centred below them: the distance from the 0 is the reading.
TEST_F(BatchTest, TheRulersOfTheCalibrationSheetStartAtTheOutlines) {
    constexpr double kTabTops[] = {23, 23, 20, 20, 21, 21};
    for (const Grid& grid : kGrids) {
        const std::string layout = grid.type < 4 ? "" : " --layout DL_h";
        ASSERT_EQ(Batch("calibration --type " + std::to_string(grid.type) + layout + " -o out.pdf").code, 0);
        const double top = kTabTops[grid.type], third = top + 2 * grid.rowMm;
        std::string found;
        for (const auto& [text, word] : AllWords(folder / "out.pdf")) {
            const double x = (word.left + word.right) / 2 / kMmPerUnit, y = (word.top + word.bottom) / 2 / kMmPerUnit;
            if (text.empty() || text.find_first_not_of("-0123456789") != std::string::npos)
                continue;
            const double reading = std::stod(text);
            if (y > third && y < third + 10) {
                EXPECT_NEAR(x - grid.columnMm, reading, kTolerance) << grid.type;
                found += "b";
            } else if (x > grid.columnMm && y < top + grid.rowMm) {
                EXPECT_NEAR(y - top, reading, 0.5) << grid.type; // the line's middle, not the digits'
                found += "d";
            } else if (reading > 0 && y < top + 10) {
                EXPECT_NEAR(x, reading, kTolerance) << grid.type;
                found += "a";
            }
        }
        std::sort(found.begin(), found.end());
        EXPECT_EQ(found.substr(0, 2) + found.substr(found.find('b'), 3), "aabbb") << grid.type;
        EXPECT_GE(std::count(found.begin(), found.end(), 'd'), 3) << grid.type;
    }
    ASSERT_EQ(Batch("calibration --type 5 -o out.pdf").code, 0);
    EXPECT_NEAR(Words(folder / "out.pdf").at("").bottom, 220, 0.1) << "DL_v is fed short edge first";
    Exits(2, {"calibration --type 0 --layout DL_v -o x.pdf", "calibration --type 4 --layout A4 -o x.pdf"});
}

TEST_F(BatchTest, PrintingStartsAtTheFirstLabelLeftAndAtAStoredTop) {
    Write("in.csv", TabFileText(0, 1, "0,0", 24, [](int tab) { return "A" + std::to_string(tab) + ",,"; }));
    Write("tops.ini", "[Settings]\r\nTab Top A4_1=10\r\n");
    ASSERT_EQ(Batch("pdf in.csv --ini tops.ini -o out.pdf").code, 0);
    EXPECT_LT(Words(folder / "out.pdf").at("A1").bottom, 20 * kMmPerUnit + kTolerance);
    EXPECT_EQ(ReadFile(folder / "tops.ini"), "[Settings]\r\nTab Top A4_1=10\r\n");
    ASSERT_EQ(Batch("pdf in.csv --used 1-3,5 -o out.pdf").code, 0);
    const auto words = Words(folder / "out.pdf");
    EXPECT_NEAR(words.at("A1").left, 0, kTolerance);
    EXPECT_GE(words.at("A1").top, (33 + 23) * kMmPerUnit - kTolerance);
    EXPECT_NEAR(words.at("A2").left, 2 * 60 * kMmPerUnit, kTolerance);
    EXPECT_FALSE(words.contains("A21")) << "on the second sheet";
    Refuses(2, {{"pdf in.csv --used 25 -o x.pdf", "position 25 is asked for, the sheet has 24"},
                {"pdf in.csv --tabs 1 --from 25 -o x.pdf", "position 25 is asked for, the sheet has 24"},
                {"pdf in.csv --tabs 1 --from 2,4 -o x.pdf", "--from: \"2,4\" is more than one position"},
                {"pdf in.csv --tabs 25 -o x.pdf", "tab 25 is asked for, the document has 24"},
                {"print in.csv --tabs 25 --printer 'Velmora PDF'", "tab 25 is asked for, the document has 24"},
                {"print in.csv --printer 'Velmora PDF'", "\"Velmora PDF\" writes a file: use \"velmora-batch pdf\", or "
                                                         "name a printer with --printer"}});
}

TEST_F(BatchTest, ATabIsPrintedAloneOnTheLabelChosen) {
    Write("in.csv", TabFileText(0, 1, "1.5,-2", 480, [](int tab) { return "A" + std::to_string(tab) + ",,"; }));
    for (const char* options : {"--tabs 300", "--tabs 300 --from 12", "--tabs 300 --used 1-11"}) {
        ASSERT_EQ(Batch(std::string("pdf in.csv -o out.pdf ") + options).code, 0);
        const auto words = Words(folder / "out.pdf");
        EXPECT_EQ(words.size(), 2U) << options; // with the page's size
        EXPECT_NEAR(words.at("A300").left, (1.5 + 2 * 60) * kMmPerUnit, kTolerance) << options;
        EXPECT_NEAR((words.at("A300").top + words.at("A300").bottom) / 2, (3 * 33 + 26) * kMmPerUnit, kTolerance);
    }
}

TEST_F(BatchTest, InfoTellsWhatTheFileHolds) {
    Write("in.csv", TabFileText(5, 2, "1.5,-2", 13, [](int tab) { return tab < 3 ? "a,b,c" : ",,c"; }));
    const auto info = nlohmann::json::parse(Batch("info --tabs in.csv").output);
    nlohmann::json told;
    for (const char* name :
         {"version", "encoding", "printer", "stationery", "marginLeft", "marginTop", "pages", "tabs"})
        told.push_back(info[name]);
    EXPECT_EQ(told, (nlohmann::json{8, "UTF-8", "Printer", "DL_h", 1.5, -2, 2, 24}));
    EXPECT_EQ(info["fonts"][1]["horizontal"], 2);
    EXPECT_EQ(info["filled"], 2) << "a field that is not in use fills no tab";
    EXPECT_EQ(info["texts"][12], (nlohmann::json{"", "", "c"}));
    EXPECT_EQ(nlohmann::json::parse(Batch("info - < in.csv").output)["pages"], 2);
    Write("plain.csv", "Ho\xEBr\r\n");
    const auto plain = nlohmann::json::parse(Batch("info --tabs plain.csv").output);
    EXPECT_TRUE(plain["version"].is_null() && plain["encoding"] == "Windows-1252" && plain["texts"][0][0] == "Hoër");
}

TEST_F(BatchTest, NewFilesAreCleanAndBounded) {
    for (const Grid& grid : kGrids) {
        const std::string type = std::to_string(grid.type);
        ASSERT_EQ(Batch("new --type " + type + " --fields 2 --pages 3 -o new.csv").code, 0);
        EXPECT_EQ(Batch("check new.csv").output, "");
        EXPECT_EQ(nlohmann::json::parse(Batch("info new.csv").output)["tabs"], 3 * grid.rows * grid.columns);
        const std::string most = std::to_string(32767 / (grid.rows * grid.columns));
        EXPECT_EQ(Batch("new --type " + type + " --fields 1 --pages " + most + " -o big.csv").code, 0);
        EXPECT_EQ(Batch("new --type " + type + " --fields 1 --pages 3000 -o big.csv").code, 2);
    }
}

TEST_F(BatchTest, FillGivesTheTabsFromOneOnTheirTexts) {
    Write("in.csv", TabFileText(0, 3, "0,0", 24, [](int) { return "a,b,c"; }));
    const Result run =
        Batch("fill in.csv --start 23 --count 4 --field A=number,first=9,width=2,before=No.,after=/x "
              "--field B=month,style=2,names=6+3,upper --field 'C=text,value=\" x, \"\"y\"\" \"' -o out.csv");
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(run.output.starts_with("velmora-batch: These tabs hold commas: 23, 24, 25, 26. ")) << run.output;
    const std::string bytes = ReadFile(folder / "out.csv");
    EXPECT_NE(bytes.find("a,b,c\r\nNo.09/x,MAART,x, \"y\"\r\nNo.10/x,JUNIE,x, \"y\"\r\nNo.11/x,MAART,x, \"y\"\r\n"),
              std::string::npos)
        << bytes;
    const std::string told = "velmora-batch: out.csv: Lines with more than three fields: 29, 30, 31, 32. ";
    EXPECT_TRUE(Batch("info out.csv").output.starts_with(told));
    ASSERT_EQ(Batch("fill - --start 25 --count 8 --field A=day -o in.csv < in.csv").code, 0);
    const auto info = nlohmann::json::parse(Batch("info --tabs in.csv").output);
    EXPECT_EQ(info["pages"], 2);
    EXPECT_EQ(info["texts"][23], (nlohmann::json{"a", "b", "c"}));
    EXPECT_EQ(info["texts"][31], (nlohmann::json{"Monday", "", ""})) << "all names by default";
    EXPECT_EQ(Batch("check in.csv").output, "");
}

TEST_F(BatchTest, FillTakesARecipeOfTheSettings) {
    Write("in.csv", TabFileText(0, 2, "0,0", 24, [](int tab) { return "2026/" + std::to_string(100 + tab) + ",,"; }));
    Write("Velmora.ini", "[Recipes]\r\nMonthly A=A=number,first=1,width=3,before=2026/\r\n"
                         "Monthly B=B=month,style=1,names=3+4,repeat=2\r\nDays A=A=day\r\nDays B=B=year\r\n"
                         "Last B=B=number,first=2147483646\r\n");
    EXPECT_EQ(Batch("recipes --ini Velmora.ini").output, "Monthly\nDays\nLast\n");
    const std::string fill = "fill in.csv --start 25 --count 3 --ini Velmora.ini -o ";
    EXPECT_EQ(Batch(fill + "out.csv --recipe monthly").output, "");
    EXPECT_NE(ReadFile(folder / "out.csv").find("2026/125,March,\r\n2026/126,March,\r\n2026/127,April,\r\n"),
              std::string::npos)
        << ReadFile(folder / "out.csv");
    Batch(fill + "out.csv --recipe Monthly --field B=text,value=May");
    EXPECT_NE(ReadFile(folder / "out.csv").find("2026/125,May,\r\n"), std::string::npos);
    Refuses(2, {{fill + "no.csv --recipe none", "--recipe none: there is no such recipe"},
                {fill + "no.csv --recipe Last",
                 "--recipe Last, field B: The numbers would not all lie between -2147483648 and 2147483647."}});
    Refuses(1, {{fill + "no.csv --recipe Days", "[Recipes] Days B: \"year\" is none of number, month, day and text"}});
    EXPECT_FALSE(fs::exists(folder / "no.csv"));
}

TEST_F(BatchTest, FillRefusesWhatTheWizardWould) {
    Write("in.csv", TabFileText(0, 2, "0,0", 24, [](int) { return "a,b,c"; }));
    const std::pair<std::string, std::string> fields[] = {
        {"C=day", "fields per tab in this document: 2"},
        {"D=day", "starts with no field A, B or C"},
        {"A=year", "\"year\" is none of number, month, day and text"},
        {"A=day,width=2", "\"width\" is no setting of day"},
        {"A=day,names=2+8", "names must be 1 to 7"},
        {"A=number,before=x", "before and after need a width"},
        {"A=number,first=2147483646", "The numbers would not all lie between -2147483648 and 2147483647."},
        {"B=text,value=123456789012345678901", "value has more than 20 characters"},
        {"A=text,value=\"x", "a double quote is not closed"},
        {"A=text,value=\"x\"y", "a comma must follow the closing quote"}};
    Refusals cases = {{"--count 32766 --field A=day",
                       "--count: The maximum number of pages for this type on label is: 1365 Please "
                       "change your number of labels to 32760"},
                      {"--start 9 --count 32760 --field A=day", "--count: Overflow: there is no tab beyond 32767"},
                      {"--start 26 --count 1 --field A=day", "--start: the document has 24 tabs"},
                      {"--count 3 --field A=day --field A=text", "--field A=text: this field has its values already"}};
    const std::string fill = "fill in.csv -o out.csv ";
    for (auto& [arguments, output] : cases)
        arguments = fill + arguments;
    for (const auto& [field, output] : fields)
        cases.emplace_back(fill + "--count 3 --field '" + field + "'", "--field " + field + ": " + output);
    Refuses(2, cases);
    Exits(2, {fill + "--count 0 --field A=day", fill + "--count 3", fill + "--field A=day",
              fill + "--count 3 --field A=text,value=\"$(printf 'a\\nb')\""});
    EXPECT_FALSE(fs::exists(folder / "out.csv"));
}

TEST_F(BatchTest, FailuresAreOneClearLine) {
    Write("old.pdf", "old");
    Write("cut.csv", "Version 8\r\nP,A4,0,1\r\n");
    Write("noise.ini", "\x8F[\x01=\n\x02");
    Write("large.ini", std::string(2'000'000, ';'));
    Write("nul.csv", std::string("a\0b", 3));
    Write("sheet.csv", "Version 8;;;\r\nP;A4;0;1\r\n0;0\r\nA;9\r\nB;9\r\nC;9\r\nx;y\r\n");
    Write("many.csv", TabFileText(0, 1, "0,0", 32767, [](int) { return ",,"; }));
    Write("margin.csv", TabFileText(0, 1, "x,0", 24, [](int) { return ",,"; }));
    ASSERT_EQ(Batch("new --type 0 --fields 1 -o new.csv").code, 0);
    Refuses(1, {{"pdf none.csv -o old.pdf", "none.csv: No such file or directory"},
                {"pdf . -o old.pdf", ".: Is a directory"},
                {"pdf cut.csv -o old.pdf", "cut.csv: line 3: the header ends here; it has 6 lines"},
                {"pdf nul.csv -o old.pdf", "nul.csv: line 1: holds bytes that are no text"},
                {"pdf sheet.csv -o old.pdf",
                 "sheet.csv: was saved by a spreadsheet; \"velmora-batch convert\" makes a tab file of it"},
                {"pdf many.csv -o old.pdf", "many.csv: Overflow: a document of this tab type holds at most 32760 tabs"},
                {"pdf margin.csv -o old.pdf", "margin.csv: Type mismatch: Margin Value Left"},
                {"print new.csv --printer None", "there is no printer \"None\"; \"velmora-batch printers\" lists them"},
                {"pdf new.csv -o none/out.pdf", "none/out.pdf: No such file or directory"},
                {"recipes --ini noise.ini", "noise.ini: holds no settings, not one [section]"},
                {"settings --ini large.ini set S k 2", "large.ini: larger than 256 KB"},
                {"pdf new.csv --ini large.ini -o old.pdf", "large.ini: larger than 256 KB"}});
    EXPECT_EQ(ReadFile(folder / "large.ini").size(), 2'000'000U);
    EXPECT_EQ(ReadFile(folder / "old.pdf"), "old");
    Exits(2, {"", "fly", "pdf new.csv", "pdf new.csv -o x.pdf --pages 2", "info", "pdf new.csv -o x.pdf --pages 3-1",
              "new --type 6 --fields 1 -o x.csv", "settings set a b c", "pdf new.csv -o x.pdf --pages ''",
              "pdf new.csv -o x.pdf --tabs 1 --test", "pdf new.csv -o new.csv", "info ''",
              "settings --ini x.ini set S a=b c", "settings --ini x.ini set S k \"$(printf 'a\\nb')\""});
    EXPECT_FALSE(fs::exists(folder / "x.pdf"));
    Exits(1, {"info new.csv > /dev/full", "check nul.csv > /dev/full", "new --type 0 --fields 1 -o - > /dev/full"});
    EXPECT_EQ(Batch("check none.csv nul.csv").output,
              "velmora-batch: none.csv: No such file or directory\nnul.csv:1: holds bytes that are no text\nnul.csv:1: "
              "is not \"Version 8\"\n");
    EXPECT_EQ(Batch("--version").output, "velmora-batch 8.2.0\n");
    EXPECT_EQ(Batch("--help").code, 0);
}

TEST_F(BatchTest, SettingsAreReadAndChangedInTheFileNamed) {
    Write("Velmora.ini", "[Settings]\r\nOptType=4\r\n");
    EXPECT_EQ(Batch("settings get Settings OptType").output, "4\n");
    EXPECT_EQ(Batch("settings get Settings Missing x").output, "x\n");
    EXPECT_EQ(ReadFile(folder / "Velmora.ini"), "[Settings]\r\nOptType=4\r\n") << "only --ini may change a file";
    EXPECT_EQ(Batch("settings --ini other.ini set Paths Lables /tabs/").code, 0);
    EXPECT_EQ(Batch("settings --ini other.ini get Paths Images /images/").output, "/images/\n");
    EXPECT_EQ(Batch("settings --ini other.ini keys Paths").output, "Lables=/tabs/\nImages=/images/\n");
    EXPECT_EQ(Batch("settings --ini other.ini delete Paths Lables").code, 0);
    EXPECT_EQ(Batch("settings --ini other.ini sections").output, "Paths\n");
    for (const auto& [change, cause] :
         {std::pair("set Paths Images x", "File too large"), std::pair("delete Paths Images", "cannot be changed")}) {
        const Result run = Batch("settings --ini other.ini " + std::string(change),
                                 "trap '' XFSZ; ulimit -f 0; "); // not even the administrator can write
        EXPECT_EQ(run.code, 1) << change;
        EXPECT_NE(run.output.find(std::string("other.ini: ") + cause), std::string::npos) << run.output;
    }
    EXPECT_EQ(ReadFile(folder / "other.ini"), "[Paths]\r\nImages=/images/\r\n");
    Exits(1, {"settings get Settings Missing", "settings --ini none.ini sections"});
}

TEST_F(BatchTest, NothingInAFileSpeaksToTheTerminal) {
    const std::string value = "\x1B]0;title\x07 \xC2\x9B"
                              "2J caf\xC3\xA9";
    Write("a.ini", "[S]\r\nk=" + value + "\r\n");
    const std::string command = "settings --ini a.ini get S k";
    EXPECT_EQ(Batch(command).output, value + "\n") << "another program gets what stands in the file";
    const Result shown = Shell("cd '" + folder.Path().string() + "' && script -qec \"'" + VELMORA_BATCH + "' " +
                               command + "\" /dev/null");
    EXPECT_EQ(shown.output, "?]0;title? ?2J caf\xC3\xA9\r\n");
    EXPECT_EQ(Batch("info '\x1B[2J\xC2\x9B.csv'").output, "velmora-batch:  [2J?.csv: No such file or directory\n");
    EXPECT_EQ(Batch("info a.csv '\x1B[2J'").output.find('\x1B'), std::string::npos);
}

TEST_F(BatchTest, ConvertsListsAndWorkbooks) {
    Write("list.csv", "Name;Year\r\n\"Smith; John\";007\r\n");
    for (const char* ending : {"xls", "xlsx"}) {
        const std::string book = std::string("book.") + ending;
        ASSERT_EQ(Batch("convert list.csv " + book + " --heading --columns 2,1 --type 5").code, 0);
        EXPECT_EQ(Batch("sheets " + book).output, "Tabs\n");
        Refuses(1, {{"convert " + book + " no.csv --columns 2,3", book + ": column 3 is asked for, the last one is 2"},
                    {"convert list.csv no.csv --columns 1+99", "list.csv: column 99 is asked for, the last one is 2"}});
        ASSERT_EQ(Batch("convert " + book + " back.csv --no-header --type 5").code, 0);
        EXPECT_TRUE(ReadFile(folder / "back.csv").starts_with("007,Smith; John,\r\n,,\r\n")) << book;
    }
    ASSERT_EQ(Batch("convert list.csv back.csv --no-header --heading --columns 2+1 --join -").code, 0);
    EXPECT_TRUE(ReadFile(folder / "back.csv").starts_with("007-Smith; John,,\r\n"));
    for (const char* wrong : {"0", "1+", "1+0", "257", "2,,1", "1,", "1,2,1,2"})
        EXPECT_EQ(Batch("convert list.csv back.csv --columns " + std::string(wrong)).code, 2) << wrong;
    Write("sheet.csv", "Version 8;;;\r\nP;A4;0;2\r\n0;0\r\nA;9\r\nB;9\r\nC;9\r\n\"x;y\";z\r\n");
    ASSERT_EQ(Batch("convert sheet.csv back.csv").code, 0);
    const std::string back = ReadFile(folder / "back.csv");
    EXPECT_TRUE(back.starts_with("Version 8\r\nP,A4,0,2\r\n") && back.find("\r\nx;y,z,\r\n") != std::string::npos)
        << back;
    Exits(0, {"convert list.csv tabs.csv --type 4", "convert tabs.csv other.csv --fields 3"});
    EXPECT_NE(ReadFile(folder / "other.csv").find("DL_v,4,3\r\n"), std::string::npos);
    EXPECT_EQ(Batch("check other.csv").output, "");
}

TEST_F(BatchTest, ConvertTakesHiddenRowsUnlessToldAndNoFormulaWithoutItsResult) {
    const std::string row =
        "<t:table-row t:visibility='filter'><t:table-cell><p>a</p></t:table-cell></t:table-row>"
        "<t:table-row><t:table-cell t:formula='x'/><t:table-cell><p>b</p></t:table-cell></t:table-row>";
    Write("in.ods", StoredZip({{"content.xml", "<d xmlns:t='t'><t:table t:name='S'>" + row + "</t:table></d>"}}));
    for (const auto& [option, rows] : {std::pair("", ",,\r\nb,,\r\n"), {" --visible", "b,,\r\n,,\r\n"}}) {
        ASSERT_EQ(Batch(std::string("convert in.ods out.csv --columns 2 --no-header") + option).code, 0);
        EXPECT_TRUE(ReadFile(folder / "out.csv").starts_with(rows)) << option;
    }
    const std::string told = "velmora-batch: in.ods: Formulas without a stored result, whose texts are missing: A2.";
    EXPECT_TRUE(Batch("convert in.ods out.csv").output.starts_with(told));
}

TEST_F(BatchTest, ListsFromAPipeAreBoundedAsFilesAre) {
    for (const char* command : {"convert - out.csv", "check -", "pdf - -o out.pdf"}) {
        const Result run = Shell(std::string("yes 'a;b' | '") + VELMORA_BATCH + "' " + command);
        EXPECT_EQ(run.code, 1) << command;
        EXPECT_EQ(run.output, "velmora-batch: standard input: the list is larger than 40 MB\n");
    }
}

TEST_F(BatchTest, ConvertRefusesWithoutWriting) {
    Write("no.xls", "PK no workbook");
    std::string lines;
    for (int i = 0; i < 32768; ++i)
        lines += "x\n";
    Write("long.csv", lines);
    Write("blank.csv", std::string(32768, '\n') + "x\n");
    Refuses(1,
            {{"convert no.xls out.csv", "no.xls: the file is no workbook, or its end is missing"},
             {"sheets no.xls", "no.xls: the file is no workbook, or its end is missing"},
             {"convert long.csv out.csv", "long.csv: Overflow: a document of this tab type holds at most 32760 tabs"},
             {"convert blank.csv out.csv", "blank.csv: Overflow: a document of this tab type holds at most 32760 tabs"},
             {"convert missing.xls out.csv", "missing.xls: No such file or directory"}});
    Refuses(2, {{"convert long.csv out.ods", "out.ods: workbooks of this format cannot be written"},
                {"convert no.xls no.xls", "no.xls: the output would replace what it is made from"}});
    EXPECT_FALSE(fs::exists(folder / "out.csv") || fs::exists(folder / "out.ods"));
}

} // namespace
} // namespace velmora
