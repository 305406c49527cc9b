#include "database/value_controls.h"

void ValueControls::Tie(QLineEdit* box, QString& member) {
    QObject::connect(box, &QLineEdit::textChanged, box, [&member](const QString& text) { member = text; });
    shows.emplace_back([box, &member] {
        // Setting a text moves the cursor, so it is set only if it is another.
        if (member != box->text())
            box->setText(member);
    });
}

void ValueControls::Tie(QCheckBox* box, bool& member, std::function<void()> clicked) {
    QObject::connect(box, &QCheckBox::toggled, box, [&member, clicked = std::move(clicked)](bool isOn) {
        // What Show brings is there already.
        if (member == isOn)
            return;
        member = isOn;
        if (clicked)
            clicked();
    });
    shows.emplace_back([box, &member] { box->setChecked(member); });
}

void ValueControls::Tie(const AddressBoxes& ip, QLineEdit* port, AddressTexts& member) {
    for (int place = 0; place < AddressBoxes::Count; ++place)
        Tie(ip.Box(place), member.ip[size_t(place)]);
    Tie(port, member.port);
}

void ValueControls::Show() const {
    for (const auto& show : shows)
        show();
}

TextBox* MakePortBox(const QString& name, QWidget* parent) {
    auto* box = MakeTextBox(name, 5, parent);
    box->SetFilter(&DigitsOnly);
    return box;
}
