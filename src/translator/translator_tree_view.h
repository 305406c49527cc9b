#pragma once

#include "forms/form.h"
#include "forms/keyed_tree_view.h"
#include "translator/translator_device.h"
#include "translator/translator_editing_rules.h"

#include <QHash>

class QMenu;

/// The tree of a translator set, with all that is done to its nodes on the spot: their menus, their
/// properties, deleting, and dropping commands on them.
class TranslatorTreeView : public KeyedTreeView {
    Q_OBJECT

public:
    /// `tree` must outlive the view. The menus become children of `form`, and their entries have keys of that
    /// form.
    TranslatorTreeView(const FormServices& services, const QString& name, KeyedTree& tree,
                       const TranslatorDevice& device, Form* form);

    /// Adds a send step to the node and makes it visible. Nothing happens if the node takes none.
    void AddStep(const QString& key, const DraggedCommand& dragged);

signals:
    /// A node and all below it have gone.
    void Deleted();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    void MakeMenu(TranslatorMenu menu, const QString& items, Form* form);
    void ShowMenu(const QString& key, const QPoint& position);
    void OpenProperties(const QString& key);
    void Delete(const QString& key);
    /// Highlights the node; none if the key is empty.
    void SetDropTarget(const QString& key);
    void EndDrag();

    FormServices services;
    KeyedTree& tree;
    TranslatorDevice device;
    QHash<int, QMenu*> menus; ///< by TranslatorMenu
    QString MenuNode;         ///< key of the node for which a menu was opened last
    QString dropTarget;       ///< key of the node under the pointer of a drag
    int DeletedSteps = 0;     ///< send steps deleted by themselves since the form opened
};
