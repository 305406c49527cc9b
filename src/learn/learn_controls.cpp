#include "learn/learn_controls.h"

#include <QPainter>
#include <QTimer>

using namespace Qt::StringLiterals;

ArrowMark::ArrowMark(const QString& name, QWidget* parent)
    : QWidget(parent) {
    setObjectName(name);
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
}

QSize ArrowMark::sizeHint() const {
    const int side = fontMetrics().height();
    return {side, side};
}

void ArrowMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().highlight());
    const qreal side = qMin(width(), height());
    const QPointF middle = QRectF(rect()).center();
    painter.drawPolygon(
        QPolygonF({middle + QPointF(-side * 0.28, -side * 0.4), middle + QPointF(side * 0.42, 0),
                   middle + QPointF(-side * 0.28, side * 0.4)}));
}

CarrierBox::CarrierBox(const QString& name, QWidget* parent)
    : TextBox(name, 0, parent) {
    SetFilter(DigitsOnly);
    connect(this, &QLineEdit::textEdited, this, &CarrierBox::TakeEdit);
}

void CarrierBox::ShowMeasured(int kHz) {
    SetFilter(nullptr);
    setText(u" %1  [MEAS]"_s.arg(kHz));
    isMeasured = true;
    QPalette red = palette();
    red.setColor(QPalette::Text, QColor(255, 0, 0));
    setPalette(red);
}

/// The whole text is selected, so that typing replaces what was measured.
void CarrierBox::focusInEvent(QFocusEvent* event) {
    TextBox::focusInEvent(event);
    if (isMeasured)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
}

void CarrierBox::TakeEdit() {
    if (!isMeasured)
        return;
    isMeasured = false;
    setPalette(QPalette());
    setText(text().section(u'[', 0, 0));
    SetFilter(DigitsOnly);
}
