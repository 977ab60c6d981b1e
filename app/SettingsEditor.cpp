#include "app/SettingsEditor.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "settings/RegistryMove.h"
#include "workspace/Dialogs.h"

namespace velmora {
namespace {

constexpr std::string_view kSection = "Settings";
const SettingKey kMainTop = {kSection, "MainTop", "", IsNumeric};
const SettingKey kMainLeft = {kSection, "MainLeft", "", IsNumeric};
const SettingKey kSaveMode = {kSection, "SaveMode", "1", IsNumeric};
const SettingKey kSettingType = {kSection, "SettingType", "0", IsNumeric};

struct TextKey {
    SettingKey key;
    std::string SettingsEntry::*text = nullptr;
};
const TextKey kTexts[] = {
    {{kSection, "LastSection", "Section"}, &SettingsEntry::section},
    {{kSection, "LastKeyName", "KeyName"}, &SettingsEntry::key},
    {{kSection, "LastDefault", "DefaultValue"}, &SettingsEntry::fallback},
    {{kSection, "LastKeyValue", "KeyValue"}, &SettingsEntry::value},
};

constexpr std::string_view kWords[] = {" saving ", " getting ", " deleting ", " listing ", " listing "};

void ReadWhole(SettingsStore& store, const SettingKey& key, int& number) {
    const std::string text = ReadAccepted(store, key);
    if (IsNumeric(text))
        number = ToInt32(ToDouble(text));
}

/// What an INI file would read back as something else; empty for names that it can hold.
std::string NameFault(const SettingsEntry& entry) {
    constexpr std::string_view kControls("\0\r\n", 3);
    if (entry.section.find(']') != std::string::npos)
        return "A section's name cannot hold a ']'.";
    const std::size_t first = entry.key.find_first_not_of(" \t\v\f");
    if (first != std::string::npos && (entry.key[first] == ';' || entry.key[first] == '['))
        return "A key's name cannot start with ';' or '['.";
    if (entry.key.find('=') != std::string::npos)
        return "A key's name cannot hold a '='.";
    for (const std::string* name : {&entry.section, &entry.key})
        if (name->find_first_of(kControls) != std::string::npos)
            return "A name cannot go over more than one line.";
    return "";
}

} // namespace

SettingsEditor::SettingsEditor(MainModule& main) : main_(main) {}

void SettingsEditor::Press(int button, SettingsEntry& entry) {
    if (button < 0 || button >= static_cast<int>(std::size(kWords))) {
        main_.ui.Show({"Unrecognized button value: " + std::to_string(button), kProgramName});
        return;
    }
    if (const std::string fault = UsesIniFile() && button < 2 ? NameFault(entry) : ""; !fault.empty()) {
        Tell(main_.ui, fault + "\r\nNothing was changed.", Icon::Exclamation);
        return;
    }
    for (const TextKey& row : kTexts)
        entry.*row.text = OneLine(entry.*row.text);
    main_.settings.Own.clear(); // what stands in the file counts, not what this program remembers
    const std::string what = button < 3 ? "[" + entry.section + "] " + entry.key : "the settings";
    Trapped(main_.ui, "Error" + std::string(kWords[button]) + what, [&] { Run(button, entry); });
}

void SettingsEditor::Run(int button, SettingsEntry& entry) {
    SettingsStore& store = main_.settings;
    switch (button) {
    case 0: SaveSetting(store, entry.section, entry.key, entry.value, entry.numeric); break;
    case 1: entry.value = GetSetting(store, entry.section, entry.key, entry.fallback, entry.numeric); break;
    case 2: DeleteSetting(store, entry.section, entry.key); break;
    case 3: ListSections(); break;
    default: ListKeys(entry.section);
    }
}

void SettingsEditor::ListSections() {
    SettingsStore& store = main_.settings;
    listing_.clear();
    EnumerateSettings(store, "");
    for (const std::string& section : store.SectionNames)
        listing_.push_back({section, section});
}

void SettingsEditor::ListKeys(const std::string& section) {
    SettingsStore& store = main_.settings;
    listing_.clear();
    store.KeyValues.clear(); // an empty section would list the sections instead
    EnumerateSettings(store, section);
    for (const auto& [key, value] : store.KeyValues)
        listing_.push_back({key + "=" + value, key});
}

void SettingsEditor::UseIniFile(bool use) {
    main_.settings.SaveMode = use ? 1 : 0;
    main_.settings.Object.SaveMode(main_.settings.SaveMode);
}

bool SettingsEditor::KeepsState() const {
    return FileExists(main_.settings.IniFile) || !HasOldSettings(main_.settings);
}

SettingsEntry SettingsEditor::LoadState(Place& place) {
    SettingsEntry entry;
    if (!KeepsState())
        return entry;
    SettingsStore& store = main_.settings;
    UseIniFile(true);
    bool usesIniFile = true;
    Trapped(main_.ui, "Called from Sub: frmSettings", [&] {
        const SettingsBatch batch(store);
        usesIniFile = ToDouble(ReadAccepted(store, kSaveMode)) != 0;
        ReadWhole(store, kMainLeft, place.left);
        ReadWhole(store, kMainTop, place.top);
        for (const TextKey& row : kTexts)
            entry.*row.text = ReadAccepted(store, row.key);
        entry.numeric = ToDouble(ReadAccepted(store, kSettingType)) != 0;
    });
    UseIniFile(usesIniFile);
    return entry;
}

void SettingsEditor::SaveState(const SettingsEntry& entry, Place place) {
    const bool usesIniFile = UsesIniFile();
    UseIniFile(true);
    if (!KeepsState())
        return;
    SettingsStore& store = main_.settings;
    const SettingsBatch batch(store);
    Write(store, kMainLeft, std::to_string(place.left));
    Write(store, kMainTop, std::to_string(place.top));
    Write(store, kSaveMode, usesIniFile ? "1" : "0");
    Write(store, kSettingType, entry.numeric ? "1" : "0");
    for (const TextKey& row : kTexts)
        Write(store, row.key, OneLine(entry.*row.text));
}

} // namespace velmora
