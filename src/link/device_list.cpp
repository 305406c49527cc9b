#include "link/device_list.h"

#include "base/blanks.h"

using namespace Qt::StringLiterals;

namespace {

// What a network device says in `HotRemote2`:
//
//     0......15 16......33 34......49
//     the marker   name      address
constexpr int NameStart = 16;
constexpr int NameWidth = 18;
constexpr int AddressStart = NameStart + NameWidth;
constexpr int AddressWidth = 16;

} // namespace

QString TextOfDevice(const DeviceEntry& device, DevicePlace place) {
    QString text = place.Text() + u" - "_s;
    text += WithoutBlanks(device.Version);
    const QStringView network = device.HotRemote2;
    if (network.size() > NameStart) {
        text += u" - ";
        text += WithoutBlanks(network.mid(AddressStart, AddressWidth));
        text += u" - ";
        text += network.mid(NameStart, NameWidth);
    }
    return text;
}

std::vector<ListedDevice> ListDevices(const StatusStore& status, quint32 capability) {
    std::vector<ListedDevice> devices;
    for (const DeviceBus& bus : status.Buses())
        for (const auto& [address, entry] : bus.devices)
            if ((entry.Capabilities & capability) != 0) {
                const DevicePlace place{bus.number, address};
                devices.push_back({TextOfDevice(entry, place), place.DeviceTag(), entry.Version});
            }
    return devices;
}
