// The tabs that are marked in the editor, for the commands that work on several at once.
#pragma once

#include "workspace/GridEditor.h"

#include <cstdint>

namespace velmora {

/// Tab numbers from 1. A range runs in the order of the tabs, from the one where marking began.
class TabMarks {
public:
    /// None is marked; a range begins at `tab` next.
    void BeginAt(std::int32_t tab);
    /// Marks the tabs from where the marking began to `tab`, and no others.
    void ExtendTo(std::int32_t tab);
    /// Marks `tab` beside the others, or no longer; a range begins there next. Without marks before, the tab where
    /// the marking began counts as marked.
    void Toggle(std::int32_t tab);
    void Set(TabNumbers tabs);

    bool Empty() const { return tabs_.empty(); }
    bool Has(std::int32_t tab) const;
    /// In ascending order.
    const TabNumbers& Tabs() const { return tabs_; }

private:
    TabNumbers tabs_;
    std::int32_t anchor_ = 1;
};

} // namespace velmora
