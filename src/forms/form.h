#pragma once

#include "forms/boxes.h"
#include "link/session.h"

#include <QDialog>

#include <functional>

/// What every form is handed: the session, the language and the door for message boxes. All three outlive it.
struct FormServices {
    Session& session;
    const Language& language;
    Boxes& boxes;
};

/// The base of all dialogs. A form is loaded by constructing it and unloaded by closing it: it deletes
/// itself.
///
/// Modal or not, showing returns at once, and the form's signals and `finished` tell the rest; so a form can
/// be closed by its program at any time, and replies go on being read while it is up.
class Form : public QDialog {
    Q_OBJECT

public:
    /// `name` becomes the object name, `caption` the window title.
    Form(const FormServices& services, const QString& name, const QString& caption, QWidget* parent);

    /// Blocks all other windows while it is up.
    void ShowModal();
    /// Makes it the active window, also if it is up already.
    void ShowModeless();

    /// Closes the form without asking.
    void Unload();

protected:
    void closeEvent(QCloseEvent* event) override;

    /// Runs all texts through the language; the last step of a form's constructor.
    void Localize();

    /// The foot of the form: OK, which calls `accept` and then unloads the form, and cancel, which only
    /// unloads it.
    QLayout* MakeOkAndCancel(const std::function<void()>& accept);

    FormServices services;
};
