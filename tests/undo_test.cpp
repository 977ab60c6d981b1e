// Undo and redo: what a step brings back, what belongs to one step, what counts as saved, and what the steps cost.
#include "tests/support/Documents.h"
#include "tests/support/TestProgram.h"
#include "workspace/Pages.h"
#include "workspace/ReplaceDocument.h"
#include "workspace/Undo.h"

#include <gtest/gtest.h>

#include <random>

namespace velmora {
namespace {

struct UndoTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    MainModule& main = program.main;
    TabDocument& document = program.main.document;
    UndoHistory& history = main.history;

    void MakeDocument(int pages) {
        MakePages(main, pages, 3, 0, [](int field, int tab) { return field == 0 ? "tab " + std::to_string(tab) : ""; });
        main.globals.AskBeforeDelete = false;
        history.KeepSteps();
        history.Clear(document);
    }
    /// `operation` as one step.
    template <typename Operation> void Do(const char* name, Operation operation) {
        UndoStep step(history, main.State(), name);
        operation();
    }
    void Type(int tab, const std::string& text, int field = 0) { history.Type(document, {tab, field}, text); }
    /// Everything that a step restores, with the settings as they stand in the INI file.
    std::string State() {
        std::string text;
        for (int number :
             {int{document.NoOfPages}, int{document.setup.NoOfFields}, int{document.setup.OptType},
              int{document.setup.TabsPerPage}, int{document.setup.RowsPerPage}, int{document.setup.ColsPerPage},
              int{document.TabCount}, document.setup.Grid.Width1, document.setup.Grid.Height2,
              int{document.setup.Limits.MaxLenField1}, int{document.setup.Limits.MaxLenField2}})
            text += std::to_string(number) + "|";
        text += document.setup.StationeryType + document.setup.PageSize + document.setup.LayoutName;
        for (int field = 0; field < kFieldsPerTab; ++field) {
            const FieldFont& font = main.fonts[static_cast<std::size_t>(field)];
            text += "\n" + font.Name + std::to_string(font.Size) + std::to_string(font.HorizontalAlignment);
            for (int key = 0; key < kFontKeys; ++key)
                text +=
                    "," + program.settings.Object.Probe(kFontSection, FontSetting(key, field).key).value_or("(none)");
            for (int tab = 1; tab <= document.Field(field).Count(); ++tab)
                text += "\n" + document.Field(field)(tab);
        }
        for (const SettingKey* row : {&kStationeryType, &kPageSize, &kOptType, &kNoOfFields, &kNoOfPages, &kMarginLeft})
            text += "\n" + program.settings.Object.GetSettingStr(row->section, row->key, row->fallback);
        return text;
    }
    void SetUpPage(int type, int fields, int fontSize) {
        document.setup.OptType = static_cast<std::int16_t>(type);
        document.setup.NoOfFields = static_cast<std::int16_t>(fields);
        SetLayoutFromType(document.setup);
        SetFieldLimits(document.setup);
        ApplyTabType(main);
        main.fonts[1].Size = static_cast<std::int16_t>(fontSize);
        main.fonts[2].Name = "A name too long for the string itself " + std::to_string(fontSize);
        SaveFontSettings(main.settings, main.fonts);
        Write(main.settings, kMarginLeft, std::to_string(fontSize) + ".5");
    }
};

TEST_F(UndoTest, TypingInOneBoxIsOneStep) {
    MakeDocument(2);
    document.CurrentPage = 2;
    for (const char* text : {"a", "ab", "abc"})
        Type(30, text);
    for (const char* text : {"x", "xy"})
        Type(30, text, 1);
    Type(30, "abcd");
    document.CurrentPage = 1;
    EXPECT_EQ(history.UndoName(), "Typing");
    EXPECT_EQ(history.Undo(main.State()), (TabBox{30, 0}));
    EXPECT_EQ(document.FieldA(30), "abc") << "another box was typed in between";
    EXPECT_EQ(document.CurrentPage, 2) << "the page where it was typed";
    EXPECT_EQ(history.Undo(main.State()), (TabBox{30, 1}));
    EXPECT_EQ(history.Undo(main.State()), (TabBox{30, 0}));
    EXPECT_EQ(document.FieldA(30) + document.FieldB(30), "tab 30");
    EXPECT_FALSE(history.CanUndo() || document.DocChanged);
    EXPECT_EQ(history.Undo(main.State()), std::nullopt);
    history.Redo(main.State());
    EXPECT_EQ(document.FieldA(30), "abc");
    Type(30, "new"); // not part of the step that was made again
    EXPECT_FALSE(history.CanRedo()) << "what was taken back no longer fits";
    history.Undo(main.State());
    EXPECT_EQ(document.FieldA(30), "abc");
    Type(1, "tab 1x");
    Type(1, "tab 1");
    EXPECT_EQ(history.UndoName() + history.RedoName(), "Typing") << "typed back: no step of its own";
    history.Undo(main.State());
    EXPECT_EQ(document.FieldA(30), "tab 30");
    EXPECT_THROW(Type(49, "x"), SubscriptError);
}

TEST_F(UndoTest, SavedIsWhatWasSaved) {
    MakeDocument(1);
    const auto changed = [&](auto move) { return move(), document.DocChanged; };
    const auto undo = [&] { history.Undo(main.State()); };
    const auto redo = [&] { history.Redo(main.State()); };
    Type(1, "a");
    document.DocChanged = false;
    history.MarkSaved();
    Type(1, "ab");
    EXPECT_FALSE(changed(undo)) << "a save ends the step";
    EXPECT_EQ(document.FieldA(1), "a");
    EXPECT_TRUE(changed(undo));
    EXPECT_FALSE(changed(redo));
    EXPECT_TRUE(changed(redo));
    EXPECT_TRUE(changed([&] { undo(), undo(), Type(2, "other"); }));
    EXPECT_TRUE(changed(undo)) << "the saved state went with the steps that led there";
    document.DocChanged = true; // as after an import
    history.Clear(document);
    EXPECT_TRUE(changed([&] { Type(1, "b"), undo(); }));
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(UndoTest, AnOperationCutShortIsRecorded) {
    MakeDocument(1);
    const auto fail = [&] {
        document.FieldA(1) = document.FieldC(24) = "half done";
        throw SubscriptError();
    };
    EXPECT_THROW(Do("Fill", fail), SubscriptError);
    EXPECT_TRUE(document.DocChanged);
    history.Undo(main.State());
    EXPECT_EQ(document.FieldA(1) + document.FieldC(24), "tab 1");
    history.Redo(main.State());
    document.FieldC.Resize(1); // without the history
    EXPECT_THROW(history.Undo(main.State()), SubscriptError);
    EXPECT_EQ(document.FieldA(1), "half done") << "all or nothing";
    Do("Open", [&] { NewDocument(main), history.Clear(document); });
    EXPECT_FALSE(history.CanUndo()) << "no way back to another document";
    Do("Limits", [&] { Do("inner", [&] { Type(1, "typed meanwhile"); }), document.setup.Limits.MaxLenField1 = 5; });
    EXPECT_EQ(history.UndoName(), "Limits");
    Do("Page Setup", [&] { SetUpPage(0, 3, 12); });
    history.Undo(main.State());
    EXPECT_EQ(program.Stored("Settings", "Margin Value Left"), "0") << "was never stored before";
    history.Undo(main.State());
    EXPECT_NE(document.setup.Limits.MaxLenField1, 5);
    EXPECT_FALSE(history.CanUndo()) << "an operation within another is no step of its own";
}

TEST_F(UndoTest, AStepCostsWhatItTouches) {
    MakeDocument(1365);
    document.CurrentPage = 700;
    const std::string start = State();
    Do("Delete Page", [&] { DeletePage(main); });
    EXPECT_LT(history.Bytes(), 3U * 1024);
    history.Undo(main.State());
    EXPECT_EQ(State(), start);
    Do("Fonts", [&] { main.fonts[0].Bold = true; });
    EXPECT_LT(history.Bytes(), 1024U);
    for (const auto& text : {std::string(50000, 'x'), std::string()}) {
        history.Clear(document);
        Do("Fill", [&] { document.FieldB(9) = text; });
        history.Undo(main.State());
        EXPECT_GT(history.Bytes(), 50000U) << "whichever side is in the step";
        history.Redo(main.State());
    }
}

TEST_F(UndoTest, TheOldestStepsGiveWay) {
    UndoHistory small;
    small.KeepSteps(20000);
    MakeDocument(5);
    small.Clear(document);
    const auto typeLong = [&](int tab) { small.Type(document, {tab, 0}, std::string(900, 'x')); };
    for (int tab = 1; tab <= 100; ++tab) {
        typeLong(tab);
        if (tab == 90)
            small.MarkSaved();
    }
    EXPECT_TRUE(small.Bytes() <= 20000 && small.Bytes() > 18000) << small.Bytes();
    int steps = 0;
    for (; small.CanUndo(); ++steps) {
        EXPECT_EQ(document.DocChanged, steps != 10) << steps;
        small.Undo(main.State());
    }
    EXPECT_TRUE(steps >= 18 && steps <= 20) << steps;
    EXPECT_EQ(document.FieldA(100), "tab 100");
    EXPECT_EQ(document.FieldA(1).size(), 900U);
    EXPECT_TRUE(document.DocChanged) << "no step leads back to the saved document";
    typeLong(120); // drops all that was taken back
    EXPECT_LT(small.Bytes(), 1200U);
    small.Type(document, {1, 0}, std::string(50000, 'x'));
    EXPECT_TRUE(small.CanUndo()) << "one step stays whatever its size";
    small.Undo(main.State());
    EXPECT_EQ(document.FieldA(1).size(), 900U);
    typeLong(2); // as it is already: no step
    small.Type(document, {2, 0}, "");
    EXPECT_TRUE(small.Bytes() > 900 && small.Bytes() < 1200) << "the text typed over, and nothing of what is gone";
}

TEST_F(UndoTest, HundredsOfStepsGoBackAndForthThroughTheSameStates) {
    std::mt19937 random{20240607};
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    MakeDocument(2);
    SetUpPage(0, 2, 10);
    history.Clear(document);
    std::vector<std::string> states = {State()};
    const SettingsBatch batch(program.settings); // the file is written once, but read as if each write had been
    for (int i = 0; i < 400; ++i) {
        document.CurrentPage = static_cast<std::int16_t>(1 + below(document.NoOfPages));
        document.CurrentTab = static_cast<std::int16_t>(below(40) == 0 ? 0 : 2); // at 0 a new tab type empties all
        const int kind = below(9), tab = (document.CurrentPage - 1) * document.setup.TabsPerPage + 1;
        if (kind > 4)
            Type(tab + below(document.setup.TabsPerPage),
                 below(4) == 0 ? "" : std::string(static_cast<std::size_t>(i % 30), 'x') + std::to_string(i), below(3));
        else if (kind == 4)
            Do("Page Setup", [&] { SetUpPage(below(6), 1 + below(3), 8 + below(9)); });
        else if (kind == 3)
            Do("Delete Empty Tabs", [&] { CleanLabels(main); });
        else
            Do("Page", [&] { kind == 2 && document.NoOfPages > 1 ? DeletePage(main) : AddPage(main); });
        history.MarkSaved(); // each typing a step of its own
        if (std::string state = State(); state != states.back())
            states.push_back(std::move(state));
    }
    EXPECT_GT(states.size(), 200U);
    const auto check = [&](std::size_t at) {
        EXPECT_EQ(document.TabCount, document.NoOfPages * document.setup.TabsPerPage);
        ASSERT_TRUE(State() == states[at]) << "state " << at << "\n" << State() << "\ninstead of\n" << states[at];
    };
    for (int round = 0; round < 2; ++round) {
        for (std::size_t at = states.size() - 1; at > 0 && !HasFatalFailure(); --at)
            history.Undo(main.State()), check(at - 1);
        EXPECT_FALSE(history.CanUndo());
        for (std::size_t at = 1; at < states.size() && !HasFatalFailure(); ++at)
            history.Redo(main.State()), check(at);
        EXPECT_FALSE(history.CanRedo());
    }
}

} // namespace
} // namespace velmora
