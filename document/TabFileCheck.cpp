#include "document/TabFileCheck.h"

#include "base/Encoding.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "settings/GlobalConfiguration.h"

#include <algorithm>

namespace velmora {
namespace {

class Checker {
public:
    explicit Checker(std::string bytes) {
        const std::size_t size = WithoutEndMarks(bytes).size();
        endMarks_ = size != bytes.size();
        bytes.resize(size);
        text_ = Decode(std::move(bytes)).text;
        lines_ = LineReader(text_);
    }

    std::vector<TabFileProblem> Run() {
        if (CheckVersion()) {
            CheckProperties();
            CheckMargins();
            for (int field = 1; field <= kFieldsPerTab; ++field)
                CheckFont(field);
            CheckTabs();
            if (endMarks_)
                Report("the file ends in an end-of-file mark (0x1A)");
        }
        return std::move(problems_);
    }

private:
    void Report(const std::string& text) { problems_.push_back({line_, text}); }

    bool NextLine(std::string_view& line) {
        ++line_;
        if (!lines_.Next(line))
            return false;
        if (line.find('\0') != std::string_view::npos)
            Report("holds bytes that are no text");
        return true;
    }

    bool CheckVersion() {
        std::string_view line;
        if (!NextLine(line))
            Report("the file is empty");
        else if (!TestVersion8(line))
            Report("is not \"Version 8\"");
        return problems_.empty();
    }

    /// The fields of a header line, filled up with empty ones after a wrong number of them was reported.
    std::vector<std::string_view> HeaderFields(const std::string& what, std::size_t count) {
        std::string_view line;
        if (!NextLine(line)) {
            Report("the " + what + " line is missing");
            return {};
        }
        const int had = CountFields(line);
        if (had != static_cast<int>(count))
            Report("the " + what + " line has " + std::to_string(had) + " values instead of " + std::to_string(count));
        std::vector<std::string_view> fields = Split(line, ',');
        fields.resize(count);
        return fields;
    }

    void CheckValue(const std::string& name, std::string_view value, bool valid) {
        if (!valid)
            Report(name + " \"" + std::string(value) + "\" is not valid");
    }

    void CheckProperties() {
        const auto fields = HeaderFields("document", 4);
        if (fields.empty())
            return;
        CheckValue("stationery type", fields[1], IsStationeryType(fields[1]));
        CheckValue("tab type", fields[2], IsOptType(fields[2]));
        CheckValue("number of fields", fields[3], IsNoOfFields(fields[3]));
        if (IsOptType(fields[2]))
            optType_ = ToInt16(ToDouble(fields[2]));
        if (IsNoOfFields(fields[3]))
            setup_.NoOfFields = std::min<std::int16_t>(3, ToInt16(ToDouble(fields[3])));
        if (optType_ && IsStationeryType(fields[1]) && fields[1].substr(0, 2) != FindTabType(*optType_)->stationery)
            Report("tab type " + std::to_string(*optType_) + " is not on \"" + std::string(fields[1]) +
                   "\" stationery");
    }

    void CheckMargins() {
        const auto fields = HeaderFields("margin", 2);
        for (std::size_t i = 0; i < fields.size(); ++i)
            CheckValue(i == 0 ? "left margin" : "top margin", fields[i], IsNumeric(fields[i]));
    }

    void CheckFont(int field) {
        const std::string name = "field " + std::to_string(field) + " ";
        const auto values = HeaderFields("font", kFontKeys);
        if (values.empty())
            return;
        CheckValue(name + "font name", values[0], IsNotBlank(values[0]));
        CheckValue(name + "font size", values[1],
                   IsFontSize(values[1]) && ToDouble(values[1]) == RoundHalfEven(ToDouble(values[1])));
        CheckValue(name + "bold", values[2], IsFlag(values[2]));
        CheckValue(name + "italic", values[3], IsFlag(values[3]));
        CheckValue(name + "underline", values[4], IsFlag(values[4]));
        CheckValue(name + "horizontal alignment", values[5], IsAlignmentCode(values[5]));
        CheckValue(name + "vertical alignment", values[6], IsAlignmentCode(values[6]));
    }

    void CheckTabs() {
        SetFieldLimits(setup_);
        int tabs = 0;
        for (std::string_view line; NextLine(line); ++tabs)
            CheckTab(line);
        if (!optType_)
            return;
        const int perPage = FindTabType(*optType_)->TabsPerPage();
        if (tabs == 0 || tabs % perPage != 0)
            Report(std::to_string(tabs) + " tabs are no whole number of pages of " + std::to_string(perPage));
        if (tabs > kMostTabs)
            Report(std::to_string(tabs) + " tabs are more than a document can hold");
    }

    void CheckTab(std::string_view line) {
        const std::vector<std::string_view> fields = Split(line, ',');
        if (fields.size() > kFieldsPerTab)
            Report("the tab has " + std::to_string(fields.size()) + " fields instead of " +
                   std::to_string(kFieldsPerTab));
        const std::size_t count = std::min<std::size_t>(fields.size(), static_cast<std::size_t>(setup_.NoOfFields));
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t length = CharacterCount(fields[i]);
            const std::size_t limit = setup_.Limits.Of(static_cast<int>(i));
            if (length > limit)
                Report("field " + std::to_string(i + 1) + " has " + std::to_string(length) +
                       " characters instead of at most " + std::to_string(limit));
        }
    }

    bool endMarks_ = false;
    std::string text_;
    LineReader lines_{""};
    int line_ = 0;
    std::optional<std::int16_t> optType_;
    DocumentSetup setup_; ///< for the limits that go with the number of fields
    std::vector<TabFileProblem> problems_;
};

} // namespace

std::vector<std::int32_t> OverfullLines(const TabFile& file) {
    std::vector<std::int32_t> overfull;
    LineReader lines(file.TabLines());
    std::int32_t number = file.header ? kHeaderLines : 0;
    for (std::string_view line; lines.Next(line);)
        if (++number; CountFields(line) > kFieldsPerTab)
            overfull.push_back(number);
    return overfull;
}

int FieldsInUse(const TabFile& file) {
    int inUse = 1;
    LineReader lines(file.TabLines());
    for (std::string_view line; lines.Next(line);) {
        std::size_t comma = line.find(',');
        for (int field = 2; field <= kFieldsPerTab && comma != std::string_view::npos; ++field) {
            line.remove_prefix(comma + 1);
            comma = line.find(',');
            if (!Trim(line.substr(0, comma)).empty())
                inUse = std::max(inUse, field);
        }
    }
    return inUse;
}

std::vector<TabFileProblem> CheckTabFile(std::string bytes) {
    return Checker(std::move(bytes)).Run();
}

} // namespace velmora
