#include "practice/set_shelf.h"

#include <QDir>
#include <QSaveFile>
#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

SetShelf::SetShelf(const QString& suffix, int settingsSize, int elementSize)
    : suffix(suffix)
    , settingsSize(settingsSize)
    , elementSize(elementSize) {}

bool SetShelf::UseFolder(const QString& path, QString& error) {
    const QDir dir(path);
    if (!dir.mkpath(u"."_s)) {
        error = u"the folder %1 can't be made"_s.arg(path);
        return false;
    }
    std::vector<Named> found;
    for (const QString& file : dir.entryList({u'*' + suffix}, QDir::Files, QDir::Name)) {
        Named named{QUrl::fromPercentEncoding(file.chopped(suffix.size()).toUtf8()), {}};
        if (!Read(dir.filePath(file), named.set)) {
            error = u"the file %1 can't be read or holds no whole set"_s.arg(dir.filePath(file));
            return false;
        }
        found.push_back(named);
    }
    folder = path;
    for (const Named& named : found)
        Put(named.name, named.set);
    return true;
}

QStringList SetShelf::Names() const {
    QStringList names;
    for (const Named& named : sets)
        names.append(named.name);
    return names;
}

const RecordSet* SetShelf::Find(const QString& name) const {
    const auto found = std::find_if(sets.begin(), sets.end(), [&](const Named& n) { return n.name == name; });
    return found == sets.end() ? nullptr : &found->set;
}

bool SetShelf::Store(const QString& name, const RecordSet& set) {
    if (!folder.isEmpty()) {
        QSaveFile file(FileOf(name));
        const QByteArray bytes = set.settings + set.elements.join();
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
            return false;
    }
    Put(name, set);
    return true;
}

QString SetShelf::FileOf(const QString& name) const {
    // A name may hold anything, also what would lead to another folder.
    const QByteArray encoded = QUrl::toPercentEncoding(name, {}, ".");
    return QDir(folder).filePath(QString::fromLatin1(encoded) + suffix);
}

bool SetShelf::Read(const QString& path, RecordSet& set) const {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    set.settings = file.read(settingsSize);
    if (set.settings.size() != settingsSize || (file.size() - settingsSize) % elementSize != 0)
        return false;
    for (QByteArray element = file.read(elementSize); !element.isEmpty(); element = file.read(elementSize))
        set.elements.append(element);
    return true;
}

void SetShelf::Put(const QString& name, const RecordSet& set) {
    const auto known = std::find_if(sets.begin(), sets.end(), [&](const Named& n) { return n.name == name; });
    if (known == sets.end())
        sets.push_back({name, set});
    else
        known->set = set;
}
