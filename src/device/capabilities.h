#pragma once

// Room device: what the devices are and how they are set. Includes base, link and language; its upper half
// also forms.

#include <QtGlobal>

/// Bits of `Capabilities` in a device entry. A device that has a bit can do what the bit is named after; some
/// bits mean more on one kind of device or in one of the settings dialogs.
///
///      31           24  23           16  15            8  7             0
///     +---------------+---------------+---------------+---------------+
///     | . . . . . . D A  . f o s . . . .  . L . b 2 . T .  n . x p U S M . |
///     +---------------+---------------+---------------+---------------+
///
/// D and T, the database and the translator, are `StatusStore::HasDatabase` and `StatusStore::HasTranslator`.
namespace Capability {

constexpr quint32 SendMask = 0x00000002;          ///< M: a send mask, and with it the serial bus
constexpr quint32 SerialPort = 0x00000004;        ///< S: RS232
constexpr quint32 UsbWakeup = 0x00000008;         ///< U
constexpr quint32 PowerOn = 0x00000010;           ///< p: a power-on command in spite of NoPowerOn
constexpr quint32 ExternalReceivers = 0x00000020; ///< x: before "5.08.12", codes of 455 kHz
constexpr quint32 NoPowerOn = 0x00000080;         ///< n: no power-on command
/// 2: a second receiver. On network devices it tells a LAN controller.
constexpr quint32 SecondReceiver = 0x00000800;
constexpr quint32 SerialBusSpeed = 0x00001000;         ///< b
constexpr quint32 Leds = 0x00004000;                   ///< L: inner and outer LEDs that can be switched
constexpr quint32 SerialTransceiverSpeed = 0x00100000; ///< s: RS232 speed of a serial transceiver
constexpr quint32 PowerOff = 0x00200000;               ///< o: a power-off command
constexpr quint32 PowerOnToo = 0x00400000;             ///< f: as PowerOn
/// A: RS232 speed and handshake, together with SerialPort. From "5.20.01" on the speed is the auxiliary one.
constexpr quint32 AuxSpeed = 0x01000000;

} // namespace Capability
