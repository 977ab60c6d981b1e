// The program's own configuration: folders and habits. What a document carries too (printer apart) lies in
// the tab document, once.
#pragma once

#include "settings/mdlSettings.h"

#include <filesystem>
#include <string>

namespace velmora {

struct GlobalConfiguration {
    std::filesystem::path AppPath;
    std::filesystem::path ImagesPath;
    std::filesystem::path TabsPath;
    bool AskBeforeDelete = true;
    bool StartWithSetup = true;
    std::string PrinterName; ///< device name
};

// Every key stands here once: its section, name, default, and the test whose failure gives the default.
extern const SettingKey kAskBeforeDelete;
extern const SettingKey kStartWithSetup;
extern const SettingKey kStationeryType;
extern const SettingKey kPageSize;
extern const SettingKey kOptType;
extern const SettingKey kPrinter;
extern const SettingKey kNoOfFields;
extern const SettingKey kNoOfPages;
extern const SettingKey kMarginLeft; ///< millimetres
extern const SettingKey kMarginTop;  ///< millimetres

/// True for what a tab file's header carries: fonts, margins and the document's properties.
bool IsDocumentKey(std::string_view section, std::string_view key);
inline constexpr std::string_view kFontSection = "Font Settings";

/// Stores a folder in section "Paths", with one separator at its end; not one so long that reading would cut it.
void SaveFolder(SettingsStore& store, std::string_view key, const std::filesystem::path& folder);
/// With one separator at the end; an empty path stays empty.
std::filesystem::path WithSeparator(const std::filesystem::path& folder);

bool IsStationeryType(std::string_view text);
bool IsOptType(std::string_view text);
bool IsNoOfFields(std::string_view text);
/// 0, 1 or 2.
bool IsAlignmentCode(std::string_view text);
/// True for every text.
bool IsAnyText(std::string_view text);
bool IsNotBlank(std::string_view text);

} // namespace velmora
