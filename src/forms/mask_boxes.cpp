#include "forms/mask_boxes.h"

#include "forms/controls.h"

#include <QGridLayout>
#include <QPainter>
#include <QStyle>

namespace {

/// One label, so that it is one control to translate and to disable, that sets its words above the boxes.
class DigitRow : public QLabel {
public:
    using QLabel::QLabel;

    QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(QStringLiteral("00 ")) * MaskBoxes::Count,
                fontMetrics().height()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QStringList words = text().split(u' ', Qt::SkipEmptyParts);
        for (int i = 0; i < words.size(); ++i) {
            const int left = width() * i / int(words.size());
            const int right = width() * (i + 1) / int(words.size());
            style()->drawItemText(&painter, QRect(left, 0, right - left, height()), Qt::AlignCenter,
                                  palette(), isEnabled(), words[i], foregroundRole());
        }
    }
};

} // namespace

MaskBoxes::MaskBoxes(const QString& name, int first, const QLabel* title, const QString& digitsName,
                     QWidget* parent)
    : NumberedBoxes(title, parent)
    , digits(new DigitRow(this)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(digits, 0, 0, 1, Count);
    QStringList words;
    for (int bit = Count - 1; bit >= 0; --bit) {
        const int column = Count - 1 - bit;
        auto* box = MakeCheckBox(ElementName(name, first + bit), {}, this);
        boxes[size_t(bit)] = box;
        AddBox(box, bit);
        words += QString::number(bit);
        grid->addWidget(box, 1, column, Qt::AlignHCenter);
        grid->setColumnStretch(column, 1);
        connect(box, &QCheckBox::toggled, this, &MaskBoxes::Changed);
    }
    digits->setObjectName(digitsName);
    digits->setTextFormat(Qt::PlainText);
    digits->setText(words.join(u' '));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusProxy(boxes.back());
}

quint16 MaskBoxes::Value() const {
    quint16 value = 0;
    for (int bit = 0; bit < Count; ++bit)
        value |= quint16(quint16(Box(bit)->isChecked()) << bit);
    return value;
}

void MaskBoxes::SetValue(quint16 value) {
    for (int bit = 0; bit < Count; ++bit)
        Box(bit)->setChecked((value >> bit & 1) != 0);
}
