#include "forms/keyed_tree_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace {

class NodeDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QHash<QString, QIcon> images;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(KeyedTree::BoldRole).toBool()) {
            option->font.setBold(true);
            option->fontMetrics = QFontMetrics(option->font);
        }
        option->icon = images.value(index.data(KeyedTree::ImageRole).toString());
        if (!option->icon.isNull())
            option->features |= QStyleOptionViewItem::HasDecoration;
    }
};

} // namespace

KeyedTreeView::KeyedTreeView(const QString& name, const KeyedTree& tree, QWidget* parent)
    : QTreeView(parent)
    , tree(tree) {
    setObjectName(name);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setItemDelegate(new NodeDelegate(this));
    // Qt takes the model as one that may be edited; the view never does.
    setModel(const_cast<KeyedTree*>(&tree)); // NOLINT(cppcoreguidelines-pro-type-const-cast)
    // A wide text is scrolled to, not cut off.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { emit Selected(SelectedKey()); });
    connect(&tree, &QAbstractItemModel::modelReset, this, [this] { emit Selected(SelectedKey()); });
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit Activated(index.data(KeyedTree::KeyRole).toString()); });
}

void KeyedTreeView::SetImages(const QHash<QString, QIcon>& images) {
    static_cast<NodeDelegate*>(itemDelegate())->images = images;
    scheduleDelayedItemsLayout();
}

QString KeyedTreeView::SelectedKey() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : selected.first().data(KeyedTree::KeyRole).toString();
}

void KeyedTreeView::Select(const QString& key) {
    selectionModel()->setCurrentIndex(tree.IndexOf(key), QItemSelectionModel::ClearAndSelect);
}

void KeyedTreeView::EnsureVisible(const QString& key) {
    scrollTo(tree.IndexOf(key));
}

QString KeyedTreeView::KeyAt(const QPoint& position) const {
    return indexAt(position).data(KeyedTree::KeyRole).toString();
}

void KeyedTreeView::keyPressEvent(QKeyEvent* event) {
    const QString key = SelectedKey();
    // Many keyboards have no menu key, and not every platform knows the other way to the menu.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        return AskForMenu(key);
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (key.isEmpty() || !isPlain)
        return QTreeView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: emit Activated(key); break;
    case Qt::Key_Delete: emit DeleteAsked(key); break;
    default: QTreeView::keyPressEvent(event);
    }
}

void KeyedTreeView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Mouse)
        return AskForMenu(SelectedKey());
    const QString key = KeyAt(event->pos());
    if (key.isEmpty())
        return;
    Select(key);
    emit MenuAsked(key, event->globalPos());
}

void KeyedTreeView::AskForMenu(const QString& key) {
    if (key.isEmpty())
        return;
    EnsureVisible(key);
    emit MenuAsked(key, viewport()->mapToGlobal(visualRect(tree.IndexOf(key)).bottomLeft()));
}
