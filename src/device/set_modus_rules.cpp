#include "device/set_modus_rules.h"

#include "base/address_text.h"
#include "base/number.h"
#include "device/hf_receiver_rules.h"
#include "link/capabilities.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What is sent in place of a power-off remote that can't be set.
constexpr QStringView NoRemote = u"_";

/// The lists of the display and their bits. The date is none of them: its numbers aren't its indices.
struct DisplayRow {
    ListState SetModusState::*list;
    BitField bits;
    BitField off; ///< its own bit for the entry "OFF"; of no width if there is no such entry
};

constexpr DisplayRow displayRows[] = {
    {&SetModusState::cmbTime, DisplayBits::Time, {0, 0}},
    {&SetModusState::cmbInaktiv, DisplayBits::Inactive, DisplayBits::InactiveOff},
    {&SetModusState::cmbAktiv, DisplayBits::Active, DisplayBits::ActiveOff},
};

bool Can(const DeviceEntry& entry, quint32 capability) {
    return (entry.Capabilities & capability) != 0;
}

bool IsModeOn(const DeviceEntry& entry, int bit) {
    return Bit(bit).Of(entry.Mode) != 0;
}

void Enable(ListState& list, int index) {
    list.isEnabled = true;
    list.index = index;
}

void FillDisplayLists(SetModusState& state, const DeviceEntry& entry) {
    state.chkMask.isEnabled = false;
    state.frmDisplay.isEnabled = true;
    const auto* date = std::ranges::find(SetModusList::Dates, DisplayBits::Date.Of(entry.SendMask));
    if (date != SetModusList::Dates.end())
        state.cmbDate.index = int(date - SetModusList::Dates.begin());
    for (const DisplayRow& row : displayRows)
        (state.*row.list).index = row.bits.Of(entry.SendMask);
}

/// The speed that the device has; 0, "Classic", if it has none.
int BusSpeedOf(const DeviceEntry& entry) {
    return ExtModeBits::BusSpeed.Of(entry.ExtMode) != 0 ? ExtMode2Bits::BusSpeed.Of(entry.ExtMode2) + 1 : 0;
}

void FillLcdModule(SetModusState& state, const DeviceEntry& entry) {
    for (CheckState& box : state.chkMode)
        box.isEnabled = false;
    FillDisplayLists(state, entry);
    state.cmbAktiv.dropped = SetModusList::Levels;
    state.cmbAktiv.added = {u"Off"_s, u"SW"_s, u"On"_s};
    state.cmbInaktiv.dropped = SetModusList::Levels;
    state.cmbInaktiv.added = {u"Off"_s, u"On"_s};
    for (ListState* list : {&state.cmbAktiv, &state.cmbInaktiv})
        list->index = std::min(list->index, int(list->added.size()) - 1);
    state.cmbSBUS.index = 0;
    if (IsFrom(entry, u"3.01.01") && ExtModeBits::BusSpeed.Of(entry.ExtMode) != 0)
        Enable(state.cmbSBUS, BusSpeedOf(entry));
}

bool HasDisplay(const DeviceEntry& entry, DeviceOrigin origin) {
    using namespace DeviceKind;
    if (origin == DeviceOrigin::Tree)
        return IsKind(entry, {DisplayBoard}) && IsFrom(entry, u"4.04.24");
    return IsKind(entry, {DisplayBoard, Display});
}

void FillDisplay(SetModusState& state, const DeviceEntry& entry, DeviceOrigin origin) {
    if (!HasDisplay(entry, origin))
        return;
    FillDisplayLists(state, entry);
    if (origin == DeviceOrigin::Tree)
        return;
    state.cmdStartup.isEnabled = true;
    if (!IsKind(entry, {DeviceKind::Display}))
        return;
    for (const DisplayRow& row : displayRows) {
        if (row.off.width == 0)
            continue;
        ListState& list = state.*row.list;
        list.added = {u"OFF"_s};
        if (row.off.Of(entry.SendMask) != 0)
            list.index = SetModusList::Off;
    }
}

void FillSendMask(SetModusState& state, const DeviceEntry& entry, DeviceOrigin origin) {
    const bool isMask =
        origin == DeviceOrigin::Tree ? !HasDisplay(entry, origin) : Can(entry, Capability::SendMask);
    if (isMask)
        state.chkMask.value = quint16(entry.SendMask);
    else
        state.chkMask.isEnabled = false;
}

void FillExtBoxes(SetModusState& state, const DeviceEntry& entry) {
    using namespace ExtModeBits;
    if (Can(entry, Capability::Leds) || IsKind(entry, {DeviceKind::Translator}))
        for (const int index : {InnerLeds, OuterLeds, RepeatByLeds})
            OfferExt(state, entry, index);
    if (Can(entry, Capability::SecondReceiver))
        for (const int index : {Standard, Hf})
            OfferExt(state, entry, index);
    if (IsFrom(entry, u"5.08.12"))
        FillHfReceiver(state, entry);
    else if (Can(entry, Capability::SecondReceiver | Capability::ExternalReceivers))
        OfferExt(state, entry, Codes455);
    if (IsFrom(entry, u"3.02.10") && !IsKind(entry, {DeviceKind::DisplayBoard}))
        OfferExt(state, entry, SelfRepeat);
}

