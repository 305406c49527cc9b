#pragma once

#include "database/analog_input_page.h"
#include "link/replies.h"

/// The page "Analog Inputs".
class AnalogPage : public QWidget {
    Q_OBJECT

public:
    explicit AnalogPage(QWidget* parent);

    /// See AnalogInputPage.
    void FinishTexts();
    void FillRemotes(const QStringList& names);

    void Collect(DatabaseSettings& values) const;
    void Show(const DatabaseSettings& values);

    /// Enables the inputs that the device has.
    void TakeModes(const AnalogValues& values);

private:
    std::array<AnalogInputPage*, DatabaseSettings::Inputs> inputs{};
};
