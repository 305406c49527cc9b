#pragma once

#include "device/set_modus_ex_state.h"

/// What a change of one control of the extended settings does to the others. The setters of the state call
/// the first three; nobody else needs to.
namespace ModusEx {

void BoxClicked(State& state, Box box);
void ListClicked(State& state, List list);
void TextChanged(State& state, Text text);

/// The rule of `chkRCMM`. The pre-fill also runs it by itself, when the boxes that hang on it have their
/// values.
void RcmmClicked(State& state);

/// Enables the parity (bit 19 of `bits`) and the data and stop bits (bit 20) of the auxiliary port: the bits
/// are those of `ExtCapabilities`. Disables what has no bit.
void EnableSerialFormat(State& state, quint32 bits);

/// Whether the IR input or the IR output is an RS232 port.
bool IsIrPortSerial(const State& state);

} // namespace ModusEx
