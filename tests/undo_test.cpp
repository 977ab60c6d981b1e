// Undo and redo: what a step brings back, what belongs to one step, what counts as saved, and what the steps cost.
#include "tests/support/UndoTest.h"
#include "workspace/Pages.h"
#include "workspace/ReplaceDocument.h"

namespace velmora {
namespace {

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

} // namespace
} // namespace velmora
