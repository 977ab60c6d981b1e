#include "document/TabFileForm.h"

#include "base/AtomicFile.h"
#include "base/Encoding.h"
#include "base/Text.h"
#include "document/TabFile.h"
#include "document/TextList.h"

namespace velmora {
namespace {

constexpr std::size_t kAnnouncement = 64;

/// The lines of a header: those of tabs may hold any separator as a text.
std::string_view HeaderLines(std::string_view text) {
    LineReader lines(text);
    std::size_t end = 0;
    std::string_view line;
    for (int number = 0; number < kHeaderLines && lines.Next(line); ++number)
        end = static_cast<std::size_t>(line.data() - text.data()) + line.size();
    return text.substr(0, end);
}

/// A spreadsheet fills up the first line with commas, and quotes a cell that holds one. Without any quotation mark the
/// program's own reader takes its file as well.
bool HoldsQuotedCells(std::string_view text) {
    std::string_view first;
    LineReader(text).Next(first);
    return first.find(',') != std::string_view::npos && text.find('"') != std::string_view::npos;
}

} // namespace

std::optional<char> SpreadsheetSeparator(std::string_view text) {
    const std::string_view header = HeaderLines(text);
    const char separator = GuessDelimiter(header);
    const auto rows = ParseTextList(header, separator, 1);
    if (rows.empty() || !AnnouncesHeader(Trim(rows[0][0])))
        return std::nullopt;
    const bool own = separator == ',' && AnnouncesHeader(text) && !HoldsQuotedCells(text);
    return own ? std::nullopt : std::optional(separator);
}

bool IsLargeTabFile(const std::filesystem::path& path) {
    const auto stamp = StampOf(path);
    if (!stamp || stamp->size <= kMostListBytes)
        return false;
    RefuseLargeList(ReadFile(path, kAnnouncement), stamp->size);
    return true;
}

void RefuseLargeList(std::string_view beginning, std::uintmax_t size) {
    if (size > kMostListBytes && !AnnouncesHeader(Decode(std::string(beginning.substr(0, kAnnouncement))).text))
        throw Error("the list is larger than 40 MB");
}

} // namespace velmora
