#include "workspace/PasteBlock.h"

#include "base/Text.h"
#include "document/FontSettings.h"
#include "document/TextList.h"
#include "workspace/ChangeTabs.h"
#include "workspace/Dialogs.h"

#include <algorithm>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr char kSeparator = '\t';

using Rows = std::vector<std::vector<std::string>>;

/// One text on its way to a box.
struct Cell {
    TabBox box;
    std::string text;
};

struct Block {
    std::vector<Cell> cells;
    TabNumbers tabs;
    std::int32_t lastTab = 0; ///< that the document must have
    int leftOut = 0;          ///< texts without a field to go to
    int cut = 0;              ///< texts over their field's limit
};

void AddCell(Block& block, const TabDocument& document, TabBox box, std::string_view text) {
    const bool blank = Trim(text).empty();
    if (box.field >= document.setup.NoOfFields) {
        block.leftOut += blank ? 0 : 1;
        return;
    }
    if (box.tab > document.TabCount && blank)
        return; // no reason for a page
    const std::string line = OneLine(text);
    const std::string_view kept = LeftCharacters(line, document.setup.Limits.Of(box.field));
    block.cut += kept.size() < line.size() ? 1 : 0;
    block.lastTab = std::max(block.lastTab, box.tab);
    block.cells.push_back({box, std::string(kept)});
}

void AddRow(Block& block, const TabDocument& document, TabBox box, const std::vector<std::string>& columns) {
    for (const std::string& column : columns) {
        AddCell(block, document, box, column);
        ++box.field;
    }
}

int FirstField(const TabDocument& document, int field, const Rows& rows) {
    const auto widest =
        std::max_element(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.size() < b.size(); });
    return std::cmp_less(widest->size(), document.setup.NoOfFields) ? field : 0;
}

Block TakeApart(const TabDocument& document, const TabNumbers& marked, int field, const Rows& rows) {
    Block block;
    const int first = FirstField(document, field, rows);
    block.tabs = rows.size() == 1 ? marked : TabsFrom(marked.front(), static_cast<std::int32_t>(rows.size()));
    block.lastTab = document.TabCount;
    for (std::size_t i = 0; i < block.tabs.size(); ++i)
        AddRow(block, document, {block.tabs[i], first}, rows[rows.size() == 1 ? 0 : i]);
    while (block.tabs.back() > block.lastTab)
        block.tabs.pop_back();
    return block;
}

std::string Question(const Block& block, int newPages) {
    std::string text;
    if (block.leftOut > 0)
        text += "Texts without a field to go to, which will be left out: " + std::to_string(block.leftOut) + "\r\n";
    if (block.cut > 0)
        text += "Texts over the length of their field, which will be cut: " + std::to_string(block.cut) + "\r\n";
    if (newPages == 0)
        return text.empty() ? "" : text + "Do you want to paste the rest?";
    const std::string pages = std::to_string(newPages) + (newPages == 1 ? " page" : " pages");
    return text.empty() ? "Add " + pages + "?" : text + "Do you want to add " + pages + " and paste the rest?";
}

void Put(TabDocument& document, int pages, Block block) {
    document.NoOfPages = static_cast<std::int16_t>(pages);
    document.TabCount = pages * document.setup.TabsPerPage;
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).Resize(document.TabCount);
    for (Cell& cell : block.cells)
        document.Field(cell.box.field)(cell.box.tab) = std::move(cell.text);
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

void PasteBlock(MainModule& main, int field, std::string_view text) {
    const TabNumbers marked = TakeMarkedTabs(main);
    const Rows rows = ParseTextList(text, kSeparator);
    if (marked.empty() || rows.empty())
        return;
    Block block = TakeApart(main.document, marked, field, rows);
    const int perPage = main.document.setup.TabsPerPage;
    const int pages = (block.lastTab - 1) / perPage + 1; // of a long block more than 16 bits hold
    if (!HasRoomFor(main, static_cast<std::size_t>(pages * perPage)))
        return;
    const std::string question = Question(block, pages - main.document.NoOfPages);
    if (!question.empty() && Ask(main.ui, question, Buttons::YesNo) != Answer::Yes)
        return;
    const TabNumbers tabs = block.tabs;
    ChangeTabs(main, ChangeOf(tabs.size(), "Paste", "pasted"), tabs, true,
               [&](TabDocument& document) { Put(document, pages, std::move(block)); });
}

} // namespace velmora
