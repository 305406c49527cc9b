#pragma once

// Room device: what the devices are and how they are set. Includes base, link and language; the upper half
// also forms.

#include "link/status_store.h"

#include <optional>

/// What a device is: the first character of `Version` in its entry. The variant for B&O has a letter of its
/// own.
namespace DeviceKind {

constexpr char16_t Usb = u'U';
constexpr char16_t UsbBo = u'V';
constexpr char16_t Serial = u'S';
constexpr char16_t SerialBo = u'T';
constexpr char16_t BusModule = u'B';
constexpr char16_t BusModuleBo = u'C';
constexpr char16_t DisplayBoard = u'D';
constexpr char16_t Network = u'E';
constexpr char16_t NetworkToo = u'G';
constexpr char16_t Lcd = u'L';
constexpr char16_t Translator = u'X';
constexpr char16_t PrivateLabel = u'Y';
constexpr char16_t Display = u'F';

} // namespace DeviceKind

/// The kind letter; a null character for an empty slot.
QChar KindOf(const DeviceEntry& device);
/// Whether the kind letter is one of `kinds`.
bool IsKind(const DeviceEntry& device, std::initializer_list<char16_t> kinds);
/// The name of the kind as the views show it; empty for a letter that has none.
QString KindName(const DeviceEntry& device);

/// Whether the firmware is `version` or later. Versions compare as texts, character by character: "10.00.00"
/// is earlier than "5.20.01".
bool IsFrom(const DeviceEntry& device, QStringView version);
/// The first 8 characters of `Version`. A variant for B&O shows the letter of its kind, and " (B&O)" at the
/// end.
QString FirmwareText(const DeviceEntry& device);

/// From this firmware on a device has the extended settings.
inline constexpr QStringView ExtendedSettingsFrom = u"5.20.01";

/// The MAC address in `HotCommand2` as text, "00-1A-..."; empty if `HotRemote2` doesn't begin with LanMarker.
QString MacText(const DeviceEntry& device);

/// The key of a device's node in the device tree, such as "D10.3". `letter` tells its nodes apart.
QString DeviceKey(char16_t letter, DevicePlace place);
/// The key of a bus, such as "B10".
QString BusKey(int bus);
/// The device to which the node of that key belongs; nothing for a bus and for the root.
std::optional<DevicePlace> PlaceOfKey(QStringView key);
