#include "database/analog_input_page.h"

#include "database/analog_rules.h"
#include "forms/controls.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int NumberTyped = 6;    ///< characters of a threshold; what is beyond its byte is limited later
constexpr int RemoteShown = 16;   ///< characters of a remote that its list shows at least
constexpr int CommandsShown = 10; ///< likewise of a command

QStringList Modes() {
    return {u"Aus"_s,          u"Min. Wert"_s,    u"Max. Wert"_s,       u"Min-Max Wert"_s,
            u"Schalter Ein"_s, u"Schalter Aus"_s, u"Schalter Ein-Aus"_s};
}

QStringList Leds() {
    QStringList entries = {u"Default"_s, u"Internal"_s, u"External"_s, u"All"_s};
    for (int led = 1; entries.size() < AnalogSide::Leds; ++led)
        entries += QString::number(led);
    return entries;
}

} // namespace

AnalogInputPage::AnalogInputPage(int index, QWidget* parent)
    : QGroupBox(u"Eingang "_s, parent)
    , index(index)
    , cmbModus(MakeComboBox(ElementName(u"cmbModus"_s, index), Modes(), this))
    , min(MakeSide(u"Min"_s, u"Label7"_s, u"Label10"_s))
    , max(MakeSide(u"Max"_s, u"Label8"_s, u"Label11"_s))
    , txtHys(MakeTextBox(ElementName(u"txtHys"_s, index), NumberTyped, this))
    , optSend(MakeOption(ElementName(u"optSend"_s, index), u"Send IR"_s, this))
    , optAction(MakeOption(ElementName(u"optAction"_s, index), u"Send to Host"_s, this)) {
    setObjectName(ElementName(u"frAnalog"_s, index));
    hysteresisLabel = MakeLabel(ElementName(u"Label9"_s, index), u"Hysterese"_s, this, txtHys);
    ledLabel = MakeLabel(ElementName(u"Label12"_s, index), u"Min/Max LED/Sendmask"_s, this, min.led);
    optSend->setChecked(true);
    LayOut(MakeLabel(ElementName(u"Label6"_s, index), u"Modus"_s, this, cmbModus));

    connect(cmbModus, &QComboBox::currentIndexChanged, this, &AnalogInputPage::ApplyMode);
    for (Side* side : {&min, &max})
        connect(side->remote, &QComboBox::currentIndexChanged, this, [side](int entry) {
            if (entry >= 0)
                side->wanted.clear();
        });
    for (ComboBox* list : {cmbModus, min.led, max.led})
        list->setCurrentIndex(0);
}

AnalogInputPage::Side AnalogInputPage::MakeSide(const QString& side, const QString& threshold,
                                                const QString& remote) {
    const auto name = [&](const QString& before, const QString& behind) {
        return ElementName(before + side + behind, index);
    };
    Side made{};
    made.threshold = MakeTextBox(name(u"txt"_s, {}), NumberTyped, this);
    made.thresholdLabel = MakeLabel(ElementName(threshold, index), side, this, made.threshold);
    made.remote = MakeComboBox(name(u"cmb"_s, u"Remote"_s), {}, this);
    made.remoteLabel =
        MakeLabel(ElementName(remote, index), side + u" Remote / Command"_s, this, made.remote);
    made.command = MakeTextBox(name(u"txt"_s, u"Command"_s), AnalogSide::CommandMax, this);
    made.led = MakeComboBox(name(u"cmb"_s, u"LED"_s), Leds(), this);
    made.mask = MakeTextBox(name(u"txt"_s, u"Mask"_s), AnalogSide::MaskTyped, this);
    made.mask->setText(AnalogSide().mask);
    // As wide as few characters need, however long the names are.
    made.remote->SetColumns(RemoteShown);
    made.command->setMinimumWidth(fontMetrics().averageCharWidth() * CommandsShown);
    return made;
}

