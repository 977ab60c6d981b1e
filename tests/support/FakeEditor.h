// An editor without a window: what it holds is set by the test, and it tells what it was asked to do.
#pragma once

#include "workspace/GridEditor.h"

namespace velmora {

struct FakeEditor : GridEditor {
    std::vector<TabTexts> texts; ///< in its boxes, as if typed and not taken back
    TabNumbers marked;
    std::string calls;

    void TakeDown() override {
        texts.clear();
        calls += "down ";
    }
    void BringUp() override { calls += "up "; }
    std::vector<TabTexts> ShownTexts() const override { return texts; }
    void ShowText(TabBox, std::size_t, std::size_t) override { calls += "text "; }
    TabNumbers MarkedTabs() const override { return marked; }
    void MarkTabs(const TabNumbers& tabs) override { marked = tabs; }
};

} // namespace velmora
