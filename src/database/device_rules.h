#pragma once

#include <QString>

/// What the selected device lets the dialog do. `version` is the kind letter and the firmware text of a
/// device entry; firmware is compared as text.
namespace DatabaseDevice {

/// Which global controls are enabled. Until a device is selected, all are.
struct Controls {
    bool aux = true;     ///< chkAUX
    bool relay = true;   ///< chkRelay
    bool receive = true; ///< chkReceive
    bool lan = true;     ///< chkLAN
    bool binary = true;  ///< chkBinary
    bool line = true;    ///< chkLine
    bool target = true;  ///< Label13, txtIP(0..3), txtPort
    /// Whether the box must be unchecked as well.
    bool uncheckBinary = false;
    bool uncheckLine = false;

    bool operator==(const Controls&) const = default;
};
/// What the selection of a device makes of the controls; it doesn't depend on the device selected before.
Controls ControlsOf(const QString& version, bool isBinaryChecked);

/// Whether chkLine is enabled after a click on chkBinary; if it isn't, it is unchecked as well.
bool LineEnabled(const QString& version, bool isBinaryChecked);

/// Whether the properties of a remote offer chkDefault, Label1, Label2, txtIP(0..3) and txtPort.
bool RemoteHasTarget(const QString& version);

} // namespace DatabaseDevice
