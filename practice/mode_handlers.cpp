#include "practice/client_link.h"
#include "practice/describe.h"

#include "base/code_page.h"
#include "link/capabilities.h"

using namespace Qt::StringLiterals;

namespace {

/// From this firmware on a device has the settings of `ExtParam`.
constexpr QStringView ExtendedFirmware = u"5.20.01";

/// Stands in `HotRemote2` if the client has no power-off command to set.
constexpr QStringView NoPowerOff = u"_";

void TakeExtended(DeviceEntry& entry, const std::array<quint8, 8>& bytes) {
    const std::array fields = {&entry.Receivers,   &entry.ReceiveTimeout, &entry.ReceiveTiming,
                               &entry.CodeFlags,   &entry.ToggleConfig,   &entry.IOFlags,
                               &entry.SerialFlags, &entry.ExtFlags};
    for (size_t i = 0; i < fields.size(); ++i)
        *fields[i] = bytes[i];
}

void TakePowerOff(DeviceEntry& entry, const ModeRequest& request) {
    if (request.mac != std::array<quint8, 6>{}) {
        entry.HotRemote2 = LanMarker.toString();
        entry.HotCommand2 =
            QByteArray(reinterpret_cast<const char*>(request.mac.data()), qsizetype(request.mac.size()));
    } else if (request.HotRemote2 != NoPowerOff) {
        entry.HotRemote2 = request.HotRemote2;
        entry.HotCommand2 = ToCodePage(request.HotCommand2);
    }
}

} // namespace

void SetDevice(ClientLink& link, const ModeRequest& request) {
    const auto [bus, address, entry] = link.GetWorld().FindDevice(quint16(request.DeviceTag));
    if (!entry)
        return link.Say(u"not set: there is no device at bus %1, address %2"_s.arg(bus).arg(address));
    const DeviceEntry before = *entry;
    entry->SendMask = quint32(request.SendMask);
    entry->Mode = request.Mode;
    entry->ExtMode = request.ExtMode;
    entry->ExtMode2 = request.ExtMode2;
    entry->HotRemote = request.HotRemote;
    entry->HotCommand = request.HotCommand;
    TakePowerOff(*entry, request);
    if (entry->Version.mid(1) >= ExtendedFirmware)
        TakeExtended(*entry, request.ExtParam);
    else if (request.ExtParam != std::array<quint8, 8>{})
        link.Say(u"odd: the firmware %1 has no extended parameters"_s.arg(entry->Version));
    const QString changes = DescribeChanges(before, *entry);
    link.Say(u"set: device %1.%2, %3: %4"_s.arg(bus).arg(address).arg(
        entry->Version, changes.isEmpty() ? u"nothing changes"_s : changes));
}
