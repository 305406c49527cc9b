#include "forms/combo_boxes.h"

#include <QWheelEvent>

ComboBox::ComboBox(const QString& name, QWidget* parent)
    : QComboBox(parent) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    // Without a text to show in its place, the base class selects the first entry that is added.
    setPlaceholderText(QStringLiteral(" "));
}

bool ComboBox::SelectByData(const QVariant& data) {
    const int index = findData(data);
    if (index >= 0)
        setCurrentIndex(index);
    return index >= 0;
}

void ComboBox::RemoveEntry(int index) {
    if (index == currentIndex())
        setCurrentIndex(-1);
    removeItem(index);
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

ComboBox* MakeComboBox(const QString& name, const QStringList& entries, QWidget* parent) {
    auto* box = new ComboBox(name, parent);
    box->addItems(entries);
    return box;
}

ComboBox* MakeEditableComboBox(const QString& name, QWidget* parent) {
    auto* box = new ComboBox(name, parent);
    box->setEditable(true);
    box->setCompleter(nullptr);
    box->setInsertPolicy(QComboBox::NoInsert);
    return box;
}
