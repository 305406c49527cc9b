#include "database/analog_page.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

AnalogPage::AnalogPage(QWidget* parent)
    : QWidget(parent) {
    setObjectName(u"frIO"_s);
    auto* grid = new QGridLayout(this);
    for (int i = 0; i < int(inputs.size()); ++i) {
        inputs[size_t(i)] = new AnalogInputPage(i, this);
        grid->addWidget(inputs[size_t(i)], i / 2, i % 2);
        grid->setColumnStretch(i % 2, 1);
    }
    grid->setRowStretch(2, 1);
}

void AnalogPage::FinishTexts() {
    for (AnalogInputPage* input : inputs)
        input->FinishTexts();
}

void AnalogPage::FillRemotes(const QStringList& names) {
    for (AnalogInputPage* input : inputs)
        input->FillRemotes(names);
}

void AnalogPage::Collect(DatabaseSettings& values) const {
    for (size_t i = 0; i < inputs.size(); ++i)
        values.analog[i] = inputs[i]->Values();
}

void AnalogPage::Show(const DatabaseSettings& values) {
    for (size_t i = 0; i < inputs.size(); ++i)
        inputs[i]->Show(values.analog[i]);
}

void AnalogPage::TakeModes(const AnalogValues& values) {
    for (size_t i = 0; i < inputs.size(); ++i)
        inputs[i]->setEnabled(values.Mode[i] != 0);
    if (std::any_of(values.Mode.begin(), values.Mode.begin() + inputs.size(),
                    [](quint8 mode) { return mode != 0; }))
        for (AnalogInputPage* input : inputs)
            input->ApplyMode();
}
