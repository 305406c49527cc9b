#pragma once

#include "base/keyed_tree.h"
#include "device/device_names.h"
#include "language/language.h"
#include "link/status_store.h"

/// A bus of the status and the devices on it.
struct DeviceBus {
    struct Device {
        int address = 0; ///< 0 to 15
        DeviceEntry entry;
    };

    int number = 0;
    int localAddress = 0;        ///< address of its local device
    std::vector<Device> devices; ///< in the order of their addresses
};

/// All buses of the present status, as it stands now.
std::vector<DeviceBus> ReadBuses(const StatusStore& status);

/// Null if there is none.
const DeviceEntry* FindDevice(const std::vector<DeviceBus>& buses, DevicePlace place);
/// The place of the only device; nothing if there is none, or more than one.
std::optional<DevicePlace> OnlyDevice(const std::vector<DeviceBus>& buses);

/// The root of the device tree.
inline constexpr QStringView DeviceTreeRoot = u"ROOT";

/// Fills an empty tree with the buses, and below each of them its devices with their enabled functions, their
/// send mask and their firmware. Keys are those of `BusKey` and `DeviceKey`.
void FillDeviceTree(KeyedTree& tree, const std::vector<DeviceBus>& buses, const Language& language);
