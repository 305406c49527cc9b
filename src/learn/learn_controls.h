#pragma once

#include "forms/text_boxes.h"

/// Points at the control beside it. It keeps its place while it is hidden.
class ArrowMark : public QWidget {
    Q_OBJECT

public:
    ArrowMark(const QString& name, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Takes a carrier in kHz, or shows the one that was measured, in red. What the user changes of a measured
/// carrier is a number again.
class CarrierBox : public TextBox {
    Q_OBJECT

public:
    CarrierBox(const QString& name, QWidget* parent);

    void ShowMeasured(int kHz);

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    void TakeEdit();

    bool isMeasured = false;
};
