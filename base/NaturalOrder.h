// The order in which a person lists texts: letters as the locale has them, numbers within the texts by their value.
#pragma once

#include <locale>
#include <string>
#include <string_view>

namespace velmora {

/// The environment's; the classic one where the environment names none that is installed.
std::locale PersonsLocale();

/// A locale that knows bytes alone ("C") orders letters by their codes, whatever their case.
class NaturalOrder {
public:
    explicit NaturalOrder(const std::locale& locale = PersonsLocale());

    /// Compared byte by byte, keys stand as their UTF-8 texts should: "No.9" before "No.10", "7" before "007".
    std::string Key(std::string_view text) const;

private:
    std::locale locale_;
    bool foldsCase_;
};

} // namespace velmora
