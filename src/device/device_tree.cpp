#include "device/device_tree.h"

#include "device/mode_bits.h"

using namespace Qt::StringLiterals;

namespace {

/// The letters of the keys of a device's nodes.
namespace NodeLetter {
constexpr char16_t Device = u'D';
constexpr char16_t Mode = u'M';
constexpr char16_t SendMask = u'S';
constexpr char16_t Firmware = u'V';
/// Of the enabled functions, by bit of `Mode`.
constexpr std::array<char16_t, ModeBits::Count> Functions = {u'F', u'G', u'H', u'I', u'J', u'K', u'L', u'N'};
} // namespace NodeLetter

constexpr int MaskDigits = 16;

/// The names of the functions, by bit of `Mode`.
QStringList FunctionNames(const Language& language) {
    return {
        language.GetLanguageText(u"frmRemote.list.1"_s, u"IR Senden"_s),
        language.GetLanguageText(u"frmRemote.list.2"_s, u"IR Empfangen"_s),
        language.GetLanguageText(u"frmRemote.list.3"_s, u"SBUS Empfangen"_s),
        language.GetLanguageText(u"frmRemote.list.4"_s, u"Fernsteuerung IR"_s),
        language.GetLanguageText(u"frmRemote.list.5"_s, u"Fernsteuerung SBUS"_s),
        language.GetLanguageText(u"frmRemote.list.6"_s, u"RAW Mode"_s),
        language.GetLanguageText(u"frmRemote.list.7"_s, u"Fast Control"_s),
        language.GetLanguageText(u"frmRemote.list.8"_s, u"Repeat Modus"_s),
    };
}

QString MaskText(quint32 mask) {
    return QString::number(mask & 0xFFFF, 2).rightJustified(MaskDigits, u'0');
}

void AddDevice(KeyedTree& tree, const DeviceBus& bus, const DeviceBus::Device& device,
               const QStringList& functions) {
    const DeviceEntry& entry = device.entry;
    const DevicePlace place{bus.number, device.address};
    const QString top = DeviceKey(NodeLetter::Device, place);
    const QString mark = device.address == bus.localAddress ? u"** "_s : QString();
    tree.Add(top, mark + KindName(entry) + u" Addresse: "_s + QString::number(device.address), {},
             BusKey(bus.number));
    if (!IsKind(entry, {DeviceKind::Lcd})) {
        const QString mode = DeviceKey(NodeLetter::Mode, place);
        tree.Add(mode, u"Devicemode"_s, {}, top);
        for (int bit = 0; bit < ModeBits::Count; ++bit)
            if (Bit(bit).Of(entry.Mode) != 0)
                tree.Add(DeviceKey(NodeLetter::Functions[size_t(bit)], place), functions[bit], {}, mode);
        tree.Add(DeviceKey(NodeLetter::SendMask, place), u"Sendmask: "_s + MaskText(entry.SendMask), {}, top);
    }
    tree.Add(DeviceKey(NodeLetter::Firmware, place), u"Firmware Version: "_s + FirmwareText(entry), {}, top);
}

} // namespace

const DeviceEntry* FindDevice(const std::vector<DeviceBus>& buses, DevicePlace place) {
    for (const DeviceBus& bus : buses)
        if (bus.number == place.bus)
            for (const DeviceBus::Device& device : bus.devices)
                if (device.address == place.address)
                    return &device.entry;
    return nullptr;
}

std::optional<DevicePlace> OnlyDevice(const std::vector<DeviceBus>& buses) {
    std::optional<DevicePlace> only;
    for (const DeviceBus& bus : buses)
        for (const DeviceBus::Device& device : bus.devices) {
            if (only)
                return std::nullopt;
            only = DevicePlace{bus.number, device.address};
        }
    return only;
}

void FillDeviceTree(KeyedTree& tree, const std::vector<DeviceBus>& buses, const Language& language) {
    const QString root = DeviceTreeRoot.toString();
    const QStringList functions = FunctionNames(language);
    tree.Add(root, u"IR Devices"_s);
    for (const DeviceBus& bus : buses) {
        tree.Add(BusKey(bus.number), u"Bus: "_s + QString::number(bus.number), {}, root);
        for (const DeviceBus::Device& device : bus.devices)
            AddDevice(tree, bus, device, functions);
    }
}
