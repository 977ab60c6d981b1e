// .xls as spreadsheet programs since 1997 read it: one sheet, every cell a text of the shared table.
#include "base/Encoding.h"
#include "base/Text.h"
#include "workbook/BiffRecords.h"
#include "workbook/OleFile.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"

#include <algorithm>
#include <unordered_map>

namespace velmora {
namespace {

constexpr int kStyleFormats = 15; ///< that every workbook starts with
constexpr int kCellStyle = kStyleFormats;
constexpr int kTextStyle = kStyleFormats + 1;
constexpr std::uint64_t kTextFormat = 49; // "@"

/// Little-endian numbers, each with its size in bytes.
std::string Numbers(std::initializer_list<std::pair<std::uint64_t, int>> numbers) {
    std::string bytes;
    for (const auto& [value, size] : numbers)
        AppendLittleEndian(bytes, value, size);
    return bytes;
}

void AppendRecord(std::string& stream, int id, const std::string& data) {
    AppendLittleEndian(stream, static_cast<std::uint64_t>(id), 2);
    AppendLittleEndian(stream, data.size(), 2);
    stream += data;
}

/// The characters in UTF-16; raises WorkbookError for what is no UTF-8.
std::string Wide(const std::string& text) {
    auto wide = ToUtf16(text);
    if (!wide)
        throw WorkbookError("a text is not valid");
    return *std::move(wide);
}

/// The table of texts, cut into records; a text over the end of one goes on with flags of its own.
class SharedTexts {
public:
    std::uint64_t Add(const std::string& text) {
        ++uses_;
        const auto [place, isNew] = numbers_.try_emplace(text, numbers_.size());
        if (isNew)
            Append(Wide(text));
        return place->second;
    }
    void AppendTo(std::string& stream) {
        records_.push_back(std::move(open_));
        std::string counts;
        AppendLittleEndian(counts, uses_, 4);
        AppendLittleEndian(counts, numbers_.size(), 4);
        records_[0].replace(0, counts.size(), counts);
        for (std::size_t i = 0; i < records_.size(); ++i)
            AppendRecord(stream, i == 0 ? biff::kSst : biff::kContinue, records_[i]);
    }

private:
    std::size_t Room() const { return biff::kMostRecordBytes - open_.size(); }
    void NextRecord() {
        records_.push_back(std::move(open_));
        open_.clear();
    }
    void Append(std::string_view wide) {
        if (Room() < 5) // length, flags and one character
            NextRecord();
        AppendLittleEndian(open_, wide.size() / 2, 2);
        open_ += '\x01';
        while (wide.size() > Room()) {
            const std::size_t part = Room() / 2 * 2;
            open_ += wide.substr(0, part);
            wide.remove_prefix(part);
            NextRecord();
            open_ += '\x01';
        }
        open_ += wide;
    }

    std::unordered_map<std::string, std::uint64_t> numbers_;
    std::vector<std::string> records_;
    std::string open_ = std::string(8, '\0'); ///< starts with the two counts
    std::uint64_t uses_ = 0;
};

/// The cells of the sheet and their size.
struct Cells {
    std::string records;
    std::uint64_t rows = 0;
    std::uint64_t columns = 0;
};

Cells CollectCells(const SheetRowSource& source, SharedTexts& texts) {
    Cells cells;
    for (std::vector<std::string> row; source(row); ++cells.rows) {
        if (cells.rows == biff::kMostRows)
            throw WorkbookError("a worksheet of this format holds at most 65536 rows");
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (row[column].empty())
                continue;
            if (CharacterCount(row[column]) > kMostCellCharacters)
                throw WorkbookError("a cell holds at most 32767 characters");
            AppendRecord(cells.records, biff::kLabelSst,
                         Numbers({{cells.rows, 2}, {column, 2}, {kTextStyle, 2}, {texts.Add(row[column]), 4}}));
        }
        cells.columns = std::max(cells.columns, row.size());
    }
    return cells;
}

void AppendBof(std::string& stream, std::uint64_t kind) {
    AppendRecord(stream, biff::kBof, Numbers({{0x0600, 2}, {kind, 2}, {0x0DBB, 2}, {0x07CC, 2}, {0x41, 4}, {6, 4}}));
}

void AppendStyle(std::string& stream, std::uint64_t format, std::uint64_t kind, std::uint64_t used) {
    constexpr std::uint64_t kBottom = 0x20;
    constexpr std::uint64_t kNoFill = 0x20C0;
    AppendRecord(
        stream, biff::kXf,
        Numbers({{0, 2}, {format, 2}, {kind, 2}, {kBottom, 1}, {0, 1}, {0, 1}, {used, 1}, {0, 8}, {kNoFill, 2}}));
}

void AppendStyles(std::string& stream) {
    constexpr std::uint64_t kIsStyle = 0xFFF5;
    constexpr std::uint64_t kIsCell = 0x0001;
    for (int i = 0; i < 4; ++i)
        AppendRecord(stream, biff::kFont,
                     Numbers({{200, 2}, {0, 2}, {0x7FFF, 2}, {400, 2}, {0, 2}, {0, 4}, {5, 1}, {0, 1}}) + "Arial");
    for (int i = 0; i < kStyleFormats; ++i)
        AppendStyle(stream, 0, kIsStyle, i == 0 ? 0 : 0xF4);
    AppendStyle(stream, 0, kIsCell, 0);
    AppendStyle(stream, kTextFormat, kIsCell, 0x04);
    AppendRecord(stream, biff::kStyle, Numbers({{0x8000, 2}, {0, 1}, {0xFF, 1}}));
}

std::string BoundSheet(std::size_t at, const std::string& name) {
    const std::string wide = Wide(name);
    return Numbers({{at, 4}, {0, 2}, {wide.size() / 2, 1}, {1, 1}}) + wide;
}

/// Everything before the sheet, which starts at its end.
std::string Globals(const std::string& sheetName, SharedTexts& texts) {
    std::string stream;
    AppendBof(stream, 0x0005);
    AppendRecord(stream, biff::kCodePage, Numbers({{0x04B0, 2}}));
    AppendRecord(stream, biff::kWindow1,
                 Numbers({{0, 4}, {0x4000, 2}, {0x2000, 2}, {0x38, 2}, {0, 4}, {1, 2}, {600, 2}}));
    AppendRecord(stream, biff::kDateMode, Numbers({{0, 2}}));
    AppendStyles(stream);
    std::string rest;
    texts.AppendTo(rest);
    AppendRecord(rest, biff::kEof, "");
    const std::size_t sheetAt = stream.size() + 4 + BoundSheet(0, sheetName).size() + rest.size();
    AppendRecord(stream, biff::kBoundSheet, BoundSheet(sheetAt, sheetName));
    return stream + rest;
}

} // namespace

std::string WriteXls(const std::string& sheetName, const SheetRowSource& rows) {
    SharedTexts texts;
    const Cells cells = CollectCells(rows, texts);
    std::string stream = Globals(sheetName, texts);
    AppendBof(stream, 0x0010);
    AppendRecord(stream, biff::kDimensions, Numbers({{0, 4}, {cells.rows, 4}, {0, 2}, {cells.columns, 2}, {0, 2}}));
    stream += cells.records;
    AppendRecord(stream, biff::kWindow2, Numbers({{0x06B6, 2}, {0, 4}, {0x40, 4}, {0, 4}, {0, 4}}));
    AppendRecord(stream, biff::kEof, "");
    return WriteOleFile("Workbook", stream);
}

} // namespace velmora
