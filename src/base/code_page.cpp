#include "base/code_page.h"

#include <array>

namespace {

/// The characters of bytes 0x80 to 0x9F; all other bytes stand for the character of their own number.
constexpr std::array<char16_t, 32> Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char ToByte(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<char>(unit);
    for (size_t i = 0; i < Upper.size(); ++i)
        if (Upper[i] == unit)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QByteArray ToCodePage(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        bytes.append(ToByte(text[i].unicode()));
    }
    return bytes;
}

QString FromCodePage(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        *out++ = QChar(byte >= 0x80 && byte <= 0x9F ? Upper[byte - 0x80] : char16_t(byte));
    }
    return text;
}

QString DecodeFileText(QByteArrayView bytes) {
    constexpr QByteArrayView Mark("\xEF\xBB\xBF");
    if (bytes.startsWith(Mark))
        return QString::fromUtf8(bytes.sliced(Mark.size()));
    return FromCodePage(bytes);
}
