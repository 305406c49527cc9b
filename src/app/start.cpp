#include "app/start.h"

#include <QDir>

using namespace Qt::StringLiterals;

StartOptions ReadStartOptions(const QStringList& arguments) {
    StartOptions options;
    if (arguments.isEmpty())
        return options;
    options.english = arguments.first() == u"en" || arguments.first() == u"EN";
    if (!options.english)
        options.host = arguments.first();
    return options;
}

QString AnswerOnTerminal(const QString& argument) {
    if (argument == u"--version")
        return u"calvoris " PROGRAM_VERSION "\n"_s;
    if (argument == u"--help")
        return u"Usage: calvoris [SERVER]\n"
               "The client for infrared transceivers: a remote control on the screen, learning of commands, "
               "and\n"
               "the settings of the devices.\n\n"
               "  SERVER     name or address of the device server; this computer if none is given\n"
               "  en, EN     this computer, and English whatever the system says\n"
               "  --help     shows this text\n"
               "  --version  shows the version\n"_s;
    return {};
}

QString FindShippedFiles(const QString& programFolder, const QString& installed) {
    const QDir beside(programFolder);
    const QString elsewhere = QDir::cleanPath(beside.filePath(installed));
    const bool isBeside =
        beside.exists(u"Remote.lyt"_s) || !beside.entryList({u"*.tra"_s}, QDir::Files).isEmpty();
    return isBeside || !QDir(elsewhere).exists() ? programFolder : elsewhere;
}

QStringList ChooseLanguage(Language& language, const QString& folder, const QString& systemLanguage,
                           bool english) {
    QStringList warnings;
    language.word = systemLanguage;
    if (systemLanguage.isEmpty())
        warnings += u"Can not read System language.\nUsing English"_s;
    if (systemLanguage.isEmpty() || english)
        language.word = u"ENGLISH"_s;
    if (language.word == u"German" || language.OpenTranslationFile(folder, language.word))
        return warnings;
    language.word = u"ENGLISH"_s;
    if (!language.OpenTranslationFile(folder, language.word))
        warnings += u"Can not open the language File for "_s + language.word + u"\nUsing German instead"_s;
    return warnings;
}
