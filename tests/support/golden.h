#pragma once

#include <QByteArrayList>

#include <initializer_list>

/// Whole records of the protocol, byte for byte, put together by hand. They share nothing with the tables
/// that encode and decode records, so they hold those tables to account, for the client and for the practice
/// server. Every field has a value of its own, so that a shifted or swapped field shows.
namespace Golden {

// The notation. It knows bytes, and nothing of fields and offsets.

/// Bytes as pairs of hexadecimal digits, blanks between them.
inline QByteArray Hex(const char* digits) {
    return QByteArray::fromHex(digits);
}
/// The characters themselves, without the NUL at their end.
inline QByteArray Ascii(const char* text) {
    return QByteArray(text);
}
/// One byte, `count` times.
inline QByteArray Fill(int count, char byte) {
    return QByteArray(count, byte);
}
inline QByteArray Join(std::initializer_list<QByteArray> pieces) {
    return QByteArrayList(pieces).join();
}
/// The field of a request: a text and the NUL behind it, filled up with blanks.
inline QByteArray Blanks(const QByteArray& text, int width) {
    return (text + '\0').leftJustified(width, ' ');
}
/// The field of a reply: a text, filled up with NULs.
inline QByteArray Nuls(const QByteArray& text, int width) {
    return text.leftJustified(width, '\0');
}

// Requests.

QByteArray Hello();
QByteArray PressTvPower();    ///< CommandRequest: netcommand 1, "tv", "power", no time-out and no carrier
QByteArray LearnAtLimits();   ///< CommandRequest: extreme numbers, umlauts, a remote of 80 characters
QByteArray SetMode();         ///< ModeRequest for device 7/15
QByteArray LcdText();         ///< LcdRequest
QByteArray SerialText();      ///< SerialRequest
QByteArray StoreCcf();        ///< CodeRequest whose names have blanks at both ends
QByteArray TranslatorMacro(); ///< TranslatorRequest
QByteArray DatabaseGlobal();  ///< IRDBGlobalRecord
QByteArray DatabaseRemote();  ///< IRDBElementRecord of kind 8, number 1
QByteArray DatabaseBinaryAction(); ///< IRDBElementRecord of kind 13, number 2: five bytes of data, NULs in it

// Replies: a whole bare header, else payloads without their header.

QByteArray BareHeader();          ///< 8 bytes, type 4
QByteArray Result();              ///< ResultReply 4/2 with a text
QByteArray LearnedData();         ///< LearnedDataReply
QByteArray Received();            ///< ReceivedReply
QByteArray LearnState();          ///< LearnStateReply
QByteArray NamesPage();           ///< two names from index 40 on, more follow
QByteArray CommandsPage();        ///< three commands from index 200 on, the last ones
QByteArray BusesPage();           ///< two buses
QByteArray TranslatorPage();      ///< one element, `TranslatorMacro`
QByteArray DatabaseElementPage(); ///< `DatabaseRemote` and `DatabaseBinaryAction`
QByteArray ServerVersion();       ///< type 13: 16 bytes
QByteArray DatabaseStatus();      ///< IRDBStatusRecord
QByteArray AnalogPlain();         ///< AnalogReply as a server of plain values fills it
QByteArray AnalogDegrees();       ///< AnalogReply as a server of temperatures fills it
QByteArray Device();              ///< one device entry of the status
QByteArray StatusPage(); ///< buses 8 to 15, `Device` at bus 2, address 5 and at bus 7, address 15 of the page

} // namespace Golden
