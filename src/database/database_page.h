#pragma once

#include "database/database_tree.h"
#include "database/device_rules.h"
#include "database/settings.h"
#include "forms/keyed_tree_view.h"
#include "forms/text_boxes.h"

#include <QCheckBox>
#include <QMenu>

/// The page "IRDB": the tree of remotes and commands with its ways to mark them, and what holds for the
/// database as a whole.
class DatabasePage : public QWidget {
    Q_OBJECT

public:
    /// `tree` must outlive the page. The page marks remotes in it and takes marks away.
    DatabasePage(KeyedTree& tree, QWidget* parent);

    KeyedTreeView* Tree() const { return tvwRemotes; }

    /// Puts what the page holds into `values`, all but the analog inputs.
    void Collect(DatabaseSettings& values) const;
    /// Shows it in an order in which the rule of chkBinary works.
    void Show(const DatabaseSettings& values);

    /// A device has been chosen: enables what it can do.
    void SetDevice(const QString& version);
    /// What the device that was chosen lets the controls do.
    const DatabaseDevice::Controls& Abilities() const { return abilities; }

signals:
    /// The dialog of this node's tag is wanted: of a remote with properties, or of a command.
    void PropertiesAsked(const QString& key);

private:
    QWidget* MakeFlags();
    QWidget* MakeFormats();
    void MakeMenu();
    void ShowMenu(const QString& key, const QPoint& position);
    void Activate(const QString& key);
    void ApplyBinary(bool isChecked);

    KeyedTree& tree;
    QString device; ///< version of the chosen one; empty until one is chosen
    DatabaseDevice::Controls abilities;
    KeyedTreeView* tvwRemotes;
    QMenu* fnuPopupTree = nullptr;
    QAction* select = nullptr;
    QAction* deselect = nullptr;
    QAction* properties = nullptr;
    QString menuKey;               ///< the remote for which the menu is up
    std::vector<QCheckBox*> flags; ///< in the order of their rows
    TextBox* txtAction = nullptr;
    TextBox* txtOK = nullptr;
    TextBox* txtErr = nullptr;
    QLabel* targetLabel = nullptr;
    AddressBoxes* txtIP = nullptr;
    TextBox* txtPort = nullptr;
};
