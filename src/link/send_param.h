#pragma once

#include <QtGlobal>

/// `SendParam`, the 32 bits that go with every IR send and say which devices and outputs it is for:
///
///     31 30 29..27 26....19 18 17 16 15............0
///      |  |   |       |       |    |        `- send mask
///      |  |   |       |       |    `- the mask and the bus are to be honoured
///      |  |   |       |       `- LED selection, low form
///      |  |   |       `- bus number
///      |  |   `- extended LED selection
///      |  `- all buses
///      `- the extended LED selection is in use
namespace SendParam {

constexpr quint32 MaskBits = 0x0000FFFF;
constexpr quint32 UseMaskAndBus = 0x00010000;
constexpr quint32 LedLowBits = 0x00060000;
constexpr int LedLowShift = 17;
constexpr quint32 BusBits = 0x07F80000;
constexpr int BusShift = 19;
constexpr quint32 LedExtendedBits = 0x38000000;
constexpr int LedExtendedShift = 27;
constexpr quint32 AllBuses = 0x40000000;
constexpr quint32 UseLedExtended = 0x80000000;

constexpr int AllBusesNumber = 255; ///< the bus number that people write for all buses

/// The bits of a bus number.
constexpr quint32 BusBitsOf(qint32 number) {
    return number == AllBusesNumber ? AllBuses : quint32(number) << BusShift;
}

/// The bits of an LED number: 0 default, 1 internal, 2 external, 3 all, 4 and up the outputs 1 to 16.
constexpr quint32 LedBits(qint32 number) {
    if (number <= 3)
        return (quint32(number) & 3) << LedLowShift;
    const auto output = quint32(number - 4);
    const quint32 bits = UseLedExtended | (output & 7) << LedExtendedShift;
    return output > 7 ? bits | ((output & 24) / 8 & 3) << LedLowShift : bits;
}

} // namespace SendParam
