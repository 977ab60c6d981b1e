// What the program asks of spreadsheets: the texts of one worksheet, row by row, and a workbook of texts.
#pragma once

#include "base/Error.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A workbook that cannot be read or written, with the cause.
class WorkbookError : public Error {
public:
    using Error::Error;
};

/// `Other`: with macros, or a template; what such a file holds is read like the others, but never written.
enum class WorkbookFormat { Xls, Xlsx, Ods, Other };

/// A row of a worksheet, as far as it was asked for.
struct SheetRow {
    std::int32_t number = 0;          ///< from 1
    std::vector<std::string> texts;   ///< one for each column
    std::vector<int> unresolved = {}; ///< columns of formulas without a stored result, whose texts are empty
    bool formulas = false;            ///< at least one
    bool further = false;             ///< a text behind the last of the columns
    bool hidden = false;              ///< or filtered out
    std::int32_t hiddenAbove = 0;     ///< rows before it that are
};

/// Takes the rows in ascending order; false ends the reading.
using SheetRowSink = std::function<bool(const SheetRow& row)>;
/// Called many times a second while a file is read; what it raises ends the reading.
using ReadingWatch = std::function<void()>;
/// Gives the next row's texts; false behind the last row.
using SheetRowSource = std::function<bool(std::vector<std::string>& texts)>;

/// An open workbook.
class Workbook {
public:
    virtual ~Workbook() = default;
    /// The worksheets that a person sees, in workbook order; hidden ones and charts are left out.
    virtual const std::vector<std::string>& SheetNames() const = 0;
    /// The texts that a person sees in these columns (from 1, each once), trimmed and on one line. A row that is blank
    /// in all of them may be left out; a hidden row or column counts like any other. A formula gives its stored result.
    /// Raises WorkbookError for a sheet that is not there or is damaged and for more than can be read, perhaps after
    /// some rows were handed on.
    virtual void ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) = 0;
};

class SpreadsheetApplication {
public:
    virtual ~SpreadsheetApplication() = default;
    virtual bool CanRead(WorkbookFormat format) const = 0;
    virtual bool CanWrite(WorkbookFormat format) const = 0;
    /// What the file holds counts, not its name. `watch`, perhaps empty, looks on at this and all further reading.
    /// Raises WorkbookError, and FileAccessError for a file out of reach.
    virtual std::unique_ptr<Workbook> Open(const std::filesystem::path& path, const ReadingWatch& watch) = 0;
    /// One worksheet whose cells are all texts, so that nothing runs as a formula and "007" stays; hands the file's
    /// bytes on when all rows are known. Raises WorkbookError for more rows than the format holds.
    virtual void Write(WorkbookFormat format, const std::string& sheetName, const SheetRowSource& rows,
                       const std::function<void(std::string_view)>& sink) = 0;
};

} // namespace velmora
