#pragma once

#include <QByteArray>
#include <QSet>
#include <QStringList>

#include <optional>

class QCommandLineParser;

/// What the server does wrong on purpose. All of it is off at first; a change takes effect with the next
/// answer, that of `neverRead` with the next connection.
struct Faults {
    enum class Cut {
        None,
        Close, ///< the connection ends in order
        Reset, ///< the connection is dropped; the system tells the client as it sees fit
    };

    int pieceSize = 0;            ///< bytes sent in one turn of the event loop; 0: all at once
    int delay = 0;                ///< milliseconds before each answer
    QStringList refused = {};     ///< commands that can't be sent, "remote/command"
    bool silent = false;          ///< nothing is ever answered
    QSet<quint8> silentFor = {};  ///< netcommands that are never answered
    Cut cut = Cut::None;          ///< what happens in the middle of an answer
    int cutAnswer = 1;            ///< ... of the answer of this number, from 1 on each connection
    int cutBytes = 0;             ///< ... behind this many of its bytes
    int logsBefore = 0;           ///< log replies before each answer
    bool twice = false;           ///< each answer is sent twice
    bool neverRead = false;       ///< requests stay in the connection
    QByteArray headerFiller = {}; ///< four bytes for the head of each binary reply; empty: zeros
};

/// Adds an option for each fault.
void AddFaultOptions(QCommandLineParser& parser);

/// The faults that the command line asks for. Nothing if a value makes no sense; `error` then names the
/// option.
std::optional<Faults> ReadFaultOptions(const QCommandLineParser& parser, QString& error);
