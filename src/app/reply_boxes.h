#pragma once

#include "database/frmIRDBStatus.h"
#include "forms/form_slot.h"
#include "tools/frmLog.h"

/// Shows the user what replies say that no open dialog waits for: errors, questions, the outcome of a flash.
class ReplyBoxes : public QObject {
    Q_OBJECT

public:
    ReplyBoxes(const FormServices& services, QWidget* mainWindow);

private:
    void ShowError(const ResultReply& result);
    void AskOverwrite(const ResultReply& result);
    void ShowTranslatorFlash(bool stored);
    void ProcessTextReply(const QString& text);
    void ShowSendFault(Session::SendFault fault);
    frmIRDBStatus& DatabaseStatus();

    FormServices services;
    QWidget* mainWindow;
    FormSlot<frmIRDBStatus> databaseStatus;
    FormSlot<frmLog> log;
    int errorBoxes = 0; ///< on the screen and waiting
    bool faultBoxUp = false;
};
