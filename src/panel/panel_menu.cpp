#include "panel/panel_menu.h"

#include "forms/controls.h"

#include <QMenuBar>

using namespace Qt::StringLiterals;

PanelMenu::PanelMenu(QMainWindow* window)
    : QObject(window)
    , window(window) {
    QMenu* main = AddTop(u"mnuMain(10)"_s, u"Modus"_s);
    AddEntry(main, u"mnuModus(10)"_s, u"Device Status"_s);
    AddEntry(main, u"mnuModus(11)"_s, u"Befehle Lernen"_s);
    AddEntry(main, u"mnuModus(13)"_s, u"IR Translator"_s);
    AddEntry(main, u"mnuModus(14)"_s, u"Device Datenbank"_s);
    AddEntry(main, u"mnuModus(15)"_s, u"HTML Pages"_s);
    AddEntry(main, u"mnuModus(16)"_s, u"-"_s);
    AddEntry(main, u"mnuModus(18)"_s, u"IP Adresse"_s);
    AddEntry(main, u"mnuModus(20)"_s, u"-"_s);
    AddEntry(main, u"mnuModus(30)"_s, u"Ende"_s);

    pages = AddTop(u"mnuRemote(10)"_s, u"Remote"_s);
    auto* placeholder = new QAction(u"-"_s, pages);
    placeholder->setObjectName(u"mnuRemoteItem(999)"_s);
    placeholder->setEnabled(false);
    pages->addAction(placeholder);

    QMenu* sendMenu = AddTop(u"mnuSend(10)"_s, u"Senden"_s);
    AddEntry(sendMenu, u"mnuSendItem(10)"_s, u"Befehl Senden"_s);

    AddTopAction(u"mnuIO(10)"_s, u"Analog Inputs"_s);
    AddTopAction(u"mnuAbout(10)"_s, u"?"_s);
}

QMenu* PanelMenu::AddTop(const QString& name, const QString& caption) {
    auto* menu = window->menuBar()->addMenu(ToMnemonicText(caption));
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    return menu;
}

QAction* PanelMenu::AddEntry(QMenu* menu, const QString& name, const QString& caption) {
    auto* action = menu->addAction(ToMnemonicText(caption), this, [this, name] { emit Picked(name); });
    action->setObjectName(name);
    if (caption == u"-") {
        action->setSeparator(true);
        action->setText({}); // some styles draw the text of a separator
    }
    return action;
}

void PanelMenu::AddTopAction(const QString& name, const QString& caption) {
    auto* action =
        window->menuBar()->addAction(ToMnemonicText(caption), this, [this, name] { emit Picked(name); });
    action->setObjectName(name);
}

QAction* PanelMenu::Action(const char* name) const {
    const auto objectName = QLatin1StringView(name);
    // A top menu shares its name with its action, and the search by type tells them apart.
    auto* action = window->findChild<QAction*>(objectName);
    Q_ASSERT(action != nullptr);
    return action;
}

void PanelMenu::SetLinked(bool linked) {
    isLinked = linked;
    ApplySwitches();
}

void PanelMenu::ShowPermanent(const PanelModel& panel, const Language& language) {
    for (int index = 1; const PageButtonElement& element : panel.cmdModeP) {
        auto* action = pages->addAction(ToMnemonicText(element.caption), this,
                                        [this, section = element.section] { emit PagePicked(section); });
        action->setObjectName(ElementName(u"mnuRemoteItem"_s, index++));
    }
    Action("mnuRemoteItem(999)")->setVisible(panel.cmdModeP.empty());
    modus = panel.modus;
    send = panel.send;
    remote = panel.remote;
    about = panel.about;
    isBrand = panel.PanelTitle.startsWith(u"Ferolo");
    ApplySwitches();
    if (isBrand)
        ApplyBrand(language);
}

/// An entry is up if neither the layout nor a missing link takes it away. Both can change without the other.
void PanelMenu::ApplySwitches() {
    for (const char* name : {"mnuModus(10)", "mnuModus(11)", "mnuModus(13)"})
        Action(name)->setEnabled(isLinked && !modus.disabled);
    for (const char* name : {"mnuModus(14)", "mnuModus(18)"})
        Action(name)->setEnabled(!modus.disabled);
    for (const char* name : {"mnuModus(10)", "mnuModus(11)", "mnuModus(13)", "mnuModus(20)"})
        Action(name)->setVisible(!modus.hidden);
    for (const char* name : {"mnuModus(14)", "mnuModus(15)", "mnuModus(18)"})
        Action(name)->setVisible(!modus.hidden && !isBrand);

    Action("mnuSend(10)")->setEnabled(isLinked && !send.disabled);
    Action("mnuSend(10)")->setVisible(!send.hidden && !isBrand);
    Action("mnuRemote(10)")->setEnabled(isLinked && !remote.disabled);
    Action("mnuRemote(10)")->setVisible(!remote.hidden && !isBrand);
    Action("mnuAbout(10)")->setEnabled(!about.disabled);
    Action("mnuAbout(10)")->setVisible(!about.hidden);
}

void PanelMenu::ApplyBrand(const Language& language) {
    Action("mnuMain(10)")->setText(u"Start"_s);
    if (language.IsGerman()) {
        Action("mnuModus(10)")->setText(u"Einstellungen"_s);
        Action("mnuModus(13)")->setText(u"Befehle Zuordnen"_s);
    } else if (language.IsEnglish()) {
        Action("mnuModus(10)")->setText(u"Options"_s);
        Action("mnuModus(13)")->setText(u"Link Commands"_s);
    }
}
