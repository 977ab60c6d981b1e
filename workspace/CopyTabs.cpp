#include "workspace/CopyTabs.h"

#include "workspace/ChangeTabs.h"

#include <algorithm>

namespace velmora {
namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

std::string Line(const TabDocument& document, std::int32_t tab) {
    std::string line;
    for (int field = 0; field < document.setup.NoOfFields; ++field) {
        const std::string& text = document.Field(field)(tab);
        line += field > 0 ? "\t" : "";
        line += text.find_first_of("\t\r\n\"") == std::string::npos ? text : Quoted(text);
    }
    return line + '\n';
}

std::string TextOf(const TabDocument& document, const TabNumbers& tabs) {
    if (tabs.size() == 1 && document.setup.NoOfFields == 1)
        return document.FieldA(tabs.front());
    std::string text;
    for (const std::int32_t tab : tabs)
        text += Line(document, tab);
    return text;
}

bool HoldsText(const TabDocument& document, std::int32_t tab) {
    for (int field = 0; field < document.setup.NoOfFields; ++field)
        if (!document.Field(field)(tab).empty())
            return true;
    return false;
}

void Empty(MainModule& main, const TabChange& what, const TabNumbers& tabs) {
    const TabDocument& all = main.document;
    if (std::none_of(tabs.begin(), tabs.end(), [&](std::int32_t tab) { return HoldsText(all, tab); }))
        return;
    ChangeTabs(main, what, tabs, true, [&](TabDocument& document) {
        for (int field = 0; field < document.setup.NoOfFields; ++field)
            for (const std::int32_t tab : tabs)
                document.Field(field)(tab).clear();
    });
}

} // namespace

std::string CopyTabs(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    return TextOf(main.document, marked);
}

void DeleteTabs(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    Empty(main, ChangeOf(marked.size(), "Delete", "emptied"), marked);
}

std::string CutTabs(MainModule& main) {
    const TabNumbers marked = TakeMarkedTabs(main);
    std::string text = TextOf(main.document, marked);
    Empty(main, ChangeOf(marked.size(), "Cut", "cut"), marked);
    return text;
}

} // namespace velmora
