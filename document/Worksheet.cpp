#include "document/Worksheet.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace velmora {
namespace {

constexpr std::size_t kMostBytes = 64u << 20;
constexpr int kCountedColumns = 4;
constexpr int kLetters = 26;

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

std::optional<std::pair<int, int>> ParseColumns(std::string_view text) {
    std::pair<int, int> columns{0, 0};
    const char* const end = text.data() + text.size();
    const auto read = [end](const char* from, int& column) {
        const auto [next, error] = std::from_chars(from, end, column);
        return error == std::errc() && column >= 0 && column <= kMostColumns ? next : nullptr;
    };
    const char* next = read(text.data(), columns.first);
    if (next && next != end && *next == '+')
        next = read(next + 1, columns.second);
    return next == end ? std::optional(columns) : std::nullopt;
}

std::array<std::string, kFieldsPerTab> TabOfRow(const std::vector<std::string>& cells,
                                                const WorksheetOptions& options) {
    std::array<std::string, kFieldsPerTab> texts;
    for (std::size_t field = 0; field < texts.size(); ++field) {
        texts[field] = field < options.columns.size() ? Cell(cells, options.columns[field]) : "";
        const std::string second = Cell(cells, options.joined[field]);
        texts[field] = OneLine(texts[field] + (texts[field].empty() || second.empty() ? "" : options.between) + second);
    }
    return texts;
}

int WorksheetBuilder::LastColumn() const {
    int last = std::max(kFontKeys, *std::max_element(options_.joined.begin(), options_.joined.end()));
    for (const int column : options_.columns)
        last = std::max(last, column);
    return last;
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
    const auto isEmpty = [&](int column) { return Cell(cells, column).empty(); };
    return std::all_of(options_.columns.begin(), options_.columns.end(), isEmpty) &&
           std::all_of(options_.joined.begin(), options_.joined.end(), isEmpty);
}

bool WorksheetBuilder::IsChosen(int column) const {
    const auto isIn = [column](const auto& columns) {
        return std::find(columns.begin(), columns.end(), column) != columns.end();
    };
    return isIn(options_.columns) || isIn(options_.joined);
}

std::int32_t WorksheetBuilder::NumberOf(const SheetRow& row) {
    if (sheet_.header || !options_.visibleOnly)
        return row.number;
    sheet_.leftOut.hiddenRows = sheet_.leftOut.hiddenRows || row.hidden;
    return row.hidden ? 0 : row.number - row.hiddenAbove;
}

void WorksheetBuilder::NoteLeftOut(const SheetRow& row) {
    LeftOut& leftOut = sheet_.leftOut;
    leftOut.formulas = leftOut.formulas || row.formulas;
    leftOut.further = leftOut.further || row.further;
    for (std::size_t i = 0; i < row.texts.size(); ++i)
        if (const int column = static_cast<int>(i) + 1; !row.texts[i].empty() && !IsChosen(column))
            leftOut.columns.insert(column);
    for (const int column : row.unresolved)
        if (IsChosen(column))
            sheet_.unresolved.push_back(ColumnLetters(column) + std::to_string(row.number));
}

bool WorksheetBuilder::Add(const SheetRow& row) {
    if (row.number == 1) {
        sheet_.firstCell = Cell(row.texts, 1);
        if (AnnouncesHeader(sheet_.firstCell)) {
            sheet_.header.emplace();
            return true;
        }
    }
    if (sheet_.header && row.number <= kHeaderLines) {
        AddHeader(row.number, row.texts);
        return true;
    }
    const std::int32_t before = sheet_.header ? kHeaderLines : options_.heading ? 1 : 0;
    const std::int32_t number = NumberOf(row);
    sheet_.leftOut.heading = sheet_.leftOut.heading || (number == 1 && before == 1);
    return number <= before || AddTab(number - before, row);
}

bool WorksheetBuilder::AddTab(std::int32_t tab, const SheetRow& row) {
    NoteLeftOut(row);
    if (IsBlank(row.texts))
        return true;
    if (tab > kMostTabs) { // counted, so that the loading names the limit of the header's tab type
        sheet_.lines = tab;
        return false;
    }
    sheet_.rows.resize(static_cast<std::size_t>(tab));
    sheet_.rows.back() = TabOfRow(row.texts, options_);
    for (const std::string& text : sheet_.rows.back())
        bytes_ += text.size();
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

std::string ColumnLetters(int column) {
    std::string letters;
    for (int left = column; left > 0; left = (left - 1) / kLetters)
        letters.insert(letters.begin(), static_cast<char>('A' + (left - 1) % kLetters));
    return letters;
}

std::string UnresolvedFindings(const Worksheet& sheet) {
    constexpr std::size_t kNamed = 10;
    std::string cells;
    for (std::size_t i = 0; i < std::min(sheet.unresolved.size(), kNamed); ++i)
        cells += (i == 0 ? "" : ", ") + sheet.unresolved[i];
    if (sheet.unresolved.size() > kNamed)
        cells += " and " + std::to_string(sheet.unresolved.size() - kNamed) + " more";
    return cells.empty() ? ""
                         : "Formulas without a stored result, whose texts are missing: " + cells +
                               ".\r\nA spreadsheet program stores the results when it opens the workbook and saves it.";
}

Worksheet ReadWorksheet(Workbook& workbook, const std::string& name, const WorksheetOptions& options) {
    WorksheetBuilder builder(options);
    std::vector<int> columns(static_cast<std::size_t>(builder.LastColumn()));
    std::iota(columns.begin(), columns.end(), 1);
    int last = 0;
    workbook.ReadSheet(name, columns, [&](const SheetRow& row) {
        for (auto i = static_cast<std::size_t>(last); i < row.texts.size(); ++i)
            last = row.texts[i].empty() ? last : static_cast<int>(i) + 1;
        return builder.Add(row);
    });
    Worksheet sheet = builder.Take();
    sheet.columns = last;
    return sheet;
}

Worksheet WorksheetOf(std::string_view list, char delimiter, const WorksheetOptions& options) {
    WorksheetBuilder builder(options);
    SheetRow row;
    std::size_t widest = 0;
    const auto columns = static_cast<std::size_t>(std::max(builder.LastColumn(), kMostColumns));
    ReadTextList(list, delimiter, columns + 1, [&](std::vector<std::string> cells) {
        ++row.number;
        row.further = cells.size() > columns;
        cells.resize(std::min(cells.size(), columns));
        widest = std::max(widest, cells.size());
        row.texts = std::move(cells);
        return builder.Add(row);
    });
    Worksheet sheet = builder.Take();
    sheet.columns = static_cast<int>(widest);
    return sheet;
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
