#include "database/analog_rules.h"

namespace {

// List indices of cmbModus.
constexpr int Off = 0;
constexpr int MinValue = 1;
constexpr int MaxValue = 2;
constexpr int MinMaxValue = 3;
constexpr int SwitchOn = 4;
constexpr int SwitchOff = 5;

} // namespace

AnalogControls AnalogControlsOf(int mode) {
    const bool isOn = mode != Off;
    const bool hasThresholds = isOn && mode <= MinMaxValue;
    const bool minOnly = mode == MinValue || mode == SwitchOn;
    const bool maxOnly = mode == MaxValue || mode == SwitchOff;
    AnalogControls controls;
    controls.minimum = hasThresholds && mode != MaxValue;
    controls.maximum = hasThresholds && mode != MinValue;
    controls.hysteresis = hasThresholds;
    controls.minSend = isOn && !maxOnly;
    controls.maxSend = isOn && !minOnly;
    controls.minLed = controls.minSend;
    controls.maxLed = controls.maxSend;
    controls.ledLabel = isOn;
    controls.kind = isOn;
    controls.clearMinSend = maxOnly;
    controls.clearMaxSend = minOnly;
    return controls;
}
