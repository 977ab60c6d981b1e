// The flows of New, Open, Save and Save as: every question in its order, over real files.
#include "app/Commands.h"
#include "app/LostDocuments.h"
#include "report/rptVelmor.h"
#include "tests/support/ProgramTest.h"
#include "wizard/NewTabs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Globals.h"
#include "workspace/RecentFiles.h"
#include "workspace/RecoveryCopy.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/SaveDocument.h"

#include "TestSystem.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct FlowsTest : ProgramTest {
    FlowsTest() {
        LoadGlobals(main);
        NewDocument(main);
        document.FieldA(1) = "typed";
        document.DocChanged = true;
    }
    fs::path Path(const char* name) { return program.folder / name; }
    std::string Named(const char* name) { return "[" + Path(name).string() + "]"; }
    void AskToSave(Answer answer) { AskOrCancel("Do you want to save the current document?", answer); }
    SaveOutcome Save() { return SaveLabels(main, SaveKind::Save); }
    SaveOutcome SaveAloud() {
        Tell("File saved successfully");
        return Save();
    }
    void FailToCreate(const char* name, Answer answer, const std::function<void()>& meanwhile = {}) {
        program.ui.Expect(
            "The application encountered the following error when it attempted to save the following file: " +
                Named(name) + "\r\nError Nommer:2\r\nError Description:No such file or directory",
            Icon::Critical, Buttons::RetryCancel, answer, std::nullopt, meanwhile);
        if (answer == Answer::Retry)
            return;
        Tell("File was NOT saved succesfully!");
        Tell("Could not finish process");
    }
    fs::path PutTab(const std::string& name, const std::string& text, const std::string& setup = "P,A4,0,1") {
        return Put(name, TabFileOf(setup, text));
    }
};

TEST_F(FlowsTest, ANamedDocumentIsAskedAboutBeforeItIsReplaced) {
    for (const char* name : {"in.csv", "other.csv"})
        PutTab(name, name);
    OpenFile(main, Path("in.csv"));
    document.FieldA(1) = "changed";
    AskToSave(Answer::Cancel);
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Cancelled);
    EXPECT_EQ(document.FieldA(1), "changed");

    const std::tuple<Answer, const char*, const char*> rows[] = {{Answer::Yes, "other.csv", "other.csv"},
                                                                 {Answer::No, "in.csv", "changed"}};
    for (const auto& [answer, name, first] : rows) {
        AskToSave(answer);
        if (answer == Answer::Yes)
            Tell("File saved successfully");
        program.ui.ExpectChooser("Open", Path(name));
        EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
        EXPECT_EQ(document.FieldA(1), first);
        EXPECT_EQ(document.DocFileName, Path(name));
    }
    document.Foreign = true;
    AskToSave(Answer::Cancel);
    NewCommand(main);
    EXPECT_EQ(document.FieldA(1), "changed");
    EXPECT_TRUE(document.DocFileName.empty());
    program.ui.ExpectChooser("Save as", std::nullopt, "SAVE|Velmora file(*.csv)|*.csv|Tabs.csv");
    EXPECT_EQ(Save(), SaveOutcome::Cancelled) << "there is no file any more to stand beside";
    NewCommand(main); // untitled now
    EXPECT_EQ(document.FieldA(1), "");
}

TEST_F(FlowsTest, AVersion7FileIsUpgraded) {
    Put("seven.csv", "VERSION7\r\nP,A4,1,2\r\n0,0\r\nA\r\nB\r\nC\r\nold,,\r\n");
    program.ui.ExpectChooser("Open", Path("seven.csv"),
                             "OPEN|Velmora/csv-file (*.csv)|*.csv|Excel file (*.xls)|*.xls|Tabs.csv");
    Tell("The file: " + Named("seven.csv") +
         " is an Velmora version 7 file.\r\n\r\nVelmora will upgrade it to a version 8 file!");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Opened);
    EXPECT_EQ(document.setup.OptType, 1);
    SaveAloud();
    EXPECT_TRUE(ReadFile(Path("seven.csv")).starts_with("Version 8\r\n"));
}

