#pragma once

#include "link/requests.h"

#include <QStringList>

#include <type_traits>
#include <vector>

/// Fourth walker of a record's layout: its fields in words, `name value`, joined by ", ". Numbers that are 0,
/// empty texts and constants are left out.
class RecordDescriber {
public:
    template <Wire::Integer T> void Constant(const char*, int, T) {}
    template <Wire::Integer T> void Number(const char* name, int, const T& value) {
        if (qint64(value) != 0)
            Add(name, QString::number(qint64(value)));
    }
    template <Wire::Integer T, size_t N> void Numbers(const char* name, int, const std::array<T, N>& values) {
        QStringList words;
        for (T value : values)
            words.append(QString::number(qint64(value)));
        if (values != std::array<T, N>{})
            Add(name, words.join(u' '));
    }
    void Text(const char* name, int, int, Wire::TextForm, const QString& text);
    template <size_t N>
    void Texts(const char* name, int, int, Wire::TextForm, const std::array<QString, N>& texts) {
        for (const QString& text : texts)
            Text(name, 0, 0, {}, text);
    }
    void Raw(const char* name, int, int, char, const QByteArray& raw);

    QString Words() const { return words.join(u", "); }

private:
    void Add(const char* name, const QString& value);

    QStringList words;
};

/// Fifth walker: the fields of a record without arrays, each in words.
class FieldLister {
public:
    struct Field {
        QString name;
        QString value;
    };

    /// Hexadecimal, as most of the numbers hold bits.
    template <Wire::Integer T> void Number(const char* name, int, const T& value) {
        const auto digits = QString::number(std::make_unsigned_t<T>(value), 16);
        Add(name, digits.rightJustified(2 * sizeof(T), u'0').toUpper());
    }
    void Text(const char* name, int, int, Wire::TextForm, const QString& text);
    void Raw(const char* name, int, int, char fill, const QByteArray& raw);

    const std::vector<Field>& Fields() const { return fields; }

private:
    void Add(const char* name, const QString& value);

    std::vector<Field> fields;
};

/// The fields that differ, such as "Mode 03 -> 07, HotRemote "tv" -> "amp""; empty if none does.
template <class Record> QString DescribeChanges(const Record& before, const Record& after) {
    FieldLister old;
    FieldLister now;
    Record::Layout(old, before);
    Record::Layout(now, after);
    QStringList words;
    for (size_t i = 0; i < old.Fields().size(); ++i) {
        const FieldLister::Field& was = old.Fields()[i];
        const FieldLister::Field& is = now.Fields()[i];
        if (was.value != is.value)
            words.append(is.name + u' ' + was.value + QStringLiteral(" -> ") + is.value);
    }
    return words.join(QStringLiteral(", "));
}

/// Bus, mask and LED of an IR send, such as "all buses, mask FFFF, LED default". Bits that don't fit together
/// are named, not refused.
QString DescribeSendParam(qint32 param);

/// What a text field holds, in quotes; control characters as hexadecimal numbers.
QString Quoted(QStringView text);
