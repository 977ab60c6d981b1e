// Hundreds of changes of every kind in any order, all the way back and forth through the same states. The seed is
// fixed.
#include "tests/support/UndoTest.h"
#include "workspace/Pages.h"

#include <random>

namespace velmora {
namespace {

TEST_F(UndoTest, HundredsOfStepsGoBackAndForthThroughTheSameStates) {
    std::mt19937 random{20240607}; // NOLINT(cert-msc51-cpp): the same walk every time
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
