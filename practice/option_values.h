#pragma once

#include <QString>

class QCommandLineParser;

/// Reads the values of options and keeps the first fault, in words that name the option.
class OptionValues {
public:
    /// Both must outlive the reader.
    OptionValues(const QCommandLineParser& parser, QString& error);

    /// The value of an option as a number from 0 to `most`; 0 if it is none.
    int Number(const QString& option, int most);
    int Parse(const QString& option, const QString& text, int most);

    void Fail(const QString& option, const QString& text, const QString& expected);

private:
    const QCommandLineParser& parser;
    QString& error;
};
