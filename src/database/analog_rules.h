#pragma once

/// Which controls of an analog input its mode enables. Every control of an input that isn't named here is
/// always enabled. A box that is off is emptied too, where that is said.
struct AnalogControls {
    bool minimum = true;    ///< txtMin, Label7; emptied when off
    bool maximum = true;    ///< txtMax, Label8; emptied when off
    bool hysteresis = true; ///< txtHys, Label9; emptied when off
    bool minSend = true;    ///< cmbMinRemote, txtMinCommand, Label10
    bool maxSend = true;    ///< cmbMaxRemote, txtMaxCommand, Label11
    bool minLed = true;     ///< cmbMinLED, txtMinMask
    bool maxLed = true;     ///< cmbMaxLED, txtMaxMask
    bool ledLabel = true;   ///< Label12
    bool kind = true;       ///< optSend, optAction
    /// No remote is selected any more and the command is emptied.
    bool clearMinSend = false;
    bool clearMaxSend = false;

    bool operator==(const AnalogControls&) const = default;
};

/// `mode` is the list index of cmbModus.
AnalogControls AnalogControlsOf(int mode);
