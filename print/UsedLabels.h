// The labels of a sheet that are gone, as a person strikes them out, and those of the sheet that goes on being used.
#pragma once

#include "settings/mdlSettings.h"

#include <set>
#include <vector>

namespace velmora {

/// One label is always left.
class UsedLabels {
public:
    explicit UsedLabels(int perSheet) : perSheet_(perSheet) {}

    /// Labels from 1 to `perSheet`; a stretch begins at the first label.
    void Set(const std::vector<int>& used);
    /// Strikes the label out, or no longer; a stretch begins there.
    void Toggle(int label);
    /// From where the stretch began to `label`, all become what the toggle made of the first; beyond it, all are as
    /// they were before.
    void ExtendTo(int label);
    /// All before `label` are gone, and no others.
    void StartAt(int label);

    const std::set<int>& Labels() const { return used_; }
    int FirstFree() const;

private:
    int perSheet_;
    std::set<int> used_;
    std::set<int> before_; ///< the stretch
    int start_ = 1;
    bool strikesOut_ = true;
};

/// Of the sheet of a tab type (0 to 5) that goes on being used; empty: there is none, and next comes a whole one. A
/// stored list that is none of this stationery counts as empty.
std::vector<int> LabelsInUse(SettingsStore& store, int tabType);
/// Nothing is written where that is what is stored.
void KeepLabelsInUse(SettingsStore& store, int tabType, const std::vector<int>& used);

} // namespace velmora
