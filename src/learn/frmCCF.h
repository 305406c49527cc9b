#pragma once

#include "forms/form.h"

#include <QLabel>
#include <QPlainTextEdit>

/// Takes a command that is typed instead of learned: a CCF code, or a text for the serial port of the device.
/// OK sends it to the server, which stores it in the open remote, and closes the form; closing it in any
/// other way sends nothing.
///
/// The code goes out as it was typed, as far as the record holds it; the form shows how much that is.
class frmCCF : public Form {
    Q_OBJECT

public:
    enum class Face { Ccf, Rs232 };

    /// The command is to be stored as `command` in the open remote `remote`.
    frmCCF(const FormServices& services, Face face, const QString& remote, const QString& command,
           QWidget* parent);

private:
    QString Code() const;
    void ShowLength();
    void Send();

    Face face;
    QString remote;
    QString command;
    QPlainTextEdit* txtCCF;
    QLabel* lblLength;
};
