// A setting is a row of a table: where it stands, its default, and what values count. Here are the rows that several
// rooms read.
#pragma once

#include <string_view>

namespace velmora {

struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view fallback = {};
    bool (*accepts)(std::string_view value) = nullptr; ///< null: every value is accepted

    SettingKey WithFallback(std::string_view otherwise) const { return {section, key, otherwise, accepts}; }
};

// Every key stands here once: its section, name, default, and the test whose failure gives the default.
extern const SettingKey kAskBeforeDelete;
extern const SettingKey kStartWithSetup;
extern const SettingKey kStationeryType;
extern const SettingKey kPageSize;
extern const SettingKey kOptType;
extern const SettingKey kPrinter;
/// Whether a start offers to choose a printer; `otherwise`: what holds before anybody was asked.
SettingKey AskForPrinter(bool otherwise);
extern const SettingKey kAskForMargins; ///< whether a start offers to set up missing ones
extern const SettingKey kNoOfFields;
extern const SettingKey kNoOfPages;
extern const SettingKey kMarginLeft; ///< millimetres
extern const SettingKey kMarginTop;  ///< millimetres

/// True for what a tab file's header carries: fonts, margins and the document's properties.
bool IsDocumentKey(std::string_view section, std::string_view key);
inline constexpr std::string_view kFontSection = "Font Settings";

bool IsStationeryType(std::string_view text);
bool IsOptType(std::string_view text);
bool IsNoOfFields(std::string_view text);
/// 0, 1 or 2.
bool IsAlignmentCode(std::string_view text);
/// True for every text.
bool IsAnyText(std::string_view text);
bool IsNotBlank(std::string_view text);

} // namespace velmora
