#include "tools/frmAbout.h"

#include "forms/controls.h"

#include <QGridLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// The program's picture: a remote control that sends, in the colours of the palette.
class RemotePicture : public QWidget {
public:
    RemotePicture(const QString& name, QWidget* parent)
        : QWidget(parent) {
        setObjectName(name);
        setFixedSize(Side, Side);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(Side * 0.42, Side * 0.66);
        painter.rotate(30);

        painter.setPen(QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::RoundCap));
        for (const int radius : {9, 16, 23})
            painter.drawArc(QRect(-radius, -20 - radius, 2 * radius, 2 * radius), 45 * 16, 90 * 16);

        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::WindowText));
        painter.drawRoundedRect(QRectF(-9, -20, 18, 40), 5, 5);
        painter.setBrush(palette().color(QPalette::Window));
        for (int row = 0; row < 3; ++row)
            for (const qreal x : {-4.0, 4.0})
                painter.drawEllipse(QPointF(x, -4 + row * 8), 2, 2);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawEllipse(QPointF(0, -13), 3, 3);
    }

private:
    static constexpr int Side = 64;
};

} // namespace

frmAbout::frmAbout(const FormServices& services, const QString& title, QWidget* parent)
    : Form(services, u"frmAbout"_s, title, parent) {
    auto* picIcon = new RemotePicture(u"picIcon"_s, this);
    picIcon->setVisible(!title.startsWith(u"Ferolo"));
    auto* lblTitle = MakeLabel(u"lblTitle"_s, title, this);
    QFont large = lblTitle->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    lblTitle->setFont(large);
    auto* lblVersion = MakeLabel(u"lblVersion"_s, u"Version " PROGRAM_VERSION ""_s, this);
    auto* lblPurpose =
        MakeLabel(u"lblPurpose"_s,
                  services.language.GetLanguageText(
                      u"frmAbout.lblPurpose"_s,
                      u"Calvoris sendet und lernt IR Befehle und richtet die Geräte dafür ein."_s),
                  this);
    lblPurpose->setWordWrap(true);
    lblPurpose->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    auto* cmdOK = MakeButton(u"cmdOK"_s, u"OK"_s, this);

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(fontMetrics().height());
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    grid->addWidget(picIcon, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(lblVersion, 1, 1);
    grid->addWidget(lblPurpose, 2, 1);
    grid->addLayout(MakeButtonRow({cmdOK}), 4, 0, 1, 2);
    connect(cmdOK, &QPushButton::clicked, this, &Form::Unload);
}
