#include "print/NumberList.h"

#include "base/Error.h"
#include "base/Text.h"

#include <charconv>
#include <optional>

namespace velmora {
namespace {

/// A whole number from 1 at the front of `text`, which is cut off.
std::optional<int> TakeNumber(std::string_view& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 1)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

struct Range {
    int first;
    int last;
};

/// "7" or "1-3"
std::optional<Range> ParseRange(std::string_view text) {
    const auto first = TakeNumber(text);
    auto last = first;
    if (first && text.starts_with('-')) {
        text.remove_prefix(1);
        last = TakeNumber(text);
    }
    if (!last || !text.empty() || *last < *first)
        return std::nullopt;
    return Range{*first, *last};
}

} // namespace

std::vector<int> ParseNumberList(const std::string& list, int most, const ListWords& words) {
    std::vector<int> numbers;
    for (const std::string_view part : Split(list, ',')) {
        const auto range = ParseRange(Trim(part));
        if (!range)
            throw Error("\"" + list + "\" is no list of " + words.one + "s such as 1-3,7");
        if (range->last > most)
            throw Error(words.one + " " + std::to_string(range->last) + " is asked for, the " + words.owner + " has " +
                        std::to_string(most));
        for (int number = range->first; number <= range->last; ++number)
            numbers.push_back(number);
    }
    return numbers;
}

std::string NumberListText(const std::vector<int>& numbers) {
    std::string list;
    for (auto first = numbers.begin(); first != numbers.end();) {
        auto last = first;
        while (last + 1 != numbers.end() && *(last + 1) == *last + 1)
            ++last;
        list += (list.empty() ? "" : ",") + std::to_string(*first);
        if (last != first)
            list += "-" + std::to_string(*last);
        first = last + 1;
    }
    return list;
}

} // namespace velmora
