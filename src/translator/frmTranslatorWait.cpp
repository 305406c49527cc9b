#include "translator/frmTranslatorWait.h"

#include "forms/controls.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmTranslatorWait::frmTranslatorWait(const FormServices& services, QWidget* parent)
    : Form(services, u"frmTranslatorWait"_s, u" Please Wait ..."_s, parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(32, 24, 32, 24);
    column->addWidget(MakeLabel(u"Label1"_s, u"Reading Vantrel Device Status ....."_s, this));
    column->setSizeConstraint(QLayout::SetFixedSize);
}
