#include "forms/combo_boxes.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QWheelEvent>

#include <utility>

ComboBox::ComboBox(const QString& name, QWidget* parent)
    : QComboBox(parent) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    // Without a text to show in its place, the base class selects the first entry that is added.
    setPlaceholderText(QStringLiteral(" "));

    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        hasTold = index >= 0;
        if (hasTold)
            emit Picked(itemText(index));
    });
    connect(this, &QComboBox::textActivated, this, [this](const QString& entry) {
        if (!std::exchange(hasTold, false))
            emit Picked(entry);
    });
}

void ComboBox::SetColumns(int columns) {
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(columns);
}

bool ComboBox::SelectByData(const QVariant& data) {
    const int index = findData(data);
    if (index >= 0)
        setCurrentIndex(index);
    return index >= 0;
}

void ComboBox::SetEntries(const QStringList& entries) {
    clear();
    // The base class would tell of the entry that it selects at once.
    const QSignalBlocker silence(this);
    // This model shares the names with whoever else holds them; the one of the base class copies each.
    if (qobject_cast<QStringListModel*>(model()) == nullptr)
        setModel(new QStringListModel(this));
    static_cast<QStringListModel*>(model())->setStringList(entries);
    setCurrentIndex(-1);
}

void ComboBox::RemoveEntry(int index) {
    if (index == currentIndex())
        setCurrentIndex(-1);
    removeItem(index);
}

void ComboBox::showPopup() {
    hasTold = false;
    QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    hasTold = false;
    QComboBox::keyPressEvent(event);
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    hasTold = false;
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

EditableComboBox::EditableComboBox(const QString& name, QWidget* parent)
    : ComboBox(name, parent) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    // The base class chooses the entry whose text was typed when the focus leaves. Typing is no choice.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);

    connect(this, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (!isRefilling)
            emit TextChanged(text);
    });
}

void EditableComboBox::SetEntries(const QStringList& entries) {
    const bool isOpen = view()->isVisible();
    if (isOpen)
        hidePopup();
    const QString text = currentText();
    const int cursor = lineEdit()->cursorPosition();
    const int start = lineEdit()->selectionStart();
    const int length = int(lineEdit()->selectedText().size());

    isRefilling = true;
    ComboBox::SetEntries(entries);
    setEditText(text);
    isRefilling = false;

    if (start < 0)
        lineEdit()->setCursorPosition(cursor);
    else if (cursor == start)
        lineEdit()->setSelection(start + length, -length);
    else
        lineEdit()->setSelection(start, length);
    if (isOpen)
        showPopup();
}

void EditableComboBox::showPopup() {
    ComboBox::showPopup();
    const QString text = currentText();
    if (text.isEmpty() || itemText(currentIndex()) == text)
        return;
    if (const int found = findText(text, Qt::MatchStartsWith); found >= 0)
        view()->setCurrentIndex(model()->index(found, modelColumn(), rootModelIndex()));
}

ComboBox* MakeComboBox(const QString& name, const QStringList& entries, QWidget* parent) {
    auto* box = new ComboBox(name, parent);
    box->addItems(entries);
    return box;
}

EditableComboBox* MakeEditableComboBox(const QString& name, QWidget* parent) {
    return new EditableComboBox(name, parent);
}
