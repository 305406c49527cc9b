#pragma once

#include "link/replies.h"

#include <algorithm>

/// The part of a list that goes into one page: as much as there is from entry `first` on, at most
/// `mostInPage` entries.
inline PageHead MakePageHead(qsizetype total, int first, int mostInPage) {
    const auto whole = int(std::min<qsizetype>(total, 0x7FFF));
    const int count = std::clamp(whole - first, 0, mostInPage);
    const bool more = count > 0 && first + count < whole;
    return {qint16(first), qint16(count), qint16(whole), qint16(more)};
}

/// A page in words.
inline QString DescribePage(const PageHead& head) {
    return QStringLiteral("%1 of %2 entries from %3 on, %4")
        .arg(head.Count)
        .arg(head.Total)
        .arg(head.Offset)
        .arg(head.More ? QLatin1StringView("more follow") : QLatin1StringView("the last"));
}
