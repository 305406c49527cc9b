#pragma once

#include "forms/form.h"

#include <QPlainTextEdit>

/// Takes the log texts of the server. Nothing in the program shows it; it keeps the last MostLines lines.
class frmLog : public Form {
    Q_OBJECT

public:
    static constexpr int MostLines = 2000;
    static constexpr int MostCharacters = 400'000;

    frmLog(const FormServices& services, QWidget* parent);

    void Append(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QPlainTextEdit* txtLog;
    QPushButton* cmdClose;
};
