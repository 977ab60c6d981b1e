// The start of the program: folders, command line, the ends before the window.
#include "app/StartPage.h"
#include "base/Paths.h"
#include "settings/RegistryMove.h"
#include "tests/support/StartTest.h"
#include "workspace/RecentFiles.h"
#include "workspace/SaveDocument.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

TEST_F(StartTest, NamesTheProgramAndItsFolders) {
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(forms.shown, "main page ");
    EXPECT_EQ(test.settings.SettingsAppName + program.Title, "VelmoraVelmora [Version 8.2.0]");
    EXPECT_EQ(test.settings.IniFile, test.folder / "Velmora.ini");
    EXPECT_EQ(test.Stored("Paths", "Images"), (test.folder / "Images/").string());
    EXPECT_EQ(program.main.globals.TabsPath, test.folder / "Tabs/");
}

TEST_F(StartTest, TheStartPageIsForAStartThatOpensNothingUntilItIsSwitchedOff) {
    Start();
    EXPECT_EQ(forms.startPages, 1);
    test.ui.Expect("Could not load the following file [" + fs::absolute("gone").string() + "]", Icon::Critical);
    Start({"gone"});
    EXPECT_EQ(forms.startPages, 1);
    KeepStartPage(test.settings, true);
    EXPECT_EQ(test.Stored("Settings", "Start Page"), "(none)");
    for (const bool wanted : {false, true}) {
        KeepStartPage(test.settings, wanted);
        EXPECT_EQ(WantsStartPage(test.settings), wanted);
    }
}

TEST_F(StartTest, FieldsChosenOnTheStartPageAreNothingToSave) {
    Start();
    TabDocument& document = program.main.document;
    BeginWithFields(program.main, 1);
    EXPECT_FALSE(document.DocChanged);
    program.main.history.Undo(program.main.State());
    EXPECT_TRUE(document.DocChanged);
    EXPECT_EQ(document.setup.NoOfFields, 3);
    BeginWithFields(program.main, 2);
    EXPECT_TRUE(document.DocChanged) << "what was to be saved before still is";
}

TEST_F(StartTest, SettingsAloneIsTheWholeCommandLine) {
    BeginWithoutSettings();
    EXPECT_EQ(Start({"settings"}), StartOutcome::Ended);
    EXPECT_EQ(forms.shown, "editor ");
    EXPECT_FALSE(fs::exists(test.folder / "Velmora.ini"));
    test.ui.Expect("Could not load the following file [" + fs::absolute("SETTINGS x").string() + "]", Icon::Critical);
    EXPECT_EQ(Start({"SETTINGS", "x"}), StartOutcome::Running);
    forms.pageSetup = LoadOutcome::NoPrinter;
    OfferPrinter(Answer::Yes);
    EXPECT_EQ(Start(), StartOutcome::Ended);
}

TEST_F(StartTest, AFolderWithALongerPathThanASettingIsFoundAgain) {
    const fs::path deep = test.folder / std::string(140, 'd');
    fs::create_directories(deep / "Images");
    fs::create_directories(deep / "Tabs");
    test.settings.ProgramFolder = deep;
    ReplaceFile(deep / "Velmora.ini", "[Settings]\r\nPrinter=Velmora PDF\r\n");
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(program.main.globals.ImagesPath, deep / "Images/");
}

TEST_F(StartTest, AForeignNameIsOneFileToCommandLineDiskAndIniFile) {
    const std::string name = "t\xC3\xAB\xE2\x82\xAC\xC5\x82.csv"; // fits no code page
    ReplaceFile(test.folder / name, "Version 8\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nx\r\n");
    EXPECT_EQ(Start({PathText(test.folder.Path()) + "/" + name}), StartOutcome::Running);
    EXPECT_EQ(program.main.document.FieldA(1), "x");
    program.main.document.FieldA(1) = "typed";
    test.ui.Expect("File saved successfully", Icon::Information);
    EXPECT_EQ(SaveLabels(program.main, SaveKind::Save), SaveOutcome::Saved);
    EXPECT_NE(ReadFile(test.folder / name).find("typed"), std::string::npos);
    EXPECT_NE(ReadFile(test.folder / "Velmora.ini").find(PathText(test.folder / name) + "\r\n"), std::string::npos);
    SettingsStore nextStart(test.registry, test.ui);
    nextStart.IniFile = test.folder / "Velmora.ini";
    EXPECT_EQ(RecentFiles(nextStart), std::vector{test.folder / name});
    EXPECT_EQ(std::distance(fs::directory_iterator(test.folder.Path()), {}), 4)
        << "Images, Tabs, this and the INI file";
}