void FillTimes(SetModusState& state, const DeviceEntry& entry) {
    state.cmbTimeout.index = SetModusList::Timeout90;
    if (IsFrom(entry, u"4.04.01")) {
        Enable(state.cmbTimeout, ExtMode2Bits::Timeout.Of(entry.ExtMode2));
        if (!IsFrom(entry, u"4.04.35")) {
            state.cmbTimeout.dropped = 1;
            if (state.cmbTimeout.index == SetModusList::Timeouts - 1)
                state.cmbTimeout.index = -1;
        }
    }
    state.isRemoteByIr = !IsFrom(entry, u"5.05.01");
    if (IsFrom(entry, u"4.05.01")) {
        state.chkMode[ModeBits::Fast].isVisible = false;
        Enable(state.cmbRepeat, IsModeOn(entry, ModeBits::Fast) ? 1 : 0);
    }
}

void FillBusSpeed(SetModusState& state, const DeviceEntry& entry) {
    const bool hasSpeed = Can(entry, Capability::SerialBusSpeed);
    state.cmbSBUS.index = hasSpeed ? BusSpeedOf(entry) : 0;
    state.cmbSBUS.isEnabled = hasSpeed && !IsKind(entry, {DeviceKind::BusModule, DeviceKind::BusModuleBo});
}

void HideOnPrivateLabel(SetModusState& state) {
    ControlState* const hidden[] = {
        &state.frmDisplay,    &state.cmbSBUS,        &state.txtHotremote, &state.txtHotcommand,
        &state.txtHotremote2, &state.txtHotcommand2, &state.chkMask,      &state.chkMode[ModeBits::Raw]};
    for (ControlState* control : hidden)
        control->isVisible = false;
}

void FillPowerOff(SetModusState& state, const DeviceEntry& entry) {
    if (!IsKind(entry, {DeviceKind::Network, DeviceKind::NetworkToo})) {
        state.txtHotremote2.text = entry.HotRemote2;
        const QByteArray& command = entry.HotCommand2;
        state.txtHotcommand2.text = Wire::GetText({command.constData(), size_t(command.size())});
        return;
    }
    state.txtHotremote2.text = MacText(entry);
    if (!IsFrom(entry, u"5.03.50"))
        return;
    state.txtHotcommand2.isVisible = false;
    state.lblWakeOnLANMac = {true, true};
    state.txtHotremote2.isEnabled = true;
}

void FillPower(SetModusState& state, const DeviceEntry& entry, DeviceOrigin origin) {
    const bool isOn =
        !Can(entry, Capability::NoPowerOn) || Can(entry, Capability::PowerOn | Capability::PowerOnToo);
    state.txtHotremote.isEnabled = state.txtHotcommand.isEnabled = isOn;
    const bool isOff = Can(entry, Capability::PowerOff);
    state.txtHotremote2.isEnabled = state.txtHotcommand2.isEnabled = isOff;
    state.txtHotremote.text = entry.HotRemote;
    state.txtHotcommand.text = entry.HotCommand;
    if (origin == DeviceOrigin::Single)
        FillPowerOff(state, entry);
}

void FillSerialPort(SetModusState& state, const DeviceEntry& entry) {
    const int speed = ExtMode2Bits::SerialSpeed.Of(entry.ExtMode2);
    if (IsKind(entry, {DeviceKind::Serial, DeviceKind::SerialBo}) && IsFrom(entry, u"5.02.30") &&
        Can(entry, Capability::SerialTransceiverSpeed))
        Enable(state.cmbBaudrate, speed);
    if (Can(entry, Capability::SerialPort) && Can(entry, Capability::AuxSpeed)) {
        Enable(state.cmbBaudrate, speed);
        state.chkRTS.isEnabled = true;
        state.chkRTS.isOn = ExtMode2Bits::RtsCts.Of(entry.ExtMode2) != 0;
    }
}

quint32 DisplayWord(const SetModusState& state) {
    quint32 word = 0;
    if (state.cmbDate.index >= 0)
        word = DisplayBits::Date.At(SetModusList::Dates[size_t(state.cmbDate.index)]);
    for (const DisplayRow& row : displayRows) {
        const int index = (state.*row.list).index;
        if (index == SetModusList::Off)
            word |= row.off.At(1);
        else if (index >= 0)
            word |= row.bits.At(index);
    }
    return word;
}

quint8 PackMode(const SetModusState& state) {
    quint32 mode = 0;
    for (int i = 0; i < ModeBits::Count; ++i) {
        const CheckState& box = state.chkMode[size_t(i)];
        // The list of repeat times stands in for what is hidden.
        mode |= Bit(i).At(int(box.isVisible ? box.isOn : state.cmbRepeat.index != 0));
    }
    return quint8(mode);
}

