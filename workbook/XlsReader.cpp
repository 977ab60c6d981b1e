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
#include <set>

namespace velmora {
namespace {

constexpr std::size_t kMostCells = 8u << 20;      // more fit such a file only where it was made for it
constexpr std::size_t kMostXlsBytes = 128u << 20; // its stream is held beside the file for a moment

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
    Xls(std::string stream, ReadingWatch watch) : stream_(std::move(stream)), watch_(std::move(watch)) {
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
    std::string Kept(std::string text) {
        kept_.Add(text);
        return text;
    }

    std::string stream_;
    ReadingWatch watch_;
    KeptBytes kept_;
    bool wide_ = true; ///< BIFF8, whose strings are not bytes
    bool from1904_ = false;
    std::vector<SheetStart> sheets_;
    std::vector<std::string> names_;
    TextTable strings_;
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
            strings_.Add(reader.Text(2));
        break;
    }
    default: break;
    }
}

void Xls::AddSheet(std::string_view data) {
    const bool hidden = (LittleEndian(data, 4, 1) & 3) != 0;
    const bool worksheet = LittleEndian(data, 5, 1) == 0;
    if (!hidden && worksheet)
        sheets_.push_back({Kept(ShortText(data.substr(6), 1)), LittleEndian(data, 0, 4)});
}

