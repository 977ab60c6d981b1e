// A name that fits no code page is one file, through whatever door it comes in.
#include "app/CommandLine.h"
#include "app/Commands.h"
#include "report/FontFace.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/RecoveryTest.h"
#include "workspace/RecentFiles.h"
#include "workspace/RestoreDocument.h"
#include "workspace/SaveDocument.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct DoorsTest : RecoveryTest {
    const std::string name = "t\xC3\xAB\xE2\x82\xAC\xC5\x82";
    const fs::path list = Put(name + ".csv", TabFileOf("P,A4,0,1", "x"));

    void ExpectOpened(const std::string& text) {
        EXPECT_EQ(document.FieldA(1), text);
        EXPECT_EQ(document.DocFileName, list);
    }
};

TEST_F(DoorsTest, CommandLineDialogsSettingsAndRecovery) {
    EXPECT_EQ(ReadCommandLine({PathText(list)}).files, std::vector{list});
    const std::string root = list.has_root_name() ? "file:///" : "file://";
    EXPECT_EQ(ReadCommandLine({root + SlashedPathText(list)}).files, std::vector{list});
    document.DocFileName.clear(); // or it would ask about that file
    program.ui.ExpectChooser("Open", list);
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
    ExpectOpened("x");
    EXPECT_EQ(RecentFiles(program.settings).front(), list);
    Type("typed");
    ASSERT_TRUE(Archive());
    document.DocChanged = false;
    OpenFile(main, Put("other.csv", TabFileOf("P,A4,0,1", "other")));
    EXPECT_EQ(RestoreDocument(main, store.List().at(0)), LoadOutcome::Loaded);
    ExpectOpened("typed");
    Tell("File saved successfully");
    EXPECT_EQ(SaveLabels(main, SaveKind::Save), SaveOutcome::Saved);
    EXPECT_NE(Content(list).find("typed"), std::string::npos);
}

TEST_F(DoorsTest, WorkbooksAndFonts) {
    for (const auto& [format, ending] : {std::pair(WorkbookFormat::Xls, ".xls"), {WorkbookFormat::Xlsx, ".xlsx"}}) {
        std::string bytes;
        bool more = true;
        const auto row = [&](std::vector<std::string>& cells) { return cells = {name}, std::exchange(more, false); };
        program.workbooks.Write(format, name, row, [&](std::string_view part) { bytes += part; });
        EXPECT_EQ(program.workbooks.Open(Put(name + ending, bytes), {})->SheetNames(), std::vector{name});
    }
    const fs::path font = program.folder / (name + ".ttf");
    const auto installed = InstalledFonts().Match({"Liberation Sans"});
    ASSERT_TRUE(installed);
    fs::copy_file(installed->path, font);
    EXPECT_NO_THROW(FontFace(font, installed->index));
}

} // namespace
} // namespace velmora
