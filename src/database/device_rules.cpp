#include "database/device_rules.h"

#include "base/blanks.h"

using namespace Qt::StringLiterals;

namespace {

/// The first firmware that has what the name says.
constexpr QStringView AuxSince = u"5.05.08";
constexpr QStringView RelaySince = u"5.08.10";
constexpr QStringView LanSince = u"5.08.25";
constexpr QStringView LineSince = u"6.03.10";

/// A longer `HotRemote2` holds two names behind a marker of this many characters.
constexpr qsizetype MarkerWidth = 16;
constexpr qsizetype SecondNameWidth = 18;
constexpr qsizetype FirstNameWidth = 16;

bool IsSerial(const QString& version) {
    return version.startsWith(u'S');
}

bool IsSince(const QString& version, QStringView firmware) {
    return QStringView(version).sliced(qMin<qsizetype>(1, version.size())) >= firmware;
}

} // namespace

std::vector<DatabaseDevice::Choice> DatabaseDevice::Choices(const StatusStore& status) {
    std::vector<Choice> choices;
    for (int page = 0; page < status.PageCount(); ++page)
        for (int bus = 0; bus < status.BusesOn(page); ++bus)
            for (int address = 0; address < StatusHead::Addresses; ++address) {
                if (!status.IsOccupied(page, bus, address) ||
                    (status.Capabilities(page, bus, address) & StatusStore::HasDatabase) == 0)
                    continue;
                const DeviceEntry device = status.Device(page, bus, address);
                const int busNumber = page * StatusHead::Buses + bus;
                choices.push_back(
                    {ChoiceText(busNumber, address, device), busNumber * 256 + address, device.Version});
            }
    return choices;
}

QString DatabaseDevice::ChoiceText(int busNumber, int address, const DeviceEntry& device) {
    const QString line = u"%1.%2 - "_s.arg(busNumber).arg(address) + device.Version;
    QString text = WithoutBlanks(line).toString();
    const QString& names = device.HotRemote2;
    if (names.size() > MarkerWidth) {
        const QString last = names.mid(MarkerWidth + SecondNameWidth, FirstNameWidth);
        text += u" - %1 - %2"_s.arg(WithoutBlanks(last), names.mid(MarkerWidth, SecondNameWidth));
    }
    return text;
}

DatabaseDevice::Controls DatabaseDevice::ControlsOf(const QString& version, bool isBinaryChecked) {
    const bool isSerial = IsSerial(version);
    const bool hasLan = IsSince(version, LanSince);
    Controls controls;
    controls.aux = IsSince(version, AuxSince) && !isSerial;
    controls.relay = IsSince(version, RelaySince) && !isSerial;
    controls.receive = hasLan;
    controls.lan = hasLan && !isSerial;
    controls.target = hasLan && !isSerial;
    controls.binary = hasLan && isSerial;
    controls.line = controls.binary && LineEnabled(version, isBinaryChecked);
    controls.uncheckBinary = hasLan && !isSerial;
    controls.uncheckLine = hasLan && !controls.line;
    return controls;
}

bool DatabaseDevice::LineEnabled(const QString& version, bool isBinaryChecked) {
    return isBinaryChecked && IsSince(version, LineSince);
}

bool DatabaseDevice::RemoteHasTarget(const QString& version) {
    return !IsSerial(version);
}
