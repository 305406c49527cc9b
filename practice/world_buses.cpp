#include "practice/world.h"

#include "link/capabilities.h"

using namespace Qt::StringLiterals;

namespace {

using namespace Capability;

struct DeviceRow {
    int bus;
    int address;
    const char16_t* version; // kind letter and firmware
    quint32 capabilities;
    quint32 extCapabilities;
    quint32 sendMask;
    quint8 mode;
    quint8 extMode;
    quint8 extMode2;
};

constexpr DeviceRow deviceRows[] = {
    {0, 0, u"U6.05.10", SendMask | UsbWakeup | PowerOn | SecondReceiver | SerialBusSpeed | Leds | PowerOff,
     0x08802C80, 0xFFFF, 0x03, 0x04, 0x02},
    {0, 3, u"B5.20.01", SendMask | ExternalReceivers | SerialBusSpeed, 0x00800000, 0x00FF, 0x07, 0x00, 0x01},
    {0, 7, u"B4.04.12", SendMask | NoPowerOn, 0, 0xFF00, 0x06, 0x00, 0x00},
    {0, 15, u"X6.04.44", SendMask | Translator | Leds, 0, 0xFFFF, 0x03, 0x43, 0x00},
    {1, 0, u"V5.20.00", SendMask | UsbWakeup | SerialBusSpeed, 0, 0xFFFF, 0x83, 0x00, 0x04},
    {1, 1, u"C5.04.01", SendMask, 0, 0x0001, 0x02, 0x00, 0x00},
    {2, 0, u"S4.04.35", SendMask | SerialPort | AuxSpeed | PowerOn, 0, 0xFFFF, 0x0B, 0x00, 0x67},
    {2, 4, u"T5.08.12", SendMask | SerialPort | SerialBusSpeed, 0, 0x8001, 0x13, 0x80, 0x10},
    {3, 1, u"D4.04.24", SendMask | PowerOn, 0, 0x00B1, 0x03, 0x20, 0x00},
    {3, 2, u"D5.20.01", SendMask | PowerOn | Leds, 0x00000400, 0x0112, 0x03, 0x03, 0x00},
    {4, 0, u"E5.19.07", SendMask | PowerOn, 0, 0xFFFF, 0x03, 0x00, 0x00},
    {4, 6, u"E6.04.44", SendMask | PowerOn | PowerOff | Database, 0x80004000, 0xFFFF, 0x23, 0x00, 0x00},
    {5, 0, u"G6.05.10",
     SendMask | PowerOn | SecondReceiver | Leds | PowerOff | AuxSpeed | Database | Translator | Pages,
     0x80FE4000, 0xFFFF, 0x03, 0x0C, 0x00},
    {6, 1, u"L1.09.00", 0, 0, 0x0000, 0x00, 0x00, 0x00},
    {6, 2, u"L2.01.00", 0, 0, 0x0031, 0x00, 0x00, 0x00},
    {6, 9, u"L3.01.01", 0, 0, 0x0112, 0x00, 0x80, 0x08},
    {7, 2, u"X5.03.11", SendMask | Translator, 0, 0x0F0F, 0x03, 0x03, 0x00},
    {8, 0, u"Y5.04.00", PowerOn, 0, 0x0000, 0x43, 0x00, 0x00},
    {8, 5, u"B5.03.02RC", SendMask, 0, 0xFFFF, 0x02, 0x00, 0x00},
    {9, 0, u"F6.01.02", PowerOn, 0, 0x0600, 0x03, 0x00, 0x00},
};

constexpr int CodeReceivers = 0x62;    // 38 kHz on the first channel, code learning on the second
constexpr int BuiltInReceivers = 0x42; // 38 kHz on the first channel, 455 kHz on the second
constexpr int ExternalReceiver = 0x0A; // 38 kHz, external

struct BusRow {
    const char16_t* name;
    const char16_t* version;
    quint32 a; // bit 1 address mode, 5 external receivers, 11 two receiver channels
    quint32 b; // bit 7 internal receivers, 23 external ones on channel 1, 28 second channel is plasma
    quint32 c; // bit 8 external receivers on channel 2
    quint8 learnDefaults;
    quint8 tolerance;
    int receivers = CodeReceivers;
};

// Every sort that learning tells apart: firmware below 5.04.01, from there on, from 5.20.00 and from 6.04.44,
// each with one and two channels, with and without internal receivers.
constexpr BusRow busRows[] = {
    {u"USB Wohnzimmer", u"U6.05.10", 0x822, 0x00800080, 0x100, 0x00, 2},
    {u"USB Küche", u"V5.20.00", 0x802, 0x10000080, 0, 0x10, 3},
    {u"Seriell", u"S4.04.35", 0x002, 0, 0, 0x00, 0},
    {u"Anzeige", u"D5.20.01", 0x002, 0x00000080, 0, 0x80, 1},
    {u"LAN Flur", u"E6.04.44", 0x022, 0, 0, 0x00, 2, ExternalReceiver},
    {u"LAN Keller", u"G6.05.10", 0x822, 0x10800080, 0x100, 0x90, 7},
    {u"Module", u"L3.01.01", 0x000, 0, 0, 0x00, 0},
    {u"Übersetzer", u"X5.03.11", 0x802, 0, 0, 0x00, 4},
    {u"Gäste", u"Y5.04.00", 0x000, 0, 0, 0x00, 0},
    {u"Uhr", u"F6.01.02", 0x802, 0, 0x100, 0x00, 5},
    {u"Garten", u"B4.04.10", 0x002, 0, 0, 0x00, 0},
    {u"Werkstatt", u"B5.04.01", 0x002, 0, 0, 0x00, 0},
    {u"Studio", u"U5.08.12", 0x822, 0, 0, 0x10, 0},
};

// The LAN controller is woken by its address and not by a command.
void AddLanMarker(DeviceEntry& entry) {
    entry.HotRemote2 = LanMarker.toString();
    entry.HotCommand2 = QByteArray::fromHex("0204A1B2C3D4");
}

DeviceEntry MakeDevice(const DeviceRow& row) {
    DeviceEntry entry;
    entry.SendMask = row.sendMask;
    entry.Mode = row.mode;
    entry.ExtMode = row.extMode;
    entry.ExtMode2 = row.extMode2;
    entry.Capabilities = row.capabilities;
    entry.ExtCapabilities = row.extCapabilities;
    entry.Receivers =
        (row.extCapabilities & ExtCapability::InternalReceivers) != 0 ? BuiltInReceivers : CodeReceivers;
    entry.ReceiveTimeout = 30;
    entry.CodeFlags = 0x30;
    entry.Version = QString::fromUtf16(row.version);
    if (row.capabilities & PowerOn) {
        entry.HotRemote = u"tv"_s;
        entry.HotCommand = u"power"_s;
    }
    if (row.capabilities & Pages)
        AddLanMarker(entry);
    else if (row.capabilities & PowerOff) {
        entry.HotRemote2 = u"amp"_s;
        entry.HotCommand2 = QByteArray("power");
    }
    return entry;
}

} // namespace

