#pragma once

#include <QString>

#include <optional>

/// One line of the panel layout: a run of "[KEY]value" pairs in any order.

/// The longest value behind which no further key stands; what is longer is cut.
constexpr int LongestLayoutValue = 999;

/// The value of the first "[key]" in `line`, trimmed; empty if there is none. It ends at the next "[".
QString GetLayoutValue(QStringView line, QStringView key);

/// Without blanks at both ends and, after that, without tabs at the end.
QString TrimLayoutValue(QStringView value);

/// Two numbers split at the first comma.
struct LayoutPair {
    double first = 0;
    double second = 0;
};

/// The pair that `value` holds; nothing if it has no comma. Each half counts by the number at its start, 0 if
/// there is none.
std::optional<LayoutPair> ReadLayoutPair(QStringView value);
