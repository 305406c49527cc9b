#include "forms/numbered_boxes.h"

#include "forms/controls.h"

NumberedBoxes::NumberedBoxes(const QLabel* title, QWidget* parent)
    : QWidget(parent)
    , title(title) {}

void NumberedBoxes::AddBox(QWidget* box, int number) {
    numbered.push_back({box, number});
}

void NumberedBoxes::showEvent(QShowEvent* event) {
    const QString caption = title.isNull() ? QString() : CaptionOf(*title) + u' ';
    for (const Numbered& each : numbered)
        each.box->setAccessibleName(caption + QString::number(each.number));
    QWidget::showEvent(event);
}
