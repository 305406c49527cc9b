#include "translator/translator_device.h"

#include "link/capabilities.h"

using namespace Qt::StringLiterals;

namespace {

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
    return (capabilities & Capability::RelayNumbers) != 0 || HasTwoRelays();
}

bool TranslatorDevice::HasTwoRelays() const {
    return (extCapabilities & ExtCapability::TwoRelays) != 0;
}

bool TranslatorDevice::HasLan() const {
    return (capabilities & Capability::Lan) != 0;
}

bool TranslatorDevice::HasSbus() const {
    return (capabilities & Capability::SendMask) != 0;
}

bool TranslatorDevice::HasSbusInput() const {
    return (extCapabilities & ExtCapability::BusPortUses) != 0;
}

bool TranslatorDevice::HasIrInput() const {
    return (extCapabilities & ExtCapability::IrInputState) != 0;
}

TranslatorDevices ListTranslatorDevices(const StatusStore& status) {
    TranslatorDevices devices;
    for (const DeviceBus& bus : status.Buses())
        for (const auto& [address, entry] : bus.devices) {
            if ((entry.Capabilities & Capability::Translator) == 0)
                continue;
            if (devices.rows.empty())
                devices.first = {entry.Version.left(1), entry.Version.mid(1), entry.Capabilities,
                                 entry.ExtCapabilities};
            const DevicePlace place{bus.number, address};
            devices.rows.push_back(
                {place.Text() + u" - "_s + entry.Version.leftJustified(VersionWidth), place.DeviceTag()});
        }
    return devices;
}

bool KnowsShiftKeys(const QString& deviceText) {
    constexpr int VersionLength = 7;
    return deviceText.trimmed().right(VersionLength) >= u"4.04.27"_s;
}
