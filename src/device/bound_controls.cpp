#include "device/bound_controls.h"

void BoundControls::Bind(QCheckBox* box, CheckState& state) {
    Bind(box, state, [&state](bool isOn) { state.isOn = isOn; });
}

void BoundControls::Bind(QCheckBox* box, CheckState& state, std::function<void(bool isOn)> change) {
    Follow(box, state);
    shows.emplace_back([box, &state] { box->setChecked(state.isOn); });
    QObject::connect(box, &QCheckBox::toggled, box, std::move(change));
}

void BoundControls::Bind(ComboBox* list, ListState& state) {
    Follow(list, state);
    lists.emplace_back(list, &state);
    shows.emplace_back([list, &state] { list->setCurrentIndex(state.index); });
    QObject::connect(list, &QComboBox::currentIndexChanged, list,
                     [&state](int index) { state.index = index; });
}

void BoundControls::Bind(QLineEdit* box, TextState& state) {
    Follow(box, state);
    shows.emplace_back([box, &state] {
        if (box->text() == state.text)
            return;
        box->setText(state.text);
        box->setCursorPosition(0); // a long text shows its start
    });
    QObject::connect(box, &QLineEdit::textChanged, box, [&state](const QString& text) { state.text = text; });
}

void BoundControls::Bind(MaskBoxes* boxes, MaskState& state) {
    Follow(boxes, state);
    shows.emplace_back([boxes, &state] { boxes->SetValue(state.value); });
    QObject::connect(boxes, &MaskBoxes::Changed, boxes, [boxes, &state] { state.value = boxes->Value(); });
}

void BoundControls::Follow(QWidget* control, const ControlState& state) {
    FollowVisible(control, state);
    shows.emplace_back([control, &state] { control->setEnabled(state.isEnabled); });
}

void BoundControls::FollowVisible(QWidget* control, const ControlState& state) {
    shows.emplace_back([control, &state] { control->setVisible(state.isVisible); });
}

void BoundControls::ShapeLists() {
    for (const auto& [list, state] : lists) {
        for (int i = 0; i < state->dropped; ++i)
            list->RemoveEntry(list->count() - 1);
        list->addItems(state->added);
    }
}

void BoundControls::Show() const {
    for (const auto& show : shows)
        show();
}
