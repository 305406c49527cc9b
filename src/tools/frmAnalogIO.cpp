#include "tools/frmAnalogIO.h"

#include "forms/controls.h"
#include "tools/analog_rules.h"

#include <QEvent>
#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int PollInterval = 1000; ///< milliseconds
constexpr QStringView WidestValue = u"-327.68 °C";

} // namespace

frmAnalogIO::frmAnalogIO(const FormServices& services, QWidget* parent)
    : Form(services, u"frmAnalogIO"_s, u"Analog Inputs"_s, parent)
    , Timer1(this) {
    auto* grid = new QGridLayout(this);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < Inputs; ++i) {
        auto* value = MakeLabel(ElementName(u"lblValue"_s, i), u"---"_s, this);
        value->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMargin(fontMetrics().height() / 4);
        value->setMinimumWidth(fontMetrics().horizontalAdvance(WidestValue.toString()) * 3 / 2);
        auto* title = MakeLabel(ElementName(u"lblTitel"_s, i), u"Analog %1"_s.arg(i + 1), this);
        grid->addWidget(title, i, 0);
        grid->addWidget(value, i, 1);
        lblTitel[size_t(i)] = title;
        lblValue[size_t(i)] = value;
    }
    auto* cmdEnd = MakeButton(u"cmdEnd"_s, u"End"_s, this);
    grid->setRowStretch(Inputs, 1);
    grid->addLayout(MakeButtonRow({cmdEnd}), Inputs + 1, 0, 1, 2);

    Timer1.setObjectName(u"Timer1"_s);
    Timer1.setTimerType(Qt::PreciseTimer);
    Timer1.setInterval(PollInterval);
    connect(&Timer1, &QTimer::timeout, this, &frmAnalogIO::Tick);
    connect(cmdEnd, &QPushButton::clicked, this, [this] { EndRequested = true; });
    connect(&services.session, &Session::AnalogReceived, this, &frmAnalogIO::ShowInputs);
}

bool frmAnalogIO::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        Poll();
    return Form::event(event);
}

/// The ticks don't hang on the window's becoming active: not every desktop lets it.
void frmAnalogIO::showEvent(QShowEvent* event) {
    Timer1.start();
    Form::showEvent(event);
}

void frmAnalogIO::Poll() {
    for (QLabel* value : lblValue)
        value->setEnabled(false);
    // The values stay grey. A box every second would be of no help.
    if (!services.session.CanAsk())
        return;
    services.session.SendReadAnalog();
}

void frmAnalogIO::Tick() {
    if (std::exchange(EndRequested, false)) {
        Timer1.stop();
        Unload();
        return;
    }
    Poll();
}

void frmAnalogIO::ShowInputs(const AnalogValues& values, const AnalogTemperatures& temperatures) {
    for (int i = 0; i < Inputs; ++i) {
        const AnalogReading reading = ReadingOf(values, temperatures, i, QLocale::system());
        lblValue[size_t(i)]->setText(reading.text);
        lblValue[size_t(i)]->setEnabled(reading.isEnabled);
        lblTitel[size_t(i)]->setEnabled(reading.isEnabled);
    }
}
