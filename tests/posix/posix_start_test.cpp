// A start over files that may not be read or written, as modes and other users are POSIX's.
#include "settings/RegistryMove.h"
#include "tests/support/StartTest.h"

#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// Whose drive is none of this system's.
TEST_F(StartTest, AFolderOfAnOldMachineGivesWayToOurs) {
    const std::string key = "SOFTWARE\\Corvane Series\\Velmora\\Paths";
    BeginWithoutSettings();
    OfferPrinter(Answer::Yes);
    for (const bool moved : {true, false}) { // while there is no INI file
        for (const char* path : {"Application", "Images"})
            test.registry.Set(key, path, std::string("C:\\Velmora\\Images\\"));
        EXPECT_EQ(Start(), StartOutcome::Running);
        EXPECT_EQ(program.main.globals.ImagesPath, test.folder / "Images/");
        EXPECT_EQ(HasOldSettings(test.settings), !moved);
    }
}

TEST_F(StartTest, AFileInAWorkingFolderThatIsGoneIsReported) {
    const fs::path here = fs::current_path();
    fs::create_directory(test.folder / "gone");
    fs::current_path(test.folder / "gone");
    fs::remove(test.folder / "gone");
    test.ui.Expect("Could not load the following file [x.csv]", Icon::Critical);
    EXPECT_NO_THROW(Start({"x.csv"}));
    fs::current_path(here);
}

/// The administrator may do everything: for a while, somebody else.
class Nobody {
public:
    Nobody() { EXPECT_EQ(::getuid() == 0 ? ::seteuid(65534) : 0, 0); }
    ~Nobody() { EXPECT_EQ(::getuid() == 0 ? ::seteuid(0) : 0, 0); }
};

/// What a start changes in the program folder may fail for many reasons; the program comes up all the same, says why
/// once, and harms nothing.
TEST_F(StartTest, AStoreThatCannotBeWrittenIsReportedOnce) {
    const fs::path ini = test.folder / "Velmora.ini";
    const std::string kept =
        "[Paths]\r\nApplication=" + test.folder.Path().string() + "\r\n[Settings]\r\nOptType=3\r\n";
    enum { IsFolder, NotReadable, NotWritable };
    for (const int fault : {IsFolder, NotReadable, NotWritable}) {
        fs::remove_all(ini);
        if (fault == IsFolder)
            fs::create_directory(ini);
        else
            ReplaceFile(ini, kept);
        fs::permissions(ini, fault == NotReadable ? fs::perms::none : fs::perms(0555));
        fs::permissions(test.folder.Path(), fault == IsFolder ? fs::perms(0755) : fs::perms(0555));
        test.settings.Own.clear();
        test.settings.Object.File().Open({});
        test.settings.WriteFailureShown = false;
        test.ui.Expect(ini.string() + (fault == IsFolder ? ": Is a directory" : ": Permission denied") +
                           "\r\nUntil it can be written, settings are not kept.",
                       Icon::Exclamation);
        OfferPrinter(Answer::No); // nothing keeps what was offered
        OfferMargins(Answer::No);
        {
            const auto nobody = fault == IsFolder ? nullptr : std::make_unique<Nobody>();
            EXPECT_EQ(Start(), StartOutcome::Running);
            SaveGlobals(program.main); // as a window that opens does
            SaveGlobals(program.main);
        }
        fs::permissions(test.folder.Path(), fs::perms(0755));
        fs::permissions(ini, fs::perms(0755));
        EXPECT_EQ(program.main.document.setup.OptType, fault == NotWritable ? 3 : 0);
        EXPECT_EQ(fault == IsFolder ? kept : ReadFile(ini), kept);
    }
    EXPECT_EQ(forms.shown, "main page main page main page ");
}

} // namespace
} // namespace velmora
