// .xlsx: a zip of XML parts that point at one another. Rows are handed on as they are read.
#include "base/Paths.h"
#include "base/Text.h"
#include "workbook/CellDate.h"
#include "workbook/NumberFormat.h"
#include "workbook/WorkbookFormats.h"
#include "workbook/WorkbookParts.h"
#include "workbook/XmlPart.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace velmora {
namespace {

constexpr std::size_t kEscapeBytes = 7;

struct Relation {
    std::string type;
    std::string target;
};
using Relations = std::map<std::string, Relation, std::less<>>; ///< by their id

class RelationsReader : public XmlReader {
public:
    Relations relations;
    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Relationship")
            return;
        for (const char* kept : {"Id", "Type", "Target"})
            kept_.Add(attributes(kept));
        relations[std::string(attributes("Id"))] = {std::string(attributes("Type")), std::string(attributes("Target"))};
    }

private:
    KeptBytes kept_;
};

struct SheetPart {
    std::string name;
    std::string id;
};

class WorkbookReader : public XmlReader {
public:
    std::vector<SheetPart> sheets;
    bool from1904 = false;
    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "workbookPr")
            from1904 = attributes("date1904") == "1" || attributes("date1904") == "true";
        const std::string_view state = attributes("state");
        if (name != "sheet" || !(state.empty() || state == "visible"))
            return;
        kept_.Add(attributes("name"));
        kept_.Add(attributes("id"));
        sheets.push_back({std::string(attributes("name")), std::string(attributes("id"))});
    }

private:
    KeptBytes kept_;
};

/// The number format of each cell style.
class StylesReader : public XmlReader {
public:
    std::vector<std::string> formats;
    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "numFmt")
            own_[attributes.Number("numFmtId", 0)] = Kept(attributes("formatCode").substr(0, kMostFormatBytes));
        else if (name == "cellXfs")
            inCells_ = true;
        else if (name == "xf" && inCells_) {
            const auto own = own_.find(attributes.Number("numFmtId", 0));
            formats.push_back(
                Kept(own != own_.end() ? own->second : BuiltInNumberFormat(attributes.Number("numFmtId", 0))));
        }
    }
    void End(std::string_view name) override {
        if (name == "cellXfs")
            inCells_ = false;
    }

private:
    std::string Kept(std::string_view format) {
        kept_.Add(format);
        return std::string(format);
    }

    KeptBytes kept_;
    std::map<int, std::string> own_;
    bool inCells_ = false;
};

/// The character that the format writes as _x000D_ at the start of `text`; nullopt for other texts.
std::optional<char> EscapedCharacter(std::string_view text) {
    unsigned code = 0;
    const char* digits = text.data() + 2;
    const bool escape = text.size() >= kEscapeBytes && text[kEscapeBytes - 1] == '_' &&
                        std::from_chars(digits, digits + 4, code, 16).ptr == digits + 4;
    return escape && code < 0x80 ? std::optional(static_cast<char>(code)) : std::nullopt;
}

/// Puts back the characters that the format writes by their number.
std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t at = text.find("_x"); at != std::string_view::npos; at = text.find("_x")) {
        const auto character = EscapedCharacter(text.substr(at));
        plain.append(text.substr(0, at)).append(1, character.value_or('_'));
        text.remove_prefix(at + (character ? kEscapeBytes : 1));
    }
    return plain.append(text);
}

class StringsReader : public XmlReader {
public:
    TextTable strings;
    void Start(std::string_view name, const XmlAttributes&) override {
        if (name == "si")
            text_.clear();
        reading_ = name == "t" && !phonetic_;
        phonetic_ = phonetic_ || name == "rPh";
    }
    void End(std::string_view name) override {
        reading_ = false;
        if (name == "rPh")
            phonetic_ = false;
        if (name == "si")
            strings.Add(Unescaped(text_));
    }
    void Text(std::string_view text) override {
        if (reading_)
            AppendToCell(text_, text);
    }

private:
    std::string text_;
    bool reading_ = false;
    bool phonetic_ = false;
};

/// The column, from 1, of a reference such as "AB12"; 0 where there is none.
int ColumnOf(std::string_view reference) {
    int column = 0;
    for (const char letter : reference.substr(0, 3))
        if (letter >= 'A' && letter <= 'Z')
            column = column * 26 + letter - 'A' + 1;
    return column;
}

/// What all sheets of a workbook need.
struct SharedParts {
    TextTable strings;
    std::vector<std::string> formats;
    bool from1904 = false;
};

class XlsxSheetReader : public XmlReader {
public:
    XlsxSheetReader(const SharedParts& shared, const std::vector<int>& columns, const SheetRowSink& sink)
        : shared_(shared), row_(columns, sink) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "row")
            StartRow(attributes);
        else if (name == "c")
            StartCell(attributes);
        else if (name == "f")
            formula_ = true;
        const bool text = name == "v" || name == "t";
        if (text && !wanted_)
            row_.Note(column_);
        reading_ = text && wanted_ && !phonetic_;
        phonetic_ = phonetic_ || name == "rPh";
    }
    void End(std::string_view name) override {
        reading_ = false;
        if (name == "rPh")
            phonetic_ = false;
        if (name == "c" && wanted_)
            EndCell();
        if (name == "c")
            wanted_ = false;
        if (name == "row" && !row_.Flush(number_, hidden_))
            stopped = true;
    }
    void Text(std::string_view text) override {
        if (reading_)
            AppendToCell(value_, text);
    }

