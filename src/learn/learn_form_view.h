#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "learn/learn_controls.h"
#include "learn/learn_rules.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

/// The controls of the learn dialog, and what the rules say put into them. frmProgramm gives them their life.
class LearnFormView : public Form {
    Q_OBJECT

protected:
    LearnFormView(const FormServices& services, QWidget* parent);

    /// Puts the state into the controls.
    void Refresh();
    /// Reads what the user has chosen into the state, before a rule looks at it.
    void Collect();

    LearnControls state;
    bool isRefreshing = false; ///< a control that changes now does so by the rules

    ComboBox* cmbBus = nullptr;
    ComboBox* cmbAdrMode = nullptr;
    TextBox* txtAdresse = nullptr;
    EditableComboBox* txtRemote = nullptr;
    QPushButton* cmdRemote = nullptr;
    ComboBox* cmbMode = nullptr;
    QPushButton* cmdTiming = nullptr;
    TextBox* txtCommand = nullptr;
    QPushButton* cmdLearn = nullptr;
    QPushButton* cmdCCF = nullptr;
    QPushButton* cmdRS232 = nullptr;
    QPushButton* cmdClose = nullptr;
    ComboBox* cmbRcv = nullptr;
    ComboBox* cmbTimeout = nullptr;
    ComboBox* cmbToleranz = nullptr;
    ComboBox* cmbCalibrate = nullptr;
    TextBox* txtTimeout = nullptr;
    CarrierBox* txtFrequenz = nullptr;
    QCheckBox* chkXL = nullptr;
    QCheckBox* chkToggle = nullptr;
    QCheckBox* chkSort = nullptr;
    QCheckBox* chkBO = nullptr;
    TextBox* txtCode = nullptr;
    TextBox* txtCommands = nullptr;
    TextBox* txtTimings = nullptr;
    QLabel* learnok = nullptr;
    std::array<ArrowMark*, 3> picArrow{};
    QProgressBar* pgbStat = nullptr;
    QLabel* prompt = nullptr;

private:
    QWidget* MakeDeviceFrame();
    QWidget* MakeStepsFrame();
    QWidget* MakeParameterFrame();
    QWidget* MakeRemoteFrame();
    QWidget* MakeStatusBar();
    void RefreshLists();
};
