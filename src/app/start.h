#pragma once

// Room app: main, and the one place that knows which menu entry and which reply open which form.

#include "language/language.h"

#include <QStringList>

/// What the command line says. It has at most one argument, the server's host, or "en" or "EN" for English on
/// this host; any other spelling of that is a host.
struct StartOptions {
    QString host = QStringLiteral("localhost");
    bool english = false;
};

/// `arguments` without the program's name. Those behind the first don't count.
StartOptions ReadStartOptions(const QStringList& arguments);

/// What is written to the terminal, instead of any window, if the program's argument is exactly "--help" or
/// "--version"; otherwise empty.
QString AnswerOnTerminal(const QString& argument);

/// The folder of the panel and the language files that ship: `programFolder` if any of them stands there, as
/// in a build folder, else the folder `installed`, which is relative to it, if there is one.
QString FindShippedFiles(const QString& programFolder, const QString& installed);

/// Sets the language in force from what the system reports (empty: nothing) and reads its file in `folder`,
/// with English as the fallback and the built-in German texts as the last one. Gives the warnings to be
/// shown.
QStringList ChooseLanguage(Language& language, const QString& folder, const QString& systemLanguage,
                           bool english);
