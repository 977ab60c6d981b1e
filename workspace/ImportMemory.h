// What was said of a list's columns, for the next list with the same headings.
#pragma once

#include "document/Worksheet.h"
#include "settings/mdlSettings.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// What was said last of a list with these headings, whatever their case; nullopt where none is known.
std::optional<WorksheetOptions> RecallColumns(SettingsStore& store, const std::vector<std::string>& headings);
/// Of the last kRememberedLists lists. Forgets what was said of one whose first row is no heading after all.
void RememberColumns(SettingsStore& store, const std::vector<std::string>& headings, const WorksheetOptions& options);

inline constexpr std::size_t kRememberedLists = 20;

} // namespace velmora
