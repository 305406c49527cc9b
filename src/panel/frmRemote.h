#pragma once

#include "forms/form.h"
#include "panel/panel_menu.h"
#include "panel/panel_surface.h"
#include "panel/sending.h"

#include <QMainWindow>

/// The main window: the menu, the panel that the layout file describes, and the status bar. It lives as long
/// as the program. It greets the server when a connection stands, and loads the panel 250 ms later.
class frmRemote : public QMainWindow {
    Q_OBJECT

public:
    /// `layoutFile` gives the path of the layout file; it is asked at each load of a section.
    frmRemote(const FormServices& services, std::function<QString()> layoutFile);

    /// A connection was refused: the entries that need one are disabled until one stands.
    void SetUnlinked();

    const PanelModel& Panel() const { return panel; }

signals:
    /// A menu entry was chosen that opens something: its control name, such as "mnuModus(11)".
    void MenuPicked(const QString& name);
    /// The window was closed, by its menu or by itself.
    void Unloaded();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeStatusBar();
    void Greet();
    void BringUpPanel();
    bool LoadSection(const QString& section);
    void LoadPage(const QString& section);
    void ApplyWindowSize();
    void ResizeTo(LayoutSize twips);
    void ShowReceived(const ReceivedReply& received);

    FormServices services;
    std::function<QString()> layoutFile;
    PanelModel panel;
    PanelMenu* menu;
    PanelSurface* surface;
    PanelSending* sending;
    QTimer timStart;
    bool panelStands = false; ///< MAIN has been loaded
    bool pageStands = false;  ///< a sub-page is on the panel
    std::array<QLabel*, 3> sb1{};
};
