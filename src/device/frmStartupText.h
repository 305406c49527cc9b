#pragma once

#include "forms/form.h"

#include <QLineEdit>

/// Asks for the two lines that a display shows when it starts, and sends them. The device doesn't tell those
/// that it has, so the boxes start empty.
class frmStartupText : public Form {
    Q_OBJECT

public:
    frmStartupText(const FormServices& services, QWidget* parent);

private:
    void Send();

    std::array<QLineEdit*, 2> txtInit{};
};
