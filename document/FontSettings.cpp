#include "document/FontSettings.h"

#include "base/Numbers.h"
#include "settings/GlobalConfiguration.h"

namespace velmora {
namespace {

/// One of the seven keys of a field, as text.
struct FontKey {
    std::string_view name; ///< the field's number follows it
    std::array<std::string_view, kFieldsPerTab> fallback;
    bool (*accepts)(std::string_view);
    void (*set)(FieldFont&, std::string_view);
    std::string (*get)(const FieldFont&);
};

/// Any number that fits; the report's own codes are 0, 1 and 2.
bool IsAlignment(std::string_view text) {
    return IsNumeric(text) && ToDouble(text) >= -32768 && ToDouble(text) <= 32767;
}

std::int16_t Whole(std::string_view text) {
    return ToInt16(ToDouble(text));
}

// The third field is aligned right, the first two left: sheets in use rely on it.
const std::array<FontKey, kFontKeys> kKeys = {{
    {"Font Name ",
     {"Arial", "Arial", "Arial"},
     IsNotBlank,
     [](FieldFont& font, std::string_view text) { font.Name = text; },
     [](const FieldFont& font) { return font.Name; }},
    {"Font Size ",
     {"10", "10", "10"},
     IsFontSize,
     [](FieldFont& font, std::string_view text) { font.Size = Whole(text); },
     [](const FieldFont& font) { return std::to_string(font.Size); }},
    {"Font Bold ",
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Bold = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Bold); }},
    {"Font Italic ",
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Italic = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Italic); }},
    {"Font Underline ",
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Underline = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Underline); }},
    {"Horizontal Alignment ",
     {"0", "0", "1"},
     IsAlignment,
     [](FieldFont& font, std::string_view text) { font.HorizontalAlignment = Whole(text); },
     [](const FieldFont& font) { return std::to_string(font.HorizontalAlignment); }},
    {"Vertical Alignment ",
     {"1", "1", "1"},
     IsAlignment,
     [](FieldFont& font, std::string_view text) { font.VerticalAlignment = Whole(text); },
     [](const FieldFont& font) { return std::to_string(font.VerticalAlignment); }},
}};

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

} // namespace

bool IsFontSize(std::string_view text) {
    return IsNumeric(text) && ToDouble(text) >= 1 && ToDouble(text) <= 1000;
}

std::string FontKeyName(int key, int field) {
    return std::string(kKeys[Index(key)].name) + std::to_string(field + 1);
}

std::string_view FontKeyDefault(int key, int field) {
    return kKeys[Index(key)].fallback[Index(field)];
}

void LoadFontSettings(SettingsStore& store, FontSettings& fonts) {
    const SettingsBatch batch(store);
    for (int field = 0; field < kFieldsPerTab; ++field) {
        for (int key = 0; key < kFontKeys; ++key) {
            const std::string name = FontKeyName(key, field);
            const std::string_view fallback = FontKeyDefault(key, field);
            std::string text = GetSetting(store, store.SettingsAppName, kFontSection, name, fallback);
            if (!kKeys[Index(key)].accepts(text)) {
                text = fallback;
                SaveSetting(store, store.SettingsAppName, kFontSection, name, text);
            }
            kKeys[Index(key)].set(fonts[Index(field)], text);
        }
    }
}

void SaveFontSettings(SettingsStore& store, const FontSettings& fonts) {
    const SettingsBatch batch(store);
    for (int field = 0; field < kFieldsPerTab; ++field)
        for (int key = 0; key < kFontKeys; ++key)
            SaveSetting(store, store.SettingsAppName, kFontSection, FontKeyName(key, field),
                        kKeys[Index(key)].get(fonts[Index(field)]));
}

} // namespace velmora
