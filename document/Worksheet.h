// A worksheet read as a tab file: row 1 the version line, rows 2 to 6 the header, each further row one tab. Sheets and
// lists without a header are rows of tabs from the first on.
#pragma once

#include "document/TabFile.h"
#include "document/TextList.h"
#include "workbook/SpreadsheetApplication.h"

#include <array>
#include <set>
#include <string>
#include <vector>

namespace velmora {

/// By the ending of the name, in any case; nullopt for a text file.
std::optional<WorkbookFormat> WorkbookFormatOf(const std::filesystem::path& path);

/// A field's column, and another that is joined to it or 0: "2" or "2+1", and "0" for none; up to kMostColumns. nullopt
/// for any other text.
std::optional<std::pair<int, int>> ParseColumns(std::string_view text);

struct WorksheetOptions {
    std::vector<int> columns = {1, 2, 3};    ///< of field 1, 2 and 3, from 1; 0 and fewer leave fields empty
    std::array<int, kFieldsPerTab> joined{}; ///< columns whose texts follow these in the field; 0 and fewer: none
    std::string between = " ";               ///< stands between two joined texts
    bool heading = false;                    ///< the first row names the columns; a sheet with a header has none
    bool visibleOnly = false; ///< leaves hidden and filtered rows out; a sheet with a header is taken whole
    bool operator==(const WorksheetOptions&) const = default;
};

/// The texts that a row gives a tab.
std::array<std::string, kFieldsPerTab> TabOfRow(const std::vector<std::string>& cells, const WorksheetOptions& options);

/// What a sheet or list holds besides the texts that were taken, as far as its reading showed.
struct LeftOut {
    std::vector<std::string> sheets; ///< names of other worksheets
    std::set<int> columns;           ///< with texts, from 1
    bool further = false;            ///< columns behind those that were looked at
    bool heading = false;
    bool hiddenRows = false;
    bool formulas = false;
};

/// A worksheet's cells, as far as a document needs them.
struct Worksheet {
    std::string firstCell; ///< for TestVersion7 and TestVersion8
    std::optional<TabFileHeader> header;
    std::vector<std::array<std::string, kFieldsPerTab>> rows;
    std::int32_t lines = 0; ///< of the header and the rows
    int columns = 0;        ///< of a list's longest row; of a worksheet, up to the last one looked at that has a text
    Encoding encoding = Encoding::Utf8;
    std::vector<std::string> unresolved; ///< cells, such as "B7", whose formula has no stored result: taken as empty
    LeftOut leftOut;
};

/// Takes a sheet's rows one by one. Blank rows between others are kept as empty tabs, those behind the last are not. A
/// row is blank when its first four cells and the chosen ones are.
class WorksheetBuilder {
public:
    explicit WorksheetBuilder(WorksheetOptions options) : options_(std::move(options)) {}
    /// Columns 1 up to this one are looked at.
    int LastColumn() const;
    /// Rows in ascending order, their texts from column 1. False once there are more tabs than any document holds,
    /// which the loading refuses. Raises WorkbookError for more text than a document may hold.
    bool Add(const SheetRow& row);
    Worksheet Take();

private:
    void AddHeader(std::int32_t row, const std::vector<std::string>& cells);
    bool AddTab(std::int32_t tab, const SheetRow& row);
    bool IsBlank(const std::vector<std::string>& cells) const;
    bool IsChosen(int column) const;
    /// The row's number among those that are taken; 0 for one that is left out.
    std::int32_t NumberOf(const SheetRow& row);
    void NoteLeftOut(const SheetRow& row);

    WorksheetOptions options_;
    Worksheet sheet_;
    std::size_t bytes_ = 0;
};

/// The number of fields, at least 1, that the rows have texts for.
int FieldsInUse(const Worksheet& sheet);
/// "AB" for column 28, as spreadsheets count.
std::string ColumnLetters(int column);
/// Says that the sheet's formulas without a stored result were taken as empty, and which; empty where there is none.
std::string UnresolvedFindings(const Worksheet& sheet);
/// Raises what the workbook and the builder raise.
Worksheet ReadWorksheet(Workbook& workbook, const std::string& name, const WorksheetOptions& options);
/// The rows of a text list, no more than a document takes. Raises what the builder raises.
Worksheet WorksheetOf(std::string_view list, char delimiter, const WorksheetOptions& options);

void LoadData(const Worksheet& sheet, SettingsStore& store);
std::int32_t GetNumberOfLables(const Worksheet& sheet, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store);
void LoadRows(const Worksheet& sheet, TabDocument& document, UserInterface& ui);

/// The tabs as rows of a workbook, a column for each of the three fields, as SpreadsheetApplication::Write takes them.
/// The document must outlive it.
SheetRowSource TabRows(const TabDocument& document);

} // namespace velmora
