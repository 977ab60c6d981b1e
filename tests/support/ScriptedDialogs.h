// Answers to an import's questions, and what was asked.
#pragma once

#include "workspace/ImportDialogs.h"

namespace velmora {

struct ScriptedDialogs : ImportDialogs {
    std::string sheet;                                ///< chosen; empty: cancelled
    std::function<bool(ImportChoice&)> change = {};   ///< what the person changes; false: cancelled
    std::vector<std::string> names = {};              ///< of the sheets last offered
    std::vector<std::vector<std::string>> shown = {}; ///< the last preview
    int asked = 0;                                    ///< how often columns were asked for

    std::string SelectSheet(const std::vector<std::string>& offered) override {
        names = offered;
        return sheet;
    }
    std::optional<ImportChoice> ChooseImport(const ImportRequest& request, const ImportChoice& guess) override {
        ImportChoice choice = guess;
        ++asked;
        const bool wanted = !change || change(choice);
        shown = request.preview(choice);
        return wanted ? std::optional(choice) : std::nullopt;
    }
};

} // namespace velmora
