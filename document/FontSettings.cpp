#include "document/FontSettings.h"

#include "base/Numbers.h"

namespace velmora {
namespace {

/// One of the seven keys of a field, as text.
struct FontKey {
    std::array<std::string_view, kFieldsPerTab> names;
    std::array<std::string_view, kFieldsPerTab> fallbacks;
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
    {{"Font Name 1", "Font Name 2", "Font Name 3"},
     {"Arial", "Arial", "Arial"},
     IsNotBlank,
     [](FieldFont& font, std::string_view text) { font.Name = text; },
     [](const FieldFont& font) { return font.Name; }},
    {{"Font Size 1", "Font Size 2", "Font Size 3"},
     {"10", "10", "10"},
     IsFontSize,
     [](FieldFont& font, std::string_view text) { font.Size = Whole(text); },
     [](const FieldFont& font) { return std::to_string(font.Size); }},
    {{"Font Bold 1", "Font Bold 2", "Font Bold 3"},
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Bold = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Bold); }},
    {{"Font Italic 1", "Font Italic 2", "Font Italic 3"},
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Italic = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Italic); }},
    {{"Font Underline 1", "Font Underline 2", "Font Underline 3"},
     {"False", "False", "False"},
     IsFlag,
     [](FieldFont& font, std::string_view text) { font.Underline = ToFlag(text); },
     [](const FieldFont& font) { return FlagText(font.Underline); }},
    {{"Horizontal Alignment 1", "Horizontal Alignment 2", "Horizontal Alignment 3"},
     {"0", "0", "1"},
     IsAlignment,
     [](FieldFont& font, std::string_view text) { font.HorizontalAlignment = Whole(text); },
     [](const FieldFont& font) { return std::to_string(font.HorizontalAlignment); }},
    {{"Vertical Alignment 1", "Vertical Alignment 2", "Vertical Alignment 3"},
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

SettingKey FontSetting(int key, int field) {
    const FontKey& row = kKeys[Index(key)];
    return {kFontSection, row.names[Index(field)], row.fallbacks[Index(field)], row.accepts};
}

void LoadFontSettings(SettingsStore& store, FontSettings& fonts) {
    const SettingsBatch batch(store);
    for (int field = 0; field < kFieldsPerTab; ++field) {
        for (int key = 0; key < kFontKeys; ++key) {
            const SettingKey row = FontSetting(key, field);
            std::string text = Read(store, row);
            if (!row.accepts(text)) {
                text = row.fallback;
                Write(store, row, text);
            }
            kKeys[Index(key)].set(fonts[Index(field)], text);
        }
    }
}

void SaveFontSettings(SettingsStore& store, const FontSettings& fonts) {
    const SettingsBatch batch(store);
    for (int field = 0; field < kFieldsPerTab; ++field)
        for (int key = 0; key < kFontKeys; ++key)
            Write(store, FontSetting(key, field), kKeys[Index(key)].get(fonts[Index(field)]));
}

} // namespace velmora
