#pragma once

#include "device/device_names.h"
#include "device/set_modus_state.h"

/// How the settings of a device were reached.
enum class DeviceOrigin {
    Tree,   ///< picked in the device tree
    Single, ///< the only device of the status
};

/// The controls as the entry fills them. What changes of their boxes bring about is in hf_receiver_rules.h.
SetModusState FillSetModus(const DeviceEntry& entry, DeviceOrigin origin);

/// The defaults.
void ResetSetModus(SetModusState& state);

/// What is sent for the controls as they are. `target` names the device to the server.
ModeRequest PackSetModus(const SetModusState& state, qint32 target);
