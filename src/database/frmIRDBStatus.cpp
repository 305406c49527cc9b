#include "database/frmIRDBStatus.h"

#include "forms/controls.h"

#include <QFormLayout>

using namespace Qt::StringLiterals;

frmIRDBStatus::frmIRDBStatus(const FormServices& services, QWidget* parent)
    : Form(services, u"frmIRDBStatus"_s, u"IRDB Flashstatus"_s, parent) {
    auto* rows = new QFormLayout(this);
    int index = 0;
    const auto addFigure = [&](const QString& name, const QString& caption) {
        auto* box = MakeTextBox(name, 0, this);
        box->setReadOnly(true);
        rows->addRow(MakeLabel(ElementName(u"Label1"_s, index++), caption, this, box), box);
        return box;
    };
    txtSize = addFigure(u"txtSize"_s, u"Flash size"_s);
    txtUsage = addFigure(u"txtUsage"_s, u"Flash usage"_s);
    txtRemotes = addFigure(u"txtRemotes"_s, u"Remotes"_s);
    txtCommands = addFigure(u"txtCommands"_s, u"Commands"_s);
    txtActions = addFigure(u"txtActions"_s, u"Action Codes"_s);
    lblStat = MakeLabel(u"lblStat"_s, {}, this);
    rows->addRow(lblStat);

    auto* cmdOK = MakeButton(u"cmdOK"_s, u"OK"_s, this);
    cmdOK->setDefault(true);
    rows->addRow(cmdOK);
    rows->setAlignment(cmdOK, Qt::AlignRight);
    connect(cmdOK, &QPushButton::clicked, this, &Form::Unload);
    cmdOK->setFocus();
}

void frmIRDBStatus::SetFigures(const IRDBStatusRecord& status) {
    txtSize->setText(status.size.trimmed());
    txtUsage->setText(status.usage.trimmed());
    txtRemotes->setText(status.remotes.trimmed());
    txtCommands->setText(status.commands.trimmed());
    txtActions->setText(status.actions.trimmed());
}

void frmIRDBStatus::ShowOutcome(const QString& outcome) {
    lblStat->setText(outcome);
    if (!isVisible())
        ShowModal();
}
