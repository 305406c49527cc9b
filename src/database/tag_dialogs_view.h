#pragma once

#include "database/database_tree.h"
#include "database/device_rules.h"
#include "forms/form.h"

/// The device for which a database is made.
struct TargetDevice {
    QString version; ///< empty if none is chosen
    DatabaseDevice::Controls abilities;
};

/// Opens the dialog that edits the tag of a node, the properties of a remote or the actions of a command.
/// What its OK makes of the tag goes into the tree. `parent` must not outlive the tree. Nothing happens if
/// the tree doesn't have the node.
void OpenTagDialog(const FormServices& services, KeyedTree& tree, const QString& key,
                   const TargetDevice& device, QWidget* parent);
