#include "forms/form.h"

#include "forms/controls.h"
#include "forms/localize.h"

#include <QCloseEvent>
#include <QDrag>

using namespace Qt::StringLiterals;

Form::Form(const FormServices& services, const QString& name, const QString& caption, QWidget* parent)
    : QDialog(parent)
    , services(services) {
    setObjectName(name);
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connect(this, &QDialog::finished, this, [this] {
        // A drag runs an event loop inside an event of one of the form's controls, and these must outlive it.
        if (const auto* drag = findChild<QDrag*>())
            connect(drag, &QObject::destroyed, this, &QObject::deleteLater);
        else
            deleteLater();
    });
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

void Form::closeEvent(QCloseEvent* event) {
    const bool wasUp = isVisible();
    QDialog::closeEvent(event);
    if (!wasUp)
        deleteLater(); // nobody is told that it finished
}

void Form::Localize() {
    LocalizeForm(*this, services.language);
}

QLayout* Form::MakeOkAndCancel(const std::function<void()>& accept) {
    auto* cmdOK = MakeButton(u"cmdOK"_s, u"OK"_s, this);
    auto* cmdCancel = MakeButton(u"cmdCancel"_s, u"Abbrechen"_s, this);
    connect(cmdOK, &QPushButton::clicked, this, [this, accept] {
        accept();
        Unload();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &Form::Unload);
    return MakeButtonRow({cmdOK, cmdCancel});
}
