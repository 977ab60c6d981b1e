#include "report/LabelPlan.h"

#include "base/Error.h"

#include <algorithm>

namespace velmora {
namespace {

std::vector<bool> FreeSlots(int perSheet, const std::vector<int>& used) {
    std::vector<bool> free(static_cast<std::size_t>(perSheet), true);
    for (const int slot : used) {
        if (slot < 1 || slot > perSheet)
            throw SubscriptError();
        free[static_cast<std::size_t>(slot - 1)] = false;
    }
    if (std::find(free.begin(), free.end(), true) == free.end())
        throw Error("All positions of the first sheet are used.");
    return free;
}

} // namespace

LabelPlan FlowTabs(const TabNumbers& tabs, int perSheet, const std::vector<int>& used) {
    const std::vector<bool> free = FreeSlots(perSheet, used);
    LabelPlan plan;
    plan.reserve(tabs.size() + 2 * free.size());
    for (const std::int32_t tab : tabs) {
        while (plan.size() < free.size() && !free[plan.size()])
            plan.push_back(0);
        plan.push_back(tab);
    }
    plan.resize((plan.size() + free.size() - 1) / free.size() * free.size());
    return plan;
}

LabelPlan KeepPlaces(TabNumbers tabs, int perSheet) {
    std::sort(tabs.begin(), tabs.end());
    LabelPlan plan;
    std::int32_t page = -1;
    for (const std::int32_t tab : tabs) {
        if ((tab - 1) / perSheet != page)
            plan.resize(plan.size() + static_cast<std::size_t>(perSheet));
        page = (tab - 1) / perSheet;
        plan[plan.size() - static_cast<std::size_t>(perSheet - (tab - 1) % perSheet)] = tab;
    }
    return plan;
}

} // namespace velmora