TEST_F(FlowsTest, SavingAsksForANameAndBeforeOverwriting) {
    program.ui.ExpectChooser("Save as", Path("a.csv"), "SAVE|Velmora file(*.csv)|*.csv|Tabs.csv");
    EXPECT_EQ(Save(), SaveOutcome::Saved) << "a new name: without a word";
    EXPECT_EQ(program.Stored("Paths", "Lables"), (program.folder.Path() / "").string());
    EXPECT_FALSE(document.DocChanged);

    const auto choose = [&](Answer answer) {
        program.ui.ExpectChooser("Save as", Path("a.csv"));
        Ask("Do you want to overwrite the following file?\r\n" + Named("a.csv"), answer, Answer::No);
    };
    document.FieldA(1) = "second";
    choose(Answer::No);
    program.ui.ExpectChooser("Save as", std::nullopt);
    EXPECT_EQ(SaveLabels(main, SaveKind::SaveAs), SaveOutcome::Cancelled);
    EXPECT_NE(ReadFile(Path("a.csv")).find("typed"), std::string::npos);
    choose(Answer::Yes);
    Tell("File saved successfully");
    EXPECT_EQ(SaveLabels(main, SaveKind::SaveAs), SaveOutcome::Saved);

    document.FieldA(1) = "third";
    document.DocChanged = true;
    program.ui.ExpectChooser("Export", Path("out.csv"));
    EXPECT_EQ(SaveLabels(main, SaveKind::Export), SaveOutcome::Saved);
    EXPECT_TRUE(ReadFile(Path("out.csv")).starts_with("third,,\r\n,,\r\n")) << "without a header";
    EXPECT_TRUE(document.DocFileName == Path("a.csv") && document.DocChanged);
    EXPECT_NE(ReadFile(Path("a.csv")).find("second"), std::string::npos);
}

TEST_F(FlowsTest, AFailedCreationIsRetriedUntilItsCauseIsGone) {
    document.DocFileName = Path("gone/a.csv");
    document.FileEncoding = Encoding::Windows1252;
    document.FieldA(2) = "Ω";
    FailToCreate("gone/a.csv", Answer::Retry);
    FailToCreate("gone/a.csv", Answer::Cancel);
    EXPECT_EQ(Save(), SaveOutcome::Failed);
    EXPECT_EQ(document.FileEncoding, Encoding::Windows1252) << "of the file, which was not written";
    program.ui.ExpectChooser("Export", Path("copy.csv"));
    EXPECT_EQ(SaveLabels(main, SaveKind::Export), SaveOutcome::Saved);
    EXPECT_EQ(document.FileEncoding, Encoding::Windows1252) << "nor by an export";
    EXPECT_TRUE(document.DocChanged);
    FailToCreate("gone/a.csv", Answer::Retry, [&] { fs::create_directory(Path("gone")); });
    EXPECT_EQ(SaveAloud(), SaveOutcome::Saved);
}

TEST_F(FlowsTest, CommasAreAskedAboutBeforeTheyAreWritten) {
    document.FieldA(2) = "Smith, John";
    document.FieldC(2) = "lost";
    document.FieldC(7) = ",";
    document.DocFileName = Path("a.csv");
    main.history.KeepSteps();
    const char* const question =
        "These tabs hold commas: 2, 7.\r\nA comma separates the fields in the file. When it is opened again, the "
        "text after a comma moves into the next field.\r\nWhat moves beyond the third field is lost: [lost] of tab "
        "2.\r\n\r\nDo you want to write semicolons in their place?\r\nNo writes the commas as they are, Cancel "
        "goes back to the document.";
    const auto saved = [&](SaveKind kind, Answer answer, const char* name) {
        AskOrCancel(question, answer);
        if (kind == SaveKind::Save && answer != Answer::Cancel)
            Tell("File saved successfully");
        EXPECT_EQ(SaveLabels(main, kind), answer == Answer::Cancel ? SaveOutcome::Cancelled : SaveOutcome::Saved);
        const std::string bytes = Content(Path(name));
        return bytes.substr(std::min(bytes.find("Smith"), bytes.size()), 17);
    };
    EXPECT_EQ(saved(SaveKind::Save, Answer::Cancel, "a.csv"), "");
    for (const bool opening : {true, false}) {
        AskToSave(Answer::Yes);
        AskOrCancel(question, Answer::Cancel);
        EXPECT_TRUE(!opening || OpenCommand(main) == OpenOutcome::Cancelled);
        if (!opening)
            NewCommand(main);
        EXPECT_EQ(document.DocFileName, Path("a.csv")) << "what is not saved stays, with its name";
    }
    EXPECT_EQ(saved(SaveKind::Save, Answer::No, "a.csv"), "Smith, John,,lost");
    program.ui.ExpectChooser("Export", Path("copy.csv"));
    EXPECT_EQ(saved(SaveKind::Export, Answer::Yes, "copy.csv"), "Smith; John,,lost");
    program.ui.ExpectChooser("Export", Path("gone/copy.csv"));
    AskOrCancel(question, Answer::Yes);
    FailToCreate("gone/copy.csv", Answer::Cancel);
    EXPECT_EQ(SaveLabels(main, SaveKind::Export), SaveOutcome::Failed);
    EXPECT_EQ(document.FieldA(2), "Smith, John") << "an export leaves the document alone, also one that failed";
    EXPECT_EQ(saved(SaveKind::Save, Answer::Yes, "a.csv"), "Smith; John,,lost");
    EXPECT_FALSE(document.DocChanged);
    main.history.Undo(main.State());
    EXPECT_EQ(document.FieldA(2), "Smith, John");
}

