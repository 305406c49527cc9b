#pragma once

#include <QSet>
#include <QString>

#include <optional>

class QCommandLineParser;

/// How the work of the practice devices ends. A change takes effect with the next request.
struct Outcomes {
    enum class Learn {
        Succeeds,
        Fails,    ///< after `learnTime`
        TimesOut, ///< after the time-out of the request
    };

    Learn learn = Learn::Succeeds;
    int learnTime = 1200;      ///< milliseconds; a learn whose time-out is shorter times out
    bool carrierFails = false; ///< the carrier can't be measured

    QSet<int> refusedTranslatorElements = {}; ///< from 0
    QSet<int> refusedDatabaseElements = {};   ///< the settings are 0
    bool translatorFlashFails = false;
    bool databaseFlashFails = false;
    bool pageFlashFails = false;
    std::optional<int> databaseWords = {}; ///< memory that a database needs, instead of the measured one
};

/// Adds an option for each outcome.
void AddOutcomeOptions(QCommandLineParser& parser);

/// The outcomes that the command line asks for. Nothing if a value makes no sense; `error` then names the
/// option.
std::optional<Outcomes> ReadOutcomeOptions(const QCommandLineParser& parser, QString& error);
