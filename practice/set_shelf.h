#pragma once

#include <QByteArrayList>
#include <QStringList>

#include <vector>

/// A translator set or a database, just as it came: the bytes of its records.
struct RecordSet {
    QByteArray settings;     ///< the global record of a database; a translator set has none
    QByteArrayList elements; ///< in the order of the transfer
};

/// Sets under names, in memory. If it has a folder, each set that is stored becomes a file there as well.
class SetShelf {
public:
    /// Widths of the records in bytes; `suffix` is that of the files.
    SetShelf(const QString& suffix, int settingsSize, int elementSize);

    /// Takes the sets of a folder, which is made if it isn't there, and keeps what is stored there from now
    /// on. False if that can't be done, with `error` in words; the shelf then is as it was.
    bool UseFolder(const QString& path, QString& error);

    /// In the order in which they were first stored.
    QStringList Names() const;
    const RecordSet* Find(const QString& name) const;

    /// Stores a set, over one of the same name. False if its file can't be written.
    bool Store(const QString& name, const RecordSet& set);
    void Clear() { sets.clear(); }

private:
    struct Named {
        QString name;
        RecordSet set;
    };

    QString FileOf(const QString& name) const;
    bool Read(const QString& path, RecordSet& set) const;
    void Put(const QString& name, const RecordSet& set);

    QString suffix;
    int settingsSize;
    int elementSize;
    QString folder; ///< empty: in memory only
    std::vector<Named> sets;
};
