// Tab files and lists: reading, writing, opening, and everything that can be wrong with one.
#include "base/Text.h"
#include "document/TabFileCheck.h"
#include "document/TextList.h"
#include "tests/support/ProgramTest.h"
#include "workspace/OpenDocument.h"

namespace velmora {
namespace {

const std::string kHeader = "Version 8\r\n"
                            "Office Printer,DL_h,5,2\r\n"
                            "0,-2.5\r\n"
                            "Arial,12,True,False,False,0,1\r\n"
                            "Liberation Serif,10,False,True,False,2,0\r\n"
                            "Arial,9,False,False,True,1,2\r\n";

std::string Tabs(int count, const std::string& line = ",,\r\n") {
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines += line;
    return lines;
}

struct TabFileTest : ProgramTest {
    OpenOutcome Open(const std::string& bytes, const char* name = "in.csv") { return OpenFile(main, Put(name, bytes)); }
    std::string Bytes() { return TabFileBytes(document, program.settings, program.ui); }
};

TEST_F(TabFileTest, AFileComesBackByteForByte) {
    const std::string files[] = {kHeader + "Smith,2024,\r\nJones,2024,unused\r\n" + Tabs(10),
                                 kHeader + std::string(40000, 'x') + ",,\r\n" + Tabs(11),
                                 kHeader + "Ho\xC3\xABr,\xE2\x82\xAC,\r\n" + Tabs(23),
                                 kHeader + "Ho\xEBr,\x80,\r\n" + Tabs(11),
                                 "Version 8\r\nP,A4,3,3\r\n12,3\r\nA,8,0,-1,True,2,2\r\nB,72,True,False,True,1,0\r\n"
                                 "C,10.5,False,False,False,0,1\r\n" +
                                     Tabs(54, " x , y ,\xC3\xAA\r\n")};
    for (const std::string& file : files) {
        ASSERT_EQ(Open(file), OpenOutcome::Opened);
        EXPECT_EQ(Bytes(), file);
    }
}

TEST_F(TabFileTest, TheFormatNormalisesWhatItDoesNotKnow) {
    Tell("Lines with more than three fields: 10.\r\nWhat follows the third field was not read, and a save leaves it "
         "out.");
    Open("version8 \nPrinter,DL,9,x\n,abc\nArial,x,?,False\nArial\n\n\na\rb,c\r\nd,e,f,g\n");
    const std::string bytes = Bytes();
    EXPECT_EQ(bytes.substr(0, bytes.find("a,,")), "Version 8\r\nPrinter,A4,0,3\r\n0,0\r\n"
                                                  "Arial,10,False,False,False,0,1\r\n"
                                                  "Arial,10,False,False,False,0,1\r\n"
                                                  "Arial,10,False,False,False,1,1\r\n,,\r\n")
        << "an empty line is a tab, the first too";
    EXPECT_EQ(document.TabCount, 24);
    EXPECT_EQ(document.FieldB(3), "c");
    EXPECT_EQ(document.FieldC(4), "f") << "the fourth part is ignored";
    Open(kHeader + Tabs(12) + "\x1A\x1A");
    EXPECT_EQ(document.TabCount, 12) << "the end-of-file marks of old systems are no tab";
}

TEST(TabFileVersion, IsAWholeNumberAtTheStart) {
    using Case = std::pair<const char*, std::string>;
    for (const auto& [text, version] : {Case{"version 8", "8"}, Case{"VERSION8x,1", "8"}, Case{"Version 7", "7"},
                                        Case{"Version 10", "other"}, Case{"Version 80", "other"}, Case{"Version", ""},
                                        Case{"Versions 8", ""}, Case{"Version  8", ""}, Case{"xVERSION8", ""}}) {
        const char* other = AnnouncesHeader(text) ? "other" : "";
        EXPECT_EQ(TestVersion8(text) ? "8" : TestVersion7(text) ? "7" : other, version) << text;
    }
}

TEST_F(TabFileTest, ATextBeyondTheOldEncodingTurnsTheFileIntoUtf8) {
    Open(kHeader + "Ho\xEBr,,\r\n" + Tabs(11));
    document.FieldA(2) = "Ω";
    const std::string bytes = Bytes();
    EXPECT_TRUE(bytes.find("Ho\xC3\xABr") != std::string::npos && bytes.find("Ω") != std::string::npos);
    EXPECT_EQ(document.FileEncoding, Encoding::Utf8);
    // So does one whose old bytes would be taken for UTF-8.
    Open(kHeader + "Ho\xEBr,,\r\n" + Tabs(11));
    document.FieldA(1) = "Ã«";
    Open(Bytes());
    EXPECT_EQ(document.FieldA(1), "Ã«");
}

TEST_F(TabFileTest, AFailureLeavesDocumentAndSettingsAsTheyWere) {
    Open(kHeader + "kept,,\r\n" + Tabs(11), "good.csv");
    document.CurrentPage = 1;
    const std::string ini = ReadFile(program.settings.IniFile);
    const std::pair<std::string, std::string> cases[] = {
        {"Version 8\r\nP,A4,0,1\r\n", "line 3: the header ends here; it has 6 lines"},
        {std::string("Version 8\r\nP,\0,0,1\r\n", 19), "line 2: holds bytes that are no text"},
        {std::string("Version 8\r\n\0", 12), "line 2: holds bytes that are no text"},
        {kHeader + Tabs(32767), ""}};
    for (const auto& [bytes, cause] : cases) {
        if (cause.empty())
            Tell("The maximum number of pages for this type on label is:2730");
        else
            Fail(cause + "\r\nCalled form Sub:LoadData");
        Tell("Could not finish process");
        EXPECT_EQ(Open(bytes), OpenOutcome::Failed);
        EXPECT_TRUE(document.FileError && document.FieldA(1) == "kept");
        EXPECT_EQ(document.DocFileName, program.folder / "good.csv");
        EXPECT_EQ(ReadFile(program.settings.IniFile), ini);
    }
    for (const auto& path : {program.folder / "none.csv", program.folder.Path()}) {
        Fail("Could not load the following file [" + path.string() + "]");
        EXPECT_EQ(OpenFile(main, path), OpenOutcome::Failed);
    }
}

TEST(TabFileLines, EveryEndOfLineIsUnderstood) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {{"", {}},
                                                                      {"a", {"a"}},
                                                                      {"a\r\nb\r\n", {"a", "b"}},
                                                                      {"a\nb", {"a", "b"}},
                                                                      {"a\rb\r", {"a", "b"}},
                                                                      {"\n\n", {"", ""}},
                                                                      {"a\r\n\rb", {"a", "", "b"}},
                                                                      {"a\rb\nc", {"a", "b", "c"}}};
    for (const auto& [text, lines] : cases) {
        std::vector<std::string> read;
        LineReader reader(text);
        for (std::string_view line; reader.Next(line);)
            read.emplace_back(line);
        EXPECT_EQ(read, lines) << text;
    }
}

TEST(TabFileCheckTest, EveryProblemHasItsLine) {
    const auto properties = [](const std::string& line) {
        return "Version 8\r\n" + line + kHeader.substr(kHeader.find("0,-2.5") - 2);
    };
    const std::tuple<std::string, int, std::string> cases[] = {
        {"", 1, "the file is empty"},
        {"Version 7\r\n", 1, "is not \"Version 8\""},
        {properties("P,A4,0") + Tabs(24), 2, "the document line has 3 values instead of 4"},
        {properties("P,A4,0,1,9") + Tabs(24), 2, "the document line has 5 values instead of 4"},
        {properties("P,A4,6,1") + Tabs(24), 2, "tab type \"6\" is not valid"},
        {properties("P,A4,4,1") + Tabs(21), 2, "tab type 4 is not on \"A4\" stationery"},
        {properties("P,A4,0,4") + Tabs(24), 2, "number of fields \"4\" is not valid"},
        {kHeader + Tabs(11), 18, "11 tabs are no whole number of pages of 12"},
        {kHeader + Tabs(12) + "\x1A", 19, "the file ends in an end-of-file mark (0x1A)"},
        {kHeader + "a,b,c,d\r\n" + Tabs(11), 7, "the tab has 4 fields instead of 3"},
        {kHeader + Tabs(11) + "123456789012345678901,,\r\n", 18, "field 1 has 21 characters instead of at most 20"},
        {kHeader + std::string("\0,,\r\n", 5) + Tabs(11), 7, "holds bytes that are no text"},
        {"Version 8\r\nP,A4,0,1\r\n", 3, "the margin line is missing"}};
    for (const auto& [bytes, line, text] : cases) {
        std::string found;
        for (const TabFileProblem& problem : CheckTabFile(bytes))
            found += "\n" + std::to_string(problem.line) + " " + problem.text + "\n";
        EXPECT_NE(found.find("\n" + std::to_string(line) + " " + text + "\n"), std::string::npos) << text << found;
    }
}

TEST(TextListTest, GuessesTheDelimiterAndKnowsQuotes) {
    std::string longer;
    for (int line = 0; line < 20; ++line)
        longer += "a,b;c\n";
    const std::pair<std::string, char> cases[] = {{"a;b,c;d\r\ne;f;g\r\n", ';'},
                                                  {"a\tb, c\n\nd\te\n", '\t'},
                                                  {"one\ntwo\n", ','},
                                                  {"", ','},
                                                  {"a;b,c\td\n", ','}, // as many of each
                                                  {"a;b\tc\n", ';'},
                                                  {"a;b,,,,\n \nc;d\n", ';'}, // on every line that holds something
                                                  {"a title\na;b;c\nd,e;f;g\n", ';'},
                                                  {longer + "x;y\n", ','}, // beyond what is looked at
                                                  {std::string(1 << 20, 'x') + ";y\n", ','}};
    for (const auto& [text, delimiter] : cases)
        EXPECT_EQ(GuessDelimiter(text), delimiter) << text;
    EXPECT_EQ(
        ParseTextList("\"a;\"\"b\"\"\";c\r\n\r\n\"x\ny\";5\" disk\rlast;\"open", ';'),
        (std::vector<std::vector<std::string>>{{"a;\"b\"", "c"}, {""}, {"x\ny", "5\" disk"}, {"last", "\"open"}}));
}

} // namespace
} // namespace velmora
