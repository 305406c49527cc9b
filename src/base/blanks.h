#pragma once

#include <QStringList>

/// `text` without the blanks (U+0020, no other white space) at its ends.
inline QStringView WithoutBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// The texts without the blanks at their ends.
inline QStringList WithoutBlanks(QStringList texts) {
    for (QString& text : texts)
        text = WithoutBlanks(QStringView(text)).toString();
    return texts;
}
