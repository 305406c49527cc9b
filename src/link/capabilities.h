#pragma once

#include <QString>

// What a device tells of itself in its entry of the status: bits of three words, and a marker in a name.

/// Bits of `Capabilities`, each named after what a device with it can do. Some mean more on one kind of
/// device, or in one of the two settings dialogs.
namespace Capability {

constexpr quint32 SendMask = 0x00000002;   ///< and with it the serial bus
constexpr quint32 SerialPort = 0x00000004; ///< RS232
constexpr quint32 UsbWakeup = 0x00000008;
constexpr quint32 PowerOn = 0x00000010;                ///< a power-on command, in spite of NoPowerOn
constexpr quint32 ExternalReceivers = 0x00000020;      ///< before "5.08.12": codes of 455 kHz
constexpr quint32 NoPowerOn = 0x00000080;              ///< no power-on command
constexpr quint32 Translator = 0x00000200;             ///< has a translator
constexpr quint32 SecondReceiver = 0x00000800;         ///< on network devices it tells a LAN controller
constexpr quint32 SerialBusSpeed = 0x00001000;         ///< the serial bus has a speed to choose
constexpr quint32 Leds = 0x00004000;                   ///< inner and outer LEDs that can be switched
constexpr quint32 SerialTransceiverSpeed = 0x00100000; ///< RS232 speed of a serial transceiver
constexpr quint32 PowerOff = 0x00200000;               ///< a power-off command
constexpr quint32 PowerOnToo = 0x00400000;             ///< as PowerOn
/// With SerialPort: RS232 speed and handshake. From "5.20.01" on that speed is the auxiliary one.
constexpr quint32 AuxSpeed = 0x01000000;
constexpr quint32 Lan = AuxSpeed;            ///< of a translator: LAN is a source and a target
constexpr quint32 Database = 0x02000000;     ///< has a database
constexpr quint32 RelayNumbers = 0x08000000; ///< a translator's relays have numbers
constexpr quint32 Pages = 0x80000000;        ///< serves web pages of its own

} // namespace Capability

/// Bits of `ExtCapabilities`, each named after what a device with it can do, or can't.
///
/// A device has up to three connectors whose use can be chosen: that of the serial bus, the IR input and the
/// IR output.
namespace ExtCapability {

constexpr quint32 InternalReceivers =
    0x00000080;                           ///< the built-in receivers are the only ones but for external ones
constexpr quint32 RtsCts = 0x00000100;    ///< RTS/CTS handshake on the RS232 port
constexpr quint32 TwoRelays = 0x00000200; ///< two of four relays
constexpr quint32 Cycle = 0x00000400;     ///< the duty cycle of the carrier can be chosen
constexpr quint32 BusSend = 0x00000800;   ///< sends on the serial bus
constexpr quint32 FreeUsbWakeup = 0x00002000;  ///< waking by USB can be switched off
constexpr quint32 BusPortUses = 0x00004000;    ///< the bus connector can be a state input
constexpr quint32 BusPortSerial = 0x00010000;  ///< the bus connector can be RS232
constexpr quint32 IrPortSerial = 0x00020000;   ///< IR output and IR input can be RS232 outputs
constexpr quint32 AuxSpeed = 0x00040000;       ///< auxiliary speed, together with ExtCapability2::AuxSpeed
constexpr quint32 Parity = 0x00080000;         ///< parity of the auxiliary port
constexpr quint32 DataBits = 0x00100000;       ///< data and stop bits of the auxiliary port
constexpr quint32 EmulateOutputs = 0x00200000; ///< emulates external outputs
constexpr quint32 IrInputState = 0x00400000;   ///< the IR input can be a state input
constexpr quint32 ExternalFirst = 0x00800000;  ///< the first receiver can be an external one
constexpr quint32 ReceiveBesideInput = 0x01000000; ///< receives IR whatever the IR input is used for
constexpr quint32 BusPortRelay = 0x02000000;       ///< the bus connector is the bus or a relay, nothing else
constexpr quint32 OneExternal = 0x04000000;        ///< only one receiver at a time can be an external one
constexpr quint32 FreeRC5 = 0x08000000;            ///< learns free RC5 timings
constexpr quint32 PlasmaSecond = 0x10000000;       ///< the built-in second receiver is plasma shielded
constexpr quint32 IrInputSerial = 0x40000000;      ///< with IrPortSerial: the IR input can be an RS232 input
constexpr quint32 Udp = 0x80000000;                ///< passes RS232 data on by UDP

} // namespace ExtCapability

/// Bits of `ExtCapabilities2`.
namespace ExtCapability2 {

constexpr quint32 ExternalSecond = 0x00000100; ///< the second receiver is off or an external one
constexpr quint32 AuxSpeed = 0x00000200;       ///< auxiliary speed, together with ExtCapability::AuxSpeed

} // namespace ExtCapability2

/// How `HotRemote2` of a network device begins. `HotCommand2` holds the six bytes of its MAC address then.
inline constexpr QStringView LanMarker = u"@@@~~~LAN~~~@@@";
