#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"

#include <QPushButton>

/// Sends single commands by hand. Remote and command are chosen from the server's lists or typed, whether the
/// lists know them or not; they stand in the box as they were typed until the user changes them.
class frmSendFree : public Form {
    Q_OBJECT

public:
    frmSendFree(const FormServices& services, QWidget* parent);

private:
    void AskForCommands(const QString& remote);
    void FillRemoteCombo();
    void FillCommandCombo();
    void EnableSend();
    void Send();

    EditableComboBox* txtRemote;
    EditableComboBox* txtCommand;
    ComboBox* cmbLED;
    ComboBox* cmbBus; ///< item data: bus number
    ComboBox* cmbID;  ///< item data: send mask
    QPushButton* cmdSend;
};
