#include "document/TabDocument.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kDivisionByZeroNumber = 11;

bool KeepsTexts(const TabDocument& document) {
    return document.TabCount > 0 && document.CurrentTab > 1;
}

/// Of the document's tabs, or one for none.
std::int16_t PagesOf(const TabDocument& document, std::int16_t perPage) {
    return PagesForTabs(document.TabCount < 1 ? perPage : document.TabCount, perPage);
}

void ResizeTabs(TabDocument& document, std::int32_t count) {
    const bool keep = KeepsTexts(document);
    for (int field = 0; field < 3; ++field) {
        FieldTexts& texts = document.Field(field);
        if (keep)
            texts.Resize(count);
        else
            texts.ReDim(count);
    }
}

} // namespace

std::size_t FieldTexts::Index(std::int32_t tab) const {
    if (tab < 1 || tab > Count())
        throw SubscriptError();
    return static_cast<std::size_t>(tab - 1);
}

std::int16_t PagesForTabs(std::int32_t tabs, std::int16_t tabsPerPage) {
    if (tabsPerPage == 0)
        throw Error("Division by zero", kDivisionByZeroNumber);
    return ToInt16(static_cast<double>(tabs) / tabsPerPage + 0.49);
}

void NormalisePages(TabDocument& document) {
    const TabType* type = FindTabType(document.setup.OptType);
    const std::int16_t perPage = type ? type->TabsPerPage() : std::int16_t{0};
    const std::int16_t pages = PagesOf(document, perPage);
    const std::int32_t count = Multiply16(pages, perPage);

    SetRowsAndStationery(document.setup, document.setup.OptType);
    SetColsPerPage(document.setup, document.setup.OptType);
    document.setup.Grid = type->grid;
    if (document.TabCount != count)
        ResizeTabs(document, count);
    document.CurrentPage = std::clamp<std::int16_t>(document.CurrentPage, 1, pages);
    document.setup.TabsPerPage = perPage;
    document.NoOfPages = pages;
    document.TabCount = count;
}

bool EmptiesDocument(const TabDocument& document, int optType) {
    const std::int16_t perPage = FindTabType(optType)->TabsPerPage();
    return !KeepsTexts(document) && PagesOf(document, perPage) * perPage != document.TabCount;
}

bool IsEmptyTab(std::span<const std::string_view> texts) {
    return std::all_of(texts.begin(), texts.end(), [](std::string_view text) { return Trim(text).empty(); });
}

bool IsEmptyTab(const TabDocument& document, std::int32_t tab) {
    const std::array<std::string_view, 3> texts = {document.FieldA(tab), document.FieldB(tab), document.FieldC(tab)};
    return IsEmptyTab(std::span(texts).first(static_cast<std::size_t>(document.setup.NoOfFields)));
}

int CountFields(std::string_view line) {
    return static_cast<int>(std::count(line.begin(), line.end(), ',')) + 1;
}

int PadFields(std::string& line, int fields) {
    int count = CountFields(line);
    for (; count < fields; ++count)
        line += ',';
    return count;
}

void CopyTabRange(const FieldTexts& source, std::int32_t first, std::int32_t last, FieldTexts& target,
                  std::int32_t targetFirst) {
    for (std::int32_t i = first; i <= last; ++i)
        target(targetFirst + (i - first)) = source(i);
}

} // namespace velmora
