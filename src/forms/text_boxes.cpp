#include "forms/text_boxes.h"

#include "forms/controls.h"

#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QValidator>

namespace {

/// A box for up to this many characters is made as wide as they need.
constexpr int ShortLength = 8;

/// Takes out of a text what the filter doesn't let in. It sees every way in which a text can change.
class FilteringValidator : public QValidator {
public:
    FilteringValidator(CharacterFilter filter, TextRule rule, QObject* parent)
        : QValidator(parent)
        , filter(filter)
        , rule(rule) {}

    State validate(QString& text, int& cursor) const override {
        QString passed;
        int before = 0;
        for (int i = 0; i < text.size(); ++i) {
            const QChar character = filter(text[i]);
            if (character.isNull())
                continue;
            passed += character;
            before += int(i < cursor);
        }
        text = passed;
        cursor = before;
        return rule == nullptr || rule(text) ? Acceptable : Invalid;
    }

private:
    CharacterFilter filter;
    TextRule rule;
};

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

} // namespace

QChar DigitsOnly(QChar character) {
    return IsDigit(character) ? character : QChar();
}

QChar HexDigitsAndBlanks(QChar character) {
    if (character.isSpace())
        return u' ';
    const QChar capital = character.toUpper();
    return IsDigit(capital) || (capital >= u'A' && capital <= u'F') ? capital : QChar();
}

TextBox::TextBox(const QString& name, int maxLength, QWidget* parent)
    : QLineEdit(parent)
    , typedLength(maxLength > 0 ? maxLength : this->maxLength()) {
    setObjectName(name);
    setMaxLength(typedLength);
    if (maxLength > 0 && maxLength <= ShortLength)
        setSizePolicy(QSizePolicy::Fixed, sizePolicy().verticalPolicy());
}

void TextBox::SetLongText(const QString& text) {
    setMaxLength(qMax(typedLength, int(text.size())));
    setText(text);
    setCursorPosition(0);
}

void TextBox::SetFilter(CharacterFilter filter, TextRule rule) {
    const QValidator* old = validator();
    setValidator(filter != nullptr ? new FilteringValidator(filter, rule, this) : nullptr);
    delete old;
    if (filter == nullptr)
        return;
    // A validator looks at a text only when it is changed.
    QString passed = text();
    int cursor = cursorPosition();
    validator()->validate(passed, cursor);
    setText(passed);
    setCursorPosition(cursor);
}

QSize TextBox::sizeHint() const {
    QSize size = QLineEdit::sizeHint();
    if (maxLength() <= ShortLength) {
        // The base class makes room for 17 letters "x". Add one character, so that the text never scrolls.
        const QFontMetrics metrics = fontMetrics();
        size.rwidth() +=
            metrics.horizontalAdvance(u'0') * (maxLength() + 1) - metrics.horizontalAdvance(u'x') * 17;
    }
    return size;
}

QSize TextBox::minimumSizeHint() const {
    return maxLength() <= ShortLength ? sizeHint() : QLineEdit::minimumSizeHint();
}

void AdvancingTextBox::keyPressEvent(QKeyEvent* event) {
    const bool isFull = IsFullEnoughFor(event->text());
    TextBox::keyPressEvent(event);
    if (isFull)
        Advance();
}

void AdvancingTextBox::inputMethodEvent(QInputMethodEvent* event) {
    const bool isFull = IsFullEnoughFor(event->commitString());
    TextBox::inputMethodEvent(event);
    if (isFull)
        Advance();
}

bool AdvancingTextBox::IsFullEnoughFor(const QString& typed) const {
    return typed.size() == 1 && IsDigit(typed[0]) && text().size() - selectionLength() >= 2;
}

void AdvancingTextBox::Advance() {
    if (next.isNull() || isReadOnly())
        return;
    next->setFocus(Qt::OtherFocusReason);
    next->selectAll();
}

AddressBoxes::AddressBoxes(const QString& name, int first, const QLabel* title, QWidget* parent)
    : NumberedBoxes(title, parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (int place = 0; place < Count; ++place) {
        auto* box = new AdvancingTextBox(ElementName(name, first + place), 3, this);
        box->SetFilter(&DigitsOnly);
        if (place > 0)
            boxes[size_t(place - 1)]->SetNext(box);
        boxes[size_t(place)] = box;
        AddBox(box, place + 1);
        row->addWidget(box);
    }
    row->addStretch();
    setFocusProxy(boxes.front());
}
