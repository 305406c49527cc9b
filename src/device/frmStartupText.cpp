#include "device/frmStartupText.h"

#include "forms/controls.h"

#include <QFontDatabase>
#include <QFormLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int LineLength = 16;
constexpr QChar LineEnd = u'\n';
constexpr QChar TextEnd = u'\0';

QString WithoutBlanksAtEnd(QString text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

frmStartupText::frmStartupText(const FormServices& services, QWidget* parent)
    : Form(services, u"frmStartupText"_s, u"Display Startup Text"_s, parent) {
    auto* rows = new QFormLayout(this);
    for (int i = 0; i < int(txtInit.size()); ++i) {
        auto* box = MakeTextBox(ElementName(u"txtInit"_s, i), LineLength, this);
        box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        // All of a line is seen at once, and the cursor behind it.
        box->setMinimumWidth(box->fontMetrics().horizontalAdvance(u'0') * (LineLength + 3));
        txtInit[size_t(i)] = box;
        rows->addRow(MakeLabel(ElementName(u"lblInit"_s, i), u"Zeile %1"_s.arg(i + 1), this, box), box);
    }
    auto* cmdSet = MakeButton(u"cmdSet"_s, u"Setzen"_s, this);
    auto* cmdCancel = MakeButton(u"cmdCancel"_s, u"Abbrechen"_s, this);
    rows->addRow(MakeButtonRow({cmdSet, cmdCancel}));
    connect(cmdSet, &QPushButton::clicked, this, &frmStartupText::Send);
    connect(cmdCancel, &QPushButton::clicked, this, &Form::Unload);
}

void frmStartupText::Send() {
    services.session.SocketSendLCDInit(WithoutBlanksAtEnd(txtInit[0]->text()) + LineEnd +
                                       WithoutBlanksAtEnd(txtInit[1]->text()) + TextEnd);
    Unload();
}
