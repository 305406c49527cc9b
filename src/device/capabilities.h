#pragma once

#include <QtGlobal>

/// Bits of `Capabilities` in a device entry, each named after what a device with it can do. Some mean more on
/// one kind of device, or in one of the two settings dialogs. The bits of the translator and of the database
/// are `StatusStore::HasTranslator` and `StatusStore::HasDatabase`.
namespace Capability {

constexpr quint32 SendMask = 0x00000002;   ///< and with it the serial bus
constexpr quint32 SerialPort = 0x00000004; ///< RS232
constexpr quint32 UsbWakeup = 0x00000008;
constexpr quint32 PowerOn = 0x00000010;                ///< a power-on command, in spite of NoPowerOn
constexpr quint32 ExternalReceivers = 0x00000020;      ///< before "5.08.12": codes of 455 kHz
constexpr quint32 NoPowerOn = 0x00000080;              ///< no power-on command
constexpr quint32 SecondReceiver = 0x00000800;         ///< on network devices it tells a LAN controller
constexpr quint32 SerialBusSpeed = 0x00001000;         ///< the serial bus has a speed to choose
constexpr quint32 Leds = 0x00004000;                   ///< inner and outer LEDs that can be switched
constexpr quint32 SerialTransceiverSpeed = 0x00100000; ///< RS232 speed of a serial transceiver
constexpr quint32 PowerOff = 0x00200000;               ///< a power-off command
constexpr quint32 PowerOnToo = 0x00400000;             ///< as PowerOn
/// With SerialPort: RS232 speed and handshake. From "5.20.01" on that speed is the auxiliary one.
constexpr quint32 AuxSpeed = 0x01000000;

} // namespace Capability
