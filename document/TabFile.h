// The tab file: comma-separated text, six header lines that carry the document's settings and one line per tab. There
// is no quoting: a comma inside a text splits it on reading, which is part of the format.
#pragma once

#include "base/Encoding.h"
#include "base/Error.h"
#include "document/FontSettings.h"
#include "document/TabDocument.h"
#include "platform/UserInterface.h"
#include "settings/mdlSettings.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr int kHeaderLines = 6;

/// A tab file that cannot be read: the line, counted from 1, and the cause.
class TabFileError : public Error {
public:
    TabFileError(int line, const std::string& cause)
        : Error("line " + std::to_string(line) + ": " + cause), line_(line) {}
    int Line() const { return line_; }

private:
    int line_;
};

/// Raises TabFileError for a header that has ended before its line `number`, counted from 1.
[[noreturn]] void RaiseHeaderEnds(int number);

/// Lines of a text that end in CR LF, LF or CR; an end of line at the end of the text starts no further line.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}
    /// False at the end of the text.
    bool Next(std::string_view& line);

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t nextFeed_ = 0; ///< place of the line feed at or after at_, or the text's length
};

/// The values of the header as the file holds them.
struct TabFileHeader {
    std::string printer;
    std::string stationeryType;
    std::string optType;
    std::string noOfFields;
    std::string marginLeft;
    std::string marginTop;
    std::array<std::array<std::string, kFontKeys>, kFieldsPerTab> fonts;
};

/// A file in memory, its lines checked but its tabs not taken apart yet.
struct TabFile {
    std::string text; ///< UTF-8
    Encoding encoding = Encoding::Utf8;
    std::optional<TabFileHeader> header; ///< nullopt where the first line announces none
    std::size_t tabsAt = 0;              ///< where the first tab line starts
    std::int32_t lines = 0;              ///< of the whole file

    std::string_view FirstLine() const;
    std::string_view TabLines() const { return std::string_view(text).substr(tabsAt); }
};

/// Raises TabFileError for bytes that are no text (NUL) and for an incomplete header.
TabFile ParseTabFile(std::string bytes);
/// Raises FileAccessError too.
TabFile ReadTabFile(const std::filesystem::path& path);

/// Without the end-of-file marks (0x1A) that old systems put behind the last line.
std::string_view WithoutEndMarks(std::string_view bytes);

/// True when the first line, or a sheet's first cell, starts with "VERSION", an optional blank and a digit, whatever
/// its case: header lines follow.
bool AnnouncesHeader(std::string_view firstText);
/// The version announced is 7; 70 is another.
bool TestVersion7(std::string_view firstText);
bool TestVersion8(std::string_view firstText);

/// Writes the header to the settings; a font value that fails its test becomes its default. No effect without a header.
void LoadData(const TabFile& file, SettingsStore& store);
void LoadData(const TabFileHeader& header, SettingsStore& store);

/// Counts the file's lines from `startingCount` (minus the header lines), sets `NoOfPages`, stores "No Of Pages" and
/// returns the tabs of that many whole pages. Raises OverflowError, with nothing changed, above kMostTabs.
std::int32_t GetNumberOfLables(const TabFile& file, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store);
/// The same for lines that were counted elsewhere.
std::int32_t GetNumberOfLables(std::int32_t lines, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store);

/// The row reader: fills the three arrays, made anew with `TabCount` texts; tabs beyond the last line stay empty.
void LoadRows(const TabFile& file, TabDocument& document, UserInterface& ui);

/// The six header lines, from the settings store; a value that is not valid is left empty (margins: "0").
std::string SaveData(SettingsStore& store);
/// Appends one line per tab.
void SaveRows(const TabDocument& document, UserInterface& ui, std::string& text);

enum class FileHeader { Written, LeftOut };

/// The whole file in the encoding that the document came in, or in UTF-8 once a text does not fit that.
std::string TabFileBytes(TabDocument& document, SettingsStore& store, UserInterface& ui,
                         FileHeader header = FileHeader::Written);

} // namespace velmora
