#include "editor/GridLayout.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "workspace/DocumentStatus.h"
#include "workspace/Undo.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kTwoFieldLineGap = 50; // the lines of two fields stand 50 twips apart, those of three 10
constexpr int kOutlineTop = 20;      // from the outline of a cell to its boxes' origin

/// The boxes of the first tab.
std::array<GridBox, 3> FirstBoxes(const GridGeometry& grid, int fields) {
    const int left = grid.LeftOffset;
    const int top = grid.TopOffset;
    if (fields == 1)
        return {GridBox{left, top, grid.Width1, 2 * grid.Height2 + grid.LineGap}};
    const GridBox first = {left, top, grid.Width1, grid.Height2};
    if (fields == 2)
        return {first, GridBox{left, top + first.height + kTwoFieldLineGap, first.width, first.height}};
    const int second = top + grid.Height2 + grid.LineGap;
    return {first, GridBox{left, second, grid.Width2, grid.Height2},
            GridBox{grid.Width2 + left + grid.LineGap, second, grid.Width2, grid.Height2}};
}

GridBox Moved(GridBox box, int right, int down) {
    box.left += right;
    box.top += down;
    return box;
}

std::string Limited(MainModule& main, int field, const std::string& line) {
    const std::size_t limit = main.document.setup.Limits.Of(field);
    if (CharacterCount(line) <= limit)
        return line;
    main.ui.Beep();
    return std::string(LeftCharacters(line, limit));
}

} // namespace

std::vector<GridCell> LayOutGrid(const TabDocument& document) {
    const GridGeometry& grid = document.setup.Grid;
    const int gap = grid.CellGap;
    const std::array<GridBox, 3> first = FirstBoxes(grid, document.setup.NoOfFields);
    // The halves of a cell and the gap between them may be a little wider than its full box.
    const int width = std::max(grid.Width1, 2 * grid.Width2 + grid.LineGap);
    const GridBox outline = {-gap, -kOutlineTop, width + 2 * gap, grid.Height1 + kOutlineTop};
    std::vector<GridCell> cells;
    for (int row = 0; row < document.setup.RowsPerPage; ++row) {
        for (int column = 0; column < document.setup.ColsPerPage; ++column) {
            const int right = column * (outline.width + gap);
            const int down = row * (outline.height + gap);
            GridCell cell{Moved(outline, right, down), first};
            for (GridBox& box : cell.boxes)
                box = Moved(box, right, down);
            cells.push_back(cell);
        }
    }
    return cells;
}

GridBox OutlineOf(const std::vector<GridCell>& cells) {
    if (cells.empty())
        return {};
    const GridBox& first = cells.front().outline;
    const GridBox& last = cells.back().outline;
    return {first.left, first.top, last.left + last.width - first.left, last.top + last.height - first.top};
}

std::vector<TabTexts> PopulateLabels(const TabDocument& document) {
    std::vector<TabTexts> texts;
    const int before = Multiply16(document.CurrentPage - 1, document.setup.TabsPerPage);
    for (int tab = before + 1; tab <= before + document.setup.TabsPerPage; ++tab)
        texts.push_back({document.FieldA(tab), document.FieldB(tab), document.FieldC(tab)});
    return texts;
}

void EnterBox(MainModule& main, int slot) {
    try {
        TabDocument& document = main.document;
        document.CurrentTab = Add16(Multiply16(document.CurrentPage - 1, document.setup.TabsPerPage), slot);
    } catch (const OverflowError&) {
        return;
    }
    ShowCurrentTab(main);
}

std::string EditBox(MainModule& main, int slot, int field, const std::string& text) {
    std::string kept = Limited(main, field, OneLine(text)); // a line break would end the tab's line in the file
    const int tab = (main.document.CurrentPage - 1) * main.document.setup.TabsPerPage + slot;
    main.history.Type(main.document, {tab, field}, kept);
    main.document.DocChanged = true;
    return kept;
}

} // namespace velmora
