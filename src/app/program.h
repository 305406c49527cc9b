#pragma once

#include "app/menu_forms.h"
#include "app/reply_boxes.h"
#include "app/start.h"
#include "panel/frmRemote.h"

/// The program: the session, the language, the boxes, the main window, and what ties them together. One
/// process has one; tests may have several.
class Program : public QObject {
    Q_OBJECT

public:
    struct Options {
        StartOptions start;
        QString folder;         ///< of what ships: language files, and the layout file if no other is found
        QString systemLanguage; ///< empty: the system gives none
        QString layoutFile;     ///< empty: it is looked for
        quint16 port = 21000;
    };

    explicit Program(const Options& options);
    ~Program() override;

    /// Shows the main window and starts to connect.
    void Start();

    frmRemote& MainWindow() { return *mainWindow; }
    Session& Link() { return session; }
    Boxes& MessageBoxes() { return boxes; }

signals:
    /// The main window is gone, or the connection was lost for good: the process is to end.
    void Ended();

private:
    void ShowLinkFault(LinkFault fault, const QString& description);
    void Unload();

    Session session;
    Language language;
    Boxes boxes;
    FormServices services;
    std::unique_ptr<frmRemote> mainWindow;
    MenuForms* menuForms; ///< of the main window
    QStringList warnings;
};
