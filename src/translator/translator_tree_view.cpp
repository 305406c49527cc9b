#include "translator/translator_tree_view.h"

#include "forms/controls.h"
#include "translator/node_properties_view.h"
#include "translator/translator_icons_view.h"
#include "translator/translator_lists_view.h"

#include <QDragMoveEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int ExpandDelay = 600; ///< milliseconds over a closed node until a drag opens it
constexpr int FirstItem = 10;
constexpr int SecondItem = 20;

} // namespace

TranslatorTreeView::TranslatorTreeView(const FormServices& services, const QString& name, KeyedTree& tree,
                                       const TranslatorDevice& device, Form* form)
    : KeyedTreeView(name, tree, form)
    , services(services)
    , tree(tree)
    , device(device) {
    SetImages(MakeTranslatorImages());
    setIconSize(QSize(fontMetrics().height(), fontMetrics().height()) * 11 / 10);
    setExpandsOnDoubleClick(false); // it opens the properties
    setDragDropMode(DropOnly);
    setAutoExpandDelay(ExpandDelay);
    MakeMenu(TranslatorMenu::Received, u"mnuRCVItem"_s, form);
    MakeMenu(TranslatorMenu::Send, u"mnuSNDItem"_s, form);
    MakeMenu(TranslatorMenu::Remote, u"mnuRemItem"_s, form);
    MakeMenu(TranslatorMenu::Root, u"mnuConItem"_s, form);
    MakeMenu(TranslatorMenu::Group, u"mnuGroupItem"_s, form);

    connect(this, &KeyedTreeView::Activated, this, &TranslatorTreeView::OpenProperties);
    connect(this, &KeyedTreeView::DeleteAsked, this, &TranslatorTreeView::Delete);
    connect(this, &KeyedTreeView::MenuAsked, this, &TranslatorTreeView::ShowMenu);
}

void TranslatorTreeView::MakeMenu(TranslatorMenu menu, const QString& items, Form* form) {
    auto* popup = new QMenu(form);
    popup->setObjectName(ElementName(u"fnuPopupTree"_s, int(menu)));
    int item = FirstItem;
    const auto add = [&](const QString& caption, void (TranslatorTreeView::*effect)(const QString&)) {
        auto* action = popup->addAction(caption, this, [this, effect] { (this->*effect)(MenuNode); });
        action->setObjectName(ElementName(items, item));
        item = SecondItem;
    };
    if (OffersProperties(menu))
        add(u"Eigenschaften"_s, &TranslatorTreeView::OpenProperties);
    if (OffersDelete(menu))
        add(u"Löschen"_s, &TranslatorTreeView::Delete);
    popup->setDefaultAction(popup->actions().constFirst());
    menus.insert(int(menu), popup);
}

void TranslatorTreeView::ShowMenu(const QString& key, const QPoint& position) {
    QMenu* menu = menus.value(int(MenuFor(key)));
    if (menu == nullptr)
        return;
    MenuNode = key;
    menu->popup(position);
}

void TranslatorTreeView::OpenProperties(const QString& key) {
    if (OffersProperties(MenuFor(key))) {
        OpenNodeProperties(services, tree, key, device, this);
    } else if (const QModelIndex node = tree.IndexOf(key); node.isValid()) {
        setExpanded(node, !isExpanded(node));
    }
}

void TranslatorTreeView::Delete(const QString& key) {
    if (DeleteNode(tree, key, DeletedSteps))
        emit Deleted();
}

void TranslatorTreeView::AddStep(const QString& key, const DraggedCommand& dragged) {
    const QString added = DropCommand(tree, key, dragged, DeletedSteps);
    if (!added.isEmpty())
        EnsureVisible(added);
}

void TranslatorTreeView::dragEnterEvent(QDragEnterEvent* event) {
    if (!event->mimeData()->hasFormat(DraggedCommandFormat)) {
        event->ignore();
        return;
    }
    setState(DraggingState); // so that closed nodes open under the pointer
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void TranslatorTreeView::dragMoveEvent(QDragMoveEvent* event) {
    KeyedTreeView::dragMoveEvent(event); // scrolls at the edges
    const QString key = KeyAt(event->position().toPoint());
    SetDropTarget(key);
    if (event->mimeData()->hasFormat(DraggedCommandFormat) && AcceptsDrop(tree, key)) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void TranslatorTreeView::dragLeaveEvent(QDragLeaveEvent* event) {
    KeyedTreeView::dragLeaveEvent(event);
    EndDrag();
}

void TranslatorTreeView::dropEvent(QDropEvent* event) {
    EndDrag();
    const QString key = KeyAt(event->position().toPoint());
    const auto dragged = DecodeDrag(event->mimeData()->data(DraggedCommandFormat));
    if (!dragged || !AcceptsDrop(tree, key)) {
        event->ignore();
        return;
    }
    AddStep(key, *dragged);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void TranslatorTreeView::EndDrag() {
    stopAutoScroll();
    setState(NoState);
    SetDropTarget({});
}

void TranslatorTreeView::SetDropTarget(const QString& key) {
    if (dropTarget == key)
        return;
    dropTarget = key;
    viewport()->update();
}

void TranslatorTreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    KeyedTreeView::drawRow(painter, option, index);
    if (dropTarget.isEmpty() || index != tree.IndexOf(dropTarget))
        return;
    painter->save();
    painter->setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter->drawRect(QRectF(visualRect(index)).adjusted(1, 1, -1, -1));
    painter->restore();
}
