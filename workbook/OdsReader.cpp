// .ods: one XML part holds all sheets, and each cell the very text that a person sees.
#include "base/Text.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"
#include "workbook/XmlPart.h"

#include <algorithm>
#include <set>

namespace velmora {
namespace {

/// Finds the names of the sheets that are shown.
class NamesReader : public XmlReader {
public:
    std::vector<std::string> names;
    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "style")
            style_ = attributes("name");
        else if (name == "table-properties" && attributes("display") == "false")
            hidden_.insert(Kept(style_));
        else if (name == "table" && ++depth_ == 1 && !hidden_.contains(std::string(attributes("style-name"))))
            names.push_back(Kept(attributes("name")));
    }
    void End(std::string_view name) override {
        if (name == "table")
            --depth_;
    }

private:
    std::string Kept(std::string_view text) {
        kept_.Add(text);
        return std::string(text);
    }

    KeptBytes kept_;
    std::string style_;
    std::set<std::string> hidden_;
    int depth_ = 0;
};

class OdsSheetReader : public XmlReader {
public:
    OdsSheetReader(std::string sheet, const std::vector<int>& columns, const SheetRowSink& sink)
        : sheet_(std::move(sheet)), last_(*std::max_element(columns.begin(), columns.end())), row_(columns, sink) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "table" && ++depth_ == 1)
            inSheet_ = attributes("name") == sheet_;
        if (!inSheet_ || depth_ != 1)
            return;
        if (name == "annotation" || name == "shapes")
            ++aside_;
        else if (aside_ > 0)
            return;
        else if (name == "table-row") {
            repeatRow_ = std::max(1, attributes.Number("number-rows-repeated", 1));
            hidden_ = attributes("visibility") == "collapse" || attributes("visibility") == "filter";
            column_ = 0;
            cells_.clear();
            further_ = false;
        } else if (name == "table-cell" || name == "covered-table-cell")
            StartCell(attributes);
        else
            StartText(name, attributes);
    }
    void End(std::string_view name) override {
        if (name == "table" && depth_-- == 1 && inSheet_)
            stopped = true;
        if (!inSheet_ || depth_ != 1)
            return;
        if (name == "annotation" || name == "shapes")
            --aside_;
        else if (aside_ > 0)
            return;
        else if (name == "p")
            reading_ = false;
        else if (name == "table-cell" || name == "covered-table-cell")
            EndCell();
        else if (name == "table-row")
            EndRow();
    }
    void Text(std::string_view text) override {
        if (reading_ && aside_ == 0)
            AppendToCell(text_, text);
    }

private:
    void StartCell(const XmlAttributes& attributes) {
        repeatCell_ = std::max(1, attributes.Number("number-columns-repeated", 1));
        text_.clear();
        paragraphs_ = 0;
        value_.clear();
        AppendToCell(value_, attributes("value"));
        formula_ = !attributes("formula").empty();
        awaitsResult_ = formula_ && attributes("value-type").empty();
    }
    void StartText(std::string_view name, const XmlAttributes& attributes) {
        if (name == "p") {
            reading_ = true;
            AppendToCell(text_, paragraphs_++ > 0 ? " " : "");
        } else if (reading_ && name == "s")
            AppendToCell(text_,
                         std::string(static_cast<std::size_t>(std::clamp(attributes.Number("c", 1), 1, 1000)), ' '));
        else if (reading_ && (name == "tab" || name == "line-break"))
            AppendToCell(text_, " ");
    }
    void EndCell() {
        if (!value_.empty())
            UsePlainMinus();
        const std::string& text = paragraphs_ > 0 ? text_ : value_;
        const bool missing = awaitsResult_ && paragraphs_ == 0;
        const bool blank = !missing && Trim(OneLine(text)).empty(); // perhaps in a million rows
        for (int i = 0; i < repeatCell_ && column_ + i < last_ && !blank; ++i)
            cells_.push_back({column_ + i + 1, text, formula_, missing});
        further_ = further_ || (!blank && repeatCell_ > last_ - column_);
        column_ = std::min(column_ + std::min(repeatCell_, kMostSheetRows), kMostSheetRows);
    }
    /// Some programs show numbers with the mathematical minus, which no other reader takes for a sign.
    void UsePlainMinus() {
        constexpr std::string_view kMinus = "\u2212";
        if (const std::size_t at = text_.find(kMinus); at != std::string::npos)
            text_.replace(at, kMinus.size(), "-");
    }
    void EndRow() {
        repeatRow_ = std::min(repeatRow_, kMostSheetRows - number_);
        const bool blank = cells_.empty() && !further_;
        if (blank && hidden_)
            row_.PassHidden(repeatRow_);
        for (int i = 1; i <= repeatRow_ && !blank && !stopped; ++i) {
            PutCells();
            stopped = !row_.Flush(number_ + i, hidden_);
        }
        number_ += repeatRow_;
    }
    void PutCells() {
        for (const Cell& cell : cells_) {
            row_.Put(cell.column, cell.text);
            if (cell.formula)
                row_.PutFormula(cell.column, cell.missing);
        }
        if (further_)
            row_.Note(last_ + 1);
    }

    struct Cell {
        int column = 0;
        std::string text;
        bool formula = false;
        bool missing = false; ///< its result
    };

    const std::string sheet_;
    const int last_; ///< the last column asked for
    RowCollector row_;
    std::vector<Cell> cells_;
    std::string text_;
    std::string value_; ///< stands in for a missing text
    int number_ = 0;
    int column_ = 0;
    int repeatRow_ = 1;
    int repeatCell_ = 1;
    int paragraphs_ = 0;
    int depth_ = 0;        ///< of tables
    int aside_ = 0;        ///< within notes and drawings
    bool hidden_ = false;  ///< the row
    bool further_ = false; ///< a text in it behind the last column
    bool formula_ = false;
    bool awaitsResult_ = false;
    bool inSheet_ = false;
    bool reading_ = false;
};

class ManifestReader : public XmlReader {
public:
    void Start(std::string_view name, const XmlAttributes&) override {
        if (name == "encryption-data")
            throw WorkbookError("the workbook is protected by a password");
    }
};

class Ods : public Workbook {
public:
    explicit Ods(ZipFile zip) : zip_(std::move(zip)) {
        ManifestReader manifest;
        if (zip_.Has("META-INF/manifest.xml"))
            ReadXmlPart(zip_, "META-INF/manifest.xml", manifest);
        NamesReader reader;
        ReadXmlPart(zip_, "content.xml", reader);
        names_ = std::move(reader.names);
        if (names_.empty())
            throw WorkbookError("the workbook has no worksheet");
    }

    const std::vector<std::string>& SheetNames() const override { return names_; }

    void ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) override {
        if (columns.empty())
            return;
        if (std::find(names_.begin(), names_.end(), name) == names_.end())
            throw WorkbookError("the workbook has no worksheet [" + name + "]");
        OdsSheetReader reader(name, columns, sink);
        ReadXmlPart(zip_, "content.xml", reader);
    }

private:
    ZipFile zip_;
    std::vector<std::string> names_;
};

} // namespace

std::unique_ptr<Workbook> OpenOds(ZipFile zip) {
    return std::make_unique<Ods>(std::move(zip));
}

} // namespace velmora
