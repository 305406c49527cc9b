#include "device/set_modus_ex_controls.h"
#include "device/set_modus_ex_lists.h"
#include "device/set_modus_ex_rules.h"

#include "device/device_rig.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

namespace {

struct Row {
    const char* version; ///< a letter alone: of firmware 6.04.43
    quint32 capabilities;
    quint32 extCapabilities;
    quint32 extCapabilities2;
    /// Bytes by name; the others are 0, but for a receiver of 38 kHz and 30 ms. Behind them what is changed
    /// by hand: a box, the index of a list, the mask.
    const char* reported;
    const char* sent; ///< the bytes that differ then, and the controls that are enabled (+) and disabled (-)
};

/// Each rule once where it changes what was reported or chosen, and beside it a device for which it doesn't.
const Row rows[] = {
    // The serial bus: what is received from it, controls by it and is repeated to it.
    {"U", 0, 0, 0, "Mode BF", "Mode 2B"},
    {"U", 0x2, 0, 0, "Mode BF", ""},
    // Its speed: none to choose, or it would cut the device's only link.
    {"U", 0x2, 0, 0, "Mode 40 Timing 18", "Mode 00 Timing 00"},
    {"U", 0x1000, 0, 0, "Mode 40 Timing 18", "Mode 00 Timing 00"},
    {"U", 0x1002, 0, 0, "Mode 40 Timing 10", ""},
    {"U", 0x1004, 0, 0, "Mode 40 Timing 10", ""},
    {"U", 0x1008, 0, 0, "Mode 40 Timing 10", ""},
    {"U", 0x01001000, 0, 0, "Mode 40 Timing 10", ""},
    {"U", 0x1002, 0x4000, 0, "Mode 40 Mask 5", ""},
    // Its connector as a state input; an inversion without an input is the third one.
    {"U", 0x1002, 0x4800, 0, "Timing 08 IO C1 Mode 94 Mask 5", "IO C0 Mask 0"},
    {"U", 0x1002, 0x4800, 0, "Timing 18 Flags 04 IO C1", "IO C0"},
    {"U", 0x1002, 0x4800, 0, "Flags 04 IO C1 Mode 94 Mask 5", "Timing 18 Flags 00"},
    {"U", 0, 0x4000, 0, "Flags 04 Mask 5", "Timing 18 Flags 00 Mask 0"},
    {"U", 0x1002, 0, 0, "Timing 18 Flags 04 IO C0", "Timing 00 IO 00 Flags 00"},
    // As RS232.
    {"U", 0x1002, 0x10000, 0, "Serial 01 Timing 08", ""},
    {"U", 0x1002, 0x90000, 0, "Serial 30 Timing 08", ""},
    {"U", 0x1002, 0x10000, 0, "Serial 21 Timing 08 Mask 5 Mode 94", "Serial 20 Mask 0"},
    {"U", 0x1002, 0, 0, "Serial 21", "Serial 00"},
    {"U", 0x1002, 0x14000, 0, "Serial 80 Timing 08", "Serial 00"},
    // As a relay; a connector that is the bus again takes its defaults.
    {"U", 0x1002, 0x02000000, 0, "Serial 01 Mode 40 Mask 5 Timing 08", "Mode 00 Timing 00 Mask 0"},
    {"U", 0x1002, 0x02000000, 0, "Mode 40 Timing 08 Mask 5", ""},
    {"U", 0x1002, 0x02004000, 0, "Timing 08 Mask 5", "Mode 40 Timing 18 Mask FFFF"},
    {"U", 0x1002, 0x02004000, 0, "Timing 18 Flags 04 Serial 01", "Timing 00 Flags 00"},
    {"U", 0x2, 0x02000000, 0, "Mask 5", ""},
    {"U", 0x1000, 0x02000000, 0, "Mask 5", "Mask 0"},
    {"U", 0x2, 0x02004000, 0, "Mask 5", ""},
    {"U", 0x2, 0x02010000, 0, "Serial 20 Mask 5", "Serial 00"},
    // What the bus sends.
    {"U", 0x2, 0x800, 0, "IO 07", "IO 01"},
    {"U", 0, 0x800, 0, "IO 01", "IO 00"},
    {"U", 0x2, 0, 0, "IO 01", "IO 00"},
    {"U", 0xA, 0x2000, 0, "IO 03", "IO 02"},
    {"U", 0x8, 0x2000, 0, "IO 02", ""},
    {"U", 0, 0x2000, 0, "IO 02", "IO 00"},
    {"U", 0x8, 0, 0, "IO 02", "IO 00"},
    // The IR input as state input, which blocks reception; one that the list lacks.
    {"U", 0, 0x400000, 0, "IO E0 Mode 02", "Mode 00"},
    {"U", 0, 0x01400000, 0, "IO C8 Mode 02", ""},
    {"U", 0, 0x400000, 0, "IO 28 Mode 02", "IO 00"},
    {"U", 0, 0x400000, 0, "IO C0 Mode 02", "IO 00"},
    {"U", 0, 0, 0, "IO C8 Mode 02", "IO 00"},
    // The IR ports as RS232.
    {"U", 0, 0x20000, 0, "Serial 81 Mode 02 Timing 08", "Mode 00"},
    {"U", 0, 0x20000, 0, "Serial E0 Timing 18 Mode 02", "Timing 00 Serial 40"},
    {"U", 0, 0x40020000, 0, "Serial 20 Mode 02", "Mode 00"},
    {"U", 0, 0x40020000, 0, "Serial 61 Timing 10", "Serial 20"},
    {"U", 0, 0x40420000, 0, "Serial 21 IO C8", "IO 00 Serial 20"},
    {"U", 0, 0x420000, 0, "Serial 40 IO C8 Mode 02", "Mode 00"},
    {"U", 0, 0, 0, "Serial E1 Timing 08", "Timing 00 Serial 00"},
    // The RS232 port, with a speed of its own or the auxiliary one; speeds that the list lacks.
    {"U", 0, 0, 0, "Mode2 E0 Flags 12", "Mode2 00 Flags 00"},
    {"U", 0x4, 0, 0, "Mode2 E0 Flags 00", "Mode2 60"},
    {"U", 0x4, 0x100, 0, "Mode2 E0 Flags 10", ""},
    {"U", 0x4, 0, 0, "Mode2 20 Flags 10", "Mode2 00 Flags 00"},
    {"U", 0x4, 0x80000000, 0, "Mode2 40 Flags 02", ""},
    {"U", 0x01000004, 0, 0, "Mode2 E0 Timing 08", "Mode2 80 Timing 00"},
    {"U", 0x01000004, 0x80000000, 0, "Mode2 C0 Serial 80 Flags 02", "Mode2 80 Timing 08"},
    {"U", 0x01000006, 0, 0, "Mode2 C0 Serial 80 Timing 08", "Timing 00"},
    {"U", 0x01000006, 0, 0, "Mode2 20 Serial 80", "Mode2 00 Serial 00"},
    {"U", 0x01000006, 0x10000, 0, "Mode2 40 Serial 20 Timing 18", "Mode2 00 Timing 08"},
    {"U", 0x01000000, 0, 0, "Mode2 E0 Serial 80", "Mode2 00 Serial 00"},
    // The auxiliary port.
    {"U", 0, 0x40000, 0x200, "Timing 18 Serial 80", "Timing 00 Serial 00"},
    {"U", 0x2, 0x40000, 0x200, "Timing 18", "Timing 00"},
    {"U", 0, 0x40000, 0x200, "Timing 08 Serial 80", ""},
    {"U", 0, 0x80040000, 0x200, "Timing 10 Flags 02", ""},
    {"U", 0, 0x40000, 0, "Timing 08 Serial 80", "Timing 00 Serial 00"},
    {"U", 0, 0, 0x200, "Timing 08 Serial 80", "Timing 00 Serial 00"},
    {"U", 0, 0xC0000, 0x200, "Serial 16", "Serial 10"},
    {"U", 0, 0xC0000, 0x200, "Serial 18", "Serial 00"},
    {"U", 0, 0x140000, 0x200, "Serial 1E", "Serial 06"},
    {"U", 0x4, 0x40000, 0x200, "Timing 08 Mode2 40 Flags 10", ""},
    {"U", 0x6, 0x40000, 0x200, "Timing 08 Mode2 40 Flags 10", "Timing 00"},
    {"U", 0, 0x80180000, 0, "Serial 1E Flags 02", "Serial 00 Flags 00"},
    // Receivers: those that the lists have, who is active, and codes of 455 kHz.
    {"U", 0, 0, 0, "Rcv 2F Ext FF", "nothing"},
    {"U", 0x4800, 0, 0, "Rcv 42 Ext FF", ""},
    {"U", 0x800, 0, 0, "Rcv 22 Ext FF", "Ext 8C"},
    {"U", 0, 0, 0, "Rcv 04 Ext 9C", "Ext 94"},
    {"U", 0, 0, 0, "Rcv 05 Ext 10", ""},
    {"U", 0x4800, 0, 0, "Rcv 22 Ext 63", ""},
    {"U", 0x820, 0x04000000, 0, "Rcv 9A Ext 1C", "Ext 0C Rcv 92"},
    {"U", 0x820, 0x04000000, 0, "Rcv CC Ext 1C", "Rcv C2"},
    {"U", 0x820, 0x04000000, 0, "Rcv C2 Ext 1C", ""},
    {"U", 0x820, 0, 0, "Rcv AC Ext 1C", ""},
    {"U", 0x820, 0x04000000, 0, "Rcv 2A Ext 1C", "Ext 0C"},
    {"U", 0, 0x80, 0, "Rcv 01", "nothing"},
    {"U", 0, 0x80, 0, "Rcv 04", ""},
    {"U", 0x800, 0x80, 0, "Rcv 24", "nothing"},
    {"U", 0x800, 0x80, 0, "Rcv 42", ""},
    {"U", 0x800, 0x80, 0, "Rcv 52", "nothing"},
    {"U", 0x800, 0x10000080, 0, "Rcv 52", ""},
    {"U", 0x800, 0x10000080, 0, "Rcv 42", "nothing"},
    {"U", 0x800, 0x80, 0x100, "Rcv 42", "nothing"},
    {"U", 0x800, 0x80, 0x100, "Rcv 02", ""},
    {"U", 0x800, 0x80, 0x100, "Rcv A2", ""},
    {"U", 0, 0x800000, 0, "Rcv 0C", ""},
    {"U", 0x800, 0x800000, 0, "Rcv CC", "nothing"},
    {"U", 0x20, 0, 0, "Rcv 0E", ""},
    {"U", 0, 0, 0, "Rcv 0A", "nothing"},
    {"U", 0, 0, 0, "Rcv 03", "nothing"},
    // Times and codes.
    {"U", 0, 0, 0, "Mode2 1F Time FA Timing E7 Ext 80", ""},
    {"U", 0, 0, 0, "Time 00", "Time 01"},
    {"U", 0, 0, 0, "Time FB", "Time FA"},
    {"U", 0, 0, 0, "Code FF Toggle FF", "Code 7F Toggle BF"},
    {"U", 0, 0x400, 0, "Code FE Toggle 80", "Code F8 Toggle 00"},
    {"U", 0, 0, 0, "Toggle 81", ""},
    // What is learned and emulated.
    {"U", 0, 0, 0, "Flags FF", "Flags 20"},
    {"U6.04.42", 0, 0, 0, "Flags 20", "Flags 00"},
    {"U10.00.00", 0, 0, 0, "Flags 20", "Flags 00"},
    {"U", 0, 0x08200000, 0, "Flags 09", ""},
    {"U", 0, 0x08000000, 0, "Flags 09", "Flags 01"},
    // Mask or display, which may be off; dates that the list lacks.
    {"U", 0x2, 0, 0, "Mask FFFFFFFF", "Mask FFFF"},
    {"U", 0, 0, 0, "Mask FFFFFFFF", "Mask 0"},
    {"D", 0x2, 0, 0, "Mask FFFF01FA", "Mask 1FA"},
    {"D", 0, 0, 0, "Mask 0600", "Mask 0"},
    {"F", 0, 0, 0, "Mask 01FA", ""},
    {"F", 0, 0, 0, "Mask 03FA", "Mask 39A"},
    {"F", 0, 0, 0, "Mask 05FA", "Mask 47A"},
    {"F", 0, 0, 0, "Mask F80F", "Mask 0"},
    {"D", 0, 0x02004000, 0, "Mask 3 Timing 08", "Mode 40 Timing 18 Mask 4"},
    {"D", 0, 0, 0, "Mask 7", "Mask 8"},
    // RCMM and its refinements.
    {"U", 0, 0, 0, "Code 07 chkRCMM=0", "Code 00 -chkForceRCMM -chkRCMMToggle"},
    {"U", 0, 0, 0, "Code 07 chkRCMM=0 chkRCMM=1", "Code 01"},
    // The connector of the bus: in other use, and back.
    {"U", 0x1006, 0x4800, 0, "Mask 5 cmbIO=3",
     "Timing 18 Mask 0 +chkStateInternal +chkStateExternal -chkMode(2) -chkMode(4) -chkMode(7) -chkSBUSSend "
     "-cmbSBUS -chkMask"},
    {"U", 0x1006, 0x4800, 0, "Mask 5 cmbIO=3 cmbIO=0", ""},
    {"U", 0x1006, 0x4800, 0, "Timing 10 cmbIO=5 chkStateExternal=1", "IO 80 Flags 04"},
    {"U", 0x1006, 0x4800, 0, "Timing 10 cmbIO=6 cmbIO=2", ""},
    {"U", 0, 0x10000, 0, "cmbIO=7", "Timing 08 Serial 20 +cmbAuxBaudrate"},
    {"U", 0, 0x10000, 0, "cmbIO=8", "Timing 08 Serial 01 +cmbAuxBaudrate"},
    {"U", 0x1006, 0x4800, 0, "Mask 5 cmbSBUS=1", "Mode 40"},
    {"U", 0x1006, 0x4800, 0, "Mode 40 Timing 18 cmbSBUS=0", "Mode 00 Timing 00"},
    {"U", 0x1006, 0x4800, 0, "Mask 5 cmbSBUS=4", "Mode 40 Timing 18"},
    // The first return to the bus takes the defaults, the second doesn't.
    {"U", 0x2, 0x4000, 0, "Timing 10 cmbIO=0",
     "Mode 40 Timing 18 Mask FFFF +chkMode(2) +chkMode(4) +chkMode(7) +chkSBUSSend +cmbSBUS +chkMask "
     "-chkStateInternal -chkStateExternal"},
    {"U", 0x2, 0x4000, 0, "Timing 10 cmbIO=0 chkMask=1 cmbSBUS=1 cmbIO=6", "Timing 18 Flags 04"},
    {"U", 0x2, 0x4000, 0, "Timing 10 cmbIO=0 chkMask=1 cmbSBUS=1 cmbIO=6 cmbIO=0",
     "Mode 40 Timing 00 Mask 1 +chkMode(2) +chkMode(4) +chkMode(7) +chkSBUSSend +cmbSBUS +chkMask "
     "-chkStateInternal -chkStateExternal"},
    // A relay in place of the bus: the list has two entries.
    {"U", 0x2, 0x02000000, 0, "Serial 01 cmbIO=0",
     "Mode 40 Timing 18 Serial 00 Mask FFFF +chkMode(2) +chkMode(4) +chkMode(7) +chkSBUSSend +cmbSBUS "
     "+chkMask"},
    {"U", 0x1002, 0x02000000, 0, "Mask 5 cmbIO=1",
     "Serial 01 Mask 0 -chkMode(2) -chkMode(4) -chkMode(7) -chkMask"},
    // The receivers, which of them are active, and codes of 455 kHz.
    {"U", 0x820, 0, 0, "Rcv 11 Ext 0C cmbReceiver1=0", "Ext 04 Rcv 12"},
    {"U", 0x820, 0, 0, "Rcv 11 Ext 0C cmbReceiver2=0", "Ext 08 Rcv 21"},
    {"U", 0x820, 0, 0, "Rcv 22 Ext 0C cmbReceiver2=2", "Ext 1C Rcv 42 +chkExt(4)"},
    {"U", 0x820, 0, 0, "Rcv 22 Ext 0C cmbReceiver2=3", "Ext 18 Rcv 52 +chkExt(4)"},
    {"U", 0x820, 0, 0, "Rcv 24 Ext 0C cmbReceiver2=8", "Ext 1C Rcv D4"},
    {"U", 0x820, 0, 0, "Rcv 44 Ext 0C cmbReceiver1=4", "Ext 14 Rcv 46"},
    {"U", 0x820, 0, 0, "Rcv 22 Ext 0C cmbReceiver1=9", "Ext 04 Rcv 2E +chkExt(4)"},
    {"U", 0x820, 0, 0, "Rcv C2 Ext 0C cmbReceiver1=6", "Ext 1C Rcv C9"},
    {"U", 0x820, 0x04000000, 0, "Rcv A2 Ext 0C cmbReceiver1=6", "Ext 04 Rcv 29"},
    {"U", 0x820, 0x04000000, 0, "Rcv 2A Ext 0C cmbReceiver2=7", "Ext 1C Rcv C2 +chkExt(4)"},
    // The IR input as RS232 takes the place of the IR output and blocks reception; the speeds come and go.
    {"U", 0, 0xC0420000, 0, "Mode 02 chkIROutRS232=1",
     "Timing 08 Serial 40 +chkUDP +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits"},
    {"U", 0, 0xC0420000, 0, "Mode 02 chkIROutRS232=1 cmbIRInput=6",
     "Mode 00 Timing 08 Serial 20 +chkUDP +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits -chkMode(1)"},
    {"U", 0, 0xC0420000, 0, "Mode 02 chkIROutRS232=1 cmbIRInput=6 cmbAuxBaudrate=5 cmbParity=2",
     "Mode 00 Timing 08 Serial B0 +chkUDP +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits -chkMode(1)"},
    {"U", 0, 0xC0420000, 0, "Mode 02 cmbIRInput=5 chkIROutRS232=1",
     "Mode 00 Timing 08 Serial 40 +chkUDP +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits"},
    {"U", 0, 0xC0420000, 0, "Mode 02 chkIROutRS232=1 cmbIRInput=3 chkStateExternal=1 chkIROutRS232=0",
     "Mode 00 IO 98 +chkStateInternal +chkStateExternal +chkUDP -chkMode(1)"},
    {"U", 0, 0xC0420000, 0, "Mode 02 chkIROutRS232=1 cmbIRInput=3 chkStateExternal=1 cmbIRInput=0",
     "Mode 00 Timing 08 Serial 40 +chkUDP +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits"},
    {"U", 0, 0x00420000, 0, "chkIROutRS232=1 cmbAuxBaudrate=5 chkIROutRS232=0 chkIROutRS232=1",
     "Timing 08 Serial 40 +cmbAuxBaudrate +cmbParity +cmbDatabits +cmbStopbits"},
    {"U", 0, 0x00400000, 0, "cmbIRInput=3 chkStateExternal=1 cmbIRInput=0 cmbIRInput=3",
     "IO 18 +chkStateInternal +chkStateExternal -chkMode(1)"},
    {"U", 0, 0xC1420000, 0, "Mode 02 cmbIRInput=4", "IO 20 +chkStateInternal +chkStateExternal"},
    // The speeds of the RS232 port, in both lists.
    {"U", 0x4, 0, 0, "cmbBaudrate=3", ""},
    {"U", 0x4, 0, 0, "cmbBaudrate=4", "Mode2 60 Flags 10"},
    {"U", 0x01000006, 0, 0, "cmbAuxBaudrate=3", ""},
    {"U", 0x01000006, 0, 0, "cmbAuxBaudrate=4", "Mode2 60 Serial 80"},
    {"U", 0, 0x40000, 0x200, "cmbAuxBaudrate=3", "Timing 18"},
    {"U", 0, 0x40000, 0x200, "cmbAuxBaudrate=4", "Serial 80"},
    {"U", 0, 0x1C0000, 0x200, "cmbDatabits=1 cmbParity=1", "Serial 0A"},
    {"U", 0, 0x1C0000, 0x200, "cmbStopbits=1 cmbParity=2", "Serial 14"},
    // The other lists.
    {"U", 0, 0x400, 0, "cmbTolerance=7 cmbIdle=6 cmbFilter=5 cmbCycle=1", "Mode2 07 Timing A6 Code 80"},
    {"U", 0, 0, 0, "Toggle 04 cmbToggleCount=1", "Toggle 84"},
    {"D", 0, 0, 0, "cmbDate=3 cmbTime=1 cmbAktiv=3 cmbInaktiv=2", "Mask 1D4"},
    {"F", 0, 0, 0, "Mask 6F cmbDate=8 cmbAktiv=4 cmbInaktiv=1", "Mask 42A"},
    {"F", 0, 0, 0, "cmbDate=6 cmbInaktiv=4", "Mask 208"},
};

/// The bytes in the order in which the entry and the record have them.
const std::pair<const char*, quint8 DeviceEntry::*> bytes[] = {
    {"Mode", &DeviceEntry::Mode},           {"Ext", &DeviceEntry::ExtMode},
    {"Mode2", &DeviceEntry::ExtMode2},      {"Rcv", &DeviceEntry::Receivers},
    {"Time", &DeviceEntry::ReceiveTimeout}, {"Timing", &DeviceEntry::ReceiveTiming},
    {"Code", &DeviceEntry::CodeFlags},      {"Toggle", &DeviceEntry::ToggleConfig},
    {"IO", &DeviceEntry::IOFlags},          {"Serial", &DeviceEntry::SerialFlags},
    {"Flags", &DeviceEntry::ExtFlags},
};

DeviceEntry Reporting(const Row& row) {
    DeviceEntry entry;
    entry.Version = QLatin1StringView(row.version);
    if (entry.Version.size() == 1)
        entry.Version += u"6.04.43"_s;
    entry.Capabilities = row.capabilities;
    entry.ExtCapabilities = row.extCapabilities;
    entry.ExtCapabilities2 = row.extCapabilities2;
    entry.Receivers = 2;
    entry.ReceiveTimeout = 30;
    const QStringList words = QString::fromLatin1(row.reported).split(u' ');
    for (int i = 0; i + 1 < words.size() && !words[i].contains(u'='); i += 2) {
        const quint32 value = words[i + 1].toUInt(nullptr, 16);
        if (words[i] == u"Mask")
            entry.SendMask = value;
        for (const auto& [name, byte] : bytes)
            if (words[i] == QLatin1StringView(name))
                entry.*byte = quint8(value);
    }
    return entry;
}

/// What differs from what `entry` reported, in words.
QStringList Changes(const DeviceEntry& entry, const ModeRequest& request) {
    std::vector<quint8> sent = {request.Mode, request.ExtMode, request.ExtMode2};
    sent.insert(sent.end(), request.ExtParam.begin(), request.ExtParam.end());
    QStringList words;
    for (size_t i = 0; i < sent.size(); ++i)
        if (sent[i] != entry.*bytes[i].second)
            words += QString::asprintf("%s %02X", bytes[i].first, sent[i]);
    if (quint32(request.SendMask) != entry.SendMask)
        words += QString::asprintf("Mask %X", quint32(request.SendMask));
    return words;
}

State Device(quint32 capabilities = 0, quint32 extCapabilities = 0, quint32 extCapabilities2 = 0) {
    return FillSetModusEx(Reporting({"U", capabilities, extCapabilities, extCapabilities2, "", ""}));
}

template <class Control> std::optional<Control> Named(const QString& name) {
    for (int i = 0; i < int(Control::Count); ++i)
        if (SetModusExControls::NameOf(Control(i)) == name)
            return Control(i);
    return std::nullopt;
}

/// Sets the control of this name to the value: a list to an index, the mask to a hexadecimal number.
void Do(State& state, const QString& name, const QString& value) {
    if (const auto box = Named<ModusEx::Box>(name))
        state.SetOn(*box, value == u"1");
    else if (const auto list = Named<List>(name))
        state.Select(*list, value.toInt());
    else if (name == u"chkMask")
        state.SetMask(value.toUShort(nullptr, 16));
    else
        qFatal("no control %s", qPrintable(name));
}

/// The names of what is enabled.
QStringList Enabled(const State& state) {
    QStringList names;
    for (int i = 0; i < int(ModusEx::Box::Count); ++i)
        if (state.IsEnabled(ModusEx::Box(i)))
            names += SetModusExControls::NameOf(ModusEx::Box(i));
    for (int i = 0; i < int(List::Count); ++i)
        if (state.IsEnabled(List(i)))
            names += SetModusExControls::NameOf(List(i));
    if (state.IsMaskEnabled())
        names += u"chkMask"_s;
    return names;
}

} // namespace

