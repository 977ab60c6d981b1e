// The difference between two states of a field's texts, small where little was changed, and what it takes in memory.
#pragma once

#include "document/TabDocument.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

inline constexpr std::size_t kBlockBytes = 16; ///< the allocator's own part of a block

/// Texts that take the place of `count` texts from tab `first` on.
struct TextRange {
    std::int32_t first = 1;
    std::int32_t count = 0;
    std::vector<std::string> texts;

    bool Empty() const { return count == 0 && texts.empty(); }
    bool Fits(const FieldTexts& field) const { return first - 1 + count <= field.Count(); }
};

/// What turns `after` into `before`: all but their common beginning and end. Moves the texts out of `before`.
TextRange Difference(FieldTexts& before, const FieldTexts& after);
/// Puts the range into the field and takes out what stood there, so that the next call does the reverse.
void Exchange(TextRange& range, FieldTexts& field);

/// Outside the string itself, where short texts lie.
std::size_t HeapBytes(const std::string& text);
/// The larger of what the range holds and what it would take out of the field.
std::size_t HeapBytes(const TextRange& range, const FieldTexts& field);

} // namespace velmora
