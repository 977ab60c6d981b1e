#include "workspace/PasteBlock.h"

#include "base/Text.h"
#include "document/TextList.h"
#include "workspace/Dialogs.h"
#include "workspace/Recovery.h"
#include "workspace/TakePageBack.h"

#include <algorithm>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr char kSeparator = '\t';

/// One text on its way to a box.
struct Cell {
    TabBox box;
    std::string text;
};

struct Block {
    std::vector<Cell> cells;
    int leftOut = 0; ///< texts without a tab or a field to go to
    int cut = 0;     ///< texts over their field's limit
};

void AddCell(Block& block, const TabDocument& document, TabBox box, std::string_view text) {
    if (box.tab > document.TabCount || box.field >= document.setup.NoOfFields) {
        block.leftOut += Trim(text).empty() ? 0 : 1;
        return;
    }
    const std::string line = OneLine(text);
    const std::string_view kept = LeftCharacters(line, document.setup.Limits.Of(box.field));
    block.cut += kept.size() < line.size() ? 1 : 0;
    block.cells.push_back({box, std::string(kept)});
}

Block TakeApart(const TabDocument& document, TabBox from, std::string_view text) {
    Block block;
    TabBox box = from;
    for (const std::vector<std::string>& row : ParseTextList(text, kSeparator)) {
        box.field = from.field;
        for (const std::string& column : row) {
            AddCell(block, document, box, column);
            ++box.field;
        }
        ++box.tab;
    }
    return block;
}

bool Agrees(UserInterface& ui, const Block& block) {
    std::string text;
    if (block.leftOut > 0)
        text +=
            "Texts without a tab or field to go to, which will be left out: " + std::to_string(block.leftOut) + "\r\n";
    if (block.cut > 0)
        text += "Texts over the length of their field, which will be cut: " + std::to_string(block.cut) + "\r\n";
    return text.empty() || Ask(ui, text + "Do you want to paste the rest?", Buttons::YesNo) == Answer::Yes;
}

} // namespace

std::string_view CellText(std::string_view text) {
    for (const std::string_view end : {"\r\n", "\n", "\r"})
        if (text.ends_with(end))
            return text.substr(0, text.size() - end.size());
    return text;
}

bool IsBlock(std::string_view text) {
    return CellText(text).find_first_of("\t\r\n") != std::string_view::npos;
}

void PasteBlock(MainModule& main, TabBox from, std::string_view text) {
    TakePageBack(main);
    const Block block = TakeApart(main.document, from, text);
    if (!Agrees(main.ui, block))
        return;
    KeepRecoveryCopy(main);
    const UndoStep step(main.history, main.State(), "Paste");
    for (const Cell& cell : block.cells)
        main.document.Field(cell.box.field)(cell.box.tab) = cell.text;
    main.document.DocChanged = true;
    main.editor->BringUp();
}

} // namespace velmora
