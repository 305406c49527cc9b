#pragma once

#include "device/bound_controls.h"
#include "device/set_modus_rules.h"
#include "forms/form.h"

#include <QGridLayout>
#include <QGroupBox>

/// The settings of a device with firmware before "5.20.01". All of them go out in one record.
class frmSetModus : public Form {
    Q_OBJECT

public:
    /// `target` names the device to the server. `caption` is that of the frame, which tells which device it
    /// is; its built-in one if empty.
    frmSetModus(const FormServices& services, const DeviceEntry& entry, DeviceOrigin origin, qint32 target,
                const QString& caption, QWidget* parent);

signals:
    /// The settings have been sent.
    void SettingsSent();

private:
    QWidget* MakeFunctions();
    QWidget* MakeReceivers();
    QWidget* MakeTimes();
    QWidget* MakeMask();
    QWidget* MakeDisplay();
    QWidget* MakePower();

    QCheckBox* MakeExtBox(int index, const QString& caption, QWidget* parent);
    /// A row of a title and a list behind it.
    void AddList(QGridLayout* grid, const QString& labelName, const QString& caption, ComboBox* list,
                 ListState& state);
    void NameSecondControls();
    void SetRemoteByIrCaption();
    void Reset();
    void Send(qint32 target);

    SetModusState state;
    BoundControls controls;
};
