#include "learn/code_entry_rules.h"

#include "base/code_page.h"

QString CodeEntry::ToWireText(QStringView typed) {
    QString text;
    text.reserve(typed.size());
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const QChar character = typed[i];
        const bool isPair = character == u'\r' && i + 1 < typed.size() && typed[i + 1] == u'\n';
        if (isPair)
            continue;
        if (character == u'\n' || character == QChar::ParagraphSeparator || character == QChar::LineSeparator)
            text += u"\r\n";
        else
            text += character;
    }
    return text;
}

int CodeEntry::LengthOf(QStringView typed) {
    return int(ToCodePage(ToWireText(typed)).size());
}
