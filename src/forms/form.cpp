#include "forms/form.h"

#include "forms/localize.h"

Form::Form(const FormServices& services, const QString& name, const QString& caption, QWidget* parent)
    : QDialog(parent)
    , services(services) {
    setObjectName(name);
    setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Form::ShowModal() {
    setWindowModality(Qt::ApplicationModal);
    show();
    services.boxes.Raise(this);
}

void Form::ShowModeless() {
    setWindowModality(Qt::NonModal);
    show();
    activateWindow();
}

void Form::Unload() {
    // Unlike close(), this also tells of the end of a form that was never shown.
    done(Rejected);
}

void Form::Localize() {
    LocalizeForm(*this, services.language);
}
