#pragma once

#include "forms/combo_boxes.h"

#include <QListWidget>

/// A drop-down list of names from the server. It is as wide as the form wants it, not as the longest of a
/// thousand names.
ComboBox* MakeNameList(const QString& name, QWidget* parent);

/// The private format in which a target command travels from the list to the tree; its data are those of
/// EncodeDrag.
extern const QString DraggedCommandFormat;

/// The commands of a target remote, to be dragged onto the tree.
class CommandListView : public QListWidget {
    Q_OBJECT

public:
    /// `remote` is the list from which the remote was chosen, and outlives this.
    CommandListView(const QString& name, const QComboBox* remote, QWidget* parent);

    void SetCommands(const QStringList& commands);

    /// Empty if none is selected.
    QString SelectedCommand() const;

protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

private:
    const QComboBox* remote;
};
