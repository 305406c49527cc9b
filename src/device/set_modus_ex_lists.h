#pragma once

#include "device/set_modus_ex_state.h"

/// What the entries of the lists stand for. Rules ask for an entry's code, never for its text.
namespace ModusEx {

/// Codes of `cmbReceiver1` and `cmbReceiver2`, as the device has them.
namespace Receiver {

constexpr int Off = 0;
constexpr int Khz56 = 1;
constexpr int Khz38 = 2;
constexpr int Khz455 = 4;
constexpr int Plasma = 5;
constexpr int Universal = 6;
constexpr int External = 8; ///< added to the five above

/// 455 kHz in any form, or universal.
constexpr bool Hears455(int code) {
    return code > 0 && (code & 4) != 0;
}
constexpr bool IsUniversal(int code) {
    return code > 0 && (code & 6) == 6;
}
/// 455 kHz, plasma shielded or not.
constexpr bool IsOnly455(int code) {
    return Hears455(code) && !IsUniversal(code);
}
/// 455 kHz without a shield.
constexpr bool IsPlain455(int code) {
    return code > 0 && (code & 7) == Khz455;
}
constexpr bool IsExternal(int code) {
    return code > External;
}

} // namespace Receiver

/// Codes of `cmbIO`, the use of the bus connector.
namespace BusPort {

constexpr int SerialBus = 0;
constexpr int StateInput = 1;    ///< plain, 2 with pullup, 3 with pulldown
constexpr int StateInverted = 4; ///< plain, 5 with pullup, 6 with pulldown
constexpr int Rs232Input = 7;
constexpr int Rs232Output = 8;
constexpr int Relay = 9;

constexpr bool IsState(int code) {
    return code >= StateInput && code < Rs232Input;
}
constexpr bool IsRs232(int code) {
    return code == Rs232Input || code == Rs232Output;
}
/// With nothing selected the connector counts as that of the bus.
constexpr bool IsBus(int code) {
    return code <= SerialBus;
}

} // namespace BusPort

/// Codes of `cmbIRInput`, the use of the IR input. Those of the state inputs are the numbers that the device
/// has.
namespace IrInput {

constexpr int Ir = 0;
constexpr int State = 1; ///< plain, 2 with pullup, 3 inverted, 4 inverted with pullup
constexpr int LastState = 4;
constexpr int Rs232Output = 5;
constexpr int Rs232Input = 6;

constexpr bool IsState(int code) {
    return code >= State && code <= LastState;
}
constexpr bool IsRs232(int code) {
    return code == Rs232Output || code == Rs232Input;
}

} // namespace IrInput

/// The entry "OFF" of `cmbAktiv` and `cmbInaktiv`.
constexpr int BrightnessOff = 4;
/// The fastest entry of `cmbSBUS`, 38400; the first is "Classic".
constexpr int FastestBus = 4;

/// The codes with which a list begins its life in the dialog.
std::vector<int> DesignedCodes(List list);
/// The text of an entry that isn't among those.
QString AddedText(const State& state, List list, int code);

/// @name The lists of receivers
/// They are built from the device's capabilities; then the entry with `code` is selected.
/// @{
void FillReceiver1(State& state, quint32 capabilities, int code);
void FillReceiver2(State& state, quint32 capabilities, quint32 extCapabilities2, int code);
/// @}

/// The entry of `cmbDate` for a number that a device has stored. The numbers leave 3 and 7 out.
constexpr int DateIndex(int number) {
    const int withoutSeven = number >= 8 ? number - 1 : number;
    return withoutSeven >= 4 ? withoutSeven - 1 : withoutSeven;
}

} // namespace ModusEx
