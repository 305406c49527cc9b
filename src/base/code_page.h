#pragma once

// Room base: what every other room may use. Includes Qt Core only.

#include <QByteArray>
#include <QString>

/// Windows code page 1252, the character set of the wire, of the panel layout and of the language files.
///
/// The table is our own, so the result doesn't depend on how Qt was built. The five bytes to which the page
/// gives no character (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control character of the same number, so
/// that all 256 byte values survive the way in and out.

/// One byte for each character; a character that the page lacks, a surrogate pair included, becomes "?".
QByteArray ToCodePage(QStringView text);

/// One character for each byte, NULs included.
QString FromCodePage(QByteArrayView bytes);

/// The text of a file: UTF-8 if it begins with the byte order mark of UTF-8, else code page 1252.
QString DecodeFileText(QByteArrayView bytes);
