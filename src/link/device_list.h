#pragma once

#include "link/status_store.h"

/// A device as the lists of the dialogs show it.
struct ListedDevice {
    QString text;    ///< "bus.address - version", then what a network device tells of itself
    int tag = 0;     ///< `DeviceTag` of its place
    QString version; ///< kind letter and firmware
};

QString TextOfDevice(const DeviceEntry& device, DevicePlace place);

/// The devices of the present status that have one of the bits of Capability, by bus and address.
std::vector<ListedDevice> ListDevices(const StatusStore& status, quint32 capability);
