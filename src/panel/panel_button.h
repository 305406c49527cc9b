#pragma once

#include "panel/layout.h"

#include <QPushButton>
#include <QTouchEvent>

/// A button of the panel, drawn flat in the colours that the layout gives it, or in those of the palette.
///
/// `pressed` and `released` tell when it goes down and when it comes up again, by mouse (any button of it),
/// touch and keyboard alike; `clicked` follows if it came up where it went down. It stays down while the
/// pointer leaves it, and comes up when its release is lost: it loses the focus, its window is deactivated or
/// blocked, the button is hidden or disabled. The repeats of a key that is held are no presses.
class PanelButton : public QPushButton {
    Q_OBJECT

public:
    PanelButton(const QString& name, const LayoutElement& element, QWidget* parent);

    /// Lets the button up if it is down.
    void LoseRelease();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What holds the button down.
    enum class Holder { None, Mouse, Touch, Key };

    QPixmap Ground(const QColor& color, const QColor& edge, bool isFocused) const;
    bool TakeTouch(QTouchEvent* event);
    void GoDown(Holder by);
    void ComeUp(bool isClick);

    QString caption;
    Holder holder = Holder::None;
    Qt::MouseButton mouseButton = Qt::NoButton;
    int key = 0;
    LayoutColor backColor;
    LayoutColor foreColor;
};

/// Font size in points for panel elements: 1440 twips are 72 points, whatever the screen.
void SetPanelFont(QWidget& widget, const LayoutElement& element);

/// A rectangle in twips as logical pixels, 15 twips each. Edges are rounded, not widths, so that neighbours
/// stay flush. A negative size is none.
QRect ToPixels(const LayoutRect& rect);
int ToPixels(int twips);

QColor ToColor(quint32 bgr);
