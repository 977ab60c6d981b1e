// Each of the three fields of a tab is printed in one font and one alignment, which hold for the whole document.
#pragma once

#include "settings/mdlSettings.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr int kFieldsPerTab = 3;
/// Name, size, bold, italic, underline, horizontal and vertical alignment, in the order of the file's font lines.
inline constexpr int kFontKeys = 7;
inline constexpr int kHorizontalAlignmentKey = 5;

/// Stored codes of the two alignments.
enum HorizontalAlignmentCode : std::int16_t { kAlignLeft = 0, kAlignRight = 1, kAlignCentre = 2 };
enum VerticalAlignmentCode : std::int16_t { kAlignTop = 0, kAlignMiddle = 1, kAlignBottom = 2 };

struct FieldFont {
    std::string Name = "Arial";
    std::int16_t Size = 10; ///< points
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    std::int16_t HorizontalAlignment = kAlignLeft; ///< any other number than the codes counts as left
    std::int16_t VerticalAlignment = kAlignMiddle; ///< any other number than the codes counts as middle
    bool operator==(const FieldFont&) const = default;
};

/// Fields 1 to 3 at indexes 0 to 2.
using FontSettings = std::array<FieldFont, kFieldsPerTab>;

/// 1 to 1000 points; a fraction is rounded when it is used.
bool IsFontSize(std::string_view text);
/// One of the seven keys of field 0 to 2.
SettingKey FontSetting(int key, int field);

/// Reads the 21 keys of section "Font Settings". A value that fails the test of its kind is replaced by its default,
/// which is written back.
void LoadFontSettings(SettingsStore& store, FontSettings& fonts);
/// Writes the 21 keys.
void SaveFontSettings(SettingsStore& store, const FontSettings& fonts);

} // namespace velmora
