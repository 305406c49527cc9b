#include "link/status_store.h"

#include <algorithm>

namespace {

constexpr int VersionOffset = 36; ///< in a device entry
constexpr int VersionKept = 8;    ///< characters of `Version` that count; the others become blanks
constexpr int VersionWidth = 10;
constexpr int CapabilitiesOffset = 12;
constexpr int LocalAddressOffset = 4;
constexpr int PageBusesOffset = 3;

} // namespace

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
        emit DatabaseWanted(HasDevice(HasDatabase));
    else if (std::exchange(OpenTranslator, false))
        emit TranslatorWanted(HasDevice(HasTranslator));
    else
        emit DevicesWanted();
}

int StatusStore::BusesOn(int page) const {
    const QByteArray& bytes = StatusPages[size_t(page)];
    return bytes.isEmpty() ? 0 : bytes[PageBusesOffset];
}

int StatusStore::LocalAddress(int page, int bus) const {
    const QByteArray& bytes = StatusPages[size_t(page)];
    return bytes.isEmpty() ? 0 : quint8(bytes[LocalAddressOffset + bus]);
}

const char* StatusStore::Entry(int page, int bus, int address) const {
    const QByteArray& bytes = StatusPages[size_t(page)];
    return bytes.isEmpty() ? nullptr : bytes.constData() + StatusHead::EntryOffset(bus, address);
}

bool StatusStore::IsOccupied(int page, int bus, int address) const {
    const char* entry = Entry(page, bus, address);
    return entry != nullptr && entry[VersionOffset] != '\0';
}

DeviceEntry StatusStore::Device(int page, int bus, int address) const {
    const char* entry = Entry(page, bus, address);
    return entry == nullptr ? DeviceEntry() : Decode<DeviceEntry>({entry, DeviceEntry::Size});
}

quint32 StatusStore::Capabilities(int page, int bus, int address) const {
    const char* entry = Entry(page, bus, address);
    return entry == nullptr ? 0 : Wire::Get<quint32>(entry + CapabilitiesOffset);
}

int StatusStore::DeviceCount() const {
    int count = 0;
    for (int page = 0; page < PageCount(); ++page)
        for (int bus = 0; bus < BusesOn(page); ++bus)
            for (int address = 0; address < StatusHead::Addresses; ++address)
                count += IsOccupied(page, bus, address) ? 1 : 0;
    return count;
}

bool StatusStore::HasDevice(quint32 capability) const {
    for (int page = 0; page < PageCount(); ++page)
        for (int bus = 0; bus < BusesOn(page); ++bus)
            for (int address = 0; address < StatusHead::Addresses; ++address)
                if (IsOccupied(page, bus, address) && (Capabilities(page, bus, address) & capability) != 0)
                    return true;
    return false;
}
