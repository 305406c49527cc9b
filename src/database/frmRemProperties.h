#pragma once

#include "database/action_rules.h"
#include "database/value_controls.h"
#include "forms/form.h"

/// Edits the properties of a remote in the database.
class frmRemProperties : public Form {
    Q_OBJECT

public:
    /// `tag` is that of the remote's node; one that holds no properties gives those of a new dialog.
    /// `hasTarget`: whether the device offers an address and a choice of the default, see
    /// DatabaseDevice::RemoteHasTarget.
    frmRemProperties(const FormServices& services, const QString& tag, bool hasTarget, QWidget* parent);

signals:
    /// OK: the node's new tag, which may be the old one. The form unloads behind it.
    void TagChanged(const QString& tag);

private:
    void Show();
    void Accept();

    RemoteDialog::Values values;
    ValueControls controls;
    TextBox* txtAction = nullptr;
    QCheckBox* chkUDP = nullptr;
    QCheckBox* chkAUX = nullptr;
};
