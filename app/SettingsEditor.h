// What the settings editor's buttons do: reads, writes, deletes and lists any setting, in the INI file or the registry.
#pragma once

#include "workspace/mdlMain.h"

#include <string>
#include <vector>

namespace velmora {

/// What stands in the editor's controls. The four texts are its `txtSet` 0 to 3.
struct SettingsEntry {
    std::string section = "Section";
    std::string key = "KeyName";
    std::string fallback = "DefaultValue";
    std::string value = "KeyValue";
    bool numeric = false;
};

/// A line of the editor's list, and the name of the section or key that it is for.
struct ListedSetting {
    std::string line;
    std::string name;
};

class SettingsEditor {
public:
    explicit SettingsEditor(MainModule& main);

    /// The `butSet` handler: 0 save, 1 get, 2 delete, 3 list the sections, 4 list the keys of the section; says so for
    /// any other index. Neither 0 nor 1, which writes a missing setting's default, takes a name for the INI file that
    /// could not be found in it again: a section with "]", a key with "=" or with ";" or "[" in front, a line break.
    /// Other control characters in the entry become blanks. Errors are reported.
    void Press(int button, SettingsEntry& entry);
    /// What the last listing found.
    const std::vector<ListedSetting>& Listing() const { return listing_; }

    /// From now on all buttons work on the INI file, or on the registry.
    void UseIniFile(bool use);
    bool UsesIniFile() const { return main_.settings.SaveMode == 1; }

    // The editor's own state lies in the INI file, in registry mode too.
    /// False while keeping it would make the first INI file: settings of an older installation are moved in only where
    /// there is none.
    bool KeepsState() const;
    struct Place {
        int left = 0;
        int top = 0;
    };
    /// Also turns to the store that was in use. `place` stays where nothing is stored.
    SettingsEntry LoadState(Place& place);
    /// Leaves the INI file in use.
    void SaveState(const SettingsEntry& entry, Place place);

private:
    void Run(int button, SettingsEntry& entry);
    void ListSections();
    void ListKeys(const std::string& section);

    MainModule& main_;
    std::vector<ListedSetting> listing_;
};

} // namespace velmora