/// The rules of the extended settings.
class SetModusExTest : public QObject {
    Q_OBJECT

private slots:
    void WhatIsReportedIsSent() {
        for (const Row& row : rows) {
            const DeviceEntry entry = Reporting(row);
            State state = FillSetModusEx(entry);
            const QStringList before = Enabled(state);
            for (const QString& word : QString::fromLatin1(row.reported).split(u' '))
                if (word.contains(u'='))
                    Do(state, word.section(u'=', 0, 0), word.section(u'=', 1));
            QStringList words = Changes(entry, PackSetModusEx(state, 0));
            for (const QString& name : Enabled(state))
                if (!before.contains(name))
                    words += u'+' + name;
            for (const QString& name : before)
                if (!Enabled(state).contains(name))
                    words += u'-' + name;
            const QString sent = AreReceiversSet(state) ? words.join(u' ') : u"nothing"_s;
            if (sent != QLatin1StringView(row.sent))
                QFAIL(qPrintable(u"row %1: %2"_s.arg(&row - rows).arg(sent)));
        }
    }

    /// Each box alone sets its bit, here from bit 0 on.
    void BitsOfBoxes() {
        const std::pair<QString, QString> rows[] = {
            {u"Mode"_s, u"chkMode(0) chkMode(1) chkMode(2) chkMode(3) chkMode(4) chkMode(5) - chkMode(7)"_s},
            {u"Ext"_s, u"chkExt(0) chkExt(1) chkRCV1 chkRCV2 chkExt(4) chkExt(5) chkExt(6) chkSort"_s},
            {u"Mode2"_s, u"- - - chkLongRepeat chkRepeat - - chkRTS"_s},
            {u"Code"_s, u"chkRCMM chkForceRCMM chkRCMMToggle chkRStep56 chkRC5 chkRC6 chkRC6Toggle"_s},
            {u"IO"_s, u"chkSBUSSend chkUSBWakeup - - - - chkStateInternal chkStateExternal"_s},
            {u"Serial"_s, u"- - - - - - chkIROutRS232"_s},
            {u"Flags"_s, u"chkRC5free chkUDP - chkEmulateExternal - chkXLong"_s},
        };
        for (const auto& [byte, boxes] : rows)
            for (int bit = 0; const QString& name : boxes.split(u' ')) {
                const quint32 value = 1U << bit++;
                if (name == u"-")
                    continue;
                State state;
                state.Enable(Named<ModusEx::Box>(name).value(), true);
                Do(state, name, u"1"_s);
                const QString sent = Changes({}, PackSetModusEx(state, 0)).join(u' ');
                QVERIFY2(sent.contains(byte + QString::asprintf(" %02X", value)), qPrintable(sent));
            }
    }

