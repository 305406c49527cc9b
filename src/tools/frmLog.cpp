#include "tools/frmLog.h"

#include "forms/controls.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int TwipsPerPixel = 15;

} // namespace

frmLog::frmLog(const FormServices& services, QWidget* parent)
    : Form(services, u"frmLog"_s, u"Log"_s, parent)
    , txtLog(new QPlainTextEdit(this))
    , cmdClose(MakeButton(u"cmdClose"_s, u"Schließen"_s, this)) {
    txtLog->setObjectName(u"txtLog"_s);
    txtLog->setAccessibleName(u"Log"_s);
    txtLog->setReadOnly(true);
    txtLog->setUndoRedoEnabled(false);
    txtLog->setMaximumBlockCount(MostLines);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::hide);
    resize(600, 400);
}

void frmLog::Append(const QString& text) {
    if (txtLog->document()->characterCount() > MostCharacters)
        txtLog->clear();
    QTextCursor end(txtLog->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
}

void frmLog::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    cmdClose->move(width() / 2 - 900 / TwipsPerPixel, height() - 840 / TwipsPerPixel);
    txtLog->resize(qMax(0, width() - 420 / TwipsPerPixel), qMax(0, height() - 1065 / TwipsPerPixel));
}
