// Where the boxes of one page stand in the grid editor, and the copies between page and document.
#pragma once

#include "workspace/mdlMain.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// Twips, from the top left corner of the grid.
struct GridBox {
    int left = 0;
    int top = 0;
    int width = 0; ///< 0: the field is not in use
    int height = 0;
    bool operator==(const GridBox&) const = default;
};

struct GridCell {
    GridBox outline;
    std::array<GridBox, 3> boxes; ///< fields 1 to 3
};

/// The cells of one page, slot 1 first, row by row.
std::vector<GridCell> LayOutGrid(const TabDocument& document);
/// What encloses all of them; empty without any.
GridBox OutlineOf(const std::vector<GridCell>& cells);

/// Texts of page `CurrentPage`: slot i is tab (`CurrentPage` - 1) x `TabsPerPage` + i.
std::vector<TabTexts> PopulateLabels(const TabDocument& document);

/// A box of slot 1 onward took the focus: sets `CurrentTab` and shows it; no effect for a tab number beyond 16 bits.
void EnterBox(MainModule& main, int slot);

/// The box of field 0 to 2 in a slot from 1 was typed in: marks the document as changed, whatever becomes of the text,
/// puts it into the document and gives it back, on one line and cut (with a beep) to the field's limit.
std::string EditBox(MainModule& main, int slot, int field, const std::string& text);

} // namespace velmora
