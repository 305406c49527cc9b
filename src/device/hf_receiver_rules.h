#pragma once

#include "device/set_modus_state.h"
#include "link/replies.h"

/// The rules around the HF receiver: `chkExt(3)` switches it on, `chkExt(4)` has it take codes of 455 kHz,
/// and `chkPlasma`, known to firmware from "5.08.12" on, shields it from plasma screens. `ExtMode` has no bit
/// of its own for the last; three of its bits tell of all three boxes.

/// @name What a change of a box brings about
/// To be called for every change, by hand or by code; without a change nothing happens.
/// @{
void SetExt(SetModusState& state, int index, bool isOn);
void SetPlasma(SetModusState& state, bool isOn);
/// @}

/// Whether bit `index` of `ExtMode` is set.
bool IsExtOn(const DeviceEntry& entry, int index);
/// Gives box `index` of chkExt its bit and enables it.
void OfferExt(SetModusState& state, const DeviceEntry& entry, int index);

/// Fills the three boxes for firmware from "5.08.12" on.
void FillHfReceiver(SetModusState& state, const DeviceEntry& entry);
/// The reverse: what becomes of an `ExtMode` that was packed box by box.
quint32 EncodePlasma(const SetModusState& state, quint32 extMode);