private:
    void StartRow(const XmlAttributes& attributes) {
        const int number = attributes.Number("r", number_ + 1);
        if (number <= number_)
            throw WorkbookError("the rows of the worksheet are out of order");
        number_ = number;
        hidden_ = attributes("hidden") == "1" || attributes("hidden") == "true";
        column_ = 0;
    }
    void StartCell(const XmlAttributes& attributes) {
        const int column = ColumnOf(attributes("r"));
        column_ = column > 0 ? column : column_ + 1;
        wanted_ = row_.Wants(column_);
        if (!wanted_)
            return;
        type_ = attributes("t");
        style_ = static_cast<std::size_t>(attributes.Number("s", 0));
        value_.clear();
        formula_ = false;
    }
    void EndCell() {
        if (formula_)
            row_.PutFormula(column_, value_.empty() && type_ != "str");
        row_.Put(column_, CellText());
    }
    std::string CellText() const {
        if (type_ == "s")
            return value_.empty() ? "" : SharedString();
        if (type_ == "b")
            return value_ == "1" ? "TRUE" : value_ == "0" ? "FALSE" : value_;
        if (type_ == "inlineStr" || type_ == "str")
            return Unescaped(value_);
        if (type_ == "d")
            return DateText();
        if (type_ == "e")
            return value_;
        return NumberText();
    }
    std::string SharedString() const {
        std::size_t index = 0;
        const char* end = value_.data() + value_.size();
        if (const auto [stop, error] = std::from_chars(value_.data(), end, index); stop != end || error != std::errc())
            RaiseDamaged();
        return std::string(shared_.strings.At(index));
    }
    std::string_view Format() const {
        return style_ < shared_.formats.size() ? std::string_view(shared_.formats[style_]) : "";
    }
    std::string DateText() const {
        const auto days = SerialOfIsoDate(value_, shared_.from1904);
        return days && !IsGeneralFormat(Format()) ? FormatNumber(*days, Format(), shared_.from1904) : value_;
    }
    std::string NumberText() const {
        double number = 0;
        const char* end = value_.data() + value_.size();
        const auto [stop, error] = std::from_chars(value_.data(), end, number);
        if (stop != end || error != std::errc())
            return value_;
        return FormatNumber(number, Format(), shared_.from1904);
    }

    const SharedParts& shared_;
    RowCollector row_;
    std::string value_;
    std::string type_;
    std::size_t style_ = 0;
    int number_ = 0;
    int column_ = 0;
    bool hidden_ = false;
    bool wanted_ = false;
    bool formula_ = false;
    bool reading_ = false;
    bool phonetic_ = false;
};

std::string FolderOf(const std::string& part) {
    return part.substr(0, part.rfind('/') + 1);
}

/// The part that a relation of `from` leads to.
std::string Resolve(const std::string& from, const std::string& target) {
    if (target.starts_with('/'))
        return target.substr(1);
    return SlashedPathText(PathOf(FolderOf(from) + target).lexically_normal());
}

Relations RelationsOf(const ZipFile& zip, const std::string& part) {
    RelationsReader reader;
    const std::string folder = FolderOf(part);
    const std::string name = folder + "_rels/" + part.substr(folder.size()) + ".rels";
    if (zip.Has(name))
        ReadXmlPart(zip, name, reader);
    return reader.relations;
}

class Xlsx : public Workbook {
public:
    explicit Xlsx(ZipFile zip) : zip_(std::move(zip)) {
        for (const auto& [id, relation] : RelationsOf(zip_, ""))
            if (relation.type.ends_with("/officeDocument"))
                main_ = Resolve("", relation.target);
        if (main_.empty())
            throw WorkbookError("the file is no workbook");
        relations_ = RelationsOf(zip_, main_);
        WorkbookReader reader;
        ReadXmlPart(zip_, main_, reader);
        shared_.from1904 = reader.from1904;
        for (const SheetPart& sheet : reader.sheets) {
            const auto relation = relations_.find(sheet.id);
            if (relation == relations_.end() || !relation->second.type.ends_with("/worksheet"))
                continue;
            names_.push_back(sheet.name);
            parts_.push_back(Resolve(main_, relation->second.target));
        }
        if (names_.empty())
            throw WorkbookError("the workbook has no worksheet");
    }

    const std::vector<std::string>& SheetNames() const override { return names_; }

    void ReadSheet(const std::string& name, const std::vector<int>& columns, const SheetRowSink& sink) override {
        const auto found = std::find(names_.begin(), names_.end(), name);
        if (found == names_.end())
            throw WorkbookError("the workbook has no worksheet [" + name + "]");
        ReadSharedParts();
        XlsxSheetReader reader(shared_, columns, sink);
        ReadXmlPart(zip_, parts_[static_cast<std::size_t>(found - names_.begin())], reader);
    }

private:
    void ReadSharedParts() {
        if (sharedRead_)
            return;
        StringsReader strings;
        ReadRelated("/sharedStrings", strings);
        shared_.strings = std::move(strings.strings);
        StylesReader styles;
        ReadRelated("/styles", styles);
        shared_.formats = std::move(styles.formats);
        sharedRead_ = true;
    }
    /// Reads the first part of a type, of which a workbook has one, if any.
    void ReadRelated(std::string_view type, XmlReader& reader) const {
        const auto found = std::find_if(relations_.begin(), relations_.end(),
                                        [&](const auto& relation) { return relation.second.type.ends_with(type); });
        if (found != relations_.end())
            ReadXmlPart(zip_, Resolve(main_, found->second.target), reader);
    }

    ZipFile zip_;
    std::string main_;
    Relations relations_;
    std::vector<std::string> names_;
    std::vector<std::string> parts_;
    SharedParts shared_;
    bool sharedRead_ = false;
};

} // namespace

std::unique_ptr<Workbook> OpenXlsx(ZipFile zip) {
    return std::make_unique<Xlsx>(std::move(zip));
}

} // namespace velmora
