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

QString TextOfDevice(const DeviceEntry& device, int bus, int address) {
    QString text = u"%1.%2 - "_s.arg(bus).arg(address);
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
    for (int page = 0; page < status.PageCount(); ++page)
        for (int t = 0; t < status.BusesOn(page); ++t)
            for (int address = 0; address < StatusHead::Addresses; ++address) {
                if (!status.IsOccupied(page, t, address) ||
                    (status.Capabilities(page, t, address) & capability) == 0)
                    continue;
                const int bus = page * StatusHead::Buses + t;
                const DeviceEntry device = status.Device(page, t, address);
                devices.push_back({TextOfDevice(device, bus, address), bus * 256 + address, device.Version});
            }
    return devices;
}
