#pragma once

#include "database/action_rules.h"
#include "database/ez_controls.h"

class QGridLayout;

/// One of the eight pages of actions: where an action goes, and its text, for which a page in EZ mode has
/// fields. The page carries out the rules of its check boxes, also when code changes them.
class ActionPage : public QWidget {
    Q_OBJECT

public:
    /// `number` from 0 to 7. The page holds the values of a new dialog and shows them with SetValues.
    ActionPage(int number, const ActionDialog::Cuts& cuts, QWidget* parent);

    const ActionDialog::Page& Values() const { return values; }
    void SetValues(const ActionDialog::Page& shown);

    /// Names the action for screen readers, as its tab does for the eye.
    void SetTitle(const QString& title);

private:
    QHBoxLayout* MakeTarget();
    QGridLayout* MakeChecks();
    void Show();
    void ShowText();

    int number;
    ActionDialog::Cuts cuts;
    ActionDialog::Page values;
    bool isFiltered = false; ///< the filter of binary data is in force
    ValueControls controls;
    QLabel* lblIP = nullptr;
    AddressBoxes* txtIP = nullptr;
    QLabel* lblPort = nullptr;
    TextBox* txtPort = nullptr;
    QCheckBox* chkDefault = nullptr;
    QCheckBox* chkUDP = nullptr;
    QCheckBox* chkAUX = nullptr;
    QCheckBox* chkBinary = nullptr;
    QCheckBox* chkEZ = nullptr;
    TextBox* txtAction = nullptr;
    EzControls* frmEZ = nullptr;
};
