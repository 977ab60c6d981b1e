#include "workspace/RecoveryCopy.h"

#include "base/Error.h"
#include "base/Paths.h"
#include "document/TabFile.h"
#include "document/Worksheet.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

namespace velmora {
namespace {

// A copy is four lines - the mark with the version, the milliseconds since 1970, the page shown, the check sum in hex -
// and the content. The content is texts, each as its length in bytes, a colon, its bytes and a line feed: path and
// encoding of the document, size and time stamp of its file (empty where unknown), the header as in a tab file, the
// number of tabs, the three fields of each, whether the file is "own" or "foreign", and the number in its stamp (empty
// where unknown). The check sum is of the content and then of the two lines before it.

constexpr std::string_view kForeign = "foreign";

constexpr std::uint64_t kSumStart = 0xcbf29ce484222325U;

/// FNV-1a, 64 bits.
std::uint64_t Sum(std::string_view text, std::uint64_t sum = kSumStart) {
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return sum;
}

std::string Hex(std::uint64_t number) {
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), end};
}

template <typename Number> std::optional<Number> ParseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

void Append(std::string& content, std::string_view text) {
    std::array<char, 20> digits;
    content.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), text.size()).ptr);
    content += ':';
    content += text;
    content += '\n';
}

/// Not less than the content takes.
std::size_t ContentBytes(const TabDocument& document) {
    constexpr std::size_t kAroundText = 8;
    constexpr std::size_t kHead = 4096;
    std::size_t bytes = kHead;
    for (int field = 0; field < kFieldsPerTab; ++field)
        for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
            bytes += document.Field(field)(tab).size() + kAroundText;
    return bytes;
}

/// The header as a save would write it. Reading settings writes defaults, which a copy has no business with.
std::string HeaderText(SettingsStore& settings) {
    SettingsBatch batch(settings);
    std::string header = SaveData(settings);
    batch.Discard();
    return header;
}

class CopyReader {
public:
    explicit CopyReader(std::string_view bytes) : rest_(bytes) {}

    /// nullopt where the bytes are no whole copy.
    std::optional<RecoveryCopy> Read() {
        RecoveryCopy copy;
        if (!ReadHead(copy) || !ReadDocument(copy))
            return std::nullopt;
        while (whole_ && copy.texts.size() < static_cast<std::size_t>(copy.tabs) * kFieldsPerTab)
            copy.texts.push_back(Text());
        ReadLaterTexts(copy);
        return whole_ && rest_.empty() ? std::optional(std::move(copy)) : std::nullopt;
    }

private:
    bool ReadHead(RecoveryCopy& copy) {
        const bool marked = Cut('\n') == kRecoveryMark;
        const std::string_view time = Cut('\n');
        const std::string_view page = Cut('\n');
        const std::string_view sum = Cut('\n');
        if (!marked || !whole_)
            return false;
        copy.contentSum = Sum(rest_);
        copy.time =
            std::chrono::system_clock::time_point(std::chrono::duration_cast<std::chrono::system_clock::duration>(
                std::chrono::milliseconds(Number<std::int64_t>(time, -kMostMilliseconds, kMostMilliseconds))));
        copy.page = Number<std::int16_t>(page, 0, INT16_MAX);
        return whole_ && sum == Hex(Sum(page, Sum(time, copy.contentSum)));
    }

    bool ReadDocument(RecoveryCopy& copy) {
        copy.path = PathOf(Text());
        copy.encoding = Text() == EncodingName(Encoding::Windows1252) ? Encoding::Windows1252 : Encoding::Utf8;
        const auto size = ParseNumber<std::uintmax_t>(Text());
        const auto written = ParseNumber<std::filesystem::file_time_type::rep>(Text());
        if (size && written)
            copy.stamp = {*size, std::filesystem::file_time_type(std::filesystem::file_time_type::duration(*written)),
                          0};
        copy.header = Text();
        copy.tabs = Number<std::int32_t>(Text(), 0, kMostTabs);
        return whole_;
    }

    /// What earlier programs did not write: they took all workbooks for foreign.
    void ReadLaterTexts(RecoveryCopy& copy) {
        copy.foreign = rest_.empty() ? WorkbookFormatOf(copy.path).has_value() : Text() == kForeign;
        const auto number = rest_.empty() ? std::nullopt : ParseNumber<std::uint64_t>(Text());
        if (copy.stamp)
            copy.stamp->number = number.value_or(0);
    }

    std::string_view Text() {
        const auto length = ParseNumber<std::size_t>(Cut(':'));
        if (!length || *length >= rest_.size() || rest_[*length] != '\n')
            whole_ = false;
        if (!whole_)
            return {};
        const std::string_view text = rest_.substr(0, *length);
        rest_.remove_prefix(*length + 1);
        return text;
    }

    std::string_view Cut(char end) {
        const std::size_t length = rest_.find(end);
        if (length == std::string_view::npos) {
            whole_ = false;
            return {};
        }
        const std::string_view part = rest_.substr(0, length);
        rest_.remove_prefix(length + 1);
        return part;
    }

    template <typename Value> Value Number(std::string_view text, Value least, Value most) {
        const auto number = ParseNumber<Value>(text);
        whole_ = whole_ && number && *number >= least && *number <= most;
        return whole_ ? *number : least;
    }

    static constexpr std::int64_t kMostMilliseconds = 4'000'000'000'000; // far enough, and fits nanoseconds

    std::string_view rest_;
    bool whole_ = true;
};

} // namespace

std::string RecoveryContent(const TabDocument& document, SettingsStore& settings) {
    std::string content;
    content.reserve(ContentBytes(document)); // to grow would copy all again, and the window waits
    Append(content, PathText(document.DocFileName));
    Append(content, EncodingName(document.FileEncoding));
    Append(content, document.Stamp ? std::to_string(document.Stamp->size) : "");
    Append(content, document.Stamp ? std::to_string(document.Stamp->written.time_since_epoch().count()) : "");
    Append(content, HeaderText(settings));
    Append(content, std::to_string(document.TabCount));
    for (std::int32_t tab = 1; tab <= document.TabCount; ++tab)
        for (int field = 0; field < kFieldsPerTab; ++field)
            Append(content, document.Field(field)(tab));
    Append(content, document.Foreign ? kForeign : "own");
    Append(content, document.Stamp ? std::to_string(document.Stamp->number) : "");
    return content;
}

std::uint64_t ContentSum(std::string_view content) {
    return Sum(content);
}

std::string RecoveryHead(std::chrono::system_clock::time_point now, std::int16_t page, std::uint64_t contentSum) {
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch());
    const std::string time = std::to_string(milliseconds.count());
    const std::string shown = std::to_string(page);
    return std::string(kRecoveryMark) + "\n" + time + "\n" + shown + "\n" + Hex(Sum(shown, Sum(time, contentSum))) +
           "\n";
}

std::optional<RecoveryCopy> ParseRecoveryCopy(std::string_view bytes) {
    return CopyReader(bytes).Read();
}

std::int32_t TabsFilled(const RecoveryCopy& copy) {
    std::int32_t filled = 0;
    for (std::size_t text = 0; text < copy.texts.size(); text += kFieldsPerTab)
        filled += IsEmptyTab(std::span(copy.texts).subspan(text, kFieldsPerTab)) ? 0 : 1;
    return filled;
}

} // namespace velmora