TEST_F(StartTest, WhatIsNotSetUpYetIsOffered) {
    const std::tuple<std::string, const char*, Answer, const char*> rows[] = {
        {"", "True", Answer::Yes, "main printer margins page "}, // no type stored: the printer is not configured
        {"", "False", Answer::No, "main "},
        {"2", "True", Answer::Yes, "main margins page "},
        {"2", "no", Answer::No, "main page "}};
    for (const auto& [type, startWithSetup, answer, shown] : rows) {
        forms.shown.clear();
        forms.whenShown = [&, &type = type, &startWithSetup = startWithSetup] {
            test.Store("Settings", "OptType", type);
            test.Store("Settings", "Start with setup", startWithSetup);
            test.Store("Settings", "Ask for printer", type.empty() ? "True" : "False");
            LoadGlobals(program.main);
            SetLayoutFromType(program.main.document.setup);
        };
        if (type.empty())
            OfferPrinter(answer);
        OfferMargins(answer);
        EXPECT_EQ(Start(), StartOutcome::Running);
        EXPECT_EQ(forms.shown, shown);
    }
}

/// Starts over lost documents, each with its letter as the only text; "b" is of the file b.csv.
struct LostTest : StartTest, Desktop {
    const std::string file = PathText(test.folder / "b.csv");
    std::vector<fs::path> windows; ///< each beside those before it
    bool starts = true;

    LostTest() {
        program.desktop.Take(*this);
        ReplaceFile(file, "Version 8\r\nP,A4,0,1\r\n0,0\r\nA\r\nB\r\nC\r\nsaved\r\n");
    }
    ~LostTest() override { program.desktop.Leave(); }
    bool StartAnother(const fs::path& copy, std::size_t beside) override {
        if (starts)
            windows.push_back(copy);
        EXPECT_TRUE(!starts || windows.size() == beside);
        return starts;
    }

    void Lose(char text) {
        TabDocument document;
        document.TabCount = 1;
        for (int field = 0; field < kFieldsPerTab; ++field)
            document.Field(field).ReDim(1);
        document.FieldA(1) = text;
        document.DocFileName = text == 'b' ? file : "";
        document.DocChanged = true;
        RecoveryStore store;
        store.Open(test.folder / "Recovery", [text] { return std::chrono::system_clock::from_time_t(text); });
        store.Keep(document, test.settings);
    }
    /// What was shown, the document that is open then, the number of windows, and what the next start would offer.
    std::string Start(const std::string& commandLine, const std::vector<LostAnswer>& answers) {
        forms.shown.clear();
        forms.answers = answers;
        StartTest::Start(commandLine.empty() ? std::vector<std::string>() : std::vector{commandLine});
        const TabDocument& here = program.main.document;
        std::string end = forms.shown + (here.TabCount > 0 ? here.FieldA(1) : "-") + std::to_string(windows.size());
        for (const RecoveredDocument& document : program.main.recovery.Lost())
            end += document.FirstTexts;
        return end;
    }
    std::string StartAfter(const std::string& lost, const std::vector<LostAnswer>& answers,
                           const std::string& commandLine = "") {
        program.main.recovery.Drop();
        fs::remove_all(test.folder / "Recovery");
        windows.clear();
        std::for_each(lost.begin(), lost.end(), [this](char text) { Lose(text); });
        return Start(commandLine, answers);
    }
    void TellNotOpened(int count) {
        test.ui.Expect("Documents not brought back yet: " + std::to_string(count) +
                           "\r\nFile > Recover has them, and the next start offers them again.",
                       Icon::Exclamation);
    }
};

TEST_F(LostTest, EveryOneIsOfferedBeforeAnySetupAndStaysUntilItIsChosen) {
    EXPECT_EQ(StartAfter("abc", {{LostChoice::Later}}), "main lost:c:b:a page -0cba");
    EXPECT_EQ(StartAfter("abc", {{LostChoice::Recover, {1}}}), "main lost:c:b:a b0ca")
        << "no page set-up of an old one";
    for (const Answer answer : {Answer::No, Answer::Yes})
        test.ui.Expect("Documents to be given up: 2\r\nFile > Recover keeps the last ten of all that were given up or "
                       "replaced. Do you want to go on?",
                       Icon::Question, Buttons::YesNo, answer, Answer::No);
    const LostAnswer discard{LostChoice::Discard, {1, 2}};
    EXPECT_EQ(StartAfter("abc", {discard, discard, {}}), "main lost:c:b:a lost:c:b:a lost:c page b0c");
    EXPECT_EQ(program.main.recovery.List().size(), 3U);
}

TEST_F(LostTest, AllComeBackEachInAWindowOfItsOwnBesideTheFileOfTheCommandLine) {
    const LostAnswer all{LostChoice::Recover, {0, 1, 2}};
    EXPECT_EQ(StartAfter("abc", {all}), "main lost:c:b:a c2ba");
    program.main.recovery.Drop(); // "c" is saved
    EXPECT_EQ(Start(PathText(windows[1]), {}), "main a2b") << "as the other program";
    ReplaceFile(windows[0], "damaged");
    test.ui.Expect("The recovery copy is gone or damaged: " + PathText(windows[0]) +
                       "\r\nCalled from Sub: RestoreCommand",
                   Icon::Critical);
    Start(PathText(windows[0]), {});
    EXPECT_EQ(StartAfter("acd", {all}, file), "main lost:d:c:a saved3dca");
    EXPECT_EQ(StartAfter("abc", {all}, file), "main lost:c:b:a b2ca") << "what was lost is that file's own text";
    TellNotOpened(1);
    EXPECT_EQ(StartAfter("abcdefghijkl", {{LostChoice::Recover, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}}}).back(), 'a');
    EXPECT_EQ(windows.size(), 10U);
    starts = false;
    TellNotOpened(2);
    EXPECT_EQ(StartAfter("abc", {all}), "main lost:c:b:a c0ba");
}

