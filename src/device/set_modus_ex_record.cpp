#include "device/set_modus_ex_record.h"

#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"

#include <algorithm>

namespace ModusEx {

namespace {

using enum Byte;
using enum Sent;

constexpr BoxRow boxRows[] = {
    {Box::Mode0, {Mode, Bit(0)}, Always},
    {Box::Mode1, {Mode, Bit(1)}, Always},
    {Box::Mode2, {Mode, Bit(2)}, Always},
    {Box::Mode3, {Mode, Bit(3)}, Always},
    {Box::Mode4, {Mode, Bit(4)}, Always},
    {Box::Mode5, {Mode, Bit(5)}, Always},
    {Box::Mode7, {Mode, Bit(7)}, Always},
    {Box::Ext0, {ExtMode, Bit(0)}, IfEnabled},
    {Box::Ext1, {ExtMode, Bit(1)}, IfEnabled},
    {Box::RCV1, {ExtMode, Bit(2)}, Always},
    {Box::RCV2, {ExtMode, Bit(3)}, IfEnabled},
    {Box::Ext4, {ExtMode, Bit(4)}, IfEnabled},
    {Box::Ext5, {ExtMode, Bit(5)}, IfEnabled},
    {Box::Ext6, {ExtMode, Bit(6)}, IfEnabled},
    {Box::Sort, {ExtMode, Bit(7)}, Always},
    {Box::LongRepeat, {ExtMode2, Bit(3)}, Always},
    {Box::Repeat, {ExtMode2, Bit(4)}, Always},
    {Box::RTS, {ExtMode2, Bit(7)}, IfEnabled},
    {Box::RCMM, {CodeFlags, Bit(0)}, Always},
    {Box::ForceRCMM, {CodeFlags, Bit(1)}, Always},
    {Box::RCMMToggle, {CodeFlags, Bit(2)}, Always},
    {Box::RStep56, {CodeFlags, Bit(3)}, Always},
    {Box::RC5, {CodeFlags, Bit(4)}, Always},
    {Box::RC6, {CodeFlags, Bit(5)}, Always},
    {Box::RC6Toggle, {CodeFlags, Bit(6)}, Always},
    {Box::SBUSSend, {IOFlags, Bit(0)}, IfEnabled},
    {Box::USBWakeup, {IOFlags, Bit(1)}, IfEnabled},
    {Box::StateInternal, {IOFlags, Bit(6)}, IfEnabled},
    {Box::StateExternal, {IOFlags, Bit(7)}, IfEnabled},
    {Box::IROutRS232, {SerialFlags, Bit(6)}, Always},
    {Box::RC5free, {ExtFlags, Bit(0)}, IfEnabled},
    {Box::UDP, {ExtFlags, Bit(1)}, Always},
    {Box::EmulateExternal, {ExtFlags, Bit(3)}, IfEnabled},
    {Box::XLong, {ExtFlags, Bit(5)}, IfEnabled},
};

constexpr ListRow listRows[] = {
    {List::Tolerance, {ExtMode2, {0, 3}}, Always},
    {List::Receiver1, {Receivers, {0, 4}}, Always},
    {List::Receiver2, {Receivers, {4, 4}}, IfEnabled},
    {List::Idle, {ReceiveTiming, {0, 3}}, Always},
    {List::Filter, {ReceiveTiming, {5, 3}}, Always},
    {List::Cycle, {CodeFlags, Bit(7)}, IfEnabled},
    {List::ToggleCount, {ToggleConfig, Bit(7)}, IfEnabled},
    {List::Databits, {SerialFlags, Bit(1)}, IfEnabled},
    {List::Stopbits, {SerialFlags, Bit(2)}, IfEnabled},
    {List::Parity, {SerialFlags, {3, 2}}, IfEnabled},
};

static_assert(std::size(boxRows) == size_t(Box::Count));

} // namespace

Bytes::Bytes(const DeviceEntry& entry)
    : bytes{entry.Mode,           entry.ExtMode,       entry.ExtMode2,  entry.Receivers,
            entry.ReceiveTimeout, entry.ReceiveTiming, entry.CodeFlags, entry.ToggleConfig,
            entry.IOFlags,        entry.SerialFlags,   entry.ExtFlags} {}

int Bytes::Get(Field field) const {
    return field.bits.Of(bytes[size_t(field.byte)]);
}

void Bytes::Put(Field field, int value) {
    quint8& byte = bytes[size_t(field.byte)];
    byte = quint8((byte & ~field.bits.Mask()) | field.bits.At(value));
}

void Bytes::StoreIn(ModeRequest& request) const {
    request.Mode = bytes[size_t(Mode)];
    request.ExtMode = bytes[size_t(ExtMode)];
    request.ExtMode2 = bytes[size_t(ExtMode2)];
    std::copy(bytes.begin() + size_t(Receivers), bytes.end(), request.ExtParam.begin());
}

std::span<const BoxRow> BoxRows() {
    return boxRows;
}

std::span<const ListRow> ListRows() {
    return listRows;
}

Field FieldOf(Box box) {
    return std::ranges::find(boxRows, box, &BoxRow::box)->field;
}

Field FieldOf(List list) {
    const auto* row = std::ranges::find(listRows, list, &ListRow::list);
    Q_ASSERT(row != std::end(listRows));
    return row->field;
}

int SpeedPlace::In(const Bytes& bytes) const {
    const int lowBits = bytes.Get(low);
    return (isInverted ? 3 - lowBits : lowBits) + 4 * bytes.Get(high);
}

void SpeedPlace::Put(Bytes& bytes, int index) const {
    const int lowBits = index & 3;
    bytes.Put(low, isInverted ? 3 - lowBits : lowBits);
    bytes.Put(high, int(index >= 4));
}

} // namespace ModusEx
