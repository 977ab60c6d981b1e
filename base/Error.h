// Errors that a person must see: a text and, where the system knows one, a number.
#pragma once

#include <stdexcept>
#include <string>

namespace velmora {

/// A failure with the text to show and its number (0 where there is none).
class Error : public std::runtime_error {
public:
    explicit Error(const std::string& text, int number = 0) : std::runtime_error(text), number_(number) {}
    int Number() const { return number_; }

private:
    int number_;
};

inline constexpr int kOverflowNumber = 6;
inline constexpr int kSubscriptNumber = 9;
inline constexpr int kTypeMismatchNumber = 13;

/// A result that does not fit the integer type of its calculation.
class OverflowError : public Error {
public:
    OverflowError() : OverflowError("Overflow") {}
    /// With words of its own for the person.
    explicit OverflowError(const std::string& words) : Error(words, kOverflowNumber) {}
};

/// An index outside its array.
class SubscriptError : public Error {
public:
    SubscriptError() : Error("Subscript out of range", kSubscriptNumber) {}
};

/// A text that is not the number or flag it should be.
class TypeMismatchError : public Error {
public:
    TypeMismatchError() : Error("Type mismatch", kTypeMismatchNumber) {}
    /// `what` names the value at fault.
    explicit TypeMismatchError(const std::string& what) : Error("Type mismatch: " + what, kTypeMismatchNumber) {}
};

} // namespace velmora
