#include "learn/frmCCF.h"

#include "forms/controls.h"
#include "learn/code_entry_rules.h"

#include <QFontDatabase>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Columns = 64; ///< characters for which the edit has room at first
constexpr int Lines = 14;

} // namespace

frmCCF::frmCCF(const FormServices& services, Face face, const QString& remote, const QString& command,
               QWidget* parent)
    : Form(services, u"frmCCF"_s, {}, parent)
    , face(face)
    , remote(remote)
    , command(command)
    , txtCCF(new QPlainTextEdit(this))
    , lblLength(MakeLabel(u"lblLength"_s, {}, this)) {
    txtCCF->setObjectName(u"txtCCF"_s);
    txtCCF->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtCCF->setTabChangesFocus(true);
    txtCCF->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    const QFontMetrics metrics(txtCCF->font());
    resize(metrics.averageCharWidth() * Columns, metrics.lineSpacing() * Lines);

    // The hidden label must not be the one that a screen reader says.
    const bool isCcf = face == Face::Ccf;
    auto* lblCCF = MakeLabel(u"lblCCF"_s, u"CCF Hexdaten des Befehls in das Feld eingeben:"_s, this,
                             isCcf ? txtCCF : nullptr);
    auto* lblRS232 =
        MakeLabel(u"lblRS232"_s, u"RS232 String in das Feld eingeben:"_s, this, isCcf ? nullptr : txtCCF);
    auto* cmdCCFOK = MakeButton(u"cmdCCFOK"_s, u"OK"_s, this);
    auto* cmdRS232OK = MakeButton(u"cmdRS232OK"_s, u"OK"_s, this);

    auto* column = new QVBoxLayout(this);
    column->addWidget(lblCCF);
    column->addWidget(lblRS232);
    column->addWidget(txtCCF, 1);
    auto* foot = MakeButtonRow({cmdCCFOK, cmdRS232OK});
    foot->insertWidget(0, lblLength);
    column->addLayout(foot);

    lblCCF->setVisible(isCcf);
    cmdCCFOK->setVisible(isCcf);
    lblRS232->setVisible(!isCcf);
    cmdRS232OK->setVisible(!isCcf);
    (isCcf ? cmdCCFOK : cmdRS232OK)->setDefault(true);

    connect(txtCCF, &QPlainTextEdit::textChanged, this, &frmCCF::ShowLength);
    connect(cmdCCFOK, &QPushButton::clicked, this, &frmCCF::Send);
    connect(cmdRS232OK, &QPushButton::clicked, this, &frmCCF::Send);

    Localize();
    setWindowTitle(isCcf ? services.language.GetLanguageText(u"frmCCF.TitleCCF"_s, u"CCF Code"_s)
                         : services.language.GetLanguageText(u"frmCCF.TitleRS232"_s, u"RS232 Code"_s));
    ShowLength();
    txtCCF->setFocus();
}

/// The text as it was typed; plain text would have blanks in the place of the non-breaking ones.
QString frmCCF::Code() const {
    return txtCCF->document()->toRawText();
}

void frmCCF::ShowLength() {
    const int length = CodeEntry::LengthOf(Code());
    const bool isTooLong = length > Wire::CodeWidth;
    QString text = u"%1 / %2"_s.arg(length).arg(Wire::CodeWidth);
    if (isTooLong)
        text += u" – "_s +
                services.language.GetLanguageText(u"frmCCF.TooLong"_s, u"der Rest wird nicht gesendet"_s);
    lblLength->setText(text);
    QFont font = lblLength->font();
    font.setBold(isTooLong);
    lblLength->setFont(font);
}

void frmCCF::Send() {
    const Netcommand netcommand = face == Face::Ccf ? Netcommand::StoreCcf : Netcommand::StoreSerialCode;
    // A code that couldn't be sent stays, so that nobody has to type it again.
    if (services.session.SendCode({netcommand, remote, command, CodeEntry::ToWireText(Code())}))
        Unload();
}