    void Texts() {
        const std::tuple<QString, QString, QString, int, int> rows[] = {
            // time-out, position of the toggle bit; the time-out as corrected, and both as sent
            {u""_s, u""_s, u"1"_s, 1, 0},
            {u"0"_s, u"0"_s, u"1"_s, 1, 1},
            {u"250"_s, u"62"_s, u"250"_s, 250, 63},
            {u"300"_s, u"64"_s, u"250"_s, 250, 1},
            {u"-7"_s, u"-1"_s, u"1"_s, 1, 0},
            {u"99999999999999999999"_s, u"99999999999999999999"_s, u"250"_s, 250, 0},
            {u"abc"_s, u" 7"_s, u"1"_s, 1, 0},
        };
        for (const auto& [timeout, toggle, corrected, timeoutSent, toggleSent] : rows) {
            State state = Device();
            state.SetContent(Text::Timeout, timeout);
            state.SetContent(Text::Toggle, toggle);
            QCOMPARE(state.IsEnabled(List::ToggleCount), !toggle.isEmpty() && toggle[0] != u' ');
            CorrectTimeout(state);
            QCOMPARE(state.Content(Text::Timeout), corrected);
            const ModeRequest request = PackSetModusEx(state, 0);
            QCOMPARE(int(request.ExtParam[1]), timeoutSent);
            QCOMPARE(int(request.ExtParam[4]), toggleSent);
        }
    }

