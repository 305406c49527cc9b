#pragma once

#include "base/keyed_tree.h"
#include "device/device_names.h"
#include "language/language.h"
#include "link/status_store.h"

/// Null if there is none.
const DeviceEntry* FindDevice(const std::vector<DeviceBus>& buses, DevicePlace place);
/// The place of the only device; nothing if there is none, or more than one.
std::optional<DevicePlace> OnlyDevice(const std::vector<DeviceBus>& buses);

/// The root of the device tree.
inline constexpr QStringView DeviceTreeRoot = u"ROOT";

/// Fills an empty tree with the buses, and below each of them its devices with their enabled functions, their
/// send mask and their firmware. Keys are those of `BusKey` and `DeviceKey`.
void FillDeviceTree(KeyedTree& tree, const std::vector<DeviceBus>& buses, const Language& language);
