#pragma once

#include <QtGlobal>

/// Neighbouring bits of a number, from bit `lowest` on.
struct BitField {
    int lowest;
    int width;

    constexpr quint32 Mask() const { return ((1U << width) - 1) << lowest; }
    /// What stands in the bits.
    constexpr int Of(quint32 number) const { return int((number & Mask()) >> lowest); }
    /// `value` put into the bits of an empty number; what doesn't fit is cut.
    constexpr quint32 At(int value) const { return quint32(value) << lowest & Mask(); }
};

/// One bit, such as that of an element of a control array.
constexpr BitField Bit(int number) {
    return {number, 1};
}

/// `Mode`: what a device does.
///
///         7        6         5         4          3          2         1         0
///     +--------+--------+--------+-----------+---------+---------+---------+---------+
///     | repeat |  fast  |  RAW   |  remote   | remote  | receive | receive | send IR |
///     |  mode  | control|  mode  |  by SBUS  |  by IR  |  SBUS   |   IR    |         |
///     +--------+--------+--------+-----------+---------+---------+---------+---------+
///
/// From "4.05.01" on bit 6 tells the time-out of repeats; from "5.05.01" on bit 3 has toggle bits ignored.
namespace ModeBits {

constexpr int Count = 8;
constexpr int RemoteByIr = 3;
constexpr int Raw = 5;
constexpr int Fast = 6;

} // namespace ModeBits

/// `ExtMode` of the basic settings.
///
///         7        6         5         4          3          2         1         0
///     +--------+--------+--------+-----------+---------+---------+---------+---------+
///     |  SBUS  | repeat |  self  |  455 kHz  |   HF    | standard|  outer  |  inner  |
///     |  speed | by LEDs| repeat |   codes   | receiver| receiver|  LEDs   |  LEDs   |
///     +--------+--------+--------+-----------+---------+---------+---------+---------+
///
/// From "5.08.12" on bits 2 to 4 also tell of a plasma receiver.
namespace ExtModeBits {

constexpr int Boxes = 7; ///< bits that have a box of their own
constexpr int InnerLeds = 0;
constexpr int OuterLeds = 1;
constexpr int Standard = 2;
constexpr int Hf = 3;
constexpr int Codes455 = 4;
constexpr int SelfRepeat = 5;
constexpr int RepeatByLeds = 6;
constexpr BitField BusSpeed = Bit(7); ///< the serial bus isn't "Classic"

} // namespace ExtModeBits

/// `ExtMode2` of the basic settings.
///
///         7        6         5         4          3          2         1         0
///     +--------+------------------+----------------------+-----------------------------+
///     | RTS/CTS|   RS232 speed    |   SBUS speed - 1     |     receive time-out        |
///     +--------+------------------+----------------------+-----------------------------+
namespace ExtMode2Bits {

constexpr BitField Timeout = {0, 3};
constexpr BitField BusSpeed = {3, 2};
constexpr BitField SerialSpeed = {5, 2};
constexpr BitField RtsCts = Bit(7);

} // namespace ExtMode2Bits

/// `SendMask` of a device with a display.
///
///          10        9        8      7       6       5      4      3           0
///     +---------+----------+-------------+--------------+------+----------------+
///     |  active | inactive | brightness, |  brightness, | time |  date format   |
///     |   off   |   off    |   active    |   inactive   |      |                |
///     +---------+----------+-------------+--------------+------+----------------+
namespace DisplayBits {

constexpr BitField Date = {0, 4};
constexpr BitField Time = Bit(4);
constexpr BitField Inactive = {5, 2};
constexpr BitField Active = {7, 2};
constexpr BitField InactiveOff = Bit(9);
constexpr BitField ActiveOff = Bit(10);

} // namespace DisplayBits
