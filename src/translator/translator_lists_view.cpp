#include "translator/translator_lists_view.h"

#include "forms/controls.h"
#include "translator/translator_editing_rules.h"

#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

constexpr int NameColumns = 20; ///< characters for which a list of names has room at least
constexpr int NamesInSight = 20;

} // namespace

ComboBox* MakeNameList(const QString& name, QWidget* parent) {
    auto* list = MakeComboBox(name, {}, parent);
    list->SetColumns(NameColumns);
    list->setMaxVisibleItems(NamesInSight);
    return list;
}

const QString DraggedCommandFormat = u"application/x-calvoris-%1"_s.arg(DraggedCommand::Format);

CommandListView::CommandListView(const QString& name, const QComboBox* remote, QWidget* parent)
    : QListWidget(parent)
    , remote(remote) {
    setObjectName(name);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setDragDropMode(DragOnly);
}

void CommandListView::SetCommands(const QStringList& commands) {
    clear();
    addItems(commands);
}

QString CommandListView::SelectedCommand() const {
    const auto selected = selectedItems();
    return selected.isEmpty() ? QString() : selected.constFirst()->text();
}

QStringList CommandListView::mimeTypes() const {
    return {DraggedCommandFormat};
}

QMimeData* CommandListView::mimeData(const QList<QListWidgetItem*>& items) const {
    if (items.isEmpty())
        return nullptr;
    auto* data = new QMimeData;
    data->setData(DraggedCommandFormat, EncodeDrag({remote->currentText(), items.constFirst()->text()}));
    return data;
}
