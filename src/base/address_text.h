#pragma once

#include <QString>

#include <array>

/// Conversions between the numbers of the wire and the digit texts in which settings keep them.

/// The 16 bits of a port as five digits with leading zeros; -1 gives "65535".
QString PortToText(qint16 port);

/// The number in the first five characters, at most 65535, as 16 bits; no number gives 0.
qint16 TextToPort(QStringView text);

/// The four bytes from the highest down, each as three digits with leading zeros: 12 digits.
QString IPToText(qint32 ip);

/// The reverse: three characters for each byte, the highest first. A group beyond 255 counts as 255, one that
/// is no number as 0.
qint32 TextToIP(QStringView text);

/// Six address bytes from hexadecimal digits, in which ":", "." and "-" don't count. Pairs that are missing
/// or no hexadecimal number are 0.
std::array<quint8, 6> TextToMac(const QString& text);
