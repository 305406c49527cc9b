#include "app/program.h"

#include <QApplication>

using namespace Qt::StringLiterals;

Program::Program(const Options& options)
    : boxes(language)
    , services{session, language, boxes}
    , warnings(ChooseLanguage(language, options.folder, options.systemLanguage, options.start.english)) {
    session.RemoteHost = options.start.host;
    session.RemotePort = options.port;
    mainWindow = std::make_unique<frmRemote>(services, [options] {
        return options.layoutFile.isEmpty() ? FindLayoutFile(options.folder) : options.layoutFile;
    });
    menuForms = new MenuForms(services, mainWindow.get());
    new ReplyBoxes(services, mainWindow.get());
    boxes.SetMainWindow(mainWindow.get());
    connect(mainWindow.get(), &frmRemote::MenuPicked, menuForms, &MenuForms::Open);
    connect(mainWindow.get(), &frmRemote::Unloaded, this, &Program::Unload);
    connect(&session, &Session::LinkFailed, this, &Program::ShowLinkFault);
}

Program::~Program() {
    // The answers of boxes know the window and what belongs to it.
    boxes.Clear();
}

void Program::Start() {
    mainWindow->show();
    for (const QString& warning : warnings)
        boxes.Show({QMessageBox::Warning, warning, {}});
    session.Connect();
}

void Program::ShowLinkFault(LinkFault fault, const QString& description) {
    Box box{QMessageBox::Critical, u"Error: "_s + description, {}};
    if (fault == LinkFault::Refused) {
        box.text +=
            u'\n' +
            language.GetLanguageText(u"frmRemote.SockError"_s, u"Brenmard läuft nicht auf dem Zielhost "_s) +
            session.RemoteHost;
        box.help = frmIP::HelpText(language);
    }
    boxes.Show(box, [this, fault](bool) {
        if (fault == LinkFault::Aborted)
            emit Ended();
        if (fault != LinkFault::Refused)
            return;
        mainWindow->SetUnlinked();
        menuForms->OpenAddress();
    });
}

/// Everything that is still open goes with the main window, the connection last: a form may have to say
/// goodbye.
void Program::Unload() {
    boxes.Clear();
    while (QWidget* menu = QApplication::activePopupWidget())
        menu->hide();
    for (Form* form : mainWindow->findChildren<Form*>())
        form->Unload();
    session.Disconnect();
    emit Ended();
}
