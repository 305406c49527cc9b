#include "tools/frmLog.h"

#include "forms/controls.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int Rest = 100; ///< milliseconds

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
    rest.setSingleShot(true);
    rest.setInterval(Rest);
    connect(&rest, &QTimer::timeout, this, &frmLog::ShowPending);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::hide);
    resize(600, 400);
}

void frmLog::Append(const QString& text) {
    pending += text;
    if (pending.size() / 2 > MostCharacters)
        pending = pending.last(MostCharacters);
    if (!rest.isActive())
        ShowPending();
}

void frmLog::ShowPending() {
    if (pending.isEmpty())
        return;
    qsizetype before = pending.size();
    for (int lines = 0; lines < MostLines && before >= 0; ++lines)
        before = before > 0 ? pending.lastIndexOf(u'\n', before - 1) : -1;
    const QString text = pending.sliced(std::max<qsizetype>(before + 1, pending.size() - MostCharacters));
    pending.clear();
    if (txtLog->document()->characterCount() + text.size() > MostCharacters)
        txtLog->clear();
    QTextCursor end(txtLog->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    rest.start();
}

void frmLog::resizeEvent(QResizeEvent* event) {
    Form::resizeEvent(event);
    cmdClose->move(width() / 2 - 900 / TwipsPerPixel, height() - 840 / TwipsPerPixel);
    txtLog->resize(qMax(0, width() - 420 / TwipsPerPixel), qMax(0, height() - 1065 / TwipsPerPixel));
}
