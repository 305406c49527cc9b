#include "panel/frmIP.h"

#include "forms/controls.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

const QString helpKey = u"frmIP.lblHelp"_s;
const QString help =
    u"Ohne Geräte: Starten Sie auf diesem Computer den Übungsserver brenmard-practice und geben Sie "
    "localhost ein. Sonst geben Sie den Namen oder die Adresse des Computers ein, auf dem der "
    "Geräteserver läuft."_s;

} // namespace

QString frmIP::HelpText(const Language& language) {
    return language.GetLanguageText(helpKey, help);
}

frmIP::frmIP(const FormServices& services, QWidget* parent)
    : Form(services, u"frmIP"_s, u" IP Adresse eingeben"_s, parent)
    , txtIP(MakeTextBox(u"txtIP"_s, 0, this)) {
    auto* label = MakeLabel(u"lblIP"_s, u"IP Adresse"_s, this, txtIP);
    auto* cmdOK = MakeButton(u"cmdOK"_s, u"OK"_s, this);
    cmdOK->setDefault(true);
    txtIP->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    auto* lblHelp = MakeLabel(u"lblHelp"_s, help, this);
    lblHelp->setWordWrap(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(label, 0, 0);
    grid->addWidget(txtIP, 0, 1);
    grid->addWidget(lblHelp, 1, 0, 1, 2);
    grid->addWidget(cmdOK, 2, 0, 1, 2, Qt::AlignRight);

    connect(cmdOK, &QPushButton::clicked, this, &frmIP::Connect);
    Localize();
    // A window doesn't ask a wrapped text how high it is at the width that it gives it.
    const int width = fontMetrics().averageCharWidth() * 56;
    lblHelp->setMinimumSize(width, lblHelp->heightForWidth(width));
}

void frmIP::Connect() {
    services.session.RemoteHost = txtIP->text().trimmed();
    services.session.Connect();
    Unload();
}
