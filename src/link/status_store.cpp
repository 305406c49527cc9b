#include "link/status_store.h"

#include "link/capabilities.h"

#include <algorithm>

namespace {

constexpr int VersionOffset = 36; ///< in a device entry
constexpr int VersionKept = 8;    ///< characters of `Version` that count; the others become blanks
constexpr int VersionWidth = 10;
constexpr int LocalAddressOffset = 4;
constexpr int PageBusesOffset = 3;

} // namespace

QString DevicePlace::Text() const {
    return QString::number(bus) + u'.' + QString::number(address);
}

StatusStore::StatusStore(Session& session, QObject* parent)
    : QObject(parent)
    , session(session) {
    connect(&session, &Session::StatusReceived, this, &StatusStore::ProcessDeviceStatus);
    connect(&session, &Session::LinkUp, this, [this] {
        expectedBus = 0;
        OpenHTML = OpenDatabase = OpenTranslator = false;
    });
}

bool StatusStore::Request() {
    session.PendingOp = Pending::Status;
    expectedBus = 0;
    return session.SendRemoteCommand(Netcommand::DeviceStatus, {}, {}, 0);
}

void StatusStore::ProcessDeviceStatus(QByteArrayView payload) {
    const auto head = Decode<StatusHead>(payload);
    // A page that isn't the one that is due would begin a second chain, or lead this one in a circle.
    if (head.FirstBus != expectedBus || head.FirstBus >= MostBuses)
        return;
    QByteArray& page = StatusPages[size_t(head.FirstBus / StatusHead::Buses)];
    page.resize(StatusHead::PageSize);
    std::copy_n(payload.begin(), StatusHead::PageSize, page.begin());
    for (int at = StatusHead::Size + VersionOffset; at < page.size(); at += DeviceEntry::Size)
        std::fill_n(page.begin() + at + VersionKept, VersionWidth - VersionKept, ' ');

    busTotal = std::min<int>(head.BusTotal, MostBuses);
    const int buses = std::clamp(busTotal - head.FirstBus, 0, StatusHead::Buses);
    page[PageBusesOffset] = char(buses);
    const int next = head.FirstBus + buses;
    if (next < busTotal) {
        expectedBus = next;
        session.SendRemoteCommand(Netcommand::NextStatus, {}, {}, next);
        return;
    }
    expectedBus = 0;
    if (head.BusTotal > MostBuses)
        emit BusesLeftOut();
    Complete();
}

void StatusStore::Complete() {
    if (std::exchange(OpenHTML, false))
        emit HtmlWanted();
    else if (std::exchange(OpenDatabase, false))
        emit DatabaseWanted(HasDevice(Capability::Database));
    else if (std::exchange(OpenTranslator, false))
        emit TranslatorWanted(HasDevice(Capability::Translator));
    else
        emit DevicesWanted();
}

std::vector<DeviceBus> StatusStore::Buses() const {
    std::vector<DeviceBus> buses;
    // Pages beyond the total are from an earlier status.
    for (int first = 0; first < busTotal; first += StatusHead::Buses) {
        const QByteArrayView page = StatusPages[size_t(first / StatusHead::Buses)];
        const int count = page.isEmpty() ? 0 : page[PageBusesOffset];
        for (int bus = 0; bus < count; ++bus) {
            DeviceBus& read = buses.emplace_back();
            read.number = first + bus;
            read.localAddress = quint8(page[LocalAddressOffset + bus]);
            for (int address = 0; address < StatusHead::Addresses; ++address) {
                const auto entry = page.sliced(StatusHead::EntryOffset(bus, address), DeviceEntry::Size);
                if (entry[VersionOffset] != '\0')
                    read.devices.push_back({address, Decode<DeviceEntry>(entry)});
            }
        }
    }
    return buses;
}

bool StatusStore::HasDevice(quint32 capability) const {
    const auto buses = Buses();
    return std::any_of(buses.begin(), buses.end(), [capability](const DeviceBus& bus) {
        return std::any_of(bus.devices.begin(), bus.devices.end(), [capability](const auto& device) {
            return (device.entry.Capabilities & capability) != 0;
        });
    });
}
