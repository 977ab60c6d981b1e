// The bytes of a recovery copy: a document whole, with texts that a tab file cannot hold, and a check sum, so that half
// a copy or a stranger's file is never taken for one.
#pragma once

#include "document/TabDocument.h"
#include "settings/mdlSettings.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Every copy begins with it.
inline constexpr std::string_view kRecoveryMark = "Velmora recovery 1";

/// A copy taken apart; its texts are views into the bytes.
struct RecoveryCopy {
    std::chrono::system_clock::time_point time;
    std::int16_t page = 1;
    std::uint64_t contentSum = 0;
    std::filesystem::path path;
    Encoding encoding = Encoding::Utf8;
    std::optional<FileStamp> stamp;
    std::string_view header;
    std::int32_t tabs = 0;
    bool foreign = false;                ///< as `Foreign` of the document
    std::vector<std::string_view> texts; ///< three for each tab
};

/// What a copy holds behind its head. The settings stay as they are.
std::string RecoveryContent(const TabDocument& document, SettingsStore& settings);
/// Equal for the same document in the same state.
std::uint64_t ContentSum(std::string_view content);
/// What stands before the content. `page`: the one shown.
std::string RecoveryHead(std::chrono::system_clock::time_point now, std::int16_t page, std::uint64_t contentSum);

/// nullopt where the bytes are no whole copy. They must outlive it.
std::optional<RecoveryCopy> ParseRecoveryCopy(std::string_view bytes);
/// Tabs that are not empty, by all their fields: a copy brings back those not in use too.
std::int32_t TabsFilled(const RecoveryCopy& copy);

} // namespace velmora
