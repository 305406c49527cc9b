#include "language/language.h"

#include "support/suite.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class LanguageTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        folder = std::make_unique<QTemporaryDir>();
        language = {};
    }

    void Lines() {
        const std::tuple<const char*, QByteArray, QString> rows[] = {
            // what the key k brings
            {"commas in quotes", "\"k,2\",\"x\"\n\"k\",\"a, b\"\n", u"a, b"_s},
            {"doubled quotes", "\"k\",\"say \"\"a\"\"\"\n", u"say \"a\""_s},
            {"unquoted with a quote in it", "k,5\" disk\n", u"5\" disk"_s},
            {"unquoted up to the comma", "k,a,b\n", u"a"_s},
            {"blanks between the fields", "\"k\" , \"a \"\n", u"a "_s},
            {"empty text, and the first one counts", "\"k\",\"\"\n\"k\",\"b\"\n", QString()},
            {"one field", "\"k\"\n\"k\",\"b\"\n", u"b"_s},
            {"empty lines", "\n\r\n\"k\",\"b\"", u"b"_s},
            {"CR LF", "\"a\",\"b\"\r\nk,c\r\n", u"c"_s},
            {"another case", "\"K\",\"1\"\n", u"built in"_s},
            {"blanks in a quoted key", "\" k\",\"1\"\n", u"built in"_s},
            {"quote left open", "\"k\",\"abc\n\"x\",\"y\"\n", u"abc"_s},
            {"only a quote", "\"\n\"k\",\"a\"\n", u"a"_s},
            {"code page", "\"k\",\"\xDC\x80\"\n", u"Ü€"_s},
            {"UTF-8", "\xEF\xBB\xBF\"k\",\"Ω\"\n", u"Ω"_s},
            {"empty file", "", u"built in"_s},
            {"junk", QByteArray("\0\xFF\"\",\"\",,\n\0,\"\"\"", 16).repeated(100) + "\nk,v", u"v"_s},
        };
        for (const auto& [name, file, text] : rows) {
            Write(u"French.tra"_s, file);
            QVERIFY(language.OpenTranslationFile(folder->path(), u"French"_s));
            QVERIFY2(language.GetLanguageText(u"k"_s, u"built in"_s) == text, name);
        }
    }

    void FileNames() {
        Write(u"ENGLISH.TRA"_s, "k,upper");
        QVERIFY(language.OpenTranslationFile(folder->path(), u"English"_s));
        QCOMPARE(language.GetLanguageText(u"k"_s, {}), u"upper"_s);
        Write(u"English.tra"_s, "k,exact");
        QVERIFY(language.OpenTranslationFile(folder->path(), u"English"_s));
        QCOMPARE(language.GetLanguageText(u"k"_s, {}), u"exact"_s);
        Write(u"Englisch.tra"_s, "k,other");
        QVERIFY(!language.OpenTranslationFile(folder->path(), u"Engl"_s));
    }

    /// What can't be read changes nothing, not even what was read before.
    void FilesThatCannotBeRead() {
        Write(u"English.tra"_s, "k,v");
        QVERIFY(language.OpenTranslationFile(folder->path(), u"English"_s));
        Write(u"Large.tra"_s, QByteArray("k,large\n").leftJustified(0x1100000, '\n'));
        QVERIFY(QDir(folder->path()).mkdir(u"Folder.tra"_s));
        for (const QString& name : {u"Large"_s, u"Folder"_s, u"Missing"_s, QString()})
            QVERIFY2(!language.OpenTranslationFile(folder->path(), name), qPrintable(name));
        QVERIFY(!language.OpenTranslationFile(folder->filePath(u"nowhere"_s), u"English"_s));
        QCOMPARE(language.GetLanguageText(u"k"_s, u"built in"_s), u"v"_s);
        // Another language leaves nothing of the last one.
        Write(u"French.tra"_s, "x,y");
        QVERIFY(language.OpenTranslationFile(folder->path(), u"French"_s));
        QCOMPARE(language.GetLanguageText(u"k"_s, u"built in"_s), u"built in"_s);
    }

    void SystemLanguage() {
#ifndef Q_OS_UNIX
        QSKIP("the system doesn't name its language by the environment");
#endif
        const char* variables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
        const QByteArray before[] = {qgetenv("LC_ALL"), qgetenv("LC_MESSAGES"), qgetenv("LANG")};
        const std::pair<QByteArrayList, QString> rows[] = {
            {{"", "", ""}, u"English"_s},
            {{"C.UTF-8", "", "de_DE"}, u"English"_s},
            {{"POSIX", "", ""}, u"English"_s},
            {{"", "", "de_DE@euro"}, u"German"_s},
            {{"", "fr_FR.UTF-8@x", "de_DE"}, u"French"_s},
            {{"de_AT", "fr_FR", "en_US"}, u"German"_s},
            {{"", "", "xx_YY"}, QString()},
        };
        for (const auto& [environment, name] : rows) {
            for (int i = 0; i < 3; ++i)
                qputenv(variables[i], environment[i]);
            const QString found = GetSystemLanguage();
            for (int i = 0; i < 3; ++i)
                qputenv(variables[i], before[i]);
            QCOMPARE(found, name);
        }
    }

private:
    void Write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    std::unique_ptr<QTemporaryDir> folder;
    Language language;
};

SUITE(LanguageTest);

#include "language_test.moc"
