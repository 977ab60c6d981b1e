#include "print/UsedLabels.h"

#include "base/Error.h"
#include "document/Stationery.h"
#include "print/NumberList.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr std::array<SettingKey, kTabTypes> kUsedLabels = {{
    {"Settings", "Used Labels - 0", "", IsAnyText},
    {"Settings", "Used Labels - 1", "", IsAnyText},
    {"Settings", "Used Labels - 2", "", IsAnyText},
    {"Settings", "Used Labels - 3", "", IsAnyText},
    {"Settings", "Used Labels - 4", "", IsAnyText},
    {"Settings", "Used Labels - 5", "", IsAnyText},
}};

} // namespace

void UsedLabels::Set(const std::vector<int>& used) {
    used_ = before_ = {used.begin(), used.end()};
    start_ = 1;
    strikesOut_ = true;
}

void UsedLabels::Toggle(int label) {
    before_ = used_;
    start_ = label;
    strikesOut_ = !used_.contains(label);
    ExtendTo(label);
}

void UsedLabels::ExtendTo(int label) {
    used_ = before_;
    const auto [first, last] = std::minmax(start_, label);
    for (int each = first; each <= last; ++each)
        if (strikesOut_)
            used_.insert(each);
        else
            used_.erase(each);
    if (static_cast<int>(used_.size()) == perSheet_)
        used_.erase(label);
}

void UsedLabels::StartAt(int label) {
    Set({});
    for (int each = 1; each < label; ++each)
        used_.insert(each);
    before_ = used_;
}

int UsedLabels::FirstFree() const {
    int label = 1;
    while (used_.contains(label))
        ++label;
    return label;
}

std::vector<int> LabelsInUse(SettingsStore& store, int tabType) {
    const int perSheet = kCatalogue.at(static_cast<std::size_t>(tabType)).TabsPerPage();
    const std::string stored = Probe(store, kUsedLabels.at(static_cast<std::size_t>(tabType))).value_or("");
    try {
        const std::vector<int> used =
            stored.empty() ? std::vector<int>() : ParseNumberList(stored, perSheet, {"label", "sheet"});
        return static_cast<int>(std::set<int>(used.begin(), used.end()).size()) < perSheet ? used : std::vector<int>();
    } catch (const Error&) {
        return {};
    }
}

void KeepLabelsInUse(SettingsStore& store, int tabType, const std::vector<int>& used) {
    const SettingKey& key = kUsedLabels.at(static_cast<std::size_t>(tabType));
    const std::string list = NumberListText(used);
    if (Probe(store, key).value_or("") != list)
        Write(store, key, list);
}

} // namespace velmora
