// .xls of 1995 (BIFF5) and since 1997 (BIFF8): a stream of records. Cells may stand in any order, so a sheet's cells
// are collected first, texts of the shared table as their number.
#include "base/Encoding.h"
#include "base/Text.h"
#include "workbook/BiffReader.h"
#include "workbook/BiffRecords.h"
#include "workbook/NumberFormat.h"
#include "workbook/OleFile.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"

#include <algorithm>
#include <bit>
#include <map>

namespace velmora {
namespace {

/// A whole number or a double in 30 bits, perhaps a hundredth of it.
double RkNumber(std::uint32_t rk) {
    const double number = rk & 2 ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                                 : std::bit_cast<double>(std::uint64_t{rk & ~3u} << 32);
    return rk & 1 ? number / 100 : number;
}

std::string ErrorText(std::uint64_t code) {
    switch (code) {
    case 0x00: return "#NULL!";
    case 0x07: return "#DIV/0!";
    case 0x0F: return "#VALUE!";
    case 0x17: return "#REF!";
    case 0x1D: return "#NAME?";
    case 0x24: return "#NUM!";
    default: return "#N/A";
    }
}

struct SheetStart {
    std::string name;
    std::size_t at = 0; ///< in the stream
};

class Xls : public Workbook {
public:
    explicit Xls(std::string stream) : stream_(std::move(stream)) {
        ReadGlobals();
        for (const SheetStart& sheet : sheets_)
            names_.push_back(sheet.name);
        if (names_.empty())
            throw WorkbookError("the workbook has no worksheet");
    }

    const std::vector<std::string>& SheetNames() const override { return names_; }
    void ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) override;

private:
    friend class CellCollector;

    void ReadGlobals();
    void ReadGlobal(const BiffRecord& record, RecordReader& records);
    void AddSheet(std::string_view data);
    void AddFormat(std::string_view data);
    std::string ShortText(std::string_view data, int lengthBytes) const;
    std::string NumberText(double number, std::size_t style) const;

    std::string stream_;
    bool wide_ = true; ///< BIFF8, whose strings are not bytes
    bool from1904_ = false;
    std::vector<SheetStart> sheets_;
    std::vector<std::string> names_;
    std::vector<std::string> strings_;
    std::map<int, std::string> formats_;
    std::vector<int> styles_; ///< the format of each cell style
};

void Xls::ReadGlobals() {
    RecordReader records(stream_, 0);
    BiffRecord record;
    if (!records.Next(record) || record.id != biff::kBof)
        throw WorkbookError("the file is no workbook of a version that can be read");
    wide_ = LittleEndian(record.data, 0, 2) >= 0x0600;
    while (records.Next(record) && record.id != biff::kEof)
        ReadGlobal(record, records);
}

void Xls::ReadGlobal(const BiffRecord& record, RecordReader& records) {
    switch (record.id) {
    case biff::kFilePass: throw WorkbookError("the workbook is protected by a password");
    case biff::kDateMode: from1904_ = LittleEndian(record.data, 0, 2) == 1; break;
    case biff::kBoundSheet: AddSheet(record.data); break;
    case biff::kFormat: AddFormat(record.data); break;
    case biff::kXf: styles_.push_back(static_cast<int>(LittleEndian(record.data, 2, 2))); break;
    case biff::kSst: {
        StringReader reader(records.WithContinuations(record));
        reader.Number(4); // how often they are used
        for (std::uint32_t left = reader.Number(4); left > 0 && !reader.AtEnd(); --left)
            strings_.push_back(reader.Text(2));
        break;
    }
    default: break;
    }
}

void Xls::AddSheet(std::string_view data) {
    const bool hidden = (LittleEndian(data, 4, 1) & 3) != 0;
    const bool worksheet = LittleEndian(data, 5, 1) == 0;
    if (!hidden && worksheet)
        sheets_.push_back({ShortText(data.substr(6), 1), LittleEndian(data, 0, 4)});
}

void Xls::AddFormat(std::string_view data) {
    const auto number = static_cast<int>(LittleEndian(data, 0, 2));
    formats_[number] = ShortText(data.substr(2), wide_ ? 2 : 1);
}

/// A string within one record.
std::string Xls::ShortText(std::string_view data, int lengthBytes) const {
    if (wide_)
        return StringReader({data}).Text(lengthBytes);
    const std::size_t length = LittleEndian(data, 0, lengthBytes);
    return Decode(std::string(data.substr(static_cast<std::size_t>(lengthBytes), length))).text;
}

std::string Xls::NumberText(double number, std::size_t style) const {
    const int format = style < styles_.size() ? styles_[style] : 0;
    // The system's own date formats are stored with the look of the machine that wrote them.
    const auto own = format == 14 || format == 22 ? formats_.end() : formats_.find(format);
    return FormatNumber(number, own != formats_.end() ? own->second : BuiltInNumberFormat(format), from1904_);
}

/// Collects the cells of the columns asked for.
class CellCollector {
public:
    CellCollector(const Xls& book, const std::vector<int>& columns) : book_(book), columns_(columns) {}

    void Read(RecordReader& records) {
        int depth = 0; // charts within the sheet have an end of their own
        for (BiffRecord record; records.Next(record);) {
            if (record.id == biff::kBof)
                ++depth;
            else if (record.id == biff::kEof && --depth <= 0)
                return;
            else if (depth == 1)
                Take(record, records);
        }
        throw WorkbookError("the worksheet ends in the middle");
    }

