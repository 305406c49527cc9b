#include "app/menu_forms.h"

#include "device/device_settings_view.h"
#include "link/capabilities.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

MenuForms::MenuForms(const FormServices& services, QWidget* mainWindow)
    : QObject(mainWindow)
    , services(services)
    , mainWindow(mainWindow)
    , status(services.session) {
    connect(&services.session, &Session::ErrorReported, this, &MenuForms::UnloadWait);
    connect(&services.session, &Session::LinkFailed, this, &MenuForms::UnloadWait);
    connect(&services.session, &Session::LinkUp, this, &MenuForms::UnloadWait);
    connect(&status, &StatusStore::HtmlWanted, this,
            [this] { html.Load(this->services, this->status, this->mainWindow).ShowModal(); });
    connect(&status, &StatusStore::DatabaseWanted, this, [this](bool found) {
        UnloadWait();
        if (found)
            database.Load(this->services, ListDevices(status, Capability::Database), this->mainWindow)
                .ShowModal();
        else
            TellNoDevice(u"No Vantrel Device with IR DB connected to your system."_s);
    });
    connect(&status, &StatusStore::TranslatorWanted, this, [this](bool found) {
        UnloadWait();
        if (found)
            translator
                .Load(this->services, ListTranslatorDevices(status), this->mainWindow->windowTitle(),
                      this->mainWindow)
                .ShowModal();
        else
            TellNoDevice(u"No Vantrel Translator connected to your system."_s);
    });
    connect(&status, &StatusStore::DevicesWanted, this, &MenuForms::OpenDevices);
    connect(&status, &StatusStore::BusesLeftOut, this, [this] {
        this->services.boxes.Show(
            {QMessageBox::Warning,
             this->services.language.GetLanguageText(u"frmRemote.BusesLeftOut"_s,
                                                     u"Es werden nur die ersten 64 Busse angezeigt."_s),
             {}});
    });
}

void MenuForms::Open(const QString& name) {
    static const QHash<QString, Purpose> statusEntries = {
        {u"mnuModus(10)"_s, Purpose::Devices},
        {u"mnuModus(13)"_s, Purpose::Translator},
        {u"mnuModus(14)"_s, Purpose::Database},
        {u"mnuModus(15)"_s, Purpose::Html},
    };
    if (const auto entry = statusEntries.find(name); entry != statusEntries.end())
        RequestStatus(*entry);
    else if (name == u"mnuModus(11)")
        learn.Load(services, mainWindow).ShowModal();
    else if (name == u"mnuModus(18)")
        OpenAddress();
    else if (name == u"mnuSendItem(10)")
        freeSend.Load(services, mainWindow).ShowModal();
    else if (name == u"mnuIO(10)")
        analogInputs.Load(services, mainWindow).ShowModeless();
    else if (name == u"mnuAbout(10)")
        about.Load(services, mainWindow->windowTitle(), mainWindow).ShowModeless();
}

void MenuForms::OpenAddress() {
    address.Load(services, mainWindow).ShowModal();
}

void MenuForms::RequestStatus(Purpose purpose) {
    if (!status.Request())
        return;
    switch (purpose) {
    case Purpose::Devices: break;
    case Purpose::Translator: status.OpenTranslator = true; break;
    case Purpose::Database: status.OpenDatabase = true; break;
    case Purpose::Html: status.OpenHTML = true; break;
    }
    if (purpose == Purpose::Translator || purpose == Purpose::Database)
        wait.Load(services, mainWindow).ShowModeless();
}

void MenuForms::OpenDevices() {
    // A status that nobody asked for puts no second dialog over the one that is up.
    const auto forms = mainWindow->findChildren<Form*>();
    if (std::any_of(forms.begin(), forms.end(),
                    [](Form* form) { return form->isVisible() && form->isModal(); }))
        return;
    const auto buses = status.Buses();
    if (const auto only = OnlyDevice(buses))
        OpenDeviceSettings(services, *FindDevice(buses, *only), *only, DeviceOrigin::Single, mainWindow,
                           [] {});
    else
        devices.Load(services, buses, mainWindow).ShowModal();
}

void MenuForms::UnloadWait() {
    if (wait.Loaded() != nullptr)
        wait.Loaded()->Unload();
}

void MenuForms::TellNoDevice(const QString& text) {
    services.boxes.Show({QMessageBox::Warning, text, u"Device not found"_s});
}
