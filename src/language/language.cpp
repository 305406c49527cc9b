#include "language/language.h"

#include "base/code_page.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStringTokenizer>

namespace {

constexpr qint64 LargestFile = 0x1000000; ///< 16 MiB

/// Takes the next field and the comma behind it from the front of `line`.
QString TakeField(QStringView& line) {
    while (line.startsWith(u' ') || line.startsWith(u'\t'))
        line = line.sliced(1);
    QString field;
    if (line.startsWith(u'"')) {
        qsizetype at = 1;
        while (at < line.size() && (line[at] != u'"' || line.sliced(at).startsWith(u"\"\""))) {
            field += line[at];
            at += line[at] == u'"' ? 2 : 1;
        }
        line = line.sliced(qMin(at + 1, line.size()));
    } else {
        field = line.first(qMax<qsizetype>(0, line.indexOf(u',') < 0 ? line.size() : line.indexOf(u',')))
                    .trimmed()
                    .toString();
    }
    const auto comma = line.indexOf(u',');
    line = comma < 0 ? QStringView() : line.sliced(comma + 1);
    return field;
}

/// The path of the file `name` in `folder`; empty if there is none. The exact letter case goes first.
QString FindIgnoringCase(const QString& folder, const QString& name) {
    const QDir dir(folder);
    if (dir.exists(name))
        return dir.filePath(name);
    for (const QString& entry : dir.entryList(QDir::Files))
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return dir.filePath(entry);
    return {};
}

} // namespace

bool Language::OpenTranslationFile(const QString& folder, const QString& language) {
    QFile file(FindIgnoringCase(folder, language + QStringLiteral(".tra")));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > LargestFile)
        return false;
    const QString content = DecodeFileText(file.read(file.size()));
    texts.clear();
    for (QStringView line : QStringTokenizer(content, u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const QString key = TakeField(line);
        if (line.isNull() || texts.contains(key))
            continue;
        texts.insert(key, TakeField(line));
    }
    return true;
}

QString Language::GetLanguageText(const QString& key, const QString& builtIn) const {
    return texts.value(key, builtIn);
}

bool Language::IsGerman() const {
    return word == u"German" || word == u"GERMAN";
}

bool Language::IsEnglish() const {
    return word == u"English" || word == u"ENGLISH";
}

QString GetSystemLanguage() {
#ifdef Q_OS_UNIX
    // The language of texts, which need not be the one of numbers that QLocale looks at.
    QString name;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            break;
    }
    const QString locale = name.section(u'.', 0, 0).section(u'@', 0, 0);
    if (locale.isEmpty() || locale == u"C" || locale == u"POSIX")
        return QLocale::languageToString(QLocale::English);
    const auto language = QLocale(locale).language();
#else
    const auto language = QLocale::system().language();
#endif
    return language == QLocale::C ? QString() : QLocale::languageToString(language);
}
