#pragma once

#include "link/requests.h"

#include <QStringList>

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

/// Bus, mask and LED of an IR send, such as "all buses, mask FFFF, LED default". Bits that don't fit together
/// are named, not refused.
QString DescribeSendParam(qint32 param);

/// What a text field holds, in quotes; control characters as hexadecimal numbers.
QString Quoted(QStringView text);
