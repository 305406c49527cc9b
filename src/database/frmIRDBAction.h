#pragma once

#include "database/action_page.h"
#include "database/device_rules.h"
#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/tab_frames.h"

/// Edits what a command in the database does: a relay function and eight actions.
class frmIRDBAction : public Form {
    Q_OBJECT

public:
    /// `tag` is that of the command's node; one that holds no actions gives those of a new dialog. `device`
    /// says which of the boxes chkAUX, chkLAN, chkRelay and chkBinary are enabled, and so what the device can
    /// do; the dialog shows no more than that, but keeps what the tag brings for the rest.
    frmIRDBAction(const FormServices& services, const QString& tag, const DatabaseDevice::Controls& device,
                  QWidget* parent);

signals:
    /// OK: what DatabaseTree::TakeActionResult stores. It begins with "A", or with "0" if nothing is set and
    /// the node gets no tag. The form unloads behind it; when it is cancelled, nothing is emitted.
    void TagChanged(const QString& tag);

private:
    QGroupBox* MakeRelayFrame();
    void SetValues(const ActionDialog::Values& shown);
    void Accept();

    ActionDialog::Cuts cuts;
    ActionDialog::Values values;
    ComboBox* cmbRelais = nullptr;
    std::array<QRadioButton*, ActionDialog::RelayFunctions.size()> optRelais{};
    TabFrames* tabMode = nullptr;
    std::array<ActionPage*, ActionDialog::Pages> pages{};
};
