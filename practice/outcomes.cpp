#include "practice/outcomes.h"

#include "practice/option_values.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// In the order of Outcomes::Learn.
constexpr std::array learnWords = {"succeed"_L1, "fail"_L1, "timeout"_L1};

} // namespace

void AddOutcomeOptions(QCommandLineParser& parser) {
    parser.addOptions({
        {u"learn"_s, u"How learning ends: succeed, fail or timeout."_s, u"end"_s, u"succeed"_s},
        {u"learn-time"_s, u"Learn for <ms> milliseconds."_s, u"ms"_s, QString::number(Outcomes().learnTime)},
        {u"carrier-fails"_s, u"Fail to measure the carrier of a learned code."_s},
        {u"refuse-translator-element"_s,
         u"Refuse element <n> of a translator set, from 0. Can be given often."_s, u"n"_s},
        {u"refuse-database-element"_s,
         u"Refuse element <n> of a database; its settings are 0. Can be given often."_s, u"n"_s},
        {u"translator-flash-fails"_s, u"Fail to flash a translator set."_s},
        {u"database-flash-fails"_s, u"Fail to flash a database."_s},
        {u"page-flash-fails"_s, u"Fail to flash web pages."_s},
        {u"database-words"_s, u"Say that a database needs <n> words of flash memory."_s, u"n"_s},
    });
}

std::optional<Outcomes> ReadOutcomeOptions(const QCommandLineParser& parser, QString& error) {
    error.clear();
    OptionValues values(parser, error);
    Outcomes outcomes;
    const QString learn = parser.value(u"learn"_s);
    const auto word = std::find(learnWords.begin(), learnWords.end(), learn);
    if (word == learnWords.end())
        values.Fail(u"learn"_s, learn, u"succeed, fail or timeout"_s);
    else
        outcomes.learn = Outcomes::Learn(word - learnWords.begin());
    outcomes.learnTime = values.Number(u"learn-time"_s, 3'600'000);
    outcomes.carrierFails = parser.isSet(u"carrier-fails"_s);
    const auto refused = [&](const QString& option) {
        QSet<int> numbers;
        for (const QString& text : parser.values(option))
            numbers.insert(values.Parse(option, text, 0x7FFF));
        return numbers;
    };
    outcomes.refusedTranslatorElements = refused(u"refuse-translator-element"_s);
    outcomes.refusedDatabaseElements = refused(u"refuse-database-element"_s);
    outcomes.translatorFlashFails = parser.isSet(u"translator-flash-fails"_s);
    outcomes.databaseFlashFails = parser.isSet(u"database-flash-fails"_s);
    outcomes.pageFlashFails = parser.isSet(u"page-flash-fails"_s);
    if (parser.isSet(u"database-words"_s))
        outcomes.databaseWords = values.Number(u"database-words"_s, 1'000'000);
    if (!error.isEmpty())
        return {};
    return outcomes;
}
