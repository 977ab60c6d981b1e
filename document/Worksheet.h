// A worksheet read as a tab file: row 1 the version line, rows 2 to 6 the header, each further row one tab. Sheets and
// lists without a header are rows of tabs from the first on.
#pragma once

#include "document/TabFile.h"
#include "workbook/SpreadsheetApplication.h"

#include <array>
#include <string>
#include <vector>

namespace velmora {

/// By the ending of the name, in any case; nullopt for a text file.
std::optional<WorkbookFormat> WorkbookFormatOf(const std::filesystem::path& path);

struct WorksheetOptions {
    std::vector<int> columns = {1, 2, 3}; ///< of field 1, 2 and 3, from 1; 0 and fewer leave fields empty
    bool heading = false;                 ///< the first row names the columns; a sheet with a header has none
    bool operator==(const WorksheetOptions&) const = default;
};

/// A worksheet's cells, as far as a document needs them.
struct Worksheet {
    std::string firstCell; ///< for TestVersion7 and TestVersion8
    std::optional<TabFileHeader> header;
    std::vector<std::array<std::string, kFieldsPerTab>> rows;
    std::int32_t lines = 0; ///< of the header and the rows
    Encoding encoding = Encoding::Utf8;
};

/// Takes a sheet's rows one by one. Blank rows between others are kept as empty tabs, those behind the last are not. A
/// row is blank when its first four cells and the chosen ones are.
class WorksheetBuilder {
public:
    explicit WorksheetBuilder(WorksheetOptions options) : options_(std::move(options)) {}
    /// Columns 1 up to this one are looked at.
    int LastColumn() const;
    /// `row` from 1, ascending; `cells` from column 1. False once there are more tabs than any document holds, which
    /// the loading refuses. Raises WorkbookError for more text than a document may hold.
    bool Add(std::int32_t row, const std::vector<std::string>& cells);
    Worksheet Take();

private:
    void AddHeader(std::int32_t row, const std::vector<std::string>& cells);
    bool IsBlank(const std::vector<std::string>& cells) const;

    WorksheetOptions options_;
    Worksheet sheet_;
    std::size_t bytes_ = 0;
};

/// The number of fields, at least 1, that the rows have texts for.
int FieldsInUse(const Worksheet& sheet);
/// Raises what the workbook and the builder raise.
Worksheet ReadWorksheet(Workbook& workbook, const std::string& name, const WorksheetOptions& options);
/// The rows of a text list, no more than a document takes. Raises what the builder raises.
Worksheet WorksheetOf(std::string_view list, char delimiter, const WorksheetOptions& options);
/// The first rows with all columns up to 256, blank rows between them too, to show what is in the sheet. Raises
/// WorkbookError.
std::vector<std::vector<std::string>> ReadFirstRows(Workbook& workbook, const std::string& name, std::size_t most);
/// The first cell alone, for the version tests. Raises WorkbookError.
std::string ReadFirstCell(Workbook& workbook, const std::string& name);

void LoadData(const Worksheet& sheet, SettingsStore& store);
std::int32_t GetNumberOfLables(const Worksheet& sheet, std::int32_t startingCount, TabDocument& document,
                               SettingsStore& store);
void LoadRows(const Worksheet& sheet, TabDocument& document, UserInterface& ui);

/// The tabs as rows of a workbook, a column for each of the three fields, as SpreadsheetApplication::Write takes them.
/// The document must outlive it.
SheetRowSource TabRows(const TabDocument& document);

} // namespace velmora