World::DevicePlace World::FindDevice(int tag) {
    DevicePlace place{tag / 256, tag % 256};
    if (place.bus >= 0 && place.bus < int(buses.size())) {
        auto& devices = buses[place.bus].devices;
        if (const auto found = devices.find(place.address); found != devices.end()) {
            place.entry = &found->second;
            return place;
        }
    }
    DevicePlace only;
    int count = 0;
    for (size_t bus = 0; bus < buses.size(); ++bus) {
        for (auto& [address, entry] : buses[bus].devices) {
            only = {int(bus), address, &entry};
            ++count;
        }
    }
    return count == 1 && only.address == tag ? only : place;
}

std::vector<World::Bus> LivingRoomBuses() {
    std::vector<World::Bus> buses;
    for (const BusRow& row : busRows) {
        World::Bus bus;
        bus.element.capabilitiesA = qint32(row.a);
        bus.element.capabilitiesB = qint32(row.b);
        bus.element.capabilitiesC = qint32(row.c);
        bus.element.name = QString::fromUtf16(row.name);
        bus.element.version = QString::fromUtf16(row.version);
        bus.element.learnDefaults = row.learnDefaults;
        bus.element.toleranceIndex = row.tolerance;
        bus.element.receivers = quint8(row.receivers);
        bus.element.timeout = 30;
        buses.push_back(bus);
    }
    for (const DeviceRow& row : deviceRows)
        buses[row.bus].devices[row.address] = MakeDevice(row);
    // Where no device stands at address 0, another one is the local one.
    for (World::Bus& bus : buses) {
        if (!bus.devices.empty())
            bus.localAddress = quint8(bus.devices.begin()->first);
    }
    return buses;
}