TEST_F(FlowsTest, OpeningRefusesWhatIsNoDocument) {
    program.ui.ExpectChooser("Open", std::nullopt);
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Cancelled);
    program.ui.ExpectChooser("Open", Path("none.csv"));
    Tell("You have to select a valid file!");
    Tell("The file could not be opened successfully");
    EXPECT_EQ(OpenCommand(main), OpenOutcome::Failed);
    EXPECT_EQ(document.FieldA(1), "typed");
}

TEST_F(FlowsTest, TwoRunningCopiesKeepTheirOwnDocuments) {
    PutTab("a4.csv", "x");
    TestProgram other([](const std::string& text) { ADD_FAILURE() << text; });
    other.settings.IniFile = program.settings.IniFile;
    OpenFile(main, Path("a4.csv"));
    OpenFile(other.main, PutTab("dl.csv", "y", "Q,DL_h,5,3"));
    RefreshDocumentStatus(main);
    EXPECT_EQ(document.setup.OptType, 0);
    SaveAloud();
    EXPECT_TRUE(ReadFile(Path("a4.csv")).starts_with("Version 8\r\nP,A4,0,1\r\n"));
}

TEST_F(FlowsTest, AFileThatChangedOnDiskIsAskedAbout) {
    OpenFile(main, PutTab("a.csv", "x"));
    const std::size_t size = ReadFile(Path("a.csv")).size();
    const auto opened = fs::last_write_time(Path("a.csv"));
    const auto ask = [&](Answer answer) {
        Ask("Another program has changed the following file since it was opened.\r\n" + Named("a.csv") +
                "\r\nDo you want to overwrite it?",
            answer, Answer::No);
    };
    using Change = std::pair<std::string, std::chrono::seconds>; // what is written, and how much later
    for (const auto& [bytes, later] :
         {Change{std::string(size, 'x'), 1}, Change{"from elsewhere", 0}, Change{std::string(size, 'y'), 0}}) {
        ReplaceFile(Path("a.csv"), bytes);
        fs::last_write_time(Path("a.csv"), opened + later);
        ask(Answer::No);
        EXPECT_EQ(Save(), SaveOutcome::Cancelled);
        EXPECT_EQ(ReadFile(Path("a.csv")), bytes);
    }
    ask(Answer::Yes);
    EXPECT_EQ(SaveAloud(), SaveOutcome::Saved);
    EXPECT_EQ(SaveAloud(), SaveOutcome::Saved);
}

TEST_F(FlowsTest, WhatWasLeftOrReplacedCanBeHadBack) {
    const auto now = [] { return std::chrono::system_clock::time_point(std::chrono::hours(24)); };
    const std::string question = "Velmora ended without saving the document \"Untitled\" of " + LocalTime(now()) +
                                 ".\r\nDo you want to have it back?";
    Desktop desktop;
    const ChooseLost noList = [](const auto&) { return ADD_FAILURE() << "one is no list", LostAnswer(); };
    RecoveryStore& recovery = main.recovery;
    recovery.Open(program.folder / "Recovery", now);
    AskToSave(Answer::Cancel);
    EXPECT_TRUE(CloseCommand(main));
    document.DocChanged = false;
    recovery.Open(program.folder / "Recovery", now); // the next start
    NewDocument(main);
    Ask(question, Answer::Yes);
    EXPECT_TRUE(OfferLost(main, desktop, {}, noList));
    EXPECT_EQ(document.FieldA(1), "typed");
    EXPECT_TRUE(document.DocChanged);
    PutTab("other.csv", "x");
    for (const std::string command : {"New", "Open"}) {
        document.FieldA(1) = command;
        if (command == "New") // asks nothing, but keeps what it replaces, as the other one
            NewCommand(main);
        else
            OpenInstead(main, Path("other.csv"));
        EXPECT_NE(document.FieldA(1), command);
        ASSERT_FALSE(recovery.List().empty());
        EXPECT_TRUE(RestoreCommand(main, recovery.List().front()));
        EXPECT_EQ(document.FieldA(1), command);
    }
    AskToSave(Answer::No);
    EXPECT_TRUE(CloseCommand(main));
    recovery.Open(program.folder / "Recovery", now);
    EXPECT_FALSE(OfferLost(main, desktop, {}, noList)) << "what was given up is not offered";
    AskToSave(Answer::Cancel);
    CloseCommand(main);
    recovery.Open(program.folder / "Recovery", now);
    Ask(question, Answer::No);
    for (int start = 0; start < 2; ++start)
        EXPECT_FALSE(OfferLost(main, desktop, {}, noList)) << "asked once";
}

