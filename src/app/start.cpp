#include "app/start.h"

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
