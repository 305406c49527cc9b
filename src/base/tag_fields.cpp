#include "base/tag_fields.h"

#include "base/number.h"

QString TagField(QStringView tag, int n) {
    for (; n > 1; --n) {
        const auto end = tag.indexOf(TagSeparator);
        if (end < 0)
            return {};
        tag = tag.sliced(end + 1);
    }
    const auto end = tag.indexOf(TagSeparator);
    return (end < 0 ? tag : tag.first(end)).toString();
}

qint32 TagNumber(QStringView tag, int n) {
    constexpr std::numeric_limits<qint32> Range;
    return qint32(qBound(double(Range.min()), LeadingNumber(TagField(tag, n)), double(Range.max())));
}
