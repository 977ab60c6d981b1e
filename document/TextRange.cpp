#include "document/TextRange.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// Moves the texts behind `tab` by `distance` and lets the field grow or shrink with them.
void MoveRest(FieldTexts& field, std::int32_t tab, std::int32_t distance) {
    const std::int32_t end = field.Count();
    if (distance > 0)
        field.Resize(end + distance);
    for (std::int32_t i = end; distance > 0 && i > tab; --i)
        field(i + distance) = std::move(field(i));
    for (std::int32_t i = tab + 1; distance < 0 && i <= end; ++i)
        field(i + distance) = std::move(field(i));
    if (distance < 0)
        field.Resize(end + distance);
}

} // namespace

TextRange Difference(FieldTexts& before, const FieldTexts& after) {
    const std::int32_t shorter = std::min(before.Count(), after.Count());
    TextRange range;
    while (range.first <= shorter && before(range.first) == after(range.first))
        ++range.first;
    std::int32_t same = 0;
    while (shorter - same >= range.first && before(before.Count() - same) == after(after.Count() - same))
        ++same;
    range.count = after.Count() - same - range.first + 1;
    range.texts.reserve(static_cast<std::size_t>(before.Count() - same - range.first + 1));
    for (std::int32_t tab = range.first; tab <= before.Count() - same; ++tab)
        range.texts.push_back(std::move(before(tab)));
    return range;
}

void Exchange(TextRange& range, FieldTexts& field) {
    std::vector<std::string> taken;
    taken.reserve(static_cast<std::size_t>(range.count));
    for (std::int32_t i = 0; i < range.count; ++i)
        taken.push_back(std::move(field(range.first + i)));
    const auto count = static_cast<std::int32_t>(range.texts.size());
    MoveRest(field, range.first + range.count - 1, count - range.count);
    for (std::int32_t i = 0; i < count; ++i)
        field(range.first + i) = std::move(range.texts[static_cast<std::size_t>(i)]);
    range.count = count;
    range.texts = std::move(taken);
}

std::size_t HeapBytes(const std::string& text) {
    return text.capacity() > std::string().capacity() ? text.capacity() + 1 + kBlockBytes : 0;
}

std::size_t HeapBytes(const TextRange& range, const FieldTexts& field) {
    std::size_t held = range.texts.size() * sizeof(std::string) + kBlockBytes;
    for (const std::string& text : range.texts)
        held += HeapBytes(text);
    std::size_t taken = static_cast<std::size_t>(range.count) * sizeof(std::string) + kBlockBytes;
    for (std::int32_t i = 0; i < range.count; ++i)
        taken += HeapBytes(field(range.first + i));
    return std::max(held, taken);
}

} // namespace velmora
