#include "practice/option_values.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

OptionValues::OptionValues(const QCommandLineParser& parser, QString& error)
    : parser(parser)
    , error(error) {}

int OptionValues::Number(const QString& option, int most) {
    return Parse(option, parser.value(option), most);
}

int OptionValues::Parse(const QString& option, const QString& text, int most) {
    bool ok = false;
    const int value = text.toInt(&ok);
    if (ok && value >= 0 && value <= most)
        return value;
    Fail(option, text, u"a number from 0 to %1"_s.arg(most));
    return 0;
}

void OptionValues::Fail(const QString& option, const QString& text, const QString& expected) {
    if (error.isEmpty())
        error = u"--%1: \"%2\" is not %3"_s.arg(option, text, expected);
}
