#pragma once

#include "device/mode_bits.h"
#include "device/set_modus_ex_state.h"
#include "link/replies.h"

#include <span>

/// Where the extended settings stand in the eleven bytes that the device entry and the mode record share:
///
///                       7         6         5         4         3         2         1         0
///     Mode           chkMode(7) BusSpeed chkMode(5) ------------------------------------ chkMode(0)
///     ExtMode         chkSort  chkExt(6) chkExt(5) chkExt(4)  chkRCV2  chkRCV1  chkExt(1) chkExt(0)
///     ExtMode2        chkRTS    -- RS232 speed --  chkRepeat LongRepeat  ------- cmbTolerance ------
///     Receivers      ------------- cmbReceiver2 -----------  ------------- cmbReceiver1 ------------
///     ReceiveTimeout ------------------------------- txtTimeout ------------------------------------
///     ReceiveTiming  --------- cmbFilter ---------  -- shared speed --  --------- cmbIdle ----------
///     CodeFlags      cmbCycle  RC6Toggle   chkRC6    chkRC5  chkRStep56 RCMMToggle ForceRCMM chkRCMM
///     ToggleConfig  ToggleCount     -     --------------------- txtToggle + 1 ----------------------
///     IOFlags        StateExt. StateInt.  --------- cmbIRInput --------      -     USBWakeup SBUSSend
///     SerialFlags   AuxSpeedHigh IROutRS232 Input   --- cmbParity ---  cmbStopbits cmbDatabits Output
///     ExtFlags           -         -     chkXLong  SpeedHigh Emulate   Inverted   chkUDP   chkRC5free
namespace ModusEx {

enum class Byte {
    Mode,
    ExtMode,
    ExtMode2,
    Receivers,
    ReceiveTimeout,
    ReceiveTiming,
    CodeFlags,
    ToggleConfig,
    IOFlags,
    SerialFlags,
    ExtFlags,
    Count
};

/// Neighbouring bits of one of the bytes.
struct Field {
    Byte byte;
    BitField bits;
};

/// The eleven bytes.
class Bytes {
public:
    Bytes() = default;
    explicit Bytes(const DeviceEntry& entry);

    int Get(Field field) const;
    /// `value` takes the place of what stood in the field; what doesn't fit is cut.
    void Put(Field field, int value);

    void StoreIn(ModeRequest& request) const;

private:
    std::array<quint8, size_t(Byte::Count)> bytes{};
};

/// Whether a control that is disabled has its say in the record.
enum class Sent { Always, IfEnabled };

struct BoxRow {
    Box box;
    Field field;
    Sent sent;
};

/// A list whose field holds the code of its entry.
struct ListRow {
    List list;
    Field field;
    Sent sent;
};

/// The rows by which the state is filled and packed. A box has one row, a list at most one; what stands in no
/// row has a rule.
std::span<const BoxRow> BoxRows();
std::span<const ListRow> ListRows();
Field FieldOf(Box box);
Field FieldOf(List list);

/// @name Fields that have a rule
/// @{
constexpr Field BusSpeedSet = {Byte::Mode, Bit(6)}; ///< the bus has another speed than "Classic"
constexpr Field SharedSpeed = {Byte::ReceiveTiming,
                               {3, 2}};                   ///< speed of the bus, or of what its connector is
constexpr Field InvertedInput = {Byte::ExtFlags, Bit(2)}; ///< with a state input in SharedSpeed
constexpr Field IrInputState = {Byte::IOFlags, {3, 3}};   ///< a state input at the IR input
constexpr Field Rs232OutputOrRelay = {Byte::SerialFlags, Bit(0)};
constexpr Field Rs232Input = {Byte::SerialFlags, Bit(5)};
constexpr Field ReceiveTimeoutMs = {Byte::ReceiveTimeout, {0, 8}};
constexpr Field TogglePosition = {Byte::ToggleConfig, {0, 6}}; ///< plus 1; 0 for none
/// @}

/// Where a speed stands. It is an index from 0 (4800) to 5 (115200): its lower two bits in one field,
/// subtracted from 3 in some, and whether it is 4 or more in another one.
struct SpeedPlace {
    Field low;
    bool isInverted;
    Field high;

    int In(const Bytes& bytes) const;
    void Put(Bytes& bytes, int index) const;
};

/// Of `cmbBaudrate`.
constexpr SpeedPlace PortSpeed = {{Byte::ExtMode2, {5, 2}}, true, {Byte::ExtFlags, Bit(4)}};

/// Of `cmbAuxBaudrate`, as the speed of the RS232 port or in the place that the bus and the state inputs use
/// as well. Whether it is 4 or more stands in one place for both.
constexpr Field AuxSpeedHigh = {Byte::SerialFlags, Bit(7)};
constexpr SpeedPlace AuxInPort = {PortSpeed.low, true, AuxSpeedHigh};
constexpr SpeedPlace AuxInShared = {SharedSpeed, false, AuxSpeedHigh};

} // namespace ModusEx
