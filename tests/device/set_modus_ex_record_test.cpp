#include "device/set_modus_ex_rules.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

namespace {

struct Row {
    const char* version; ///< a letter alone: of firmware 6.04.43
    quint32 capabilities;
    quint32 extCapabilities;
    quint32 extCapabilities2;
    const char* reported; ///< bytes by name; the others are 0, but for a receiver of 38 kHz and 30 ms
    const char* sent;     ///< if nothing is changed: the bytes that differ
};

/// Each rule once where it changes what was reported, and beside it a device for which it doesn't.
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
    {"U", 0x1002, 0x4000, 0, "Mode 40 Timing 18 Mask 5", ""},
    // Its connector as a state input; an inversion without an input is the third one.
    {"U", 0x1002, 0x4800, 0, "Timing 08 IO C1 Mode 94 Mask 5", "IO C0 Mask 0"},
    {"U", 0x1002, 0x4800, 0, "Timing 18 Flags 04 IO C1", "IO C0"},
    {"U", 0x1002, 0x4800, 0, "Flags 04 IO C1 Mode 94 Mask 5", "Timing 18 Flags 00"},
    {"U", 0, 0x4000, 0, "Flags 04 Mask 5", "Timing 18 Flags 00 Mask 0"},
    {"U", 0x1002, 0, 0, "Timing 18 Flags 04 IO C0", "Timing 00 IO 00 Flags 00"},
    // As RS232.
    {"U", 0x1002, 0x10000, 0, "Serial 01 Timing 08", ""},
    {"U", 0x1002, 0x10000, 0, "Serial 20 Timing 08", ""},
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
    {"U", 0, 0, 0, "IO F8 Mode 02", "IO 00"},
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
    for (int i = 0; i + 1 < words.size(); i += 2) {
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
QString Changes(const DeviceEntry& entry, const ModeRequest& request) {
    std::vector<quint8> sent = {request.Mode, request.ExtMode, request.ExtMode2};
    sent.insert(sent.end(), request.ExtParam.begin(), request.ExtParam.end());
    QStringList words;
    for (size_t i = 0; i < sent.size(); ++i)
        if (sent[i] != entry.*bytes[i].second)
            words += QString::asprintf("%s %02X", bytes[i].first, sent[i]);
    if (quint32(request.SendMask) != entry.SendMask)
        words += QString::asprintf("Mask %X", quint32(request.SendMask));
    return words.join(u' ');
}

} // namespace

/// What the extended settings read and send.
class SetModusExRecordTest : public QObject {
    Q_OBJECT

private slots:
    void WhatIsReportedIsSent() {
        for (const Row& row : rows) {
            const DeviceEntry entry = Reporting(row);
            const State state = FillSetModusEx(entry);
            const QString sent =
                AreReceiversSet(state) ? Changes(entry, PackSetModusEx(state, 0)) : u"nothing"_s;
            if (sent != QLatin1StringView(row.sent))
                QFAIL(qPrintable(u"row %1: %2"_s.arg(&row - rows).arg(sent)));
        }
    }

    /// Of each byte the boxes, from bit 0 on; each box alone sets its bit.
    void BitsOfBoxes() {
        constexpr Box None = Box::Count;
        const std::pair<int, std::vector<Box>> boxes[] = {
            {0, {Box::Mode0, Box::Mode1, Box::Mode2, Box::Mode3, Box::Mode4, Box::Mode5, None, Box::Mode7}},
            {1, {Box::Ext0, Box::Ext1, Box::RCV1, Box::RCV2, Box::Ext4, Box::Ext5, Box::Ext6, Box::Sort}},
            {2, {None, None, None, Box::LongRepeat, Box::Repeat, None, None, Box::RTS}},
            {6,
             {Box::RCMM, Box::ForceRCMM, Box::RCMMToggle, Box::RStep56, Box::RC5, Box::RC6, Box::RC6Toggle}},
            {8,
             {Box::SBUSSend, Box::USBWakeup, None, None, None, None, Box::StateInternal, Box::StateExternal}},
            {9, {None, None, None, None, None, None, Box::IROutRS232}},
            {10, {Box::RC5free, Box::UDP, None, Box::EmulateExternal, None, Box::XLong}},
        };
        for (const auto& [byte, ofByte] : boxes)
            for (size_t bit = 0; bit < ofByte.size(); ++bit) {
                if (ofByte[bit] == None)
                    continue;
                State state;
                state.Enable(ofByte[bit], true);
                state.SetOn(ofByte[bit], true);
                const ModeRequest r = PackSetModusEx(state, 0);
                const int sent[] = {r.Mode, r.ExtMode, r.ExtMode2};
                QCOMPARE(byte < 3 ? sent[byte] : int(r.ExtParam[size_t(byte) - 3]), 1 << bit);
            }
    }

    /// Remote and command of power on, of power off, and the MAC address.
    void PowerCommands() {
        const std::tuple<const char*, quint32, QString, QString> devices[] = {
            {"U", 0, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"U", 0x200080, u"hifi"_s, u"||hifi|off|000000000000"_s},
            {"U", 0x90, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"U", 0x400080, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"E", 0x200000, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {"E", 0x200000, u"@@@~~~LAN~~~@@@"_s, u"tv|on|_||6f6666009aff"_s},
            {"G", 0, u"@@@~~~LAN~~~@@@"_s, u"tv|on|_||6f6666009aff"_s},
            {"W", 0x200080, u"@@@~~~LAN~~~@@@"_s, u"||_||6f6666009aff"_s},
            {"W", 0x10, u"@@@~~~LAN~~~@@@"_s, u"tv|on|_||6f6666009aff"_s},
        };
        for (const auto& [version, capabilities, remote, sent] : devices) {
            DeviceEntry entry = Reporting({version, capabilities, 0, 0, "", ""});
            entry.HotRemote = u"tv"_s;
            entry.HotCommand = u"on"_s;
            entry.HotRemote2 = remote;
            entry.HotCommand2 = QByteArray("off\0\x9A\xFF", 6).leftJustified(20, '\0');
            const State state = FillSetModusEx(entry);
            const ModeRequest r = PackSetModusEx(state, 0);
            const QByteArray address(reinterpret_cast<const char*>(r.mac.data()), qsizetype(r.mac.size()));
            QCOMPARE((QStringList{r.HotRemote, r.HotCommand, r.HotRemote2, r.HotCommand2,
                                  QString::fromLatin1(address.toHex())})
                         .join(u'|'),
                     sent);
            // Of a device that can only be woken all but the address is shown, and can't be changed.
            QCOMPARE(state.IsEnabled(Text::Hotremote), version[0] != 'W' && !r.HotRemote.isEmpty());
        }
    }
};

SUITE(SetModusExRecordTest);

#include "set_modus_ex_record_test.moc"
