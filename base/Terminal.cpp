#include "base/Terminal.h"

#include "base/Encoding.h"

namespace velmora {
namespace {

bool IsLowControl(unsigned char code) {
    return (code < 0x20 && code != '\t' && code != '\n') || code == 0x7F;
}

} // namespace

std::string ForTerminal(std::string_view text) {
    const std::string utf8 = IsValidUtf8(text) ? std::string(text) : FromWindows1252(text);
    std::string shown;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const auto code = static_cast<unsigned char>(utf8[at]);
        const auto next = static_cast<unsigned char>(at + 1 < utf8.size() ? utf8[at + 1] : 0);
        const bool high = code == 0xC2 && next < 0xA0; // U+0080 to U+009F, which some terminals obey too
        if (code == '\r' && next == '\n')
            continue;
        shown += high || IsLowControl(code) ? '?' : utf8[at];
        at += high ? 1 : 0;
    }
    return shown;
}

} // namespace velmora
