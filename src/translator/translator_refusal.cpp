#include "translator/translator_refusal.h"

using namespace Qt::StringLiterals;

namespace {

QString PatternOf(const Language& language, TranslatorRefusal::Reason reason) {
    switch (reason) {
    case TranslatorRefusal::TooManyElements:
        return language.GetLanguageText(u"frmTranslator.TooManyElements"_s,
                                        u"Der Satz hat %c Elemente. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::TooManyRemotes:
        return language.GetLanguageText(u"frmTranslator.TooManyRemotes"_s,
                                        u"Der Satz hat %c Fernbedienungen. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::TooManyGroups:
        return language.GetLanguageText(u"frmTranslator.TooManyGroups"_s,
                                        u"Der Satz hat %c Gruppen. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::TooManyMultis:
        return language.GetLanguageText(u"frmTranslator.TooManyMultis"_s,
                                        u"Der Satz hat %c Shiftkeys. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::TooManySteps:
        return language.GetLanguageText(u"frmTranslator.TooManySteps"_s,
                                        u"%n hat %c Sendebefehle. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::TimeoutTooLong:
        return language.GetLanguageText(u"frmTranslator.TimeoutTooLong"_s,
                                        u"%n hat einen Timeout von %c ms. Höchstens %l sind möglich."_s);
    case TranslatorRefusal::UnknownType:
        return language.GetLanguageText(u"frmTranslator.UnknownType"_s,
                                        u"Element %e des Satzes ist von der unbekannten Art %c."_s);
    case TranslatorRefusal::NoContainer:
        return language.GetLanguageText(u"frmTranslator.NoContainer"_s,
                                        u"Element %e des Satzes (%n) gehört zu keinem anderen."_s);
    case TranslatorRefusal::Twice:
        return language.GetLanguageText(u"frmTranslator.Twice"_s,
                                        u"Element %e des Satzes (%n) ist doppelt."_s);
    case TranslatorRefusal::BackslashInName:
        return language.GetLanguageText(u"frmTranslator.BackslashInName"_s,
                                        u"Element %e des Satzes (%n) hat einen \\ im Namen."_s);
    case TranslatorRefusal::EmptySet:
        return language.GetLanguageText(u"frmTranslator.EmptySet"_s, u"Der Satz ist leer."_s);
    case TranslatorRefusal::PagesMissing: break;
    }
    return language.GetLanguageText(u"frmTranslator.PagesMissing"_s,
                                    u"Der Satz ist unvollständig: Nach Element %e kommt nichts mehr."_s);
}

} // namespace

QString RefusalText(const Language& language, const TranslatorRefusal& refusal) {
    // One walk: a name may hold what looks like a place of its own.
    QString text;
    const QString pattern = PatternOf(language, refusal.reason);
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const QChar place = pattern[at] == u'%' && at + 1 < pattern.size() ? pattern[at + 1] : QChar();
        if (place == u'c')
            text += QString::number(refusal.count);
        else if (place == u'l')
            text += QString::number(refusal.limit);
        else if (place == u'e')
            text += QString::number(refusal.element);
        else if (place == u'n')
            text += refusal.name;
        else {
            text += pattern[at];
            continue;
        }
        ++at;
    }
    return text;
}
