#include "document/Worksheet.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "document/TextList.h"

#include <algorithm>
#include <numeric>

namespace velmora {
namespace {

constexpr std::size_t kMostBytes = 64u << 20;
constexpr int kCountedColumns = 4;
constexpr std::size_t kPreviewColumns = 256; // all that an .xls sheet has

std::string Cell(const std::vector<std::string>& cells, int column) {
    const auto index = static_cast<std::size_t>(column) - 1;
    return column >= 1 && index < cells.size() ? std::string(Trim(cells[index])) : "";
}

/// Header cells are upper-cased; the names of stationery are compared without case and get their own back.
std::string StationeryName(const std::string& upper) {
    for (const char* name : {"A4", "DL_v", "DL_h"})
        if (EqualsNoCase(upper, name))
            return name;
    return upper;
}

} // namespace

std::optional<WorkbookFormat> WorkbookFormatOf(const std::filesystem::path& path) {
    const std::string name = PathText(path);
    if (EndsWithNoCase(name, ".xls"))
        return WorkbookFormat::Xls;
    if (EndsWithNoCase(name, ".xlsx"))
        return WorkbookFormat::Xlsx;
    if (EndsWithNoCase(name, ".ods"))
        return WorkbookFormat::Ods;
    for (const char* ending : {".xlsm", ".xltx", ".xltm", ".xlt", ".ots"})
        if (EndsWithNoCase(name, ending))
            return WorkbookFormat::Other;
    return std::nullopt;
}

int WorksheetBuilder::LastColumn() const {
    const auto furthest = std::max_element(options_.columns.begin(), options_.columns.end());
    return std::max(furthest == options_.columns.end() ? 0 : *furthest, kFontKeys);
}

void WorksheetBuilder::AddHeader(std::int32_t row, const std::vector<std::string>& cells) {
    TabFileHeader& header = *sheet_.header;
    const auto cell = [&](int column) { return ToUpper(Cell(cells, column)); };
    if (row == 2) {
        header.printer = cell(1);
        header.stationeryType = StationeryName(cell(2));
        header.optType = cell(3);
        header.noOfFields = cell(4);
    } else if (row == 3) {
        header.marginLeft = cell(1);
        header.marginTop = cell(2);
    } else {
        for (int key = 0; key < kFontKeys; ++key)
            header.fonts[static_cast<std::size_t>(row - 4)][static_cast<std::size_t>(key)] = cell(key + 1);
    }
}

bool WorksheetBuilder::IsBlank(const std::vector<std::string>& cells) const {
    for (int column = 1; column <= kCountedColumns; ++column)
        if (!Cell(cells, column).empty())
            return false;
    return std::all_of(options_.columns.begin(), options_.columns.end(),
                       [&](int column) { return Cell(cells, column).empty(); });
}

bool WorksheetBuilder::Add(std::int32_t row, const std::vector<std::string>& cells) {
    if (row == 1) {
        sheet_.firstCell = Cell(cells, 1);
        if (AnnouncesHeader(sheet_.firstCell)) {
            sheet_.header.emplace();
            return true;
        }
    }
    if (sheet_.header && row <= kHeaderLines) {
        AddHeader(row, cells);
        return true;
    }
    const std::int32_t before = sheet_.header ? kHeaderLines : options_.heading ? 1 : 0;
    if (row <= before || IsBlank(cells))
        return true;
    if (row - before > kMostTabs) { // counted, so that the loading names the limit of the header's tab type
        sheet_.lines = row - before;
        return false;
    }
    sheet_.rows.resize(static_cast<std::size_t>(row - before));
    for (std::size_t field = 0; field < std::min<std::size_t>(options_.columns.size(), kFieldsPerTab); ++field) {
        sheet_.rows.back()[field] = OneLine(Cell(cells, options_.columns[field]));
        bytes_ += sheet_.rows.back()[field].size();
    }
    if (bytes_ > kMostBytes)
        throw WorkbookError("the worksheet holds more than 64 MB of text");
    return true;
}

Worksheet WorksheetBuilder::Take() {
    sheet_.lines = std::max(sheet_.lines, static_cast<std::int32_t>(sheet_.rows.size()));
    sheet_.lines += sheet_.header ? kHeaderLines : 0;
    return std::move(sheet_);
}

int FieldsInUse(const Worksheet& sheet) {
    int fields = 1;
    for (const auto& row : sheet.rows)
        for (int field = fields; field < kFieldsPerTab; ++field)
            if (!row[static_cast<std::size_t>(field)].empty())
                fields = field + 1;
    return fields;
}

Worksheet ReadWorksheet(Workbook& workbook, const std::string& name, const WorksheetOptions& options) {
    WorksheetBuilder builder(options);
    std::vector<int> columns(static_cast<std::size_t>(builder.LastColumn()));
    std::iota(columns.begin(), columns.end(), 1);
    workbook.ReadSheet(name, columns, [&](std::int32_t row, const std::vector<std::string>& cells) {
        return builder.Add(row, cells);
    });
    return builder.Take();
}

Worksheet WorksheetOf(std::string_view list, char delimiter, const WorksheetOptions& options) {
    WorksheetBuilder builder(options);
    std::int32_t number = 0;
    ReadTextList(list, delimiter, static_cast<std::size_t>(builder.LastColumn()),
                 [&](const std::vector<std::string>& cells) { return builder.Add(++number, cells); });
    return builder.Take();
}

std::vector<std::vector<std::string>> ReadFirstRows(Workbook& workbook, const std::string& name, std::size_t most) {
    std::vector<int> columns(kPreviewColumns);
    std::iota(columns.begin(), columns.end(), 1);
    std::vector<std::vector<std::string>> rows;
    workbook.ReadSheet(name, columns, [&](std::int32_t row, std::vector<std::string> cells) {
        if (static_cast<std::size_t>(row) > most)
            return false;
        while (!cells.empty() && cells.back().empty())
            cells.pop_back();
        rows.resize(static_cast<std::size_t>(row));
        rows.back() = std::move(cells);
        return true;
    });
    return rows;
}

std::string ReadFirstCell(Workbook& workbook, const std::string& name) {
    std::string text;
    workbook.ReadSheet(name, {1}, [&](std::int32_t row, const std::vector<std::string>& cells) {
        if (row == 1)
            text = cells[0];
        return false;
    });
    return text;
}

void LoadData(const Worksheet& sheet, SettingsStore& store) {
    if (sheet.header)
        LoadData(*sheet.header, store);
}

std::int32_t GetNumberOfLables(const Worksheet& sheet, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store) {
    return GetNumberOfLables(sheet.lines, startingCount, document, store);
}

void LoadRows(const Worksheet& sheet, TabDocument& document, UserInterface& ui) {
    for (int field = 0; field < kFieldsPerTab; ++field)
        document.Field(field).ReDim(document.TabCount);
    const auto progress =
        ui.StartProgress("Importing Microsoft Excel Worksheet.  Please standby ...", std::max(1, document.TabCount));
    std::int32_t tab = 0;
    for (const auto& row : sheet.rows) {
        if (++tab > document.TabCount)
            return;
        for (int field = 0; field < kFieldsPerTab; ++field)
            document.Field(field)(tab) = row[static_cast<std::size_t>(field)];
        progress->Advance(tab);
    }
}

SheetRowSource TabRows(const TabDocument& document) {
    return [&document, tab = std::int32_t{0}](std::vector<std::string>& texts) mutable {
        if (++tab > document.TabCount)
            return false;
        texts.clear();
        for (int field = 0; field < kFieldsPerTab; ++field)
            texts.push_back(document.Field(field)(tab));
        return true;
    };
}

} // namespace velmora
