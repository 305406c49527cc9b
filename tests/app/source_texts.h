#pragma once

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

/// What stands in the project's own files, for tests that compare them with each other.
inline const QString Folder = QStringLiteral(SOURCE_FOLDER "/../");

inline QString ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

inline QString ReadFiles(const QString& folder, const QString& pattern) {
    QString all;
    QDirIterator files(Folder + folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        all += ReadFile(files.next());
    return all;
}

/// What the group of the pattern catches, each time it matches.
inline QStringList AllOf(const QString& text, const QString& pattern, int group = 1) {
    QStringList found;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text))
        found += match.captured(group).replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    return found;
}
