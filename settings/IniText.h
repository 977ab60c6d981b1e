// The text of an INI file in memory, with the behaviour that programs know from the private-profile
// functions: first section and first key of a name win, letter case does not matter, comments and strange
// lines stay where they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The number that a stored text stands for: an optional sign, then decimal digits, or 0x, 0o or 0b and
/// digits of that base; what follows the digits is ignored. 0 where there are none. Wraps at 32 bits, as the
/// functions do.
std::int32_t ProfileInteger(std::string_view text);

/// Works on bytes: the encoding is the caller's affair. Spaces around a name that is asked for are dropped, in the text
/// tabs too. A name that holds "=", "]", a tab at its end, a leading ";" or a line break is written as it comes and
/// read back as what the line then says.
class IniText {
public:
    IniText() = default;
    explicit IniText(std::string_view bytes);

    std::string Bytes() const;

    /// The value without blanks and one pair of quotes around it; the fallback comes without blanks at its end.
    std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback) const;
    /// The fallback also for an empty value.
    std::int32_t ReadInt(std::string_view section, std::string_view key, std::int32_t fallback) const;
    /// The key names of a section, each followed by NUL; where there are none the fallback without blanks at its end.
    std::string ListKeys(std::string_view section, std::string_view fallback = {}) const;
    /// The section names in the same form; empty where there are none.
    std::string ListSections() const;

    /// Sets the key to the value's first line; nullopt removes it. A new key follows the last key of its section, a
    /// new section the end of the text, with CR LF. True when a byte changed.
    bool Write(std::string_view section, std::string_view key, std::optional<std::string_view> value);

private:
    struct Section {
        std::size_t header; ///< index of its line
        std::size_t end;    ///< one past its last line
    };

    std::optional<Section> FindSection(std::string_view name) const;
    std::optional<std::size_t> FindKey(const Section& section, std::string_view key) const;
    std::optional<std::string_view> FindValue(std::string_view section, std::string_view key) const;
    void Insert(std::size_t at, std::string_view text);
    bool Replace(std::size_t line, std::string_view value);

    std::vector<std::string> lines_; ///< each with its line end
};

} // namespace velmora
