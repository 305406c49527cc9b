#include "base/address_text.h"
#include "base/number.h"
#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"
#include "device/set_modus_ex_record.h"
#include "device/set_modus_ex_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ModusEx {

namespace {

constexpr int ShortestTimeout = 1; ///< milliseconds
constexpr int LongestTimeout = 250;

int NumberIn(const State& state, Text text) {
    return RoundToI16(LeadingNumber(state.Content(text)));
}

int TimeoutOf(const State& state) {
    return std::clamp(NumberIn(state, Text::Timeout), ShortestTimeout, LongestTimeout);
}

class Packer {
public:
    explicit Packer(const State& state)
        : state(state) {}

    Bytes Pack() {
        for (const BoxRow& row : BoxRows())
            if (row.sent == Sent::Always || state.IsEnabled(row.box))
                bytes.Put(row.field, int(state.IsOn(row.box)));
        for (const ListRow& row : ListRows())
            if (row.sent == Sent::Always || state.IsEnabled(row.list))
                bytes.Put(row.field, std::max(0, state.Code(row.list)));
        PackTexts();
        PackBusPort();
        PackIrInput();
        if (state.IsEnabled(List::AuxBaudrate))
            PackSpeed(IsAuxForPort() ? AuxInPort : AuxInShared, List::AuxBaudrate);
        // Behind the auxiliary speed: a port with a speed of its own keeps it.
        if (state.IsEnabled(List::Baudrate))
            PackSpeed(PortSpeed, List::Baudrate);
        return bytes;
    }

private:
    void PackTexts() {
        bytes.Put(ReceiveTimeoutMs, TimeoutOf(state));
        const QString& position = state.Content(Text::Toggle);
        if (!position.isEmpty() && !position.startsWith(u' '))
            bytes.Put(TogglePosition, NumberIn(state, Text::Toggle) + 1);
    }

    void PackBusPort() {
        const int use = state.Code(List::IO);
        if (BusPort::IsBus(use)) {
            if (state.IsEnabled(List::SBUS) && state.Index(List::SBUS) >= 1) {
                bytes.Put(BusSpeedSet, 1);
                bytes.Put(SharedSpeed, state.Index(List::SBUS) - 1);
            }
        } else if (BusPort::IsState(use)) {
            const bool isInverted = use >= BusPort::StateInverted;
            bytes.Put(SharedSpeed, isInverted ? use - 3 : use);
            bytes.Put(InvertedInput, int(isInverted));
        } else {
            bytes.Put(use == BusPort::Rs232Input ? Rs232Input : Rs232OutputOrRelay, 1);
        }
    }

    void PackIrInput() {
        const int use = state.Code(List::IRInput);
        if (IrInput::IsState(use))
            bytes.Put(IrInputState, use);
        else if (IrInput::IsRs232(use))
            bytes.Put(use == IrInput::Rs232Input ? Rs232Input : Rs232OutputOrRelay, 1);
    }

    /// The speed is that of the RS232 port while the bus connector is there for something else and the IR
    /// connectors are no serial ones.
    bool IsAuxForPort() const {
        return state.Index(List::IO) >= 0 && !BusPort::IsRs232(state.Code(List::IO)) &&
               !IsIrPortSerial(state);
    }

    void PackSpeed(const SpeedPlace& place, List list) {
        if (state.Index(list) >= 0)
            place.Put(bytes, state.Index(list));
    }

    const State& state;
    Bytes bytes;
};

/// The display word of a device with a display, else the mask.
quint32 PackSendMask(const State& state) {
    using namespace DisplayBits;
    if (!state.IsEnabled(List::Date))
        return state.IsMaskEnabled() ? state.Mask() : 0;
    const auto codeOf = [&state](List list) { return std::max(0, state.Code(list)); };
    const auto brightness = [&](List list, BitField bits, BitField off) {
        return codeOf(list) == BrightnessOff ? off.At(1) : bits.At(codeOf(list));
    };
    return Date.At(codeOf(List::Date)) | Time.At(codeOf(List::Time)) |
           brightness(List::Inaktiv, Inactive, InactiveOff) | brightness(List::Aktiv, Active, ActiveOff);
}

} // namespace

bool AreReceiversSet(const State& state) {
    return std::ranges::all_of(std::array{List::Receiver1, List::Receiver2}, [&state](List list) {
        return !state.IsEnabled(list) || state.Index(list) >= 0;
    });
}

void CorrectTimeout(State& state) {
    if (const int timeout = TimeoutOf(state); timeout != NumberIn(state, Text::Timeout))
        state.SetContent(Text::Timeout, QString::number(timeout));
}

ModeRequest PackSetModusEx(const State& state, qint32 target) {
    ModeRequest request;
    Packer(state).Pack().StoreIn(request);
    request.DeviceTag = Clamp<qint16>(target);
    request.SendMask = qint32(PackSendMask(state));
    request.HotRemote = state.Content(Text::Hotremote);
    request.HotCommand = state.Content(Text::Hotcommand);
    const bool hasPowerOff = state.IsEnabled(Text::Hotremote2);
    request.HotRemote2 = hasPowerOff ? state.Content(Text::Hotremote2) : u"_"_s;
    request.HotCommand2 = hasPowerOff ? state.Content(Text::Hotcommand2) : QString();
    if (state.IsEnabled(Text::MAC))
        request.mac = TextToMac(state.Content(Text::MAC));
    return request;
}

} // namespace ModusEx
