#include "wizard/Recipes.h"

#include "base/Error.h"
#include "base/Text.h"
#include "settings/CSetting.h"
#include "wizard/NextNumber.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr std::string_view kSection = "AutoRepeat Wizard";
constexpr SettingKey kCount = {kSection, "Count", ""};
constexpr std::array<SettingKey, kFieldsPerTab> kFieldKeys = {
    {{kSection, "A", ""}, {kSection, "B", ""}, {kSection, "C", ""}}};
constexpr std::string_view kRecipeSection = "Recipes";
constexpr std::size_t kMostNameCharacters = 40;
constexpr std::string_view kLetters = "ABC";

bool FitsSetting(const std::string& words) {
    return CharacterCount(words) <= kIniValueCharacters;
}

/// Of field 1 to 3 in a recipe.
std::string KeyOf(const std::string& recipe, int fieldNo) {
    return recipe + ' ' + kLetters[static_cast<std::size_t>(fieldNo - 1)];
}

/// The recipe's name in a key; empty for a key that is none of theirs.
std::string NameIn(const std::string& key) {
    const std::size_t blank = key.size() < 3 ? 0 : key.size() - 2;
    return blank > 0 && key[blank] == ' ' && kLetters.find(key.back()) != std::string_view::npos ? key.substr(0, blank)
                                                                                                 : "";
}

FieldSetting Parse(const std::string& key, const std::string& words) {
    try {
        return ParseFieldWords(words);
    } catch (const Error& error) {
        throw Error("[" + std::string(kRecipeSection) + "] " + key + ": " + error.what());
    }
}

Recipe ReadLastRun(SettingsStore& store) {
    Recipe recipe;
    for (const SettingKey& key : kFieldKeys)
        if (const auto words = Probe(store, key); words && !words->empty())
            recipe.push_back(ParseFieldWords(*words));
    return recipe;
}

} // namespace

Recipe RecipeOf(const WizardState& wizard) {
    Recipe recipe;
    for (std::size_t field = 0; field < wizard.Chosen.size(); ++field)
        if (wizard.Chosen[field] && wizard.FieldDone[field]) {
            recipe.push_back({static_cast<int>(field) + 1, *wizard.Chosen[field]});
            std::string& text = recipe.back().choice.text;
            text = MakeTextSeries(text, wizard.MostLetters[field]).text;
        }
    return recipe;
}

std::string LastCount(SettingsStore& store) {
    return Probe(store, kCount).value_or("");
}

Recipe LastRun(SettingsStore& store) {
    try {
        return ReadLastRun(store);
    } catch (const Error&) { // changed by hand
        return {};
    }
}

void RememberRun(SettingsStore& store, const WizardState& wizard) {
    const SettingsBatch batch(store);
    Write(store, kCount, std::to_string(wizard.NewTabCount));
    std::array<std::string, kFieldsPerTab> words;
    for (const FieldSetting& setting : RecipeOf(wizard))
        words.at(static_cast<std::size_t>(setting.fieldNo - 1)) = FieldWords(setting);
    for (std::size_t field = 0; field < words.size(); ++field)
        Write(store, kFieldKeys[field], FitsSetting(words[field]) ? words[field] : "");
}

std::vector<std::string> RecipeNames(SettingsStore& store) {
    EnumerateSettings(store, kRecipeSection);
    std::vector<std::string> names;
    for (const auto& [key, words] : store.KeyValues)
        if (const std::string name = NameIn(key);
            !name.empty() && std::none_of(names.begin(), names.end(),
                                          [&](const std::string& known) { return EqualsNoCase(known, name); }))
            names.push_back(name);
    return names;
}

bool HasRecipe(SettingsStore& store, const std::string& name) {
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        if (Probe(store, {kRecipeSection, KeyOf(name, fieldNo)}))
            return true;
    return false;
}

Recipe ReadRecipe(SettingsStore& store, const std::string& name) {
    Recipe recipe;
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo) {
        const std::string key = KeyOf(name, fieldNo);
        if (const auto words = Probe(store, {kRecipeSection, key}))
            recipe.push_back(Parse(key, *words));
    }
    return recipe;
}

std::optional<std::string> RefuseRecipe(const std::string& name, const Recipe& recipe) {
    if (Trim(name).empty() || Trim(name) != name || OneLine(name) != name || name.find('=') != std::string::npos ||
        name[0] == ';' || name[0] == '[' || CharacterCount(name) > kMostNameCharacters)
        return "A recipe's name has 1 to " + std::to_string(kMostNameCharacters) +
               " characters, no \"=\", and begins with no \";\" or \"[\".";
    for (const FieldSetting& setting : recipe)
        if (!FitsSetting(FieldWords(setting)))
            return "The texts of field " + std::string(1, kLetters[static_cast<std::size_t>(setting.fieldNo - 1)]) +
                   " are too long to be kept.";
    return std::nullopt;
}

void SaveRecipe(SettingsStore& store, const std::string& name, const Recipe& recipe) {
    const SettingsBatch batch(store);
    DeleteRecipe(store, name);
    for (const FieldSetting& setting : recipe)
        SaveSetting(store, kRecipeSection, KeyOf(name, setting.fieldNo), FieldWords(setting));
}

void DeleteRecipe(SettingsStore& store, const std::string& name) {
    const SettingsBatch batch(store);
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        if (const std::string key = KeyOf(name, fieldNo); Probe(store, {kRecipeSection, key}))
            DeleteSetting(store, kRecipeSection, key);
}

void GiveField(WizardState& wizard, const TabDocument& document, const FieldSetting& setting) {
    ChooseField(wizard, document, setting.fieldNo);
    ChooseKind(wizard, setting.choice.kind);
    GiveValues(wizard, setting.choice);
}

void GiveFirstText(WizardState& wizard, const TabDocument& document, int fieldNo, const std::string& text) {
    ForgetField(wizard, fieldNo);
    if (text.empty())
        return;
    const FieldChoice choice = ChoiceOfFirstText(text);
    try {
        GiveField(wizard, document, {fieldNo, choice});
    } catch (const OverflowError&) {
        wizard.Chosen.at(static_cast<std::size_t>(fieldNo - 1)) = choice;
    }
}

void TakeRecipe(WizardState& wizard, const TabDocument& document, const Recipe& recipe) {
    WizardState taken = wizard;
    for (int fieldNo = 1; fieldNo <= kFieldsPerTab; ++fieldNo)
        ForgetField(taken, fieldNo);
    for (FieldSetting setting : recipe) {
        if (setting.fieldNo > document.setup.NoOfFields)
            continue;
        NumberSeries& numbers = setting.choice.numbers;
        numbers.first = FirstNumberAfter(document, setting.fieldNo - 1, numbers);
        GiveField(taken, document, setting);
    }
    wizard = std::move(taken);
}

} // namespace velmora
