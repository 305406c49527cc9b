#pragma once

// Room link: the wire, the connection and what the replies mean. Includes base; Qt Core and Network.

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <array>
#include <concepts>
#include <span>
#include <type_traits>

/// The one place where wire bytes are put together and taken apart: integers are little-endian, text is
/// single-byte text of code page 1252 in fixed fields.
namespace Wire {

/// How a text stands in its field. A text that is too long is cut at the width of the field.
enum class TextForm {
    Trimmed,  ///< without blanks at both ends, one NUL, blanks up to the width
    PlainNul, ///< the text unchanged, one NUL, blanks up to the width
    Plain,    ///< the text unchanged, blanks up to the width, no NUL
    Zeroed,   ///< the text unchanged, NULs up to the width: the form of replies
};

template <class T>
concept Integer = std::integral<T> || std::is_enum_v<T>;

template <Integer T> void Put(char* at, T value);

template <Integer T> T Get(const char* at);

/// Fills the whole of `field`.
void PutText(std::span<char> field, TextForm form, QStringView text);

/// The text up to the first NUL, or to the end of the field. Blanks are left to the reader of the text.
QString GetText(std::span<const char> field);

} // namespace Wire

template <Wire::Integer T> void Wire::Put(char* at, T value) {
    if constexpr (std::is_enum_v<T>)
        qToLittleEndian(static_cast<std::underlying_type_t<T>>(value), at);
    else
        qToLittleEndian(value, at);
}

template <Wire::Integer T> T Wire::Get(const char* at) {
    if constexpr (std::is_enum_v<T>)
        return static_cast<T>(qFromLittleEndian<std::underlying_type_t<T>>(at));
    else
        return qFromLittleEndian<T>(at);
}

/// A record is one table: its static function `Layout(fields, record)` names every field with its offset,
/// width and form, in the order of the wire. The classes below walk that table; nothing else knows an offset.
///
/// Calls of a layout, all with offsets in bytes from the start of the record:
///   Constant(name, offset, value)            an integer that is always the same; not read when decoding
///   Number(name, offset, field)              an integer in the width of its type
///   Numbers(name, offset, array)             several, one behind the other
///   Text(name, offset, width, form, field)   a QString
///   Texts(name, offset, width, form, array)  several, one behind the other
///   Raw(name, offset, width, fill, field)    a QByteArray; a shorter one is filled up, a longer one cut
class RecordEncoder {
public:
    explicit RecordEncoder(std::span<char> bytes)
        : bytes(bytes) {}

    template <Wire::Integer T> void Constant(const char*, int offset, T value) {
        Wire::Put(bytes.data() + offset, value);
    }
    template <Wire::Integer T> void Number(const char*, int offset, const T& value) {
        Wire::Put(bytes.data() + offset, value);
    }
    template <Wire::Integer T, size_t N>
    void Numbers(const char*, int offset, const std::array<T, N>& values) {
        for (size_t i = 0; i < N; ++i)
            Wire::Put(bytes.data() + offset + i * sizeof(T), values[i]);
    }
    void Text(const char*, int offset, int width, Wire::TextForm form, const QString& text) {
        Wire::PutText(bytes.subspan(offset, width), form, text);
    }
    template <size_t N>
    void Texts(const char*, int offset, int width, Wire::TextForm form, const std::array<QString, N>& texts) {
        for (size_t i = 0; i < N; ++i)
            Wire::PutText(bytes.subspan(offset + i * width, width), form, texts[i]);
    }
    void Raw(const char*, int offset, int width, char fill, const QByteArray& raw);

private:
    std::span<char> bytes;
};

/// Fills the fields of a record from its whole width of bytes.
class RecordDecoder {
public:
    explicit RecordDecoder(std::span<const char> bytes)
        : bytes(bytes) {}

    template <Wire::Integer T> void Constant(const char*, int, T) {}
    template <Wire::Integer T> void Number(const char*, int offset, T& value) {
        value = Wire::Get<T>(bytes.data() + offset);
    }
    template <Wire::Integer T, size_t N> void Numbers(const char*, int offset, std::array<T, N>& values) {
        for (size_t i = 0; i < N; ++i)
            values[i] = Wire::Get<T>(bytes.data() + offset + i * sizeof(T));
    }
    void Text(const char*, int offset, int width, Wire::TextForm, QString& text) {
        text = Wire::GetText(bytes.subspan(offset, width));
    }
    template <size_t N>
    void Texts(const char*, int offset, int width, Wire::TextForm, std::array<QString, N>& texts) {
        for (size_t i = 0; i < N; ++i)
            texts[i] = Wire::GetText(bytes.subspan(offset + i * width, width));
    }
    void Raw(const char*, int offset, int width, char, QByteArray& raw) {
        raw = QByteArray(bytes.data() + offset, width);
    }

private:
    std::span<const char> bytes;
};

/// The bytes of `record`, exactly `Record::Size` of them. Bytes that no field names are 0.
template <class Record> QByteArray Encode(const Record& record) {
    QByteArray bytes(Record::Size, '\0');
    RecordEncoder encoder({bytes.data(), size_t(Record::Size)});
    Record::Layout(encoder, record);
    return bytes;
}

/// The record whose bytes start at `bytes`. `Record::Size` of them must be there.
template <class Record> Record Decode(QByteArrayView bytes) {
    Q_ASSERT(bytes.size() >= Record::Size);
    Record record;
    RecordDecoder decoder({bytes.data(), size_t(Record::Size)});
    Record::Layout(decoder, record);
    return record;
}
