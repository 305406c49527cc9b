#include "device/set_modus_ex_page.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

QWidget* SetModusExPage::MakeBus(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmBus"_s, parent);

    Group port(controls, u"fraPort"_s, u"Busanschluss"_s, page.Frame());
    port.Add(List::IO, u"lblIO"_s, u"Verwendung"_s,
             {u"Serial Bus"_s, u"State Input"_s, u"State Input w. Pullup"_s, u"State Input w. Pulldown"_s,
              u"State Input inverted"_s, u"State Input inv. Pullup"_s, u"State Input inv. Pulldown"_s,
              u"RS232 Input"_s, u"RS232 Output"_s, u"Relay Output"_s});
    QStringList speeds = RightAligned({4800, 9600, 19200, 38400});
    speeds.prepend(u"Classic"_s);
    port.Add(List::SBUS, u"lblSBUS"_s, u"SBUS Baudrate"_s, speeds);
    page.Add(port, 0, 0);

    Group bus(controls, u"fraBus"_s, u"Serieller Bus"_s, page.Frame());
    bus.Add(Box::Mode2, u"SBUS Empfangen"_s);
    bus.Add(Box::SBUSSend, u"SBUS Senden"_s);
    bus.Add(Box::Mode4, u"Fernsteuerung SBUS"_s);
    bus.Add(Box::Mode7, u"Repeat IR Codes via SBUS"_s);
    page.Add(bus, 0, 1);

    Group repeater(controls, u"fraSendmask"_s, u"IR Repeater"_s, page.Frame());
    auto* title = MakeLabel(u"lblSendmask"_s, u"Sendmaske"_s, repeater.Frame());
    auto* mask = controls.MakeMask(title, u"lblSendmask2"_s, repeater.Frame());
    title->setBuddy(mask);
    controls.FollowMask(title);
    const int row = repeater.Grid()->rowCount();
    repeater.Grid()->addWidget(title, row, 0, Qt::AlignBottom);
    repeater.Grid()->addWidget(mask, row, 1, Qt::AlignLeft);
    page.AddWide(repeater, 1);
    return page.Frame();
}

QWidget* SetModusExPage::MakeRS232(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmRS232"_s, parent);
    const QStringList speeds = RightAligned({4800, 9600, 19200, 38400, 57600, 115200});

    Group port(controls, u"fraRS232"_s, u"RS232 Anschluss"_s, page.Frame());
    port.Add(List::Baudrate, u"lblBaudrate"_s, u"RS232 Baudrate"_s, speeds);
    port.Add(Box::RTS, u"RTS/CTS  Handshake"_s);
    port.Add(Box::UDP, u"Transmit RS232 Data via UDP"_s);
    port.Add(Box::IROutRS232, u"IR Output als RS232 Output"_s);
    page.Add(port, 0, 0);

    Group aux(controls, u"fraAux"_s, u"Zusatzanschluss"_s, page.Frame());
    aux.Add(List::AuxBaudrate, u"lblAuxBaudrate"_s, u"Baudrate"_s, speeds);
    aux.Add(List::Parity, u"lblParity"_s, u"Parität"_s, {u"None"_s, u"Even"_s, u"Odd"_s});
    aux.Add(List::Databits, u"lblDatabits"_s, u"Datenbits"_s, {u"8"_s, u"7"_s});
    aux.Add(List::Stopbits, u"lblStopBits"_s, u"Stopbits"_s, {u"1"_s, u"2"_s});
    page.Add(aux, 0, 1);
    return page.Frame();
}
