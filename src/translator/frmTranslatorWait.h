#pragma once

#include "forms/form.h"

/// Stands on the screen while the device status is fetched, before a dialog opens that needs it.
class frmTranslatorWait : public Form {
    Q_OBJECT

public:
    frmTranslatorWait(const FormServices& services, QWidget* parent);
};
