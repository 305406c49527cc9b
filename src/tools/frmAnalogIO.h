#pragma once

#include "forms/form.h"

#include <QLabel>
#include <QTimer>

/// Shows the four analog inputs live. It asks for them when its window becomes the active one, and then once
/// a second, whether the last answer has come or not; a value is grey until its answer is there.
class frmAnalogIO : public Form {
    Q_OBJECT

public:
    static constexpr int Inputs = 4;

    frmAnalogIO(const FormServices& services, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Poll();
    void Tick();
    void ShowInputs(const AnalogValues& values, const AnalogTemperatures& temperatures);

    std::array<QLabel*, Inputs> lblTitel{};
    std::array<QLabel*, Inputs> lblValue{};
    QTimer Timer1;
    bool EndRequested = false; ///< the next tick closes the form
};
