#include "panel/panel_button.h"

#include "forms/controls.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QTouchEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int LargestFont = 400; // points
constexpr qreal Radius = 6;      // logical pixels

/// `color` moved towards white or black, whichever it is farther from; `amount` of 255.
QColor Shifted(const QColor& color, int amount) {
    const int target = color.lightness() < 128 ? 255 : 0;
    const auto mix = [amount, target](int channel) { return channel + (target - channel) * amount / 255; };
    return {mix(color.red()), mix(color.green()), mix(color.blue())};
}

QColor Mixed(const QColor& a, const QColor& b) {
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

} // namespace

int ToPixels(int twips) {
    return int(std::lround(twips / 15.0));
}

QRect ToPixels(const LayoutRect& rect) {
    const QPoint topLeft(ToPixels(rect.left), ToPixels(rect.top));
    const QPoint end(ToPixels(rect.left + rect.width), ToPixels(rect.top + rect.height));
    return {topLeft, QSize(std::max(0, end.x() - topLeft.x()), std::max(0, end.y() - topLeft.y()))};
}

QColor ToColor(quint32 bgr) {
    return {int(bgr & 255), int(bgr >> 8 & 255), int(bgr >> 16 & 255)};
}

void SetPanelFont(QWidget& widget, const LayoutElement& element) {
    if (element.fontSize <= 0 && !element.bold)
        return;
    QFont font = widget.font();
    if (element.fontSize > 0)
        font.setPixelSize(std::max(1, ToPixels(std::min<int>(element.fontSize, LargestFont) * 20)));
    font.setBold(element.bold);
    widget.setFont(font);
}

PanelButton::PanelButton(const QString& name, const LayoutElement& element, QWidget* parent)
    : QPushButton(ToMnemonicText(element.caption), parent)
    , caption(element.caption)
    , backColor(element.backColor)
    , foreColor(element.foreColor) {
    setObjectName(name);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_Hover);
    SetPanelFont(*this, element);
    setGeometry(ToPixels(element.rect));
}

void PanelButton::LoseRelease() {
    ComeUp(false);
}

bool PanelButton::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: return TakeTouch(static_cast<QTouchEvent*>(event));
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::UngrabMouse: LoseRelease(); break;
    case QEvent::EnabledChange:
        if (!isEnabled())
            LoseRelease();
        break;
    default: break;
    }
    return QPushButton::event(event);
}

bool PanelButton::TakeTouch(QTouchEvent* event) {
    if (!isEnabled())
        return false;
    event->accept();
    if (event->type() == QEvent::TouchBegin)
        GoDown(Holder::Touch);
    else if (holder == Holder::Touch && event->type() != QEvent::TouchUpdate) {
        const bool ended = event->type() == QEvent::TouchEnd && !event->points().isEmpty();
        ComeUp(ended && rect().contains(event->points().first().position().toPoint()));
    }
    return true;
}

void PanelButton::mousePressEvent(QMouseEvent* event) {
    if (holder == Holder::None) {
        mouseButton = event->button();
        GoDown(Holder::Mouse);
    }
}

void PanelButton::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void PanelButton::mouseReleaseEvent(QMouseEvent* event) {
    if (holder == Holder::Mouse && event->button() == mouseButton)
        ComeUp(rect().contains(event->position().toPoint()));
}

void PanelButton::keyPressEvent(QKeyEvent* event) {
    const bool isOurs = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                        event->key() == Qt::Key_Enter || event->key() == Qt::Key_Select;
    if (!isOurs) {
        QPushButton::keyPressEvent(event);
    } else if (!event->isAutoRepeat() && holder == Holder::None) {
        key = event->key();
        GoDown(Holder::Key);
    }
}

void PanelButton::keyReleaseEvent(QKeyEvent* event) {
    if (holder == Holder::Key && event->key() == key) {
        if (!event->isAutoRepeat())
            ComeUp(true);
    } else {
        event->ignore();
    }
}

void PanelButton::focusOutEvent(QFocusEvent* event) {
    LoseRelease();
    QPushButton::focusOutEvent(event);
}

void PanelButton::GoDown(Holder by) {
    if (holder != Holder::None)
        return;
    holder = by;
    setDown(true);
    emit pressed();
}

void PanelButton::ComeUp(bool isClick) {
    if (holder == Holder::None)
        return;
    holder = Holder::None;
    setDown(false);
    emit released();
    if (isClick)
        emit clicked();
}

/// The button without its caption. Most buttons of a page look alike, so the picture is made once.
QPixmap PanelButton::Ground(const QColor& color, const QColor& edge, bool isFocused) const {
    const qreal scale = devicePixelRatio();
    const QString key = QStringLiteral("panel-%1-%2-%3-%4-%5-%6")
                            .arg(width())
                            .arg(height())
                            .arg(color.rgb())
                            .arg(edge.rgb())
                            .arg(int(isFocused))
                            .arg(scale);
    QPixmap ground;
    if (QPixmapCache::find(key, &ground))
        return ground;
    ground = QPixmap(size() * scale);
    ground.setDevicePixelRatio(scale);
    ground.fill(Qt::transparent);
    QPainter painter(&ground);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, isFocused ? 2 : 1));
    painter.setBrush(color);
    const qreal inset = isFocused ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Radius, Radius);
    QPixmapCache::insert(key, ground);
    return ground;
}

void PanelButton::paintEvent(QPaintEvent*) {
    const QPalette& colors = palette();
    QColor ground = backColor ? ToColor(*backColor) : colors.color(QPalette::Button);
    QColor text = foreColor ? ToColor(*foreColor) : colors.color(QPalette::ButtonText);
    QColor edge = Shifted(ground, 60);
    const bool isFocused = hasFocus() && isEnabled();
    if (isFocused)
        edge = colors.color(QPalette::Highlight);
    if (!isEnabled()) {
        const QColor window = parentWidget()->palette().color(parentWidget()->backgroundRole());
        ground = Mixed(ground, window);
        edge = Mixed(edge, window);
        text = Mixed(text, ground);
    } else if (isDown()) {
        ground = Shifted(ground, 50);
    } else if (underMouse()) {
        ground = Shifted(ground, 20);
    }

    QPainter painter(this);
    painter.drawPixmap(0, 0, Ground(ground, edge, isFocused));
    painter.setPen(text);
    QRect inner = rect().adjusted(3, 1, -3, -1);
    if (isDown())
        inner.translate(0, 1);
    painter.drawText(inner, Qt::AlignCenter | Qt::TextWordWrap, caption);
}
