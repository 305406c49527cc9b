#include "app/start.h"
#include "forms/controls.h"
#include "panel/frmRemote.h"
#include "visit/form_catalog.h"

#include "support/suite.h"

#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTabBar>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList KeysOf(const QString& languageFile) {
    QStringList lines = ReadFile(languageFile).split(u'\n', Qt::SkipEmptyParts);
    for (QString& line : lines)
        line = line.section(u'"', 1, 1);
    return lines;
}

/// Keys of texts that code asks for by name.
QSet<QString> KeysInSources() {
    static const QRegularExpression call(u"GetLanguageText\\(\\s*u\"([A-Za-z0-9.]+)\""_s);
    QSet<QString> keys;
    QDirIterator files(QStringLiteral(SOURCE_FOLDER), {u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString source = ReadFile(files.next());
        for (const auto& match : call.globalMatch(source))
            keys.insert(match.captured(1));
    }
    return keys;
}

/// The texts of a window's own controls, as they stand on the screen. What boxes hold to be changed is no
/// text of the window's.
QStringList TextsOf(const QWidget& window) {
    QStringList texts = {window.windowTitle()};
    for (const auto* tabs : window.findChildren<QTabBar*>())
        for (int i = 0; i < tabs->count(); ++i)
            texts += FromMnemonicText(tabs->tabText(i));
    for (const QObject* control : window.findChildren<QObject*>())
        for (const char* property : {"text", "title"}) {
            const QVariant text = control->property(property);
            if (text.isValid() && !control->objectName().isEmpty() && !control->inherits("QLineEdit") &&
                !control->objectName().startsWith(u"qt_"))
                texts += FromMnemonicText(text.toString());
        }
    return texts;
}

/// The entries of a window's lists. Many are numbers, units or names and need no key.
QStringList EntriesOf(const QWidget& window) {
    QStringList entries;
    for (const QComboBox* list : window.findChildren<QComboBox*>())
        for (int i = 0; i < list->count(); ++i)
            entries += list->itemText(i);
    return entries;
}

/// Whether a text is a key of the file. A form may put a number behind it.
bool IsMarked(const QString& text) {
    return text.startsWith(u'<');
}

/// Numbers and signs are the same in every language.
bool HasWords(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

} // namespace

/// A language file whose texts are its keys shows which text of a window comes from which key.
class LanguageWalkTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        keys = KeysOf(QStringLiteral(DATA_FOLDER "/English.tra"));
        QVERIFY(keys.size() > 20);
        QFile marked(folder.filePath(u"ENGLISH.tra"_s));
        QVERIFY(marked.open(QIODevice::WriteOnly));
        for (const QString& key : keys)
            marked.write(u"\"%1\",\"<%1>\"\n"_s.arg(key).toUtf8());
        marked.close();
        QVERIFY(ChooseLanguage(language, folder.path(), u"English"_s, false).isEmpty());
    }

    void EveryTextOfEveryFormHasAKeyAndEveryKeyATaker() {
        Boxes boxes(language);
        const FormServices services{session, language, boxes};
        frmRemote window(services, [] { return QString(); });
        QSet<QString> seen = KeysInSources();
        Take(window, seen, true);
        // These keep their built-in texts in every language.
        const QSet<QString> builtIn = {u"frmAbout"_s, u"frmAnalogIO"_s,    u"frmIRDBStatus"_s,
                                       u"frmLog"_s,   u"frmStartupText"_s, u"frmTranslatorWait"_s};
        for (Form* form : MakeAllForms(services, &window)) {
            Take(*form, seen, !builtIn.contains(form->objectName()));
            delete form;
        }
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
        for (const QString& key : keys)
            QVERIFY2(seen.contains(key), qPrintable(u"nobody looks up "_s + key));
        for (const QString& key : KeysInSources())
            QVERIFY2(keys.contains(key), qPrintable(u"English.tra lacks "_s + key));
    }

private:
    /// Notes the keys whose texts `window` shows. A text that came from no key is one that the file lacks.
    void Take(const QWidget& window, QSet<QString>& seen, bool isTranslated) {
        const QStringList texts = TextsOf(window);
        for (const QString& text : texts + EntriesOf(window))
            if (IsMarked(text))
                seen.insert(text.sliced(1).section(u'>', 0, 0));
        for (const QString& text : texts)
            QVERIFY2(!isTranslated || IsMarked(text) || !HasWords(text),
                     qPrintable(window.objectName() + u": no key for \""_s + text + u'"'));
    }

    QTemporaryDir folder;
    QStringList keys;
    Session session;
    Language language;
};

SUITE(LanguageWalkTest);

#include "language_walk_test.moc"
