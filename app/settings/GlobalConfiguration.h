// The program's own configuration: folders and habits. What a document carries too (printer apart) lies in
// the tab document, once.
#pragma once

#include "app/settings/mdlSettings.h"

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

bool IsStationeryType(std::string_view text);
bool IsOptType(std::string_view text);
bool IsNoOfFields(std::string_view text);
/// 0, 1 or 2.
bool IsAlignmentCode(std::string_view text);
/// True for every text.
bool IsAnyText(std::string_view text);
bool IsNotBlank(std::string_view text);

} // namespace velmora
