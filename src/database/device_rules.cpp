#include "database/device_rules.h"

#include "base/firmware.h"

using namespace Qt::StringLiterals;

namespace {

/// The first firmware that has what the name says.
constexpr QStringView AuxSince = u"5.05.08";
constexpr QStringView RelaySince = u"5.08.10";
constexpr QStringView LanSince = u"5.08.25";
constexpr QStringView LineSince = u"6.03.10";

bool IsSerial(const QString& version) {
    return version.startsWith(u'S');
}

bool IsSince(const QString& version, QStringView firmware) {
    return VersionText(version) >= firmware;
}

} // namespace

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
