#pragma once

#include <QStringView>

/// `text` without the blanks (U+0020, no other white space) at its ends.
inline QStringView WithoutBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}
