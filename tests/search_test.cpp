// The search of the machine's drives for a folder or a picture.
#include "tests/support/ProgramTest.h"
#include "workspace/FolderSearch.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct FakeDrives : Drives {
    std::vector<Drive> List() const override { return drives; }
    std::vector<Drive> drives;
};

struct SearchTest : ProgramTest {
    FakeDrives machine;
    const std::string question = "The 'Image' directory can not be find.\r\nDo you want the program to search for it?";
    const FileWanted picture = {"tab.gif", "Image", "Images", "Picture (*.gif)|*.gif", "A4_alpha_New.gif"};

    SearchTest() {
        for (const char* folder : {"disk/a/deep", "disk/proc", "disk/net", "disk/half"})
            fs::create_directories(program.folder / folder);
        std::error_code ignored; // not every system lets everybody make one
        fs::create_directory_symlink(program.folder / "disk", program.folder / "disk/a/circle", ignored);
        machine.drives = {{program.folder / "disk", DriveKind::Disk},
                          {program.folder / "disk/proc", DriveKind::Virtual},
                          {program.folder / "disk/net", DriveKind::Network}};
        main.drives.Take(machine);
        main.globals.ImagesPath = program.folder / "none";
        Put("disk/half/a4_alpha_new.GIF", ""); // without the picture
        Fill("disk/proc");
    }
    void Fill(const std::string& folder) {
        Put(folder + "/A4_alpha_New.gif", "");
        Put(folder + "/TAB.gif", "");
    }
    std::optional<fs::path> Find() { return SearchFile(main, main.globals.ImagesPath, picture); }
};

TEST_F(SearchTest, APictureIsFoundWhereItsCompanionsAre) {
    Fill("disk/a/deep");
    AskOrCancel(question, Answer::Yes);
    EXPECT_TRUE(IsSameFile(Find().value_or(""), program.folder / "disk/a/deep/TAB.gif"));
    EXPECT_EQ(main.globals.ImagesPath, program.folder / "disk/a/deep/");
    EXPECT_EQ(program.Stored("Paths", "Images"), (program.folder / "disk/a/deep/").string());
    EXPECT_TRUE(Find()) << "and nothing is asked again";
}

TEST_F(SearchTest, TheNetworkIsSearchedOnlyWhenWanted) {
    Fill("disk/net");
    const std::string network = "The file 'tab.gif' is on none of the disks.\r\nDo you want to search the network too?";
    AskOrCancel(question, Answer::Yes);
    Ask(network, Answer::No);
    Tell("The file 'tab.gif' was not found.");
    EXPECT_FALSE(Find());
    EXPECT_FALSE(Find()) << "having given up, nobody is asked";
    main.drives.Take(machine); // the next run
    AskOrCancel(question, Answer::Yes);
    Ask(network, Answer::Yes);
    EXPECT_TRUE(IsSameFile(Find().value_or(""), program.folder / "disk/net/TAB.gif"));
}

TEST_F(SearchTest, GivingUpAndShowingTheFile) {
    program.ui.cancelAfter = 2;
    for (const Answer answer : {Answer::Yes, Answer::Cancel, Answer::No}) {
        main.drives.Take(machine); // the next run
        AskOrCancel(question, answer);
        if (answer != Answer::No) {
            Tell("This task will be canceled.");
            EXPECT_FALSE(Find());
        }
    }
    program.ui.ExpectChooser("Open Velmora path", program.folder / "disk/proc/TAB.gif",
                             "OPEN|Picture (*.gif)|*.gif|tab.gif");
    EXPECT_EQ(Find(), program.folder / "disk/proc/TAB.gif");
    EXPECT_EQ(main.globals.ImagesPath, program.folder / "disk/proc/");
}

TEST_F(SearchTest, FoldersAreSearchedForToo) {
    const auto ask = [&](const std::string& word, Answer answer) {
        AskOrCancel("The '" + word + "' directory cannot be found.\r\nDo you want the program to search for the " +
                        word + " directory?",
                    answer);
    };
    Put("disk/a/deep/tabs.CSV", "");
    AskOrCancel("The '/gone' directory cannot be found.\r\nDo you want to create it?", Answer::No);
    ask("Lables", Answer::Yes);
    EXPECT_EQ(SearchFolder(main, "/gone", {"Tabs.csv", "Lables", "Lables", true}), program.folder / "disk/a/deep/");
    EXPECT_EQ(program.Stored("Paths", "Lables"), (program.folder / "disk/a/deep/").string());
    machine.drives.pop_back();
    const auto search = [&] { return SearchFolder(main, "/gone", {"velmora", "Application", "Application", false}); };
    ask("Application", Answer::Yes);
    Tell("The file 'velmora' was not found.");
    EXPECT_EQ(search(), std::nullopt);
    ask("Application", Answer::Cancel);
    Tell("This task will be canceled.");
    EXPECT_EQ(search(), std::nullopt);
    ask("Application", Answer::No);
    program.ui.ExpectChooser("Open Velmora path", program.folder / "disk");
    EXPECT_EQ(search(), program.folder / "disk/");
}

} // namespace
} // namespace velmora