void Xls::AddFormat(std::string_view data) {
    const auto number = static_cast<int>(LittleEndian(data, 0, 2));
    formats_[number] = Kept(ShortText(data.substr(2), wide_ ? 2 : 1).substr(0, kMostFormatBytes));
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

/// Collects where the cells of the columns asked for stand; a cell is taken apart when its row is handed on.
class CellCollector {
public:
    CellCollector(const Xls& book, const std::vector<int>& columns, const SheetRowSink& sink)
        : book_(book), most_(std::min(columns.size() * biff::kMostRows, kMostCells)), row_(columns, sink) {}

    void Read(RecordReader& records) {
        int depth = 0; // charts within the sheet have an end of their own
        std::uint32_t count = 0;
        for (BiffRecord record; records.Next(record);) {
            if (book_.watch_ && count++ % kRecordsBetweenLooks == 0)
                book_.watch_();
            if (record.id == biff::kBof)
                ++depth;
            else if (record.id == biff::kEof && --depth <= 0)
                return;
            else if (depth == 1)
                Take(record);
        }
        throw WorkbookError("the worksheet ends in the middle");
    }

    /// Each row is forgotten then: the sink may keep its texts.
    void HandOn() {
        auto hidden = hidden_.begin();
        for (; !rows_.empty(); rows_.erase(rows_.begin())) {
            const auto& [number, cells] = *rows_.begin();
            for (; hidden != hidden_.end() && *hidden < number; ++hidden)
                row_.PassHidden(1);
            const bool isHidden = hidden != hidden_.end() && *hidden == number;
            hidden = isHidden ? std::next(hidden) : hidden;
            for (const Cell& cell : cells)
                PutCell(cell);
            if (!row_.Flush(number, isHidden))
                return;
        }
    }

private:
    struct Cell {
        std::uint16_t column = 0;
        std::uint16_t id = 0; ///< of its record
        std::uint32_t at = 0; ///< in the stream: the record, or the style of a number in 30 bits
    };

    /// A new cell, or null in a column that nobody asked for.
    Cell* CellAt(std::size_t row, std::size_t column) {
        awaitsString_ = nullptr;
        const auto number = static_cast<int>(column) + 1;
        if (!row_.Wants(number))
            return nullptr;
        if (++count_ > most_)
            RaiseTooLarge();
        std::vector<Cell>& cells = rows_[static_cast<std::int32_t>(row) + 1];
        cells.push_back({static_cast<std::uint16_t>(number), 0, 0});
        return &cells.back();
    }

    std::uint32_t PlaceOf(const char* byte) const { return static_cast<std::uint32_t>(byte - book_.stream_.data()); }

    void Take(const BiffRecord& record) {
        const std::string_view data = record.data;
        switch (record.id) {
        case biff::kLabelSst:
        case biff::kLabel:
        case biff::kRString:
        case biff::kNumber:
        case biff::kBoolErr:
        case biff::kFormula:
            if (Cell* cell = CellAt(LittleEndian(data, 0, 2), LittleEndian(data, 2, 2)))
                Place(*cell, record);
            break;
        case biff::kRk:
        case biff::kMulRk: TakeNumbers(data); break;
        case biff::kString:
            if (awaitsString_)
                Place(*awaitsString_, record);
            awaitsString_ = nullptr;
            break;
        case biff::kRow:
            if ((LittleEndian(data, 12, 2) & kHiddenRow) != 0)
                hidden_.insert(static_cast<std::int32_t>(LittleEndian(data, 0, 2)) + 1);
            break;
        default: break;
        }
    }

    void Place(Cell& cell, const BiffRecord& record) {
        cell.id = static_cast<std::uint16_t>(record.id);
        cell.at = PlaceOf(record.data.data()) - kRecordStart;
        if (record.id == biff::kFormula && HoldsText(record.data))
            awaitsString_ = &cell;
    }

    void TakeNumbers(std::string_view data) {
        const std::size_t row = LittleEndian(data, 0, 2);
        std::size_t column = LittleEndian(data, 2, 2);
        for (std::size_t at = 4; at + kRkSize <= data.size(); at += kRkSize, ++column)
            if (Cell* cell = CellAt(row, column)) {
                cell->id = biff::kRk;
                cell->at = PlaceOf(data.data() + at);
            }
    }

    void PutCell(const Cell& cell) {
        row_.Put(cell.column, TextOf(cell));
        if (cell.id == biff::kFormula || cell.id == biff::kString) // the text of one
            row_.PutFormula(cell.column, false);
    }

    std::string TextOf(const Cell& cell) const {
        if (cell.id == biff::kRk)
            return book_.NumberText(RkNumber(static_cast<std::uint32_t>(LittleEndian(book_.stream_, cell.at + 2, 4))),
                                    LittleEndian(book_.stream_, cell.at, 2));
        RecordReader records(book_.stream_, cell.at);
        BiffRecord record;
        records.Next(record);
        return TextOf(record, records);
    }

    std::string TextOf(const BiffRecord& record, RecordReader& records) const {
        const std::string_view data = record.data;
        switch (record.id) {
        case biff::kLabelSst: return std::string(book_.strings_.At(LittleEndian(data, 6, 4)));
        case biff::kNumber: return DoubleText(data);
        case biff::kBoolErr: return TruthOrError(LittleEndian(data, 6, 1), LittleEndian(data, 7, 1) != 0);
        case biff::kFormula: return Result(data);
        case biff::kString: return book_.wide_ ? WideText(record, records, 0) : book_.ShortText(data, 2);
        default: return book_.wide_ ? WideText(record, records, 6) : book_.ShortText(data.substr(6), 2);
        }
    }

    static std::string WideText(const BiffRecord& record, RecordReader& records, std::size_t from) {
        std::vector<std::string_view> pieces = records.WithContinuations(record);
        pieces[0].remove_prefix(std::min(from, pieces[0].size()));
        return StringReader(std::move(pieces)).Text(2);
    }

    std::string DoubleText(std::string_view data) const {
        return book_.NumberText(std::bit_cast<double>(LittleEndian(data, 6, 8)), LittleEndian(data, 4, 2));
    }

    static std::string TruthOrError(std::uint64_t value, bool error) {
        return error ? ErrorText(value) : value != 0 ? "TRUE" : "FALSE";
    }

    static bool IsNumber(std::string_view formula) { return LittleEndian(formula, 12, 2) != 0xFFFF; }
    static bool HoldsText(std::string_view formula) { return !IsNumber(formula) && LittleEndian(formula, 6, 1) == 0; }

    /// The stored result: a number, or what it is not; a text follows in a record of its own.
    std::string Result(std::string_view data) const {
        if (IsNumber(data))
            return DoubleText(data);
        const std::uint64_t kind = LittleEndian(data, 6, 1);
        return kind == 1 || kind == 2 ? TruthOrError(LittleEndian(data, 8, 1), kind == 2) : "";
    }

    static constexpr unsigned kHiddenRow = 0x20;
    static constexpr std::uint32_t kRecordsBetweenLooks = 256;
    static constexpr std::size_t kRkSize = 6;        ///< a style and a number
    static constexpr std::uint32_t kRecordStart = 4; ///< its number and size

    const Xls& book_;
    const std::size_t most_; ///< cells
    RowCollector row_;
    std::map<std::int32_t, std::vector<Cell>> rows_;
    std::set<std::int32_t> hidden_; ///< rows
    std::size_t count_ = 0;
    Cell* awaitsString_ = nullptr; ///< the formula before the record that holds its text
};

void Xls::ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) {
    const auto sheet =
        std::find_if(sheets_.begin(), sheets_.end(), [&](const SheetStart& start) { return start.name == name; });
    if (sheet == sheets_.end())
        throw WorkbookError("the workbook has no worksheet [" + name + "]");
    RecordReader records(stream_, sheet->at);
    CellCollector cells(*this, columns, sink);
    cells.Read(records);
    cells.HandOn();
}

} // namespace

std::unique_ptr<Workbook> OpenXls(std::string bytes, ReadingWatch watch) {
    if (bytes.size() > kMostXlsBytes)
        throw WorkbookError("the file is larger than 128 MB");
    if (ReadOleStream(bytes, "EncryptedPackage"))
        throw WorkbookError("the workbook is protected by a password");
    auto stream = ReadOleStream(bytes, "Workbook");
    if (!stream)
        stream = ReadOleStream(bytes, "Book");
    if (!stream)
        throw WorkbookError("the file is no workbook");
    std::string().swap(bytes); // before the texts are taken out
    return std::make_unique<Xls>(*std::move(stream), std::move(watch));
}

} // namespace velmora
