#pragma once

// Room language: which language is in force, and its texts. Includes base; Qt Core only.

#include <QHash>
#include <QString>

/// The language in force and the texts that replace the built-in German ones.
///
/// A language file is a list of lines, each with a key and a text separated by a comma. A field in double
/// quotes can hold commas, and a doubled quote in it stands for one; an unquoted field ends at the comma or
/// the end of the line. A line without two fields is skipped. Of several lines with one key the first wins.
/// The file is read in code page 1252, or in UTF-8 if it begins with the byte order mark.
class Language {
public:
    /// The language's English name, such as "German", or "ENGLISH" when that was the fallback.
    QString word = QStringLiteral("German");

    /// Reads the file of `language` in `folder`: its name with the ending ".tra", whatever the letter case.
    /// False if there is none that can be read, or if it is larger than 16 MiB; then nothing changes.
    bool OpenTranslationFile(const QString& folder, const QString& language);

    /// Takes the lines of a language file in place of the texts that there are.
    void TakeTexts(QStringView content);

    /// The text of `key`, which is compared exactly; `builtIn` if no file is open or has no such key.
    QString GetLanguageText(const QString& key, const QString& builtIn) const;

    bool IsGerman() const;
    bool IsEnglish() const;

private:
    QHash<QString, QString> texts;
};

/// The English name of the system's language; empty if the system gives none. The locales C and POSIX, and a
/// system without any locale, count as English.
QString GetSystemLanguage();
