#include "settings/SettingKey.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace velmora {
namespace {

bool IsPageSize(std::string_view text) {
    return text == "A4" || text == "DL";
}

/// A number with `least` <= it < `end`.
bool IsBetween(std::string_view text, double least, double end) {
    return IsNumeric(text) && ToDouble(text) >= least && ToDouble(text) < end;
}

} // namespace

bool IsDocumentKey(std::string_view section, std::string_view key) {
    const SettingKey* const carried[] = {&kPrinter,   &kStationeryType, &kOptType,  &kNoOfFields,
                                         &kNoOfPages, &kMarginLeft,     &kMarginTop};
    return section == kFontSection || std::any_of(std::begin(carried), std::end(carried), [&](const SettingKey* row) {
               return row->section == section && row->key == key;
           });
}

bool IsStationeryType(std::string_view text) {
    return text == "A4" || text == "DL_v" || text == "DL_h";
}

bool IsOptType(std::string_view text) {
    return IsNumeric(text) && ToDouble(text) >= 0 && ToDouble(text) <= 5;
}

bool IsNoOfFields(std::string_view text) {
    return IsBetween(text, 1, 4);
}

bool IsAlignmentCode(std::string_view text) {
    return IsNumeric(text) && (ToDouble(text) == 0 || ToDouble(text) == 1 || ToDouble(text) == 2);
}

bool IsAnyText(std::string_view) {
    return true;
}

bool IsNotBlank(std::string_view text) {
    return !Trim(text).empty();
}

SettingKey AskForPrinter(bool otherwise) {
    return otherwise ? SettingKey{"Settings", "Ask for printer", "True", IsFlag}
                     : SettingKey{"Settings", "Ask for printer", "False", IsFlag};
}

const SettingKey kAskForMargins = {"Settings", "Ask for margins", "True", IsFlag};
const SettingKey kAskBeforeDelete = {"Settings", "Ask before delete", "True", IsFlag};
const SettingKey kStartWithSetup = {"Settings", "Start with setup", "True", IsFlag};
const SettingKey kStationeryType = {"Settings", "Stationery Type", "A4", IsStationeryType};
const SettingKey kPageSize = {"Settings", "Page Size", "A4", IsPageSize};
const SettingKey kOptType = {"Settings", "OptType", "0", IsOptType};
const SettingKey kPrinter = {"Settings", "Printer", "", IsAnyText};
const SettingKey kNoOfFields = {"Settings", "No Of Fields", "3", IsNoOfFields};
const SettingKey kNoOfPages = {"Settings", "No Of Pages", "0", IsNumeric};
const SettingKey kMarginLeft = {"Settings", "Margin Value Left", "0", IsNumeric};
const SettingKey kMarginTop = {"Settings", "Margin Value Top", "0", IsNumeric};

} // namespace velmora
