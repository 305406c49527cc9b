#include "practice/faults.h"

#include "practice/option_values.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

/// "n:k": behind k bytes of answer n.
void ReadCut(const QCommandLineParser& parser, OptionValues& values, const QString& option, Faults::Cut cut,
             Faults& faults) {
    if (!parser.isSet(option))
        return;
    const QStringList parts = parser.value(option).split(u':');
    if (parts.size() != 2)
        return values.Fail(option, parser.value(option), u"two numbers with a colon between them"_s);
    faults.cut = cut;
    faults.cutAnswer = values.Parse(option, parts[0], 1'000'000);
    faults.cutBytes = values.Parse(option, parts[1], 100'000);
}

} // namespace

void AddFaultOptions(QCommandLineParser& parser) {
    parser.addOptions({
        {u"pieces"_s, u"Send answers in pieces of <n> bytes."_s, u"n"_s, u"0"_s},
        {u"delay"_s, u"Wait <ms> milliseconds before each answer."_s, u"ms"_s, u"0"_s},
        {u"refuse"_s, u"Answer <remote/command> with an error. Can be given often."_s, u"remote/command"_s},
        {u"silent"_s, u"Never answer."_s},
        {u"silent-for"_s, u"Never answer <netcommand>. Can be given often."_s, u"netcommand"_s},
        {u"close"_s, u"Close the connection within answer n, behind k bytes."_s, u"n:k"_s},
        {u"reset"_s, u"Drop the connection within answer n, behind k bytes."_s, u"n:k"_s},
        {u"logs"_s, u"Send <n> log replies before each answer."_s, u"n"_s, u"0"_s},
        {u"twice"_s, u"Send each answer twice."_s},
        {u"never-read"_s, u"Leave requests unread."_s},
        {u"filler"_s, u"First four bytes of each binary reply, eight hexadecimal digits."_s, u"hex"_s},
    });
}

std::optional<Faults> ReadFaultOptions(const QCommandLineParser& parser, QString& error) {
    error.clear();
    OptionValues values(parser, error);
    Faults faults;
    faults.pieceSize = values.Number(u"pieces"_s, 100'000);
    faults.delay = values.Number(u"delay"_s, 3'600'000);
    faults.refused = parser.values(u"refuse"_s);
    faults.silent = parser.isSet(u"silent"_s);
    for (const QString& text : parser.values(u"silent-for"_s))
        faults.silentFor.insert(quint8(values.Parse(u"silent-for"_s, text, 255)));
    ReadCut(parser, values, u"close"_s, Faults::Cut::Close, faults);
    ReadCut(parser, values, u"reset"_s, Faults::Cut::Reset, faults);
    faults.logsBefore = values.Number(u"logs"_s, 1000);
    faults.twice = parser.isSet(u"twice"_s);
    faults.neverRead = parser.isSet(u"never-read"_s);
    if (parser.isSet(u"filler"_s)) {
        const QString digits = parser.value(u"filler"_s);
        faults.headerFiller = QByteArray::fromHex(digits.toLatin1());
        // Two asterisks would make a text frame of the reply.
        if (digits.size() != 8 || faults.headerFiller.size() != 4 || faults.headerFiller.startsWith("**"))
            values.Fail(u"filler"_s, digits, u"eight hexadecimal digits that don't begin with 2A2A"_s);
    }
    if (!error.isEmpty())
        return {};
    return faults;
}
