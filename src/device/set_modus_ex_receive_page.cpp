#include "device/set_modus_ex_page.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

QWidget* SetModusExPage::MakeReceive(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmReceive"_s, parent);

    Group receivers(controls, u"fraReceiver"_s, u"Empfänger"_s, page.Frame());
    receivers.Add(List::Receiver1, u"lblRCV1"_s, u"Empfänger 1"_s, {});
    receivers.AddBeside(controls.Make(Box::RCV1, u"Aktiv"_s, receivers.Frame()));
    receivers.Add(List::Receiver2, u"lblRCV2"_s, u"Empfänger 2"_s, {});
    receivers.AddBeside(controls.Make(Box::RCV2, u"Aktiv"_s, receivers.Frame()));
    receivers.Add(Box::Ext4, u"455 kHz B&O Codes"_s);
    auto* lblTip =
        MakeLabel(u"lblTip"_s,
                  u"Bitte beachten: Die Auswahl eines Empfängers, der nicht im Gerät eingebaut oder "
                  "angeschlossen ist, führt dazu, daß der Empfang nicht korrekt funktionieren kann !"_s,
                  receivers.Frame());
    lblTip->setWordWrap(true);
    receivers.AddLine(lblTip);
    page.AddWide(receivers, 0);

    Group times(controls, u"fraTiming"_s, u"Zeiten"_s, page.Frame());
    constexpr int TimeoutLength = 6;
    times.Add(Text::Timeout, u"lblTimeout"_s, u"Recv.Timeout[ms]"_s, TimeoutLength);
    times.Add(List::Idle, u"lblIdle"_s, u"Ruhezeit"_s, RightAligned({1, 2, 4, 5, 6, 8, 10, 15}, u" ms"_s));
    times.Add(List::Filter, u"lblFilter"_s, u"Filter"_s,
              RightAligned({64, 120, 160, 280, 380, 480, 550, 800}, u" µs"_s));
    times.Add(List::Tolerance, u"lblTolerance"_s, u"Toleranz"_s,
              RightAligned({64, 96, 120, 160, 320, 480, 680, 960}, u" µs"_s));
    page.Add(times, 1, 0);

    Group learning(controls, u"fraLearn"_s, u"Empfangen und Lernen"_s, page.Frame());
    learning.Add(Box::LongRepeat, u"Lange Repeats Empfang"_s);
    learning.Add(Box::Sort, u"Keine Sortierung IR Codes"_s);
    learning.Add(Box::XLong, u"Lange Tastendrücke lernen"_s);
    learning.Add(Box::RC5free, u"Freie RC5 Timings lernen"_s);
    page.Add(learning, 1, 1);
    return page.Frame();
}

QWidget* SetModusExPage::MakeCodes(SetModusExControls& controls, QWidget* parent) {
    Page page(u"frmCodes"_s, parent);

    Group rc5(controls, u"fraRC5"_s, u"RC5"_s, page.Frame());
    rc5.Add(Box::RC5, u"RC5 Codes erkennen"_s);
    rc5.Add(Box::Mode3, u"RC5 Togglebit ignorieren"_s);
    page.Add(rc5, 0, 0);

    Group rc6(controls, u"fraRC6"_s, u"RC6"_s, page.Frame());
    rc6.Add(Box::RC6, u"RC6 Codes erkennen"_s);
    rc6.Add(Box::RC6Toggle, u"RC6 Togglebit ignorieren"_s);
    page.Add(rc6, 0, 1);

    Group rcmm(controls, u"fraRCMM"_s, u"RCMM"_s, page.Frame());
    rcmm.Add(Box::RCMM, u"RCMM Erkennung"_s);
    rcmm.Add(Box::ForceRCMM, u"Starke RCMM Erkennung"_s);
    rcmm.Add(Box::RCMMToggle, u"RCMM Togglebithandling"_s);
    page.Add(rcmm, 1, 0);

    Group others(controls, u"fraToggle"_s, u"Weitere Codes"_s, page.Frame());
    others.Add(Box::RStep56, u"56 kHz R-Step Keyboard"_s);
    constexpr int PositionLength = 2;
    others.Add(Text::Toggle, u"lblToggle"_s, u"Position des Togglebits"_s, PositionLength);
    others.Add(List::ToggleCount, u"lblToggleCount"_s, u"Anzahl der Togglebits"_s, {u"1"_s, u"2"_s});
    others.Add(List::Cycle, u"lblCycle"_s, u"Tastverhältnis"_s, {u"1:2"_s, u"1:4"_s});
    page.Add(others, 1, 1);
    return page.Frame();
}