TEST_F(LostTest, ThatManyFilesOpenEachInAWindowOfItsOwn) {
    EXPECT_EQ(StartTest::Start({file, "x.csv", "file:///tmp/a%20b.csv"}), StartOutcome::Running);
    EXPECT_EQ(forms.shown, "main ") << "no set-up but what the file's layout lacks";
    EXPECT_EQ(program.main.document.FieldA(1), "saved");
    EXPECT_EQ(windows, (std::vector<fs::path>{fs::absolute("x.csv"), fs::absolute("/tmp/a b.csv")}));
    starts = false;
    test.ui.Expect("Files not opened: 2\r\n[" + fs::absolute("x").string() + "]\r\n[" + fs::absolute("y").string() +
                       "]",
                   Icon::Exclamation);
    StartTest::Start({file, "x", "y"});
}

TEST_F(StartTest, WhoNeverChoseAPrinterIsAskedUntilItIsDoneOrTicked) {
    for (const bool ticked : {false, true}) {
        BeginWithoutSettings();
        forms.shown.clear();
        for (const Answer answer : {Answer::No, ticked ? Answer::No : Answer::Yes}) {
            OfferPrinter(answer);
            test.ui.ticksNotAgain = ticked && answer == Answer::No && forms.shown != "";
            Start();
        }
        Start();
        EXPECT_EQ(forms.shown, ticked ? "main page main page main page " : "main page main printer page main page ");
    }
    forms.whenShown = [] {};
    for (const char* key : {"Default Left Margin - A4_8", "Default Top Margin - A4_8"})
        DeleteSetting(test.settings, kMarginSection, key);
    OfferMargins(Answer::No);
    Start();
    EXPECT_EQ(test.Stored("Settings", "Ask for margins"), "False");
    Start();
}

TEST_F(StartTest, AnyFolderMayBeChosenAndGivingUpTakesTheDefaultForThisRun) {
    const std::string gone = (test.folder / "stick/").string();
    for (const char* key : {"Images", "Lables"})
        test.Store("Paths", key, gone);
    fs::remove(test.folder / "Tabs");
    AskToCreate("stick", Answer::No);
    test.ui.ExpectChooser("Open Velmora path", test.folder / "Images");
    AskToCreate("stick", Answer::Cancel);
    test.ui.Expect("This task will be canceled.", Icon::Information);
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(test.Stored("Paths", "Images"), (test.folder / "Images/").string());
    EXPECT_EQ(test.Stored("Paths", "Lables"), gone) << "it may come back";
    EXPECT_EQ(program.main.globals.TabsPath, test.folder / "Tabs/");
    EXPECT_TRUE(fs::exists(test.folder / "Tabs"));
}

TEST_F(StartTest, BeginsWithThePrintersMargins) {
    test.settings.IniFile = test.folder / "Velmora.ini";
    RememberPrinterMargins(test.settings, kPdfPrinter, {}, {"3.5", "-1"});
    test.Store("Settings", "Start with setup", "False");
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(test.Stored("Settings", "Margin Value Left"), "3.5");
}

TEST_F(StartTest, AfterFiveSearchesThePersonMayGiveUp) {
    test.settings.SettingsAppName = "Velmora";
    test.settings.IniFile = test.folder / "Velmora.ini";
    test.Store("Paths", "Application", "/nowhere/at/all");
    for (int round = 0; round < 2; ++round) {
        for (int search = 0; search < 5; ++search) {
            test.ui.ExpectChooser("Open Velmora path", std::nullopt);
            test.ui.Expect("This task will be canceled.", Icon::Information);
        }
        test.ui.Expect("Do you want to exit the installtion prosedure of Velmora", Icon::Question, Buttons::YesNo,
                       round == 0 ? Answer::No : Answer::Yes);
    }
    EXPECT_EQ(Start(), StartOutcome::Ended);
    EXPECT_EQ(forms.shown, "");
}

TEST_F(StartTest, ABrokenRegistryIsSaidAndCanBeImportedLater) {
    ReplaceFile(test.folder / "Velmora.reg", "broken");
    BeginWithoutSettings();
    test.ui.Expect(
        "\r\nError Opening Registry Key Entry:\r\nKey/Path=SOFTWARE\\Corvane Series\\VelmoraDLL Returned=1015",
        Icon::Exclamation);
    test.ui.Expect("Not all settings of the older installation could be moved from [" +
                       (test.folder / "Velmora.reg").string() +
                       "]: it is damaged, or can't be changed. The program goes on with settings of its own. When the "
                       "cause is mended, the others can be had with Tools > Options ... > Import old settings.",
                   Icon::Exclamation);
    OfferPrinter(Answer::Yes);
    EXPECT_EQ(Start(), StartOutcome::Running);
    EXPECT_EQ(ReadFile(test.folder / "Velmora.reg"), "broken");
}

} // namespace
} // namespace velmora
