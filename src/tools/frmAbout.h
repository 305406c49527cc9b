#pragma once

#include "forms/form.h"

/// Tells which program this is.
class frmAbout : public Form {
    Q_OBJECT

public:
    /// `title` is the product's, as the main window shows it.
    frmAbout(const FormServices& services, const QString& title, QWidget* parent);
};
