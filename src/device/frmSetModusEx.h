#pragma once

#include "device/set_modus_ex_controls.h"
#include "forms/form.h"
#include "forms/tab_frames.h"

/// The settings of one device with firmware "5.20.01" or later, on seven pages. `cmdSet` sends them all in
/// one record; what that changes in the device shows with the next status.
class frmSetModusEx : public Form {
    Q_OBJECT

public:
    /// `entry` is what the device has reported. `target` is the number by which the server knows it: bus
    /// number * 256 + address, or the plain address. An empty `caption` leaves the form its own.
    frmSetModusEx(const FormServices& services, const DeviceEntry& entry, qint32 target,
                  const QString& caption, QWidget* parent);

signals:
    /// `cmdSet` has sent the settings. The form closes next.
    void SettingsSent();

private:
    void NameSecondControls();
    void Send(qint32 target);

    ModusEx::State state;
    SetModusExControls controls;
    TabFrames* tabMode;
};
