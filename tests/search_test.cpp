// The search of the machine's drives for a folder or a picture.
#include "base/AtomicFile.h"
#include "platform/linux/LinuxDrives.h"
#include "tests/support/TestProgram.h"
#include "workspace/FolderSearch.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST(LinuxDrives, TellsDisksFromWhatNobodyStoresOn) {
    const std::vector<Drive> drives =
        ReadMounts("22 1 8:1 / / rw,relatime shared:1 master:2 - ext4 /dev/sda1 rw\n"
                   "23 22 0:5 / /proc rw - proc proc rw\n24 22 0:9 / /mnt/my\\040disk\\134x rw - ntfs3 /dev/sdb1 rw\n"
                   "25 22 0:6 / /net rw shared:9 - nfs4 host:/x rw\n26 22 0:7 / /cloud rw - fuse.rclone r rw\n"
                   "27 22 0:8 / /run rw - tmpfs tmpfs rw\n28 22 7:1 / /snap/a rw - squashfs /dev/loop1 ro\nnonsense\n");
    const std::vector<Drive> wanted = {
        {"/", DriveKind::Disk},         {"/proc", DriveKind::Virtual},  {"/mnt/my disk\\x", DriveKind::Disk},
        {"/net", DriveKind::Network},   {"/cloud", DriveKind::Network}, {"/run", DriveKind::Virtual},
        {"/snap/a", DriveKind::Virtual}};
    EXPECT_EQ(drives, wanted);
    EXPECT_FALSE(LinuxDrives().List().empty());
}

struct FakeDrives : Drives {
    std::vector<Drive> List() const override { return drives; }
    std::vector<Drive> drives;
};

struct SearchTest : testing::Test {
    TestProgram test{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = test.main;
    FakeDrives machine;
    const std::string question = "The 'Image' directory can not be find.\r\nDo you want the program to search for it?";
    const FileWanted picture = {"tab.gif", "Image", "Images", "Picture (*.gif)|*.gif", "A4_alpha_New.gif"};

    SearchTest() {
        for (const char* folder : {"disk/a/deep", "disk/proc", "disk/net", "disk/half"})
            fs::create_directories(test.folder / folder);
        fs::create_directory_symlink(test.folder / "disk", test.folder / "disk/a/circle");
        machine.drives = {{test.folder / "disk", DriveKind::Disk},
                          {test.folder / "disk/proc", DriveKind::Virtual},
                          {test.folder / "disk/net", DriveKind::Network}};
        main.drives.Take(machine);
        main.globals.ImagesPath = test.folder / "none";
        ReplaceFile(test.folder / "disk/half/a4_alpha_new.GIF", ""); // without the picture
        Fill("disk/proc");
    }
    void Fill(const std::string& folder) {
        ReplaceFile(test.folder / folder / "A4_alpha_New.gif", "");
        ReplaceFile(test.folder / folder / "TAB.gif", "");
    }
    std::optional<fs::path> Find() { return SearchFile(main, main.globals.ImagesPath, picture); }
};

TEST_F(SearchTest, APictureIsFoundWhereItsCompanionsAre) {
    Fill("disk/a/deep");
    test.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, Answer::Yes);
    EXPECT_EQ(Find(), test.folder / "disk/a/deep/TAB.gif");
    EXPECT_EQ(main.globals.ImagesPath, test.folder / "disk/a/deep/");
    EXPECT_EQ(test.Stored("Paths", "Images"), (test.folder / "disk/a/deep/").string());
    EXPECT_TRUE(Find()) << "and nothing is asked again";
}

TEST_F(SearchTest, TheNetworkIsSearchedOnlyWhenWanted) {
    Fill("disk/net");
    const std::string network = "The file 'tab.gif' is on none of the disks.\r\nDo you want to search the network too?";
    test.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, Answer::Yes);
    test.ui.Expect(network, Icon::Question, Buttons::YesNo, Answer::No);
    test.ui.Expect("The file 'tab.gif' was not found.", Icon::Information);
    EXPECT_FALSE(Find());
    EXPECT_FALSE(Find()) << "having given up, nobody is asked";
    main.drives.Take(machine); // the next run
    test.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, Answer::Yes);
    test.ui.Expect(network, Icon::Question, Buttons::YesNo, Answer::Yes);
    EXPECT_EQ(Find(), test.folder / "disk/net/TAB.gif");
}

TEST_F(SearchTest, GivingUpAndShowingTheFile) {
    test.ui.cancelAfter = 2;
    for (const Answer answer : {Answer::Yes, Answer::Cancel}) {
        main.drives.Take(machine);
        test.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, answer);
        test.ui.Expect("This task will be canceled.", Icon::Information);
        EXPECT_FALSE(Find());
    }
    main.drives.Take(machine); // the next run
    test.ui.Expect(question, Icon::Question, Buttons::YesNoCancel, Answer::No);
    test.ui.ExpectChooser("Open Velmora path", test.folder / "disk/proc/TAB.gif", "OPEN|Picture (*.gif)|*.gif|tab.gif");
    EXPECT_EQ(Find(), test.folder / "disk/proc/TAB.gif");
    EXPECT_EQ(main.globals.ImagesPath, test.folder / "disk/proc/");
}

TEST_F(SearchTest, FoldersAreSearchedForToo) {
    const auto ask = [&](const std::string& word, Answer answer) {
        test.ui.Expect("The '" + word + "' directory cannot be found.\r\nDo you want the program to search for the " +
                           word + " directory?",
                       Icon::Question, Buttons::YesNoCancel, answer);
    };
    ReplaceFile(test.folder / "disk/a/deep/tabs.CSV", "");
    test.ui.Expect("The '/gone' directory cannot be found.\r\nDo you want to create it?", Icon::Question,
                   Buttons::YesNoCancel, Answer::No);
    ask("Lables", Answer::Yes);
    EXPECT_EQ(SearchFolder(main, "/gone", {"Tabs.csv", "Lables", "Lables", true}), test.folder / "disk/a/deep/");
    EXPECT_EQ(test.Stored("Paths", "Lables"), (test.folder / "disk/a/deep/").string());
    machine.drives.pop_back();
    ask("Application", Answer::Yes);
    test.ui.Expect("The file 'velmora' was not found.", Icon::Information);
    EXPECT_EQ(SearchFolder(main, "/gone", {"velmora", "Application", "Application", false}), std::nullopt);
    ask("Application", Answer::Cancel);
    test.ui.Expect("This task will be canceled.", Icon::Information);
    EXPECT_EQ(SearchFolder(main, "/gone", {"velmora", "Application", "Application", false}), std::nullopt);
    ask("Application", Answer::No);
    test.ui.ExpectChooser("Open Velmora path", test.folder / "disk");
    EXPECT_EQ(SearchFolder(main, "/gone", {"velmora", "Application", "Application", false}), test.folder / "disk/");
}

} // namespace
} // namespace velmora
