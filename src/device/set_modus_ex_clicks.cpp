#include "device/set_modus_ex_clicks.h"

#include "device/set_modus_ex_lists.h"
#include "link/capabilities.h"

#include <algorithm>

namespace ModusEx {

namespace {

constexpr std::array auxLists = {List::AuxBaudrate, List::Parity, List::Databits, List::Stopbits};

bool Has(const State& state, quint32 capability) {
    return (state.extCapabilities & capability) != 0;
}

/// Enables the auxiliary port's speed; where a choice is missing, 9600 and the first entries are taken.
void EnableAuxSpeed(State& state) {
    state.Enable(List::AuxBaudrate, true);
    for (const List list : auxLists)
        if (state.Index(list) < 0)
            state.Select(list, list == List::AuxBaudrate ? 1 : 0);
}

void DisableAuxPort(State& state) {
    state.Enable(List::AuxBaudrate, false);
    for (const List list : auxLists)
        state.Select(list, -1);
    EnableSerialFormat(state, 0);
}

void UpdateAuxSerial(State& state) {
    if (IsIrPortSerial(state)) {
        EnableAuxSpeed(state);
        EnableSerialFormat(state, ~0U);
        if (Has(state, ExtCapability::Udp))
            state.Enable(Box::UDP, true);
    } else if (!BusPort::IsRs232(state.Code(List::IO))) {
        DisableAuxPort(state);
    }
}

void UpdateStateInputs(State& state) {
    const bool isState =
        IrInput::IsState(state.Code(List::IRInput)) || BusPort::IsState(state.Code(List::IO));
    for (const Box box : {Box::StateInternal, Box::StateExternal}) {
        state.Enable(box, isState);
        if (!isState)
            state.SetOn(box, false);
    }
}

/// `receiver` is that of the list that was clicked, 1 or 2.
void ApplyReceiverRules(State& state, int receiver) {
    const int codes[] = {state.Code(List::Receiver1), state.Code(List::Receiver2)};
    const auto any = [&codes](bool (*is)(int)) { return std::ranges::any_of(codes, is); };
    state.Enable(Box::Ext4, any(Receiver::Hears455));
    state.SetOn(Box::Ext4, any(Receiver::IsOnly455));

    // A 455 kHz receiver is the only one beside which another one can be active, unless that is universal.
    if (state.IsOn(Box::RCV1) && state.IsOn(Box::RCV2) &&
        (any(Receiver::IsUniversal) || !any(Receiver::IsPlain455)))
        state.SetOn(receiver == 1 ? Box::RCV2 : Box::RCV1, false);

    if (Has(state, ExtCapability::OneExternal) && std::ranges::all_of(codes, Receiver::IsExternal))
        state.Select(receiver == 1 ? List::Receiver2 : List::Receiver1, 0);
}

void BusPortClicked(State& state) {
    const int use = state.Code(List::IO);
    const bool isBus = use == BusPort::SerialBus;
    state.EnableMask(isBus);
    for (const Box box : {Box::Mode2, Box::Mode4, Box::Mode7, Box::SBUSSend})
        state.Enable(box, isBus);
    state.Enable(List::SBUS, isBus);
    if (isBus && state.areBusDefaultsDue) {
        state.areBusDefaultsDue = false;
        state.SetMask(0xFFFF);
        state.Select(List::SBUS, FastestBus);
    }
    if (BusPort::IsRs232(use))
        EnableAuxSpeed(state);
    else
        DisableAuxPort(state);
    UpdateStateInputs(state);
}

void IrInputClicked(State& state) {
    const int use = state.Code(List::IRInput);
    if (IrInput::IsRs232(use))
        state.SetOn(Box::IROutRS232, false);
    UpdateAuxSerial(state);
    UpdateStateInputs(state);
    if (Has(state, ExtCapability::ReceiveBesideInput))
        return;
    if (use > IrInput::Ir)
        state.SetOn(Box::Mode1, false);
    state.Enable(Box::Mode1, use <= IrInput::Ir);
}

void IrOutputClicked(State& state) {
    if (state.IsOn(Box::IROutRS232) && IrInput::IsRs232(state.Code(List::IRInput)))
        state.Select(List::IRInput, 0);
    UpdateAuxSerial(state);
}

void ToggleChanged(State& state) {
    const QString& position = state.Content(Text::Toggle);
    const bool isGiven = !position.isEmpty() && !position.startsWith(u' ');
    state.Enable(List::ToggleCount, isGiven);
    if (isGiven && state.Index(List::ToggleCount) < 0)
        state.Select(List::ToggleCount, 0);
}

} // namespace

void BoxClicked(State& state, Box box) {
    if (box == Box::RCMM)
        RcmmClicked(state);
    else if (box == Box::IROutRS232)
        IrOutputClicked(state);
}

void ListClicked(State& state, List list) {
    switch (list) {
    case List::Receiver1: return ApplyReceiverRules(state, 1);
    case List::Receiver2: return ApplyReceiverRules(state, 2);
    case List::IO: return BusPortClicked(state);
    case List::IRInput: return IrInputClicked(state);
    default: return;
    }
}

void TextChanged(State& state, Text text) {
    if (text == Text::Toggle)
        ToggleChanged(state);
}

void RcmmClicked(State& state) {
    for (const Box box : {Box::ForceRCMM, Box::RCMMToggle}) {
        state.Enable(box, state.IsOn(Box::RCMM));
        if (!state.IsOn(Box::RCMM))
            state.SetOn(box, false);
    }
}

void EnableSerialFormat(State& state, quint32 bits) {
    state.Enable(List::Parity, (bits & ExtCapability::Parity) != 0);
    for (const List list : {List::Databits, List::Stopbits})
        state.Enable(list, (bits & ExtCapability::DataBits) != 0);
}

bool IsIrPortSerial(const State& state) {
    return IrInput::IsRs232(state.Code(List::IRInput)) || state.IsOn(Box::IROutRS232);
}

} // namespace ModusEx
