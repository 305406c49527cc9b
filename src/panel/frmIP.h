#pragma once

#include "forms/form.h"

#include <QLineEdit>

/// Asks for the address of the device server. OK connects the session to it; closing changes nothing.
class frmIP : public Form {
    Q_OBJECT

public:
    /// What somebody without a server can do, in the language in force.
    static QString HelpText(const Language& language);

    frmIP(const FormServices& services, QWidget* parent);

private:
    void Connect();

    QLineEdit* txtIP;
};
