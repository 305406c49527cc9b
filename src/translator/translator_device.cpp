#include "translator/translator_device.h"

using namespace Qt::StringLiterals;

namespace {

// Bits of `Capabilities` and `ExtCapabilities`.
constexpr quint32 Sbus = 0x00000002;
constexpr quint32 Lan = 0x01000000;
constexpr quint32 RelayNumbers = 0x08000000;
constexpr quint32 ExtTwoRelays = 0x00000200;
constexpr quint32 ExtSbusInput = 0x00004000;
constexpr quint32 ExtIrInput = 0x00400000;

constexpr int VersionWidth = 10;

} // namespace

// Firmware versions are compared as text, character by character.

bool TranslatorDevice::HasNames() const {
    return (kind == u'E' || kind == u'G') && version >= u"5.04.05"_s;
}

bool TranslatorDevice::HasLedSelection() const {
    return version >= u"5.08.17"_s;
}

bool TranslatorDevice::HasRelays() const {
    return version >= u"4.05.02"_s;
}

bool TranslatorDevice::HasRelayNumbers() const {
    return (capabilities & RelayNumbers) != 0 || HasTwoRelays();
}

bool TranslatorDevice::HasTwoRelays() const {
    return (extCapabilities & ExtTwoRelays) != 0;
}

bool TranslatorDevice::HasLan() const {
    return (capabilities & Lan) != 0;
}

bool TranslatorDevice::HasSbus() const {
    return (capabilities & Sbus) != 0;
}

bool TranslatorDevice::HasSbusInput() const {
    return (extCapabilities & ExtSbusInput) != 0;
}

bool TranslatorDevice::HasIrInput() const {
    return (extCapabilities & ExtIrInput) != 0;
}

TranslatorDevices ListTranslatorDevices(const StatusStore& status) {
    TranslatorDevices devices;
    for (int page = 0; page < status.PageCount(); ++page)
        for (int bus = 0; bus < status.BusesOn(page); ++bus)
            for (int address = 0; address < StatusHead::Addresses; ++address) {
                if (!status.IsOccupied(page, bus, address) ||
                    (status.Capabilities(page, bus, address) & StatusStore::HasTranslator) == 0)
                    continue;
                const DeviceEntry entry = status.Device(page, bus, address);
                if (devices.rows.empty())
                    devices.first = {entry.Version.left(1), entry.Version.mid(1), entry.Capabilities,
                                     entry.ExtCapabilities};
                const int number = page * StatusHead::Buses + bus;
                devices.rows.push_back(
                    {u"%1.%2 - %3"_s.arg(number).arg(address).arg(entry.Version, -VersionWidth),
                     qint16(number * 256 + address)});
            }
    return devices;
}

bool KnowsShiftKeys(const QString& deviceText) {
    constexpr int VersionLength = 7;
    return deviceText.trimmed().right(VersionLength) >= u"4.04.27"_s;
}
