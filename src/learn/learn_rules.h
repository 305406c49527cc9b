#pragma once

// Room learn: teaching commands to a device. This half includes base and link.

#include "link/replies.h"

#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// The bits that say what learning on a bus can do.
namespace LearnCapability {
// Word A
constexpr qint32 AddressMode = 0x2;
constexpr qint32 ExternalReceivers = 0x20;
constexpr qint32 TwoChannels = 0x800;
// Word B
constexpr qint32 InternalReceivers = 0x80;
constexpr qint32 ExternalOnChannel1 = 0x80'0000;
constexpr qint32 PlasmaOnChannel2 = 0x1000'0000;
// Word C
constexpr qint32 ExternalOnChannel2 = 0x100;
} // namespace LearnCapability

/// One choice of receiver. `map` is what the device gets for it.
///
///     7 6   5   4     3   2 1 0
///     -----------------------------
///     old       chan  ext carrier     old: 64 38 kHz, 128 455 kHz, 192 both (firmware below 5.20.00)
struct Receiver {
    QString label;
    quint8 map = 0;

    bool operator==(const Receiver&) const = default;
};

/// The receivers that learning on this bus can use, in the order of the list.
std::vector<Receiver> ReceiversOf(const BusElement& bus);
/// Which of them the device uses by itself; -1 if it isn't among them.
int DefaultReceiver(const BusElement& bus, const std::vector<Receiver>& receivers);
/// Whether the device learns in B&O mode by itself when it listens with this receiver.
bool DefaultsToBO(const BusElement& bus, quint8 map);

/// A learn mode. Its netcommand is the one that learns.
struct LearnMode {
    QString text;
    Netcommand netcommand{};

    bool operator==(const LearnMode&) const = default;
};

/// The button that Enter presses.
enum class LearnDefault { None, OpenRemote, Timing, Learn };

/// What the controls of the learn dialog hold and which of them can be used. A selection of -1 is none.
struct LearnControls {
    bool busesKnown = false; ///< the list of buses has arrived
    bool learned = false;    ///< the timing of the open remote is known, so that commands can follow

    std::vector<LearnMode> modes;
    int mode = 1;
    std::vector<Receiver> receivers;
    int receiver = -1;
    int calibrations = 4; ///< entries of the list, 2 or 4
    int calibration = -1;
    int tolerance = -1;
    int timeoutCode = 0;
    QString deviceTimeout = QStringLiteral("Default"); ///< text of the first choice of time-out
    int addressMode = 2;                               ///< all, host, local
    bool longPresses = false;
    bool toggle = false;
    bool noSort = false;
    bool bo = false;

    struct Enabled {
        bool remote = false; ///< with busesKnown, disabled means that the server has a remote open
        bool addressMode = false;
        bool address = false;
        bool mode = false;
        bool timing = false;
        bool command = false;
        bool receiver = false;
        bool timeoutCode = false;
        bool tolerance = false;
        bool calibration = false;
        bool waitTime = false;
        bool frequency = false;
        bool longPresses = false;
        bool toggle = false;
        bool noSort = false;
        bool bo = false; ///< also says that the device takes the parameters of firmware 5.20.00 and later
    } enabled;

    bool timingVisible = true;
    std::array<bool, 3> arrows{true, false, false}; ///< beside remote, timing, command
    LearnDefault defaultButton = LearnDefault::OpenRemote;
};

/// @name What follows from what the user or the server does
/// @{
void KnowBuses(LearnControls& controls);
void ChooseBus(LearnControls& controls, const BusElement& bus);
void ChooseReceiver(LearnControls& controls, const BusElement& bus, int receiver);
void ChooseAddressMode(LearnControls& controls, int mode);
/// To be called after whatever changes what can be learned; does nothing while no remote is open. True if the
/// name of the next command is to be typed now.
bool EnableLearn(LearnControls& controls, const BusElement& bus);
/// The server told the state of a remote that is open.
void OpenedRemote(LearnControls& controls, bool learned);
/// The server told that no remote is open.
void ClosedRemote(LearnControls& controls);
/// @}

/// @name What goes out
/// @{
constexpr qint16 LongestWait = 30000; ///< milliseconds

/// Seconds as they were typed, in milliseconds; what is 0 or above LongestWait gives that.
qint16 WaitTime(const QString& seconds);
/// kHz as they were typed or measured; nothing if they don't fit the record, which has room for 0 to 255.
std::optional<quint8> CarrierOf(const QString& text);
/// The byte that says for which devices of the bus the command is; `address` is asked in host mode alone.
quint8 LearnAddress(int addressMode, const QString& address);

/// `bus`: index in the list of buses, 0 to 255.
qint32 LearnParam(const LearnControls& controls, int bus, quint8 address);
qint32 TimingParam(const LearnControls& controls, int bus, quint8 address);
quint8 LearnFlags(const LearnControls& controls);
/// @}
