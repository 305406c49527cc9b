#include "forms/controls.h"

#include "forms/localize.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

/// Enter presses the button that has the focus, whichever is the default one. `autoDefault` would do that as
/// well, but would also give a default button to a dialog that is to have none.
class FormButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
            QPushButton::keyPressEvent(event);
        else if (!event->isAutoRepeat()) // of a key that went down elsewhere, or has pressed already
            click();
    }
};

} // namespace

QString ElementName(const QString& name, int index) {
    return name + u'(' + QString::number(index) + u')';
}

ControlName SplitControlName(const QString& objectName) {
    const auto open = objectName.indexOf(u'(');
    if (open < 0 || !objectName.endsWith(u')'))
        return {objectName, -1};
    return {objectName.first(open), objectName.sliced(open + 1).chopped(1).toInt()};
}

QString ToMnemonicText(const QString& caption) {
    return QString(caption).replace(u'&', QStringLiteral("&&"));
}

QString FromMnemonicText(const QString& text) {
    return QString(text).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QString CaptionOf(const QLabel& label) {
    return label.buddy() != nullptr ? FromMnemonicText(label.text()) : label.text();
}

void SetCaption(QLabel& label, const QString& caption) {
    label.setText(label.buddy() != nullptr ? ToMnemonicText(caption) : caption);
    if (auto* list = qobject_cast<QAbstractItemView*>(label.buddy()))
        list->setAccessibleName(caption);
}

QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new FormButton(ToMnemonicText(caption), parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QLabel* MakeLabel(const QString& name, const QString& caption, QWidget* parent, QWidget* buddy) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    if (buddy != nullptr)
        label->setBuddy(buddy);
    SetCaption(*label, caption);
    return label;
}

void ChainTabs(const std::vector<QWidget*>& controls) {
    for (size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

TextBox* MakeTextBox(const QString& name, int maxLength, QWidget* parent) {
    return new TextBox(name, maxLength, parent);
}

QCheckBox* MakeCheckBox(const QString& name, const QString& caption, QWidget* parent) {
    auto* box = new QCheckBox(ToMnemonicText(caption), parent);
    box->setObjectName(name);
    return box;
}

std::vector<QCheckBox*> MakeCheckBoxes(const QString& name, const QStringList& captions, QWidget* parent) {
    std::vector<QCheckBox*> boxes;
    for (const QString& caption : captions) {
        boxes.push_back(MakeCheckBox(ElementName(name, int(boxes.size())), caption, parent));
        boxes.back()->setProperty("tag", OwnKeyTag);
    }
    return boxes;
}

QRadioButton* MakeOption(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QRadioButton(ToMnemonicText(caption), parent);
    button->setObjectName(name);
    return button;
}

QGroupBox* MakeFrame(const QString& name, const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(ToMnemonicText(caption), parent);
    frame->setObjectName(name);
    return frame;
}

QHBoxLayout* MakeButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons)
        row->addWidget(button);
    if (buttons.size() > 0)
        (*buttons.begin())->setDefault(true);
    return row;
}
