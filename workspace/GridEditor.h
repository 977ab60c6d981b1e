// The grid editor as the core sees it: it holds only the boxes of the page shown. This class itself is what a program
// without a window has: it shows nothing and holds nothing.
#pragma once

#include "document/TabDocument.h"
#include "document/TabOrder.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace velmora {

/// Texts of fields 1 to 3 of one tab.
using TabTexts = std::array<std::string, 3>;

/// A part of a text, in bytes.
struct TextSpan {
    std::size_t at = 0;
    std::size_t length = 0;
    bool operator==(const TextSpan&) const = default;
};

/// Where a text of a field, 0 to 2, holds what is looked for.
using MatchFinder = std::function<std::vector<TextSpan>(int field, const std::string& text)>;

class GridEditor {
public:
    virtual ~GridEditor() = default;
    /// Lets the page shown go, before the document changes under it. Texts not taken back are lost.
    virtual void TakeDown() {}
    /// Shows `CurrentPage`, in as many boxes as the document's set-up asks for.
    virtual void BringUp() {}
    /// What the boxes hold, slot 1 first; empty while the editor is down. A field without a box is as the document has
    /// it.
    virtual std::vector<TabTexts> ShownTexts() const { return {}; }
    /// Shows the box's page, which was taken back before, and gives the box the focus with `length` bytes of its text
    /// selected from byte `at` on; `length` beyond the text's end selects all of it.
    virtual void ShowText(TabBox /*place*/, std::size_t /*at*/, std::size_t /*length*/) {}
    /// The tabs that the person has marked, else the one in use; empty while the editor is down.
    virtual TabNumbers MarkedTabs() const { return {}; }
    /// Marks the tabs, of whatever pages, and shows the first, whose page was taken back before; no effect without one.
    virtual void MarkTabs(const TabNumbers& /*tabs*/) {}
    /// Marks what is found in every text shown, on this page and on those that come up later, also while it is typed
    /// in; an empty one: nothing is looked for any more.
    virtual void HighlightMatches(const MatchFinder& /*find*/) {}
};

} // namespace velmora
