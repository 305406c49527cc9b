#include "base/address_text.h"

#include "base/number.h"

#include <algorithm>

namespace {

/// The number in `width` characters of `text` from `at`, at most `largest`.
quint32 Group(QStringView text, qsizetype at, qsizetype width, double largest) {
    if (at >= text.size())
        return 0;
    return quint32(
        std::clamp(LeadingNumber(text.sliced(at, std::min(width, text.size() - at))), 0.0, largest));
}

QString Digits(quint32 number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

} // namespace

QString PortToText(qint16 port) {
    return Digits(quint16(port), 5);
}

qint16 TextToPort(QStringView text) {
    return qint16(Group(text, 0, 5, 65535));
}

QString IPToText(qint32 ip) {
    QString text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += Digits(quint32(ip) >> shift & 255, 3);
    return text;
}

qint32 TextToIP(QStringView text) {
    quint32 ip = 0;
    for (qsizetype at = 0; at < 12; at += 3)
        ip = ip << 8 | Group(text, at, 3, 255);
    return qint32(ip);
}

std::array<quint8, 6> TextToMac(const QString& text) {
    const QString digits = QString(text).remove(u':').remove(u'.').remove(u'-');
    std::array<quint8, 6> mac{};
    for (size_t i = 0; i < mac.size(); ++i)
        mac[i] = quint8(digits.mid(qsizetype(i) * 2, 2).toUShort(nullptr, 16));
    return mac;
}
