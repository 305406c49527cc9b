#pragma once

#include "forms/form.h"

#include <QPlainTextEdit>
#include <QTimer>

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
    void ShowPending();

    QString pending; ///< came while the last text was young
    QTimer rest;     ///< laying out a stream of texts one by one would take all the time there is
    QPlainTextEdit* txtLog;
    QPushButton* cmdClose;
};
