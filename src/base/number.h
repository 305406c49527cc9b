#pragma once

#include <QStringView>

#include <concepts>
#include <limits>
#include <optional>
#include <utility>

/// Numbers that people or servers wrote as text.
///
/// A number is an optional sign and decimal digits, with or without a fraction behind a dot; blanks and tabs
/// in front of it don't count. An exponent is no part of it. Fractions are rounded to the nearest whole
/// number, a tie to the even one.

/// The number at the start of `text`; what follows it is ignored. No number there gives 0.
double LeadingNumber(QStringView text);

/// The number that `text` as a whole is, blanks and tabs at its end apart; nothing if it isn't one.
std::optional<double> WholeNumber(QStringView text);

/// `value` as the nearest number that fits T.
template <std::integral T, std::integral From> constexpr T Clamp(From value) {
    if (std::cmp_less(value, std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    if (std::cmp_greater(value, std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    return static_cast<T>(value);
}

/// `value` rounded to 16 bits; beyond their range, the end of the range.
qint16 RoundToI16(double value);

/// `text` as a whole number of type T; nothing if it isn't a number or doesn't fit.
template <std::integral T> std::optional<T> WholeInteger(QStringView text);

extern template std::optional<qint16> WholeInteger<qint16>(QStringView);
extern template std::optional<qint32> WholeInteger<qint32>(QStringView);
