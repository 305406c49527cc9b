#include "device/mac_text.h"

namespace {

constexpr int MacBytes = 6;

} // namespace

QString MacText(const DeviceEntry& device) {
    if (!device.HotRemote2.startsWith(LanMarker))
        return {};
    return QString::fromLatin1(device.HotCommand2.leftJustified(MacBytes, '\0', true).toHex('-').toUpper());
}
