#pragma once

#include "device/device_tree.h"
#include "forms/form.h"
#include "forms/keyed_tree_view.h"

#include <QPushButton>

/// Shows all devices of a status as a tree, and opens the settings of the one that is picked. It closes when
/// they have been sent, since it shows the devices as they were.
class frmDeviceMode : public Form {
    Q_OBJECT

public:
    frmDeviceMode(const FormServices& services, const std::vector<DeviceBus>& buses, QWidget* parent);

private:
    void Pick(const QString& key);
    void Activate(const QString& key);
    void OpenSettings();

    std::vector<DeviceBus> buses;
    KeyedTree tree;
    KeyedTreeView* tvwStat;
    QPushButton* cmdSet;
};