    /// What a plain device doesn't have is disabled, though the rule of the connector enables all of the bus.
    void WhatIsMissingIsDisabled() {
        const State none = Device(0, 0x4000);
        QCOMPARE(none.Index(List::SBUS), 0);
        QVERIFY(none.IsEnabled(List::IO) && !none.IsMaskEnabled() && !none.IsEnabled(ModusEx::Box::Mode2));
        const State bus = Device(0x1002);
        QVERIFY(bus.IsMaskEnabled() && bus.IsEnabled(ModusEx::Box::Mode2));
        QVERIFY(!bus.IsEnabled(List::IO) && !bus.IsEnabled(List::SBUS) &&
                !bus.IsEnabled(ModusEx::Box::SBUSSend));
    }

    void ReceiverTexts() {
        const State internal = Device(0x820, 0x80, 0x100);
        const auto textsOf = [](const State& state, List list) {
            QStringList texts;
            for (const int code : state.Codes(list))
                texts += AddedText(state, list, code);
            return texts.join(u'|');
        };
        const QString external =
            u"38 kHz Receiver [EXT]|56 kHz Receiver [EXT]|455 kHz Receiver [EXT]|"
            u"455 kHz Plasma shielded Receiver [EXT]|Universal Codelearning Receiver [EXT]"_s;
        QCOMPARE(textsOf(internal, List::Receiver1),
                 u"38 kHz Receiver [INT]|Universal Codelearning Receiver [INT]|"_s + external);
        QCOMPARE(textsOf(internal, List::Receiver2), u"Off|"_s + external);
        QVERIFY(internal.hasExternalSecond);
        QCOMPARE(textsOf(Device(), List::Receiver1), QString(external).remove(u" [EXT]"_s));
        QCOMPARE(textsOf(Device(0x800, 0x10000080), List::Receiver2),
                 u"455 kHz Plasma shielded Receiver [INT]"_s);
    }

