#include "app/source_texts.h"
#include "app/start.h"
#include "forms/controls.h"
#include "panel/frmRemote.h"
#include "visit/form_catalog.h"

#include "support/suite.h"

#include <QComboBox>
#include <QTabBar>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Keys of texts that code asks for by name.
QStringList KeysInSources() {
    return AllOf(ReadFiles(u"src"_s, u"*.cpp"_s), u"GetLanguageText\\(\\s*u\"([A-Za-z0-9.]+)\""_s);
}

struct ShownText {
    QString text;
    QString key; ///< the one that it should come from; of a control array it may lack the index
    bool hasMnemonics = false;
};

/// The texts of a window's own controls. What boxes hold to be changed is no text of the window's.
QList<ShownText> TextsOf(const QWidget& window) {
    QList<ShownText> texts = {{window.windowTitle(), window.objectName()}};
    for (const QObject* control : window.findChildren<QObject*>()) {
        const auto [name, index] = SplitControlName(control->objectName());
        const QString key = window.objectName() + u'.' + name;
        if (const auto* tabs = qobject_cast<const QTabBar*>(control))
            for (int i = 0; i < tabs->count(); ++i)
                texts.append({tabs->tabText(i), key + u".%1"_s.arg(i + 1), true});
        const auto* label = qobject_cast<const QLabel*>(control);
        for (const char* property : {"text", "title"})
            if (const QVariant text = control->property(property); text.isValid() && !name.isEmpty() &&
                                                                   !control->inherits("QLineEdit") &&
                                                                   !name.startsWith(u"qt_"))
                texts.append({text.toString(), key + (index < 0 ? QString() : u".%1"_s.arg(index)),
                              label == nullptr || label->buddy() != nullptr});
    }
    return texts;
}

/// The entries of a window's lists. Many are numbers, units or names and need no key.
QList<ShownText> EntriesOf(const QWidget& window) {
    QList<ShownText> entries;
    for (const QComboBox* list : window.findChildren<QComboBox*>()) {
        const QString key = window.objectName() + u'.' + SplitControlName(list->objectName()).name;
        for (int i = 0; i < list->count(); ++i)
            entries.append({list->itemText(i), key + u".%1"_s.arg(i)});
    }
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
        keys = AllOf(ReadFile(QStringLiteral(DATA_FOLDER "/English.tra")), u"\"([^\"]+)\",\""_s);
        QVERIFY(keys.size() > 20);
        QFile marked(folder.filePath(u"ENGLISH.tra"_s));
        QVERIFY(marked.open(QIODevice::WriteOnly));
        for (const QString& key : keys)
            marked.write(u"\"%1\",\"<%1>&\"\n"_s.arg(key).toUtf8());
        marked.close();
        QVERIFY(ChooseLanguage(language, folder.path(), u"English"_s, false).isEmpty());
    }

    void EveryTextOfEveryFormHasAKeyAndEveryKeyATaker() {
        Boxes boxes(language);
        const FormServices services{session, language, boxes};
        frmRemote window(services, [] { return QString(); });
        const QStringList asked = KeysInSources();
        QSet<QString> seen(asked.begin(), asked.end());
        Take(window, seen, true);
        // These keep their built-in texts in every language.
        const QSet<QString> builtIn = {u"frmAbout"_s, u"frmAnalogIO"_s,    u"frmIRDBStatus"_s,
                                       u"frmLog"_s,   u"frmStartupText"_s, u"frmTranslatorWait"_s};
        for (Form* form : MakeAllForms(services, &window)) {
            Take(*form, seen, !builtIn.contains(form->objectName()));
            delete form;
        }
        QCOMPARE(others, QStringList(u"frmCCF shows frmCCF.TitleCCF"_s));
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
        for (const QString& key : keys)
            QVERIFY2(seen.contains(key), qPrintable(u"nobody looks up "_s + key));
        for (const QString& key : asked)
            QVERIFY2(keys.contains(key), qPrintable(u"English.tra lacks "_s + key));
    }

private:
    /// Notes the keys whose texts `window` shows. A text that came from no key is one that the file lacks.
    void Take(const QWidget& window, QSet<QString>& seen, bool isTranslated) {
        const QList<ShownText> texts = TextsOf(window);
        for (const ShownText& shown : texts + EntriesOf(window))
            if (IsMarked(shown.text)) {
                const QString key = shown.text.sliced(1).section(u'>', 0, 0);
                seen.insert(key);
                if (shown.key != key && !shown.key.startsWith(key + u'.'))
                    others += shown.key + u" shows "_s + key;
                QVERIFY2(shown.text.contains(u"&&") == shown.hasMnemonics, qPrintable(shown.text));
            }
        for (const ShownText& shown : texts)
            QVERIFY2(!isTranslated || IsMarked(shown.text) || !HasWords(shown.text),
                     qPrintable(shown.key + u": no key for \""_s + shown.text + u'"'));
    }

    QTemporaryDir folder;
    QStringList keys;
    QStringList others; ///< texts from a key that isn't their control's
    Session session;
    Language language;
};

SUITE(LanguageWalkTest);

#include "language_walk_test.moc"
