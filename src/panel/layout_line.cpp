#include "panel/layout_line.h"

#include "base/blanks.h"
#include "base/number.h"

namespace {

/// Where the value of the first "[key]" begins; -1 if there is none.
qsizetype FindValue(QStringView line, QStringView key) {
    for (auto at = line.indexOf(u'['); at >= 0; at = line.indexOf(u'[', at + 1)) {
        const auto rest = line.sliced(at + 1);
        if (rest.startsWith(key) && rest.sliced(key.size()).startsWith(u']'))
            return at + key.size() + 2;
    }
    return -1;
}

} // namespace

QString GetLayoutValue(QStringView line, QStringView key) {
    const auto at = FindValue(line, key);
    if (at < 0)
        return {};
    const auto rest = line.sliced(at);
    const auto end = rest.indexOf(u'[');
    return TrimLayoutValue(rest.first(end >= 0 ? end : qMin<qsizetype>(rest.size(), LongestLayoutValue)));
}

QString TrimLayoutValue(QStringView value) {
    value = WithoutBlanks(value);
    while (value.endsWith(u'\t'))
        value.chop(1);
    return value.toString();
}

std::optional<LayoutPair> ReadLayoutPair(QStringView value) {
    const auto comma = value.indexOf(u',');
    if (comma < 0)
        return {};
    return LayoutPair{LeadingNumber(value.first(comma)), LeadingNumber(value.sliced(comma + 1))};
}
