#pragma once

#include "forms/numbered_boxes.h"

#include <QCheckBox>

#include <array>

/// A mask of sixteen bits as sixteen check boxes, the highest bit at the left, and a row of digits above
/// them. Disabling it disables the digits and all boxes; a box can also be disabled by itself.
class MaskBoxes : public NumberedBoxes {
    Q_OBJECT

public:
    static constexpr int Count = 16;

    /// The boxes are the elements `first` to `first + 15` of the control array `name`, `first` being that of
    /// bit 0. `title` names them. `digitsName` is the name of the label with the digits.
    MaskBoxes(const QString& name, int first, const QLabel* title, const QString& digitsName,
              QWidget* parent);

    quint16 Value() const;
    void SetValue(quint16 value);

    /// `bit` from 0 to 15.
    QCheckBox* Box(int bit) const { return boxes[size_t(bit)]; }
    QLabel* Digits() const { return digits; }

signals:
    /// A box has changed, by hand or by code.
    void Changed();

private:
    QLabel* digits;
    std::array<QCheckBox*, Count> boxes{};
};
