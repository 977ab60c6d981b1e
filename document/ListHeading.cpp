#include "document/ListHeading.h"

#include "base/Text.h"

#include <algorithm>
#include <cctype>
#include <span>

namespace velmora {
namespace {

using Row = std::vector<std::string>;

constexpr std::size_t kFewestBelow = 2;

/// In small letters, English and Afrikaans.
constexpr std::string_view kNames[] = {
    "name",   "surname", "first name", "firstname",   "last name", "lastname", "initials", "title", "client",
    "number", "no",      "no.",        "nr",          "nr.",       "id",       "code",     "file",  "file no",
    "year",   "month",   "date",       "account",     "reference", "ref",      "address",  "phone", "email",
    "naam",   "van",     "voornaam",   "voorletters", "titel",     "kliënt",   "nommer",   "kode",  "lêer",
    "jaar",   "maand",   "datum",      "rekening",    "verwysing", "adres",    "telefoon", "e-pos"};
/// That stand between such names.
constexpr std::string_view kBetween[] = {"", "and", "or", "of", "en", "&", "/", "-"};

bool HasDigit(std::string_view text) {
    return text.find_first_of("0123456789") != std::string_view::npos;
}

/// Every byte of a letter beyond the English ones counts.
bool HasLetter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0 || c > 127; });
}

bool IsOneOf(std::span<const std::string_view> words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Also several in one cell, and nothing else: "Client Name", "Surname and initials".
bool IsUsualName(std::string_view text) {
    const std::string name = FoldCase(Trim(text));
    if (IsOneOf(kNames, name))
        return true;
    const auto words = Split(name, ' ');
    return words.size() > 1 && IsOneOf(kNames, words.front()) &&
           std::all_of(words.begin(), words.end(),
                       [](std::string_view word) { return IsOneOf(kNames, word) || IsOneOf(kBetween, word); });
}

bool StandsAboveNumbers(const std::vector<Row>& rows, std::size_t column) {
    if (HasDigit(rows[0][column]))
        return false;
    std::size_t below = 0;
    for (auto row = rows.begin() + 1; row != rows.end(); ++row) {
        const std::string_view text = column < row->size() ? Trim((*row)[column]) : "";
        if (!text.empty() && !HasDigit(text))
            return false;
        below += text.empty() ? 0 : 1;
    }
    return below >= kFewestBelow;
}

} // namespace

bool LooksLikeHeading(const std::vector<Row>& rows) {
    bool found = false;
    for (std::size_t column = 0; rows.size() > 1 && column < rows[0].size(); ++column) {
        const std::string_view text = Trim(rows[0][column]);
        if (text.empty())
            continue;
        if (!HasLetter(text))
            return false;
        found = found || IsUsualName(text) || StandsAboveNumbers(rows, column);
    }
    return found;
}

} // namespace velmora