void AnalogInputPage::LayOut(QWidget* modeLabel) {
    auto* kinds = new QHBoxLayout;
    kinds->addStretch();
    kinds->addWidget(optSend);
    kinds->addWidget(optAction);

    auto* thresholds = new QHBoxLayout;
    thresholds->addWidget(min.threshold);
    thresholds->addStretch();
    thresholds->addWidget(max.thresholdLabel);
    thresholds->addWidget(max.threshold);
    auto* hysteresis = new QHBoxLayout;
    hysteresis->addWidget(hysteresisLabel);
    hysteresis->addWidget(txtHys);
    hysteresis->addStretch();

    auto* leds = new QHBoxLayout;
    for (const Side* side : {&min, &max}) {
        leds->addWidget(side->led, 1);
        leds->addWidget(side->mask);
    }

    auto* grid = new QGridLayout(this);
    grid->addWidget(modeLabel, 0, 0);
    grid->addWidget(cmbModus, 0, 1);
    grid->addLayout(kinds, 0, 2);
    grid->addWidget(min.thresholdLabel, 1, 0);
    grid->addLayout(thresholds, 1, 1);
    grid->addLayout(hysteresis, 1, 2);
    int row = 2;
    for (const Side* side : {&min, &max}) {
        grid->addWidget(side->remoteLabel, row, 0);
        grid->addWidget(side->remote, row, 1);
        grid->addWidget(side->command, row, 2);
        ++row;
    }
    grid->addWidget(ledLabel, row, 0);
    grid->addLayout(leds, row, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row + 1, 1);

    ChainTabs({cmbModus, optSend, optAction, min.threshold, max.threshold, txtHys, min.remote, min.command,
               max.remote, max.command, min.led, min.mask, max.led, max.mask});
}

void AnalogInputPage::FinishTexts() {
    setTitle(title() + QString::number(index + 1));
    for (const Side* side : {&min, &max})
        side->command->setAccessibleName(CaptionOf(*side->remoteLabel));
    QWidget* const leds[] = {min.led, min.mask, max.led, max.mask};
    for (int i = 0; QWidget * control : leds)
        control->setAccessibleName(CaptionOf(*ledLabel) + u" %1"_s.arg(++i));
}

void AnalogInputPage::FillRemotes(const QStringList& names) {
    for (Side* side : {&min, &max}) {
        const QString wanted = side->wanted;
        side->remote->SetEntries(names);
        SelectRemote(*side, wanted);
    }
}

AnalogSide AnalogInputPage::Values(const Side& side) {
    return {side.led->currentIndex(), side.mask->text(), side.remote->currentText(), side.command->text()};
}

AnalogSettings AnalogInputPage::Values() const {
    return {cmbModus->currentIndex(),
            optAction->isChecked(),
            min.threshold->text(),
            max.threshold->text(),
            txtHys->text(),
            Values(min),
            Values(max)};
}

void AnalogInputPage::SelectRemote(Side& side, const QString& name) {
    if (const int entry = side.remote->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive); entry >= 0)
        side.remote->setCurrentIndex(entry);
    else
        side.wanted = name;
}

void AnalogInputPage::Show(Side& side, const AnalogSide& values, const QString& threshold) {
    side.threshold->SetLongText(threshold);
    SelectRemote(side, values.remote);
    side.command->SetLongText(values.command);
    side.mask->SetLongText(values.mask);
    side.led->setCurrentIndex(values.led);
}

void AnalogInputPage::Show(const AnalogSettings& values) {
    cmbModus->setCurrentIndex(values.mode);
    (values.sendsToHost ? optAction : optSend)->setChecked(true);
    Show(min, values.min, values.minimum);
    Show(max, values.max, values.maximum);
    txtHys->SetLongText(values.hysteresis);
}

void AnalogInputPage::Enable(Side& side, bool hasThreshold, bool sends, bool hasLed, bool isCleared) {
    side.threshold->setEnabled(hasThreshold);
    side.thresholdLabel->setEnabled(hasThreshold);
    if (!hasThreshold)
        side.threshold->clear();
    for (QWidget* control : {static_cast<QWidget*>(side.remote), static_cast<QWidget*>(side.command),
                             static_cast<QWidget*>(side.remoteLabel)})
        control->setEnabled(sends);
    side.led->setEnabled(hasLed);
    side.mask->setEnabled(hasLed);
    if (isCleared) {
        side.wanted.clear();
        side.remote->setCurrentIndex(-1);
        side.command->clear();
    }
}

void AnalogInputPage::ApplyMode() {
    const AnalogControls controls = AnalogControlsOf(cmbModus->currentIndex());
    Enable(min, controls.minimum, controls.minSend, controls.minLed, controls.clearMinSend);
    Enable(max, controls.maximum, controls.maxSend, controls.maxLed, controls.clearMaxSend);
    txtHys->setEnabled(controls.hysteresis);
    hysteresisLabel->setEnabled(controls.hysteresis);
    if (!controls.hysteresis)
        txtHys->clear();
    ledLabel->setEnabled(controls.ledLabel);
    optSend->setEnabled(controls.kind);
    optAction->setEnabled(controls.kind);
}
