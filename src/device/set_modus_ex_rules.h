#pragma once

#include "device/set_modus_ex_state.h"
#include "link/replies.h"

/// The extended settings: from the entry of a device to the state of the dialog, and from there to the record
/// that sets the device. Without a change in between, the device gets back what it has reported, but for what
/// the dialog doesn't offer on it, what contradicts itself, and the defaults of a bus connector that could be
/// a relay and has no other use.
///
/// A value for which a list has no entry leaves nothing selected.
namespace ModusEx {

/// The state with which the dialog opens for a device. The setters run the click rules on the way; what the
/// device lacks is disabled in the end, whatever a rule has enabled.
State FillSetModusEx(const DeviceEntry& entry);

/// Whether a receiver is selected in each list that is enabled. Without, nothing may be sent.
bool AreReceiversSet(const State& state);

/// Brings the receive time-out into its range of 1 to 250 ms.
void CorrectTimeout(State& state);

/// The record that makes the device as the state says. `target` names the device: bus number * 256 + address,
/// or the plain address.
ModeRequest PackSetModusEx(const State& state, qint32 target);

} // namespace ModusEx
