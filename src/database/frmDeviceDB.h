#pragma once

#include "database/analog_page.h"
#include "database/database_page.h"
#include "database/lists.h"
#include "database/transfer.h"
#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/tab_frames.h"
#include "link/device_list.h"

#include <QProgressBar>
#include <QPushButton>

/// Edits one database: marks remotes and commands of the server, holds what else belongs to a database, saves
/// it at the server, loads another one, and writes it into a device.
///
/// The tree fills while the dialog is up. Nothing that a server does or leaves undone blocks the dialog, and
/// no request follows its end.
class frmDeviceDB : public Form {
    Q_OBJECT

public:
    /// `devices` are those that can hold a database; the first is chosen. Asks the server for its remotes.
    frmDeviceDB(const FormServices& services, const std::vector<ListedDevice>& devices, QWidget* parent);

private:
    // The constructor's parts.
    QLayout* MakeFoot();
    void FillDevices();
    void ConnectSession();
    void ConnectControls();

    QString DeviceVersion() const;
    DatabaseSettings Collect() const;
    void Show(const DatabaseSettings& values);
    /// What the pages hold, with every number limited there to its field.
    DatabaseSettings Limited();
    void EnableButtons();

    void ReadAnalogInputs(int tab);
    void EndTransfer(DatabaseTransfer::Outcome outcome);
    void EndLists(const QStringList& sets);
    void TellUnknown();
    void ShowProgress(const QString& work, int done, int total);
    void ShowListProgress(int done, int total);

    std::vector<ListedDevice> devices;
    KeyedTree tree;
    std::unique_ptr<DatabaseLists> lists;       ///< null once the dialog has ended
    std::unique_ptr<DatabaseTransfer> transfer; ///< likewise
    bool isUnknownWaiting = false;              ///< a load had names that the tree may yet get

    TabFrames* tabIRDB;
    DatabasePage* frIRDB;
    AnalogPage* frIO;
    ComboBox* cmbDevice = nullptr;
    EditableComboBox* txtName = nullptr;
    QPushButton* cmdLoad = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdFlash = nullptr;
    QPushButton* cmbExit = nullptr;
    QProgressBar* pgbStat = nullptr;
    QString work; ///< what the chain that runs is called
};
