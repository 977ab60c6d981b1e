// Texts in a narrow label: a path or a text without blanks has no place where it may be broken.
#pragma once

#include <QString>

namespace velmora {

/// With such places, which are not seen, in words that a narrow label has no room for.
inline QString Breakable(const QString& text) {
    constexpr qsizetype kUnbroken = 12; // characters
    constexpr QChar kZeroWidthSpace(0x200b);
    QString broken;
    qsizetype since = 0;
    for (const QChar character : text) {
        since = character.isSpace() ? 0 : since + 1;
        broken += character;
        if (since % kUnbroken == kUnbroken - 1 && !character.isHighSurrogate())
            broken += kZeroWidthSpace;
    }
    return broken;
}

} // namespace velmora