    void HandOn(const SheetRowSink& sink) const {
        SheetRow row(columns_, sink);
        for (const auto& [number, cells] : rows_) {
            for (const Cell& cell : cells)
                row.Put(cell.column,
                        cell.shared >= 0 ? book_.strings_[static_cast<std::size_t>(cell.shared)] : cell.text);
            if (!row.Flush(number))
                return;
        }
    }

private:
    struct Cell {
        int column = 0;
        std::int64_t shared = -1; ///< number of a shared text, or -1
        std::string text;
    };

    /// A new cell, or null in a column that nobody asked for.
    Cell* CellAt(std::size_t row, std::size_t column) {
        awaitsString_ = nullptr;
        const auto number = static_cast<int>(column) + 1;
        if (std::find(columns_.begin(), columns_.end(), number) == columns_.end())
            return nullptr;
        if (++count_ > columns_.size() * biff::kMostRows)
            RaiseDamaged();
        std::vector<Cell>& cells = rows_[static_cast<std::int32_t>(row) + 1];
        cells.push_back({number, -1, ""});
        return &cells.back();
    }

    void Take(const BiffRecord& record, RecordReader& records) {
        const std::string_view data = record.data;
        switch (record.id) {
        case biff::kLabelSst:
        case biff::kLabel:
        case biff::kRString:
        case biff::kNumber:
        case biff::kRk:
        case biff::kBoolErr:
        case biff::kFormula:
            if (Cell* cell = CellAt(LittleEndian(data, 0, 2), LittleEndian(data, 2, 2)))
                Fill(*cell, record, records);
            break;
        case biff::kMulRk: TakeMany(data); break;
        case biff::kString:
            if (awaitsString_)
                awaitsString_->text =
                    book_.wide_ ? StringReader(records.WithContinuations(record)).Text(2) : book_.ShortText(data, 2);
            awaitsString_ = nullptr;
            break;
        default: break;
        }
    }

    void Fill(Cell& cell, const BiffRecord& record, RecordReader& records) {
        const std::string_view data = record.data;
        const std::size_t style = LittleEndian(data, 4, 2);
        switch (record.id) {
        case biff::kLabelSst:
            cell.shared = static_cast<std::int64_t>(LittleEndian(data, 6, 4));
            if (static_cast<std::size_t>(cell.shared) >= book_.strings_.size())
                RaiseDamaged();
            break;
        case biff::kNumber: cell.text = book_.NumberText(std::bit_cast<double>(LittleEndian(data, 6, 8)), style); break;
        case biff::kRk:
            cell.text = book_.NumberText(RkNumber(static_cast<std::uint32_t>(LittleEndian(data, 6, 4))), style);
            break;
        case biff::kBoolErr: cell.text = TruthOrError(LittleEndian(data, 6, 1), LittleEndian(data, 7, 1) != 0); break;
        case biff::kFormula: FillResult(cell, data, style); break;
        default: cell.text = book_.wide_ ? WideLabel(record, records) : book_.ShortText(data.substr(6), 2);
        }
    }

    static std::string WideLabel(const BiffRecord& record, RecordReader& records) {
        std::vector<std::string_view> pieces = records.WithContinuations(record);
        pieces[0].remove_prefix(6);
        return StringReader(std::move(pieces)).Text(2);
    }

    static std::string TruthOrError(std::uint64_t value, bool error) {
        return error ? ErrorText(value) : value != 0 ? "TRUE" : "FALSE";
    }

    /// The stored result: a number, or what it is not; a text follows in a record of its own.
    void FillResult(Cell& cell, std::string_view data, std::size_t style) {
        if (LittleEndian(data, 12, 2) != 0xFFFF) {
            cell.text = book_.NumberText(std::bit_cast<double>(LittleEndian(data, 6, 8)), style);
            return;
        }
        const std::uint64_t kind = LittleEndian(data, 6, 1);
        if (kind == 0)
            awaitsString_ = &cell;
        else if (kind == 1 || kind == 2)
            cell.text = TruthOrError(LittleEndian(data, 8, 1), kind == 2);
    }

    void TakeMany(std::string_view data) {
        const std::size_t row = LittleEndian(data, 0, 2);
        std::size_t column = LittleEndian(data, 2, 2);
        for (std::size_t at = 4; at + 6 + 2 <= data.size(); at += 6, ++column)
            if (Cell* cell = CellAt(row, column))
                cell->text = book_.NumberText(RkNumber(static_cast<std::uint32_t>(LittleEndian(data, at + 2, 4))),
                                              LittleEndian(data, at, 2));
    }

    const Xls& book_;
    const std::vector<int>& columns_;
    std::map<std::int32_t, std::vector<Cell>> rows_;
    std::size_t count_ = 0;
    Cell* awaitsString_ = nullptr; ///< the formula before the record that holds its text
};

void Xls::ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) {
    const auto sheet =
        std::find_if(sheets_.begin(), sheets_.end(), [&](const SheetStart& start) { return start.name == name; });
    if (sheet == sheets_.end())
        throw WorkbookError("the workbook has no worksheet [" + name + "]");
    RecordReader records(stream_, sheet->at);
    CellCollector cells(*this, columns);
    cells.Read(records);
    cells.HandOn(sink);
}

} // namespace

std::unique_ptr<Workbook> OpenXls(std::string_view bytes) {
    if (ReadOleStream(bytes, "EncryptedPackage"))
        throw WorkbookError("the workbook is protected by a password");
    auto stream = ReadOleStream(bytes, "Workbook");
    if (!stream)
        stream = ReadOleStream(bytes, "Book");
    if (!stream)
        throw WorkbookError("the file is no workbook");
    return std::make_unique<Xls>(*std::move(stream));
}

} // namespace velmora
