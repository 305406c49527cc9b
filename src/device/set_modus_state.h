#pragma once

#include "device/control_state.h"
#include "device/mode_bits.h"

#include <array>

/// The lists of the basic settings, as far as rules know them.
namespace SetModusList {

constexpr int Timeouts = 8;  ///< "5" to "250"
constexpr int Timeout90 = 4; ///< the default
constexpr int Bus38400 = 4;  ///< the default; 0 is "Classic"
constexpr int Levels = 4;    ///< of brightness, "0" to "3"
constexpr int Off = Levels;  ///< "OFF", where it is offered
/// The numbers of the date formats on the wire, by index.
constexpr std::array<int, 9> Dates = {0, 1, 2, 4, 5, 6, 8, 9, 10};

} // namespace SetModusList

/// The state of all controls of `frmSetModus`. Titles follow their controls.
struct SetModusState {
    SetModusState();

    std::array<CheckState, ModeBits::Count> chkMode;
    /// chkMode(3) means "Fernsteuerung IR": the caption that `lblCaption` keeps.
    bool isRemoteByIr = false;

    std::array<CheckState, ExtModeBits::Boxes> chkExt;
    CheckState chkPlasma;
    bool isPlasmaOffered = false; ///< chkPlasma may be enabled when the HF receiver is switched on
    /// `Capabilities` of a device whose firmware knows the plasma receiver, else 0.
    quint32 plasmaCapabilities = 0;

    ListState cmbRepeat;
    ListState cmbTimeout;
    ListState cmbSBUS;
    ListState cmbBaudrate;
    CheckState chkRTS;

    MaskState chkMask;

    ControlState frmDisplay; ///< disables and hides all that is in it
    ListState cmbDate;
    ListState cmbTime;
    ListState cmbAktiv;
    ListState cmbInaktiv;
    ControlState cmdStartup;

    TextState txtHotremote; ///< with lblHot1
    TextState txtHotcommand;
    TextState txtHotremote2;  ///< the remote of the power-off command, or the MAC address
    TextState txtHotcommand2; ///< with lblHot2
    ControlState lblWakeOnLANMac;
};
