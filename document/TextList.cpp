#include "document/TextList.h"

#include "base/Encoding.h"
#include "base/Text.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace velmora {
namespace {

constexpr std::size_t kLinesForGuess = 20;
constexpr std::size_t kBytesForGuess = 1 << 20; // of them

class ListParser {
public:
    ListParser(std::string_view text, char delimiter) : text_(text), delimiter_(delimiter) {}

    std::vector<std::vector<std::string>> Rows(std::size_t most) {
        std::vector<std::vector<std::string>> rows;
        while (!AtEnd() && rows.size() < most)
            rows.push_back(Row(static_cast<std::size_t>(kMostColumns)));
        return rows;
    }
    bool AtEnd() const { return at_ >= text_.size(); }
    /// The first `most` columns of the next entry.
    std::vector<std::string> Row(std::size_t most) {
        std::vector<std::string> columns;
        for (;;) {
            std::string column = Column();
            if (columns.size() < most)
                columns.push_back(std::move(column));
            if (at_ >= text_.size() || text_[at_] != delimiter_)
                break;
            ++at_;
        }
        if (at_ < text_.size() && text_[at_] == '\r')
            ++at_;
        if (at_ < text_.size() && text_[at_] == '\n')
            ++at_;
        return columns;
    }

private:
    std::string Column() {
        if (std::string text; Quoted(text))
            return text;
        const std::size_t from = at_;
        while (at_ < text_.size() && text_[at_] != delimiter_ && kLineEnd.find(text_[at_]) == std::string_view::npos)
            ++at_;
        return std::string(text_.substr(from, at_ - from));
    }

    /// A column in quotation marks that close before a separator or the line's end.
    bool Quoted(std::string& text) {
        if (at_ >= text_.size() || text_[at_] != '"' || at_ < unclosedBefore_)
            return false;
        for (std::size_t i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != '"')
                text += text_[i];
            else if (i + 1 < text_.size() && text_[i + 1] == '"')
                text += text_[++i];
            else if (!EndsColumn(i + 1))
                return false;
            else {
                at_ = i + 1;
                return true;
            }
        }
        unclosedBefore_ = text_.size(); // nothing closes from here on, so nobody needs to look again
        return false;
    }
    bool EndsColumn(std::size_t at) const {
        return at >= text_.size() || text_[at] == delimiter_ || kLineEnd.find(text_[at]) != std::string_view::npos;
    }

    std::string_view text_;
    char delimiter_;
    std::size_t at_ = 0;
    std::size_t unclosedBefore_ = 0;
};

/// The columns of the narrowest filled line, then of all lines together.
std::pair<std::size_t, std::size_t> Columns(std::string_view text, char delimiter) {
    std::size_t narrowest = std::numeric_limits<std::size_t>::max();
    std::size_t all = 0;
    for (const auto& row : ListParser(text, delimiter).Rows(kLinesForGuess)) {
        if (row.size() == 1 && Trim(row[0]).empty())
            continue;
        narrowest = std::min(narrowest, row.size());
        all += row.size();
    }
    return {narrowest, all};
}

} // namespace

std::vector<ListEncoding> FittingEncodings(std::string_view bytes) {
    if (bytes.starts_with(kUtf16Mark) && FromUtf16(bytes))
        return {ListEncoding::Utf16};
    if (bytes.find('\0') != std::string_view::npos)
        return {};
    if (IsValidUtf8(bytes))
        return {ListEncoding::Utf8, ListEncoding::Windows1252};
    return {ListEncoding::Windows1252};
}

std::string DecodeList(std::string_view bytes, ListEncoding encoding) {
    if (encoding == ListEncoding::Windows1252)
        return FromWindows1252(bytes);
    if (encoding == ListEncoding::Utf16)
        return FromUtf16(bytes.substr(bytes.starts_with(kUtf16Mark) ? kUtf16Mark.size() : 0)).value_or("");
    return IsValidUtf8(bytes) ? Decode(std::string(bytes)).text : "";
}

char GuessDelimiter(std::string_view text) {
    const std::string_view start = text.substr(0, kBytesForGuess);
    char best = ',';
    for (const char candidate : {';', '\t'})
        if (Columns(start, candidate) > Columns(start, best))
            best = candidate;
    return best;
}

std::vector<std::vector<std::string>> ParseTextList(std::string_view text, char delimiter, std::size_t most) {
    return ListParser(text, delimiter).Rows(most);
}

void ReadTextList(std::string_view text, char delimiter, std::size_t mostColumns, const ListRowSink& sink) {
    for (ListParser parser(text, delimiter); !parser.AtEnd();)
        if (!sink(parser.Row(mostColumns)))
            return;
}

} // namespace velmora
