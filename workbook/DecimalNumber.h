// A number as spreadsheets show it: its first 15 digits, whatever the binary fraction behind them.
#pragma once

#include <string>

namespace velmora {

class DecimalNumber {
public:
    /// A finite number from 0.
    explicit DecimalNumber(double value);

    /// The power of ten of its first digit; 0 for 0.
    int Power() const;
    void MultiplyByTenTo(int power);
    /// Rounds to `places` behind the point, halves up.
    void RoundTo(int places);
    /// The digits before the point, without leading zeros; empty below 1.
    std::string Whole() const;
    /// The first `places` digits behind the point.
    std::string Decimals(int places) const;

private:
    void Increment();
    char DigitAt(int index) const;

    std::string digits_; ///< no leading zero; empty for 0
    int point_ = 0;      ///< the digits before it
};

} // namespace velmora
