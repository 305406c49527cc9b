#include "app/source_texts.h"
#include "language/language.h"

#include "support/suite.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString Literal = u"u\"((?:[^\"\\\\]|\\\\.)*)\""_s;

/// The parts of a message that don't change.
QStringList PartsOf(const QString& message) {
    static const QRegularExpression gap(u"%[0-9a-z]|\\\\n|\\\\\""_s);
    QStringList parts = message.split(gap);
    parts.removeIf([](const QString& part) { return part.trimmed().size() < 3; });
    return parts;
}

} // namespace

/// The guide names captions as they stand on the screen, and tells what to do about every message.
class GuideTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(english.OpenTranslationFile(QStringLiteral(DATA_FOLDER), u"English"_s)); }

    void init() { missing.clear(); }

    void EveryMessageIsExplained() {
        const QString page = ReadFile(Folder + u"docs/troubleshooting.md"_s).simplified();
        QStringList messages;
        const QRegularExpression call(u"GetLanguageText\\(\\s*"_s + Literal + u"_s,\\s*"_s + Literal);
        for (const auto& match : call.globalMatch(source)) {
            const QString key = match.captured(1);
            const bool isCaption = key.contains(QRegularExpression(u"\\.(list\\.\\d|Title|lblPurpose)"_s));
            if (!isCaption)
                messages +=
                    {english.GetLanguageText(key, key), match.captured(2).replace(u"\\\\"_s, u"\\"_s)};
        }
        const QString boxes = u"(?:QMessageBox::\\w+,|ShowOutcome\\(|TellNoDevice\\(| Fail\\()[^;]*;"_s;
        const QString statements =
            AllOf(source + ReadFile(Folder + u"practice/main.cpp"_s), u'(' + boxes + u')').join(u' ');
        messages += AllOf(statements + ReadFiles(u"src/app"_s, u"*.cpp"_s), Literal).filter(u" "_s);
        QVERIFY(messages.size() > 60);
        for (const QString& message : messages)
            for (const QString& part : PartsOf(message))
                if (!page.contains(part.simplified()))
                    missing += message + u" - "_s + part;
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
    }

    void EveryCaptionIsOneOfTheProgram() {
        const QString guide =
            ReadFiles(u"docs"_s, u"*.md"_s).remove(QRegularExpression(u"(?m)^    .*$|`[^`\\n]*`"_s));
        QSet<QString> captions;
        const QString language = ReadFile(QStringLiteral(DATA_FOLDER "/English.tra"));
        for (const QString& text : AllOf(language, u",\"(.*)\""_s) + AllOf(source, Literal))
            captions.insert(text.simplified());
        const QString caption =
            u"(?<![*\\w])\\*([^*\\s](?:[^*]*[^*\\s])?)\\*(?!\\*)(?:\\s+\\(\"([^\"]+)\"\\))?"_s;
        const QStringList named = AllOf(guide, caption) + AllOf(guide, caption, 2);
        QVERIFY(named.size() > 200);
        for (const QString& text : named)
            if (!text.isEmpty() && !captions.contains(text.simplified()))
                missing += text;
        for (const QString& link : AllOf(guide, u"\\]\\(([\\w/-]+\\.\\w+)"_s))
            if (!QFile::exists(Folder + u"docs/"_s + link))
                missing += link;
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
    }

private:
    Language english;
    QStringList missing;
    const QString source = ReadFiles(u"src"_s, u"*.cpp"_s) + ReadFiles(u"src"_s, u"*.h"_s);
};

SUITE(GuideTest);

#include "guide_test.moc"
