#pragma once

#include "forms/form.h"

#include <QLabel>
#include <QLineEdit>

/// Shows what a database flash came to: the memory figures of the device and the outcome.
class frmIRDBStatus : public Form {
    Q_OBJECT

public:
    frmIRDBStatus(const FormServices& services, QWidget* parent);

    void SetFigures(const IRDBStatusRecord& status);

    /// Puts the outcome into the status line and shows the form modally, unless it is up already.
    void ShowOutcome(const QString& outcome);

private:
    QLineEdit* txtSize;
    QLineEdit* txtUsage;
    QLineEdit* txtRemotes;
    QLineEdit* txtCommands;
    QLineEdit* txtActions;
    QLabel* lblStat;
};
