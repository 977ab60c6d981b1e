// What the wizard remembers beyond its end: the last run, and recipes by their names, each field in the words of
// FieldWords.h.
#pragma once

#include "wizard/FieldWords.h"
#include "wizard/WizardState.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The fields that have values, at most three.
using Recipe = std::vector<FieldSetting>;

Recipe RecipeOf(const WizardState& wizard);

/// The number of tabs, as it was typed; empty before the first run.
std::string LastCount(SettingsStore& store);
/// Empty before the first run, and for one that cannot be read.
Recipe LastRun(SettingsStore& store);
/// After Finish. A field whose words are longer than a setting is left out.
void RememberRun(SettingsStore& store, const WizardState& wizard);

std::vector<std::string> RecipeNames(SettingsStore& store);
/// Whatever the name's letter case.
bool HasRecipe(SettingsStore& store, const std::string& name);
/// Empty: there is none of that name. Raises Error for words that cannot be read.
Recipe ReadRecipe(SettingsStore& store, const std::string& name);
/// Why it cannot be kept under that name; nullopt where it can.
std::optional<std::string> RefuseRecipe(const std::string& name, const Recipe& recipe);
/// One that RefuseRecipe does not refuse, in place of any of that name.
void SaveRecipe(SettingsStore& store, const std::string& name, const Recipe& recipe);
void DeleteRecipe(SettingsStore& store, const std::string& name);

/// What a person does on the pages for one field. Raises OverflowError, and SubscriptError for a field not in use.
void GiveField(WizardState& wizard, const TabDocument& document, const FieldSetting& setting);
/// What a person types beside a field; nothing forgets it. Numbers that leave the range stand there to be read, and
/// give the field no values.
void GiveFirstText(WizardState& wizard, const TabDocument& document, int fieldNo, const std::string& text);
/// The recipe's fields that are in use, and no others, have values: numbers go on from the document's last, where it
/// has one of theirs. Raises OverflowError, with nothing changed.
void TakeRecipe(WizardState& wizard, const TabDocument& document, const Recipe& recipe);

} // namespace velmora
