#include "device/device_names.h"

#include "base/firmware.h"
#include "link/capabilities.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int VersionShown = 8; ///< characters

struct KindRow {
    char16_t letter;
    char16_t shown; ///< of a variant for B&O, the letter of its kind
    const char16_t* name;
};

constexpr KindRow kinds[] = {
    {DeviceKind::Usb, DeviceKind::Usb, u"USB Transceiver"},
    {DeviceKind::UsbBo, DeviceKind::Usb, u"USB Transceiver"},
    {DeviceKind::Serial, DeviceKind::Serial, u"SERIAL Transceiver"},
    {DeviceKind::SerialBo, DeviceKind::Serial, u"SERIAL Transceiver"},
    {DeviceKind::BusModule, DeviceKind::BusModule, u"IR Busmodule"},
    {DeviceKind::BusModuleBo, DeviceKind::BusModule, u"IR Busmodule"},
    {DeviceKind::DisplayBoard, DeviceKind::DisplayBoard, u"IR / Display Board"},
    {DeviceKind::Network, DeviceKind::Network, u"Ethernet Transceiver"},
    {DeviceKind::NetworkToo, DeviceKind::NetworkToo, u"Ethernet Transceiver"},
    {DeviceKind::Lcd, DeviceKind::Lcd, u"LCD Module"},
    {DeviceKind::Translator, DeviceKind::Translator, u"IR Translator"},
    {DeviceKind::PrivateLabel, DeviceKind::PrivateLabel, u"Ferolo KT208"},
};

const KindRow* FindKind(const DeviceEntry& device) {
    const auto* row = std::ranges::find(kinds, KindOf(device), &KindRow::letter);
    return row == std::end(kinds) ? nullptr : row;
}

} // namespace

QChar KindOf(const DeviceEntry& device) {
    return device.Version.isEmpty() ? QChar() : device.Version[0];
}

bool IsKind(const DeviceEntry& device, std::initializer_list<char16_t> kinds) {
    return std::ranges::find(kinds, KindOf(device)) != kinds.end();
}

QString KindName(const DeviceEntry& device) {
    using namespace DeviceKind;
    if (IsKind(device, {Network, NetworkToo}) && (device.Capabilities & Capability::SecondReceiver) != 0)
        return u"LAN Controller"_s;
    const KindRow* row = FindKind(device);
    return row == nullptr ? QString() : QString::fromUtf16(row->name);
}

bool IsFrom(const DeviceEntry& device, QStringView version) {
    return VersionText(device.Version) >= version;
}

QString FirmwareText(const DeviceEntry& device) {
    QString text = device.Version.left(VersionShown);
    if (const KindRow* row = FindKind(device); row != nullptr && row->shown != row->letter) {
        text[0] = row->shown;
        text += u" (B&O)";
    }
    return text;
}

QString MacText(const DeviceEntry& device) {
    constexpr int MacBytes = 6;
    if (!device.HotRemote2.startsWith(LanMarker))
        return {};
    return QString::fromLatin1(device.HotCommand2.leftJustified(MacBytes, '\0', true).toHex('-').toUpper());
}

QString DeviceKey(char16_t letter, DevicePlace place) {
    return letter + place.Text();
}

QString BusKey(int bus) {
    return u'B' + QString::number(bus);
}

std::optional<DevicePlace> PlaceOfKey(QStringView key) {
    const auto dot = key.indexOf(u'.');
    if (dot < 1)
        return std::nullopt;
    return DevicePlace{key.sliced(1, dot - 1).toInt(), key.sliced(dot + 1).toInt()};
}
