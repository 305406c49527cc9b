#include "translator/property_controls.h"

#include "forms/controls.h"

using namespace Qt::StringLiterals;

QLabel* AddTitled(QGridLayout& grid, const QString& titleName, const QString& caption, QWidget* control) {
    auto* title = MakeLabel(titleName, caption, control->parentWidget(), control);
    const int row = grid.rowCount();
    grid.addWidget(title, row, 0);
    grid.addWidget(control, row, 1);
    return title;
}

MaskBoxes* AddMask(QGridLayout& grid, const QString& titleName, const QString& caption, int first,
                   const QString& digitsName) {
    QWidget* parent = grid.parentWidget();
    auto* title = MakeLabel(titleName, caption, parent);
    auto* boxes = new MaskBoxes(u"chkMask"_s, first, title, digitsName, parent);
    title->setBuddy(boxes);
    const int row = grid.rowCount();
    grid.addWidget(title, row, 0);
    grid.addWidget(boxes, row, 1);
    return boxes;
}

ComboBox* MakeForwardList(const QString& name, int ForwardEntry::*bits, QWidget* parent) {
    auto* list = MakeComboBox(name, {}, parent);
    for (const ForwardEntry& entry : ForwardEntries)
        list->addItem(entry.caption.toString(), entry.*bits);
    return list;
}

void ShowBox(QCheckBox& box, bool isOn, bool canUse) {
    box.setEnabled(canUse);
    box.setChecked(isOn);
}

void ShowIndex(ComboBox& list, int index, bool canUse) {
    list.setEnabled(canUse);
    list.setCurrentIndex(index);
}

void ShowText(QLineEdit& box, const QString& text, bool canUse) {
    box.setEnabled(canUse);
    if (box.text() != text)
        box.setText(text);
}
