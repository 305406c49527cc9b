#pragma once

#include "forms/numbered_boxes.h"

#include <QLineEdit>
#include <QPointer>

#include <array>

/// Says what becomes of a character that gets into a text box: itself, another one, or nothing (a null
/// character).
using CharacterFilter = QChar (*)(QChar character);

/// Says whether a text can stand in a text box.
using TextRule = bool (*)(QStringView text);

/// "0" to "9".
QChar DigitsOnly(QChar character);
/// Hexadecimal digits, small ones as capitals, and blanks.
QChar HexDigitsAndBlanks(QChar character);

/// A text box with a limited length and a filter. A box for a few characters is as wide as they need.
class TextBox : public QLineEdit {
    Q_OBJECT

public:
    /// `maxLength` in characters; 0 for no limit.
    TextBox(const QString& name, int maxLength, QWidget* parent);

    /// The filter goes over the text that stands in the box and over all that gets into it: typed, pasted,
    /// dropped, from an input method, or set by code. Null lets everything in. A change by hand that would
    /// bring a text against `rule` is refused as a whole.
    void SetFilter(CharacterFilter filter, TextRule rule = nullptr);

    /// Shows the text uncut from its start, though it may be longer than what can be typed.
    void SetLongText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int typedLength; ///< what can be typed, in characters
};

/// A box from which the focus moves on: when a digit is typed while the box holds two characters or more, the
/// digit goes in if it fits, and then the next box gets the focus and selects its text. A selection, which
/// the digit replaces, doesn't count as held.
class AdvancingTextBox : public TextBox {
    Q_OBJECT

public:
    using TextBox::TextBox;

    /// Where the focus goes; null if it stays.
    void SetNext(QLineEdit* box) { next = box; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    bool IsFullEnoughFor(const QString& typed) const;
    void Advance();

    QPointer<QLineEdit> next;
};

/// The four boxes of an address, for up to three digits each; the focus moves on from box to box.
class AddressBoxes : public NumberedBoxes {
    Q_OBJECT

public:
    static constexpr int Count = 4;

    /// The boxes are the elements `first` to `first + 3` of the control array `name`. `title` names them.
    AddressBoxes(const QString& name, int first, const QLabel* title, QWidget* parent);

    /// `place` from 0 to 3.
    TextBox* Box(int place) const { return boxes[size_t(place)]; }

private:
    std::array<AdvancingTextBox*, Count> boxes{};
};
