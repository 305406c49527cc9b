#include "base/number.h"

#include <algorithm>
#include <cmath>

namespace {

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

struct Scan {
    double value = 0;
    qsizetype length = 0; ///< characters up to the number's end; 0 if there is none
};

Scan ScanNumber(QStringView text) {
    qsizetype at = 0;
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;

    double value = 0;
    bool digits = false;
    for (; at < text.size() && IsDigit(text[at]); ++at, digits = true)
        value = value * 10 + (text[at].unicode() - u'0');
    if (at < text.size() && text[at] == u'.') {
        ++at;
        for (double place = 0.1; at < text.size() && IsDigit(text[at]); ++at, place /= 10, digits = true)
            value += place * (text[at].unicode() - u'0');
    }
    if (!digits)
        return {};
    return {negative ? -value : value, at};
}

} // namespace

double LeadingNumber(QStringView text) {
    return ScanNumber(text).value;
}

std::optional<double> WholeNumber(QStringView text) {
    const Scan scan = ScanNumber(text);
    const auto rest = text.sliced(scan.length);
    if (scan.length == 0 || !std::all_of(rest.begin(), rest.end(), IsBlank))
        return {};
    return scan.value;
}

qint16 RoundToI16(double value) {
    constexpr std::numeric_limits<qint16> Range;
    return static_cast<qint16>(std::nearbyint(std::clamp(value, double(Range.min()), double(Range.max()))));
}

template <std::integral T> std::optional<T> WholeInteger(QStringView text) {
    const auto number = WholeNumber(text);
    if (!number)
        return {};
    const double rounded = std::nearbyint(*number);
    if (rounded < double(std::numeric_limits<T>::min()) || rounded > double(std::numeric_limits<T>::max()))
        return {};
    return static_cast<T>(rounded);
}

template std::optional<qint16> WholeInteger<qint16>(QStringView);
template std::optional<qint32> WholeInteger<qint32>(QStringView);
