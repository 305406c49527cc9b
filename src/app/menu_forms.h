#pragma once

#include "database/frmDeviceDB.h"
#include "device/frmDeviceMode.h"
#include "forms/form_slot.h"
#include "learn/frmProgramm.h"
#include "link/status_store.h"
#include "panel/frmIP.h"
#include "tools/frmAbout.h"
#include "tools/frmAnalogIO.h"
#include "tools/frmHTML.h"
#include "tools/frmSendFree.h"
#include "translator/frmTranslator.h"
#include "translator/frmTranslatorWait.h"

/// Knows which menu entry opens which form, and what the arrival of a device status opens.
class MenuForms : public QObject {
    Q_OBJECT

public:
    /// `mainWindow` is the parent of all forms and outlives this.
    MenuForms(const FormServices& services, QWidget* mainWindow);

    /// What the entry of this control name opens; nothing for a name that opens nothing.
    void Open(const QString& name);

    /// The dialog that asks for the server's address.
    void OpenAddress();

    StatusStore& Status() { return status; }

private:
    enum class Purpose { Devices, Translator, Database, Html };

    void RequestStatus(Purpose purpose);
    /// The settings of the only device, or all devices.
    void OpenDevices();
    void UnloadWait();
    void TellNoDevice(const QString& text);

    FormServices services;
    QWidget* mainWindow;
    StatusStore status;
    FormSlot<frmIP> address;
    FormSlot<frmProgramm> learn;
    FormSlot<frmSendFree> freeSend;
    FormSlot<frmAnalogIO> analogInputs;
    FormSlot<frmAbout> about;
    FormSlot<frmHTML> html;
    FormSlot<frmDeviceMode> devices;
    FormSlot<frmDeviceDB> database;
    FormSlot<frmTranslator> translator;
    FormSlot<frmTranslatorWait> wait;
};
