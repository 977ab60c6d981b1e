// Text files come from two worlds: today's UTF-8 and the Windows-1252 of older machines. Inside the program
// every text is UTF-8; a file keeps the encoding that it came in as long as its texts fit it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"; ///< the byte order mark
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";

enum class Encoding { Utf8, Windows1252 };

/// "UTF-8" or "Windows-1252".
std::string_view EncodingName(Encoding encoding);

struct DecodedText {
    std::string text; ///< UTF-8, without a byte order mark
    Encoding encoding = Encoding::Utf8;
};

/// `c` is a code point other than a surrogate.
void AppendUtf8(std::string& text, char32_t c);
bool IsValidUtf8(std::string_view bytes);

/// UTF-8 where the bytes are valid UTF-8 (a leading byte order mark is dropped), else Windows-1252. The five
/// bytes that Windows-1252 leaves open stand for the control characters of the same number, so that nothing
/// is lost.
DecodedText Decode(std::string bytes);

/// The UTF-8 text of Windows-1252 bytes, with control characters for the five open ones.
std::string FromWindows1252(std::string_view bytes);

/// The bytes of `utf8` in `encoding`; nullopt when a character does not fit it.
std::optional<std::string> Encode(std::string_view utf8, Encoding encoding);

/// The UTF-8 text of UTF-16 bytes, low byte first; a byte order mark is a character like any other. nullopt
/// for half a unit or half a pair of surrogates.
std::optional<std::string> FromUtf16(std::string_view bytes);

/// The way back; nullopt when `utf8` is not valid.
std::optional<std::string> ToUtf16(std::string_view utf8);

} // namespace velmora