TEST_F(FlowsTest, RecentFilesAreTheLastEightThatExist) {
    for (int i = 1; i <= 9; ++i)
        OpenFile(main, PutTab(std::to_string(i) + ".csv", "x"));
    OpenFile(main, Path("5.csv"));
    fs::remove(Path("8.csv"));
    const auto files = RecentFiles(program.settings);
    std::string names;
    for (const fs::path& file : files)
        names += file.stem().string();
    EXPECT_EQ(names, "5976432");

    if (!kNamesAreBytes)
        return;
    const std::string before = ReadFile(program.settings.IniFile);
    for (const char* name :
         {"a\n[Settings]\nOptType=5.csv", "b\rc.csv", "blank.csv ", "tab.csv\t", "no utf-8 \xE9.csv"}) {
        EXPECT_EQ(OpenFile(main, PutTab(name, "x")), OpenOutcome::Opened);
        EXPECT_EQ(ReadFile(program.settings.IniFile), before) << name;
        EXPECT_EQ(RecentFiles(program.settings), files) << name;
    }
    const std::string deep = std::string(200, 'd') + ".csv";
    OpenFile(main, PutTab(deep, "x"));
    EXPECT_EQ(RecentFiles(program.settings).front(), program.folder / deep);
}

TEST_F(FlowsTest, FilesOpenedInSeveralProgramsAtOnceAreAllRemembered) {
    SettingsStore other(program.registry, program.ui);
    other.IniFile = program.settings.IniFile;
    PutTab("1.csv", "x");
    PutTab("2.csv", "x");
    {
        const SettingsBatch opening(program.settings);
        RememberFile(program.settings, Path("1.csv"));
        RememberFile(other, Path("2.csv"));
    }
    EXPECT_EQ(RecentFiles(other), (std::vector{Path("1.csv"), Path("2.csv")}));
    const FileIdentity written = IdentityOf(other.IniFile);
    RememberFile(other, Path("1.csv"));
    EXPECT_EQ(IdentityOf(other.IniFile), written) << "it was the first";
}

TEST_F(FlowsTest, ClosingAsksOnlyAboutUnsavedChanges) {
    AskToSave(Answer::Yes);
    program.ui.ExpectChooser("Save as", std::nullopt);
    EXPECT_FALSE(CloseCommand(main)) << "what could not be saved is not thrown away";
    AskToSave(Answer::Yes);
    program.ui.ExpectChooser("Save as", Path("a.csv"));
    EXPECT_TRUE(CloseCommand(main));
    EXPECT_TRUE(CloseCommand(main));
    EXPECT_NE(ReadFile(Path("a.csv")).find("typed"), std::string::npos);
}

TEST_F(FlowsTest, ATabOfBlanksIsEmptyWhoeverAsks) {
    struct Case {
        const char *a, *b;
        std::int16_t fields;
        int filled, inCopy; ///< a copy brings back the fields that are not in use too
    };
    for (const Case& row : {Case{"x", "", 1, 1, 1}, Case{"", "", 1, 0, 0}, Case{"  ", "", 1, 0, 0},
                            Case{" ", "\t", 3, 0, 0}, Case{" ", "x", 2, 1, 1}, Case{"", "x", 1, 0, 1}}) {
        SCOPED_TRACE(testing::Message() << "[" << row.a << "," << row.b << "] " << row.fields);
        document.FieldA(1) = row.a;
        document.FieldB(1) = row.b;
        document.setup.NoOfFields = row.fields;
        EXPECT_EQ(!PlaceOf(document, false, 1).warning.empty(), row.filled == 1);
        LayoutValues layout;
        rptVelmor report(layout);
        report.InitArray("PRINT", document.TabCount, 8, 3, row.fields, false, document);
        EXPECT_EQ(report.FilledSheets().size(), static_cast<std::size_t>(row.filled));
        const std::string content = RecoveryContent(document, program.settings);
        const std::string copy = RecoveryHead({}, 1, ContentSum(content)) + content;
        EXPECT_EQ(TabsFilled(*ParseRecoveryCopy(copy)), row.inCopy);
    }
}

} // namespace
} // namespace velmora