    void PowerCommands() {
        const std::tuple<const char*, quint32, QString, QString> devices[] = {
            {"U", 0, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"U", 0x200080, u"hifi"_s, u"||hifi|off|000000000000"_s},
            {"U", 0x90, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"U", 0x400080, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"E", 0x200000, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"E", 0x200000, LanMark, u"tv|on|_||6f6666009aff"_s},
            {"G", 0, LanMark, u"tv|on|_||6f6666009aff"_s},
            {"W", 0x200080, LanMark, u"||_||6f6666009aff"_s},
            {"W", 0x10, LanMark, u"tv|on|_||6f6666009aff"_s},
        };
        for (const auto& [version, capabilities, powerOff, sent] : devices) {
            DeviceEntry entry = Reporting({version, capabilities, 0, 0, "", ""});
            SetPower(entry, powerOff);
            const State state = FillSetModusEx(entry);
            const ModeRequest request = PackSetModusEx(state, 0x0103);
            QCOMPARE(PowerOf(request), sent);
            QCOMPARE(request.DeviceTag, 0x0103);
            // A device that can only be woken shows a power-on command, which can't be changed.
            for (const Text text : {Text::Hotremote, Text::Hotcommand})
                QCOMPARE(state.IsEnabled(text), version[0] != 'W' && !request.HotRemote.isEmpty());
        }
    }
};

SUITE(SetModusExTest);

#include "set_modus_ex_test.moc"
