#pragma once

// Practice server: a program of its own beside the client. Includes base and link; Qt Core and Network.

#include "link/requests.h"

#include <QStringList>

#include <vector>

/// Third walker of a record's layout: holds the bytes of a request to the table and says in words what is
/// wrong, such as
///   CommandRequest: field "remote" (offset 12): byte 17 is 0x00 behind the NUL, a blank was expected
/// Byte numbers count from the start of the record. Bytes that no field names must be 0.
class RecordChecker {
public:
    /// `used` is the number of bytes of the raw field in use, behind which only filling stands; below 0 for a
    /// record without one. With `flagByte` the first byte of the field "remote" is a number and may be
    /// anything.
    RecordChecker(const char* record, QByteArrayView bytes, int used, bool flagByte);

    template <Wire::Integer T> void Constant(const char* name, int offset, T value) {
        Cover(offset, sizeof(T));
        const T found = Wire::Get<T>(bytes.data() + offset);
        if (found != value)
            Add(QLatin1StringView(name), offset,
                QStringLiteral("%1 was found, %2 was expected").arg(qint64(found)).arg(qint64(value)));
    }
    template <Wire::Integer T> void Number(const char*, int offset, const T&) { Cover(offset, sizeof(T)); }
    template <Wire::Integer T, size_t N> void Numbers(const char*, int offset, const std::array<T, N>&) {
        Cover(offset, sizeof(T) * N);
    }
    void Text(const char* name, int offset, int width, Wire::TextForm form, const QString&);
    template <size_t N>
    void Texts(const char* name, int offset, int width, Wire::TextForm form, const std::array<QString, N>&) {
        for (int i = 0; i < int(N); ++i)
            CheckText(QStringLiteral("%1(%2)").arg(QLatin1StringView(name)).arg(i), offset + i * width, width,
                      form);
    }
    void Raw(const char* name, int offset, int width, char fill, const QByteArray&);

    /// All faults, one for each field; empty for a good record. To be called behind the layout.
    QStringList Finish();

private:
    void Cover(int offset, int width);
    void CheckText(const QString& name, int offset, int width, Wire::TextForm form);
    void CheckFill(const QString& name, int offset, int from, int width, char fill, const QString& where);
    void Add(const QString& field, int offset, const QString& fault);

    QLatin1StringView record;
    QByteArrayView bytes;
    int used;
    bool flagByte;
    std::vector<bool> covered;
    QStringList faults;
};

/// Bytes of the raw field in use.
template <class Record> int UsedBytes(const Record&) {
    return -1;
}
int UsedBytes(const SerialRequest& request);
int UsedBytes(const IRDBElementRecord& element);

/// Faults in the values themselves.
template <class Record> QStringList ValueFaults(const Record&) {
    return {};
}
QStringList ValueFaults(const CommandRequest& request);
QStringList ValueFaults(const IRDBElementRecord& element);

/// All that is wrong with the `Record::Size` bytes of a request; empty if nothing is.
template <class Record> QStringList CheckRecord(QByteArrayView bytes, bool flagByte = false) {
    const Record record = Decode<Record>(bytes);
    RecordChecker checker(Record::Name, bytes.first(Record::Size), UsedBytes(record), flagByte);
    Record::Layout(checker, record);
    return checker.Finish() + ValueFaults(record);
}
