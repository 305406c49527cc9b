#include "device/set_modus_ex_page.h"
#include "forms/localize.h"
#include "link/requests.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

namespace {

/// Of a MAC address: hexadecimal digits, and what may stand between them.
QChar MacCharacters(QChar character) {
    const bool isSeparator = QStringView(u":.-").contains(character);
    const QChar digit = HexDigitsAndBlanks(character);
    return isSeparator ? character : digit == u' ' ? QChar() : digit;
}

} // namespace

QWidget* SetModusExPage::MakeGeneral(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmGeneral"_s, parent);

    Group functions(controls, u"fraMode"_s, u"Funktionen"_s, page.Frame());
    functions.Add(Box::Mode0, u"IR Senden"_s);
    functions.Add(Box::Mode1, u"IR Empfangen"_s);
    functions.Add(Box::Mode5, u"Immer RAW Modus"_s);
    page.Add(functions, 0, 0);

    Group outputs(controls, u"fraOutput"_s, u"IR Ausgänge"_s, page.Frame());
    outputs.Add(Box::Ext0, u"Interne LEDs aktiv"_s);
    outputs.Add(Box::Ext1, u"Externe LEDs aktiv"_s);
    outputs.Add(Box::EmulateExternal, u"Alle ext. Ausgänge emulieren"_s);
    page.Add(outputs, 0, 1);

    Group repeats(controls, u"fraRepeat"_s, u"IR Wiederholung"_s, page.Frame());
    repeats.Add(Box::Ext5, u"Self Repeat"_s);
    repeats.Add(Box::Ext6, u"Self Repeat via internal LEDs"_s);
    repeats.Add(Box::Repeat, u"Framelength für IR Repeat"_s);
    page.Add(repeats, 1, 0);

    Group input(controls, u"fraInput"_s, u"IR Eingang"_s, page.Frame());
    input.Add(List::IRInput, u"lblIRInput"_s, u"Verwendung"_s, {u"IR Input"_s});
    input.Add(Box::StateInternal, u"Status Input für int. LEDs"_s);
    input.Add(Box::StateExternal, u"Status Input für ext. LEDs"_s);
    page.Add(input, 1, 1);
    return page.Frame();
}

QWidget* SetModusExPage::MakePower(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmPower"_s, parent);

    Group commands(controls, u"fraHot"_s, u"Ein- und Ausschalten"_s, page.Frame());
    commands.Add(Text::Hotremote, u"lblHot1"_s, u"PowerON Remote/Command"_s, Wire::RemoteWidth);
    commands.AddBeside(controls.Make(Text::Hotcommand, Wire::CommandWidth, commands.Frame()));
    commands.Add(Text::Hotremote2, u"lblHot2"_s, u"PowerOFF Remote/Command"_s, Wire::RemoteWidth);
    commands.AddBeside(controls.Make(Text::Hotcommand2, Wire::CommandWidth, commands.Frame()));
    commands.Grid()->setColumnStretch(1, 3);
    commands.Grid()->setColumnStretch(2, 2);
    page.AddWide(commands, 0);

    Group waking(controls, u"fraWake"_s, u"Aufwecken"_s, page.Frame());
    constexpr int MacLength = 17; // "00-11-22-33-44-55"
    waking.Add(Text::MAC, u"lblWakeOnLANMac"_s, u"WakeOnLAN MAC Address"_s, MacLength)
        ->SetFilter(&MacCharacters);
    waking.Add(Box::USBWakeup, u"Wake on USB aktivieren"_s);
    page.AddWide(waking, 1);
    return page.Frame();
}

QWidget* SetModusExPage::MakeDisplay(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmDisplay"_s, parent);
    controls.Follow(page.Frame(), List::Date);

    Group group(controls, u"fraDisplay"_s, u"Display Config"_s, page.Frame());
    group.Add(List::Date, u"LblDisplay(0)"_s, u"Datums/Zeitformat"_s,
              {u"DD.MM.YYYY"_s, u"DD-MM-YYYY"_s, u"DD/MM/YYYY"_s, u"MM.DD.YYYY"_s, u"MM-DD-YYYY"_s,
               u"MM/DD/YYYY"_s, u"YYYY.MM.DD"_s, u"YYYY-MM-DD"_s, u"YYYY/MM/DD"_s});
    group.AddBelow(controls.Make(List::Time, {u"20:00:00"_s, u"08:00:00 PM"_s}, group.Frame()));
    auto* title = MakeLabel(u"LblDisplay(2)"_s, u"Helligkeit"_s, group.Frame());
    title->setProperty("tag", OwnKeyTag);
    controls.Follow(title, List::Aktiv);
    group.AddLine(title);
    const QStringList levels = {u"0"_s, u"1"_s, u"2"_s, u"3"_s};
    group.Add(List::Aktiv, u"LblDisplay(3)"_s, u"Aktiv"_s, levels);
    group.Add(List::Inaktiv, u"LblDisplay(4)"_s, u"Inaktiv"_s, levels);
    auto* cmdStartup = MakeButton(u"cmdStartup"_s, u"Set Startup Text"_s, group.Frame());
    controls.Follow(cmdStartup, List::Date);
    group.AddBelow(cmdStartup);
    page.Add(group, 0, 0);
    return page.Frame();
}
