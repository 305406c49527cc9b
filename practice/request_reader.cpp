#include "practice/request_reader.h"

#include "practice/request_table.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestLine = 0x10000;

} // namespace

RequestReader::State RequestReader::Next() {
    if (!fault.isEmpty())
        return State::Broken;
    if (!greeted)
        return NextHello();
    if (held.isEmpty())
        return State::NeedsMore;
    return held.startsWith(TextLineMark) ? NextLine() : NextRecord();
}

RequestReader::State RequestReader::NextHello() {
    if (held.size() < Wire::HelloSize)
        return State::NeedsMore;
    const QByteArray hello = held.first(Wire::HelloSize);
    if (Wire::Get<qint32>(hello.data()) != 0)
        return Break(u"hello: the connection began with %1, four bytes of value 0 were expected"_s.arg(
            QLatin1StringView(hello.toHex(' '))));
    greeted = true;
    return Take(Wire::HelloSize, State::Hello);
}

RequestReader::State RequestReader::NextLine() {
    const qsizetype end = held.indexOf('\n');
    if (end >= 0)
        return Take(end + 1, State::Line);
    return held.size() < LongestLine ? State::NeedsMore : Break(u"text line: no line feed ends it"_s);
}

RequestReader::State RequestReader::NextRecord() {
    if (held.size() < BytesToTell(held[0]))
        return State::NeedsMore;
    row = FindRow(held);
    if (!row)
        return Break(
            u"netcommand: %1 is not known, so the length of the record isn't either"_s.arg(quint8(held[0])));
    return held.size() < row->size ? State::NeedsMore : Take(row->size, State::Record);
}

RequestReader::State RequestReader::Take(qsizetype size, State state) {
    current = held.first(size);
    held.remove(0, size);
    return state;
}

RequestReader::State RequestReader::Break(const QString& words) {
    fault = words;
    held.clear();
    return State::Broken;
}
