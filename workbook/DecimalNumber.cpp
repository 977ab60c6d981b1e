#include "workbook/DecimalNumber.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace velmora {

DecimalNumber::DecimalNumber(double value) {
    if (value == 0)
        return;
    std::array<char, 32> text{}; // "1.23456789012345e+308"
    std::snprintf(text.data(), text.size(), "%.14e", value);
    const std::string all(text.data());
    const std::size_t e = all.find('e');
    digits_ = all.substr(0, 1) + all.substr(2, e - 2);
    point_ = std::atoi(all.c_str() + e + 1) + 1;
}

int DecimalNumber::Power() const {
    return digits_.empty() ? 0 : point_ - 1;
}

void DecimalNumber::MultiplyByTenTo(int power) {
    point_ += power;
}

void DecimalNumber::RoundTo(int places) {
    const int kept = point_ + places;
    if (kept >= static_cast<int>(digits_.size()))
        return;
    const bool up = kept >= 0 && DigitAt(kept) >= '5';
    digits_.resize(static_cast<std::size_t>(std::max(kept, 0)));
    if (up)
        Increment();
}

/// One more in the last place.
void DecimalNumber::Increment() {
    while (!digits_.empty() && digits_.back() == '9') // zeros at the end need no place
        digits_.pop_back();
    if (!digits_.empty()) {
        ++digits_.back();
        return;
    }
    digits_.assign(1, '1');
    ++point_;
}

std::string DecimalNumber::Whole() const {
    std::string text;
    for (int i = 0; i < point_ && !digits_.empty(); ++i)
        text += DigitAt(i);
    return text;
}

std::string DecimalNumber::Decimals(int places) const {
    std::string text;
    for (int i = 0; i < places; ++i)
        text += DigitAt(point_ + i);
    return text;
}

char DecimalNumber::DigitAt(int index) const {
    return index >= 0 && index < static_cast<int>(digits_.size()) ? digits_[static_cast<std::size_t>(index)] : '0';
}

} // namespace velmora
