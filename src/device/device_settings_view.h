#pragma once

#include "device/set_modus_rules.h"
#include "forms/form.h"

#include <functional>

/// Opens the settings dialog that fits the device's firmware, modally. It belongs to `parent`. `sent` is
/// called when the settings have been sent, and not if the dialog is closed without that.
Form* OpenDeviceSettings(const FormServices& services, const DeviceEntry& device, DevicePlace place,
                         DeviceOrigin origin, QWidget* parent, const std::function<void()>& sent);
