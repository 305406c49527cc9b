#pragma once

#include "translator/translator_device.h"
#include "translator/translator_source_controls.h"
#include "translator/translator_target_controls.h"
#include "translator/translator_transfer.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>

/// The editor of translator sets: the rules that a device carries out by itself, as a tree. The server stores
/// sets by name, and hands one to a device. What was not stored goes with the form, without a question.
class frmTranslator : public Form {
    Q_OBJECT

public:
    /// `devices` are those with a translator; `panelTitle` is the title of the panel's layout.
    frmTranslator(const FormServices& services, const TranslatorDevices& devices, const QString& panelTitle,
                  QWidget* parent);

private:
    // The constructor's parts.
    QLayout* MakeHead();
    QWidget* MakeTreeFrame();
    QLayout* MakeFoot();
    void Connect();
    void SetCaption(const QString& panelTitle);
    void ShowDevices(const TranslatorDevices& devices);

    // What the server says.
    void AskServer();
    void TakeNames(ReplyType type);
    void TakeCommands(int target);

    // The transfer.
    void Save();
    void Flash();
    void Load();
    /// `total` of 0: nobody knows yet.
    void ShowProgress(int element, int total);
    void ShowRefusal(const TranslatorRefusal& refusal);
    void ShowEnd(TranslatorTransfer::Outcome outcome);

    KeyedTree tree;
    TranslatorTransfer transfer;
    QString lastName; ///< of the set that was last to be stored or loaded
    EditableComboBox* txtName;
    QLabel* Label2;
    ComboBox* cmbDevice; ///< item data: the device tag
    QCheckBox* chkNames;
    TranslatorTreeView* tvwConfig;
    TranslatorSourceControls* source;
    TranslatorTargetControls* target;
    QPushButton* cmdSave;
    QPushButton* cmdFlash;
    QPushButton* cmdLoad;
    QPushButton* cmbExit;
    QProgressBar* pgbTransfer;
    QLabel* lblState;
};
