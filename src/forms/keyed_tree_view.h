#pragma once

#include "base/keyed_tree.h"

#include <QIcon>
#include <QTreeView>

/// Shows a KeyedTree, of which one node at most is selected. Forms speak of nodes by key.
///
/// Texts are plain. Typing finds a node by the start of its text.
class KeyedTreeView : public QTreeView {
    Q_OBJECT

public:
    /// `tree` must outlive the view.
    KeyedTreeView(const QString& name, const KeyedTree& tree, QWidget* parent);

    /// The icons by image key. A node whose image isn't among them has none.
    void SetImages(const QHash<QString, QIcon>& images);

    /// Empty if nothing is selected.
    QString SelectedKey() const;
    /// Selects a node and makes it visible; with an unknown or empty key, nothing is selected.
    void Select(const QString& key);
    /// Opens what lies above the node and scrolls to it.
    void EnsureVisible(const QString& key);
    /// The node at a point of the viewport; empty if none lies there.
    QString KeyAt(const QPoint& position) const;

signals:
    /// The selection has changed; empty if nothing is selected any more.
    void Selected(const QString& key);
    /// Enter or a double click.
    void Activated(const QString& key);
    /// The Delete key.
    void DeleteAsked(const QString& key);
    /// A right click, which has selected the node, or the menu key or Shift+F10.
    void MenuAsked(const QString& key, const QPoint& globalPosition);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    using QTreeView::setModel;

    /// At the line itself, for a menu that a key has asked for.
    void AskForMenu(const QString& key);

    const KeyedTree& tree;
};
