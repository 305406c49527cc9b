#include "panel/frmRemote.h"

#include "forms/controls.h"
#include "forms/localize.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int PanelDelay = 250;                   ///< milliseconds from the connection to the panel
constexpr LayoutSize DesignSize{9270, 7155};      ///< of the area below the menu, in twips
constexpr LayoutSize SizeWithoutMain{6000, 1800}; ///< of the window, in twips
constexpr int LargestSide = 4096;                 ///< of the window, in logical pixels

/// A panel of the status bar: what doesn't fit is cut with an ellipsis, and never makes the window wider.
class StatusPanel : public QLabel {
public:
    explicit StatusPanel(int index) {
        setObjectName(ElementName(u"sb1"_s, index));
        setTextFormat(Qt::PlainText);
        setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawFrame(&painter);
        const QRect inner = contentsRect().adjusted(3, 0, -3, 0);
        style()->drawItemText(
            &painter, inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, palette(), isEnabled(),
            fontMetrics().elidedText(text(), Qt::ElideRight, inner.width()), foregroundRole());
    }
};

} // namespace

frmRemote::frmRemote(const FormServices& services, std::function<QString()> layoutFile)
    : services(services)
    , layoutFile(std::move(layoutFile))
    , menu(new PanelMenu(this))
    , surface(new PanelSurface(this))
    , sending(new PanelSending(services.session, panel, this))
    , timStart(this) {
    setObjectName(u"frmRemote"_s);
    setWindowTitle(u"Vantrel Client"_s);
    setContextMenuPolicy(Qt::NoContextMenu);
    setCentralWidget(surface);
    MakeStatusBar();
    resize(ToPixels(DesignSize.width), ToPixels(DesignSize.height) + menuBar()->sizeHint().height());

    timStart.setObjectName(u"timStart"_s);
    timStart.setSingleShot(true);
    timStart.setTimerType(Qt::PreciseTimer);
    timStart.setInterval(PanelDelay);

    connect(&timStart, &QTimer::timeout, this, &frmRemote::BringUpPanel);
    connect(menu, &PanelMenu::Picked, this, [this](const QString& name) {
        if (name == u"mnuModus(30)")
            close();
        else
            emit MenuPicked(name);
    });
    connect(menu, &PanelMenu::PagePicked, this, &frmRemote::LoadPage);
    connect(surface, &PanelSurface::PagePicked, this, &frmRemote::LoadPage);
    connect(surface, &PanelSurface::CommandDown, sending, &PanelSending::Press);
    connect(surface, &PanelSurface::CommandUp, sending, &PanelSending::Release);
    connect(sending, &PanelSending::ButtonUnknown, surface, &PanelSurface::DisableCommand);
    connect(&services.session, &Session::LinkUp, this, &frmRemote::Greet);
    connect(&services.session, &Session::CodeReceived, this, &frmRemote::ShowReceived);
    LocalizeForm(*this, services.language);
}

void frmRemote::MakeStatusBar() {
    statusBar()->setObjectName(u"sb1"_s);
    for (int index = 1; QLabel * &label : sb1) {
        label = new StatusPanel(index);
        statusBar()->addWidget(label, index == 2 ? 1 : 2);
        ++index;
    }
}

void frmRemote::SetUnlinked() {
    menu->SetLinked(false);
}

/// The connection stands.
void frmRemote::Greet() {
    menu->SetLinked(true);
    services.session.SendHello();
    services.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0);
    timStart.start();
}

void frmRemote::BringUpPanel() {
    if (panelStands) {
        // The panel stays as it is over a new connection, but another server may know other commands.
        surface->EnableCommands();
        if (pageStands)
            sending->CheckPage();
        return;
    }
    panelStands = LoadSection(MainSection);
    if (panelStands) {
        surface->ShowPermanent(panel);
        menu->ShowPermanent(panel, services.language);
        ApplyWindowSize();
    } else {
        ResizeTo(SizeWithoutMain);
    }
    setWindowTitle(panel.PanelTitle);
    if (!panel.cmdModeP.empty())
        LoadPage(panel.cmdModeP.front().section);
}

/// Reads a section into the panel model; without it a box says so.
bool frmRemote::LoadSection(const QString& section) {
    const LayoutResult result = LoadRemote(panel, layoutFile(), section);
    if (result == LayoutResult::NoSection)
        services.boxes.Show(
            {QMessageBox::Warning, u"Remote "_s + section + u" not found"_s, u"Load Remote"_s});
    return result == LayoutResult::Loaded;
}

void frmRemote::LoadPage(const QString& section) {
    surface->LoseReleases();
    pageStands = LoadSection(section);
    surface->ShowPage(panel);
    if (!pageStands)
        return;
    ApplyWindowSize();
    sending->CheckPage();
}

void frmRemote::ApplyWindowSize() {
    if (panel.windowSize)
        ResizeTo(*panel.windowSize);
}

void frmRemote::ResizeTo(LayoutSize twips) {
    resize(std::clamp(ToPixels(twips.width), 1, LargestSide),
           std::clamp(ToPixels(twips.height), 1, LargestSide));
}

void frmRemote::ShowReceived(const ReceivedReply& received) {
    sb1[0]->setText(received.Remote);
    sb1[1]->setText(received.Command);
    sb1[2]->setText(received.Data);
}

bool frmRemote::event(QEvent* event) {
    // Behind a box or another window nobody sees that a button is still held.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate)
        surface->LoseReleases();
    return QMainWindow::event(event);
}

void frmRemote::closeEvent(QCloseEvent* event) {
    event->accept();
    timStart.stop();
    sending->Stop();
    emit Unloaded();
}
