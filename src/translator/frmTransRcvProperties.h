#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/mask_boxes.h"
#include "translator/property_rules.h"

#include <QGroupBox>

/// The properties of a command, macro or toggle.
class frmTransRcvProperties : public Form {
    Q_OBJECT

public:
    /// `tag` is that of the node; a field that is missing or no number counts as 0.
    frmTransRcvProperties(const FormServices& services, const QString& tag, const TranslatorDevice& device,
                          QWidget* parent);

signals:
    /// OK was pressed; the form closes next. `tag` is the node's new one, never empty. Not emitted if the
    /// form is cancelled.
    void TagChanged(const QString& tag);

private:
    QGroupBox* MakeSettings();
    QGroupBox* MakeRepetition();
    QGroupBox* MakeRelays();
    QGroupBox* MakeToggle();
    QGroupBox* MakePower();
    void Connect();
    /// Brings what a rule has changed to the controls.
    void Show();

    TranslatorDevice device;
    CommandProperties properties;

    QLineEdit* txtRemote = nullptr;
    MaskBoxes* chkMask = nullptr;
    ComboBox* cmbPC = nullptr;
    QLabel* Label5 = nullptr;
    ComboBox* cmbSBUS = nullptr;
    QLabel* Label3 = nullptr;
    ComboBox* cmbLEDSelect = nullptr;
    QGroupBox* Frame2 = nullptr;
    QCheckBox* chkAcc = nullptr;
    std::vector<QLabel*> repetitionTitles; ///< lblRepeat1, lblRepeat2, lbltimeout
    ComboBox* cmbRepeat1 = nullptr;
    ComboBox* cmbRepeat2 = nullptr;
    QLineEdit* txtTimeout = nullptr;
    QGroupBox* Frame3 = nullptr;
    QLabel* lblRelais = nullptr;
    ComboBox* cmbRelais = nullptr;
    ComboBox* cmbRelNum = nullptr;
    QCheckBox* chkToggle = nullptr;
    QCheckBox* chkOn = nullptr;
    QCheckBox* chkOff = nullptr;
};