quint8 PackExtMode(const SetModusState& state) {
    quint32 ext = 0;
    for (int i = 0; i < ExtModeBits::Boxes; ++i)
        if (const CheckState& box = state.chkExt[size_t(i)]; box.isEnabled)
            ext |= Bit(i).At(int(box.isOn));
    if (state.plasmaCapabilities != 0)
        ext = EncodePlasma(state, ext);
    if (state.cmbSBUS.isEnabled && state.cmbSBUS.index > 0)
        ext |= ExtModeBits::BusSpeed.Mask();
    return quint8(ext);
}

quint8 PackExtMode2(const SetModusState& state) {
    using namespace ExtMode2Bits;
    quint32 ext = Timeout.At(std::max(state.cmbTimeout.index, 0));
    if (state.cmbSBUS.isEnabled && state.cmbSBUS.index > 0)
        ext |= BusSpeed.At(state.cmbSBUS.index - 1);
    if (state.cmbBaudrate.isEnabled)
        ext |= SerialSpeed.At(std::max(state.cmbBaudrate.index, 0));
    if (state.chkRTS.isEnabled)
        ext |= RtsCts.At(int(state.chkRTS.isOn));
    return quint8(ext);
}

} // namespace

SetModusState::SetModusState() {
    for (CheckState& box : chkExt)
        box.isEnabled = false;
    ControlState* const disabled[] = {&chkPlasma,    &cmbRepeat,     &cmbTimeout,    &cmbSBUS,
                                      &cmbBaudrate,  &chkRTS,        &frmDisplay,    &cmdStartup,
                                      &txtHotremote, &txtHotcommand, &txtHotremote2, &txtHotcommand2};
    for (ControlState* control : disabled)
        control->isEnabled = false;
    lblWakeOnLANMac = {false, false};
}

SetModusState FillSetModus(const DeviceEntry& entry, DeviceOrigin origin) {
    SetModusState state;
    const bool isTree = origin == DeviceOrigin::Tree;
    if (isTree && IsKind(entry, {DeviceKind::Lcd}) && IsFrom(entry, u"2.01.00")) {
        FillLcdModule(state, entry);
        return state;
    }
    FillDisplay(state, entry, origin);
    FillSendMask(state, entry, origin);
    for (int i = 0; i < ModeBits::Count; ++i)
        state.chkMode[size_t(i)].isOn = IsModeOn(entry, i);
    FillExtBoxes(state, entry);
    FillTimes(state, entry);
    FillBusSpeed(state, entry);
    if (!isTree && IsKind(entry, {DeviceKind::PrivateLabel}))
        HideOnPrivateLabel(state);
    FillPower(state, entry, origin);
    FillSerialPort(state, entry);
    return state;
}

void ResetSetModus(SetModusState& state) {
    if (state.chkMask.isEnabled)
        state.chkMask.value = 0xFFFF;
    for (CheckState& box : state.chkMode)
        box.isOn = true;
    if (state.isRemoteByIr)
        state.chkMode[ModeBits::RemoteByIr].isOn = false;
    state.chkMode[ModeBits::Raw].isOn = false;
    state.chkMode[ModeBits::Fast].isOn = false;
    for (const int index : {ExtModeBits::InnerLeds, ExtModeBits::OuterLeds, ExtModeBits::Standard})
        if (state.chkExt[size_t(index)].isEnabled)
            SetExt(state, index, true);
    state.cmbTimeout.index = SetModusList::Timeout90;
    if (state.frmDisplay.isEnabled) {
        state.cmbDate.index = 0;
        state.cmbTime.index = 0;
        // The brightest: an LCD module has fewer levels.
        const bool hasOwnLevels = state.cmbAktiv.dropped > 0;
        state.cmbAktiv.index = (hasOwnLevels ? int(state.cmbAktiv.added.size()) : SetModusList::Levels) - 1;
        state.cmbInaktiv.index = 0;
    }
    if (state.cmbSBUS.isEnabled)
        state.cmbSBUS.index = SetModusList::Bus38400;
}

ModeRequest PackSetModus(const SetModusState& state, qint32 target) {
    ModeRequest request;
    request.DeviceTag = Clamp<qint16>(target);
    request.SendMask = qint32(state.chkMask.isEnabled ? state.chkMask.value : DisplayWord(state));
    request.Mode = PackMode(state);
    request.ExtMode = PackExtMode(state);
    request.ExtMode2 = PackExtMode2(state);
    request.HotRemote = state.txtHotremote.text;
    request.HotCommand = state.txtHotcommand.text;
    request.HotRemote2 = NoRemote.toString();
    if (state.txtHotcommand2.isEnabled && state.txtHotcommand2.isVisible) {
        request.HotRemote2 = state.txtHotremote2.text;
        request.HotCommand2 = state.txtHotcommand2.text;
    }
    if (state.lblWakeOnLANMac.isEnabled && state.lblWakeOnLANMac.isVisible)
        request.mac = TextToMac(state.txtHotremote2.text);
    return request;
}
