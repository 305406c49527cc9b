#pragma once

#include <QString>

/// Texts of several fields, separated by a backslash, in which the nodes of a tree keep their data.

constexpr QChar TagSeparator = u'\\';

/// Field `n` of `tag`, counted from 1; empty if the tag has fewer.
QString TagField(QStringView tag, int n);

/// The number at the start of field `n`, without its fraction, as the nearest one of 32 bits; 0 if there is
/// none.
qint32 TagNumber(QStringView tag, int n);
