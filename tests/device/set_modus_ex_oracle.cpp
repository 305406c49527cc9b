#include "device/set_modus_ex_oracle.h"

#include "base/code_page.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// What the bits of an entry come to, where several have a say.
struct Facts {
    explicit Facts(const DeviceEntry& e)
        : e(e)
        , kind(e.Version[0])
        , r1(e.Receivers & 15)
        , r2(Cap(0x800) ? e.Receivers >> 4 : 0) {
        const int shared = e.ReceiveTiming >> 3 & 3;
        const bool hasBusSpeed = (e.Mode & 0x40) != 0;
        const bool output = (e.SerialFlags & 1) != 0;
        const bool input = (e.SerialFlags & 0x20) != 0;
        isBusUsed = Ext(0x4000) && !hasBusSpeed && shared != 0;
        if (Ext(0x4000))
            port = !hasBusSpeed ? shared + ((e.ExtFlags & 4) != 0 ? 3 : 0) : 0;
        else if (Cap(2))
            port = 0;
        areDefaultsTaken = Ext(0x02000000) && !output && port != 0 && (isBusUsed || !Cap(0x1000));
        if (Ext(0x02000000))
            port = output ? 9 : 0;
        else if (Ext(0x10000) && (input || output))
            port = input ? 7 : 8;

        const int state = Ext(0x400000) ? e.IOFlags >> 3 & 7 : 0;
        ir = state <= 4 ? state : -1;
        isIrUsed = ir > 0;
        if (Ext(0x20000) && output)
            ir = 5;
        if (Ext(0x20000) && Ext(0x40000000) && input)
            ir = 6;
        isIrUsed = isIrUsed || ir > 0;
        isOutSerial = Ext(0x20000) && (e.SerialFlags & 0x40) != 0 && ir < 5;

        const bool isSerial = port == 7 || port == 8 || ir >= 5 || isOutSerial;
        const bool isPortAux = Cap(4) && Cap(0x01000000);
        hasAux = isSerial || isPortAux || ((e.ExtCapabilities2 & 0x200) != 0 && Ext(0x40000));
        isAuxSentShared = isSerial || port == -1;
        const int inPort = 3 - (e.ExtMode2 >> 5 & 3);
        auxLow = isPortAux ? inPort : shared;
        isAuxMoved = isAuxSentShared == isPortAux;
        isAuxKnown = hasAux && auxLow + (e.SerialFlags >> 7) * 4 <= 5;
        hasSpeed = Cap(4) && !Cap(0x01000000);
        isSpeedKnown = hasSpeed && inPort + (e.ExtFlags >> 4 & 1) * 4 <= 5;
        isBusSpeedSent = hasBusSpeed && Cap(0x1000) && (port == 0 || (port < 0 && Cap(0x0100000C)));
    }

    bool Cap(quint32 bits) const { return (e.Capabilities & bits) != 0; }
    bool Ext(quint32 bits) const { return (e.ExtCapabilities & bits) != 0; }
    bool HasStatePort() const { return port >= 1 && port <= 6; }
    bool IsInversionOnly() const { return port == 3 && !isBusUsed; }
    bool HasBus() const { return port == 0 || IsInversionOnly(); }
    bool IsAuxInTiming() const { return isAuxKnown && isAuxSentShared; }
    bool HasStateIr() const { return ir >= 1 && ir <= 4; }
    bool AreBothExternal() const { return Ext(0x04000000) && r1 > 8 && r2 > 8; }
    bool Is(const char16_t* kinds) const { return QStringView(kinds).contains(kind); }
    bool IsDisplay() const { return Is(u"DF"); }
    int Date() const { return int(e.SendMask & 15); }

    const DeviceEntry& e;
    QChar kind;
    int r1;
    int r2;
    int port = -1;          ///< entry of the bus connector: 0 bus, 1 to 6 state, 7 and 8 RS232, 9 relay
    int ir = 0;             ///< entry of the IR input: 1 to 4 state, 5 and 6 RS232
    bool isBusUsed = false; ///< the bus connector has reported an input
    bool areDefaultsTaken = false; ///< the bus is selected after another use, or after none
    bool isIrUsed = false;
    bool isOutSerial = false;
    bool hasAux = false;
    bool isAuxSentShared = false; ///< the auxiliary speed goes into `ReceiveTiming`, else into `ExtMode2`
    bool isAuxMoved = false;      ///< and it came from the other one
    bool isAuxKnown = false;
    int auxLow = 0;        ///< its two lowest bits
    bool hasSpeed = false; ///< of the RS232 port, in a list of its own
    bool isSpeedKnown = false;
    bool isBusSpeedSent = false;
};

enum Place { Mode, ExtMode, ExtMode2, Receivers, Timeout, Timing, Codes, Toggle, IO, Serial, Ext, Mask };

struct Exception {
    const char* reason;
    Place place;
    quint32 bits;
    bool (*applies)(const Facts& f);
    quint32 sent = 0;                            ///< in the place of the bits
    quint32 (*sentOf)(const Facts& f) = nullptr; ///< likewise, if that depends on the device
    int uses = 0;
};

using F = const Facts&;

std::vector<Exception>& Exceptions() {
    static std::vector<Exception> exceptions = {
        {"no serial bus to receive from, to be controlled by or to repeat to", Mode, 0x94,
         [](F f) { return !f.Cap(2); }},
        {"the bus has no speed to choose, or its connector is in other use", Mode, 0x40,
         [](F f) { return !f.isBusSpeedSent; }},
        {"a relay's connector that is the bus again takes its defaults: 38400", Mode, 0x40,
         [](F f) { return f.areDefaultsTaken; }, 0x40},
        {"an IR input in other use receives nothing", Mode, 0x02,
         [](F f) { return f.isIrUsed && !f.Ext(0x01000000); }},
        {"no LEDs to switch", ExtMode, 0x63, [](F f) { return !f.Cap(0x4000); }},
        {"one receiver only", ExtMode, 0x08, [](F f) { return !f.Cap(0x800); }},
        {"455 kHz codes without a receiver that hears them", ExtMode, 0x10,
         [](F f) { return (((f.AreBothExternal() ? 0 : f.r1) | f.r2) & 4) == 0; }},
        {"one receiver only", Receivers, 0xF0, [](F f) { return !f.Cap(0x800); }},
        {"only one can be external, and the first gives way", Receivers, 0x0F,
         [](F f) { return f.AreBothExternal(); }, 2},
        {"no RS232 speed, or none that the list has", ExtMode2, 0x60,
         [](F f) { return !f.isSpeedKnown && !(f.isAuxKnown && !f.isAuxSentShared); }},
        {"the auxiliary speed of another connector is sent for the RS232 port", ExtMode2, 0x60,
         [](F f) { return f.isAuxKnown && f.isAuxMoved && !f.isAuxSentShared && !f.isSpeedKnown; }, 0,
         [](F f) { return quint32(3 - f.auxLow) << 5; }},
        {"no handshake", ExtMode2, 0x80,
         [](F f) { return !f.Cap(4) || (!f.Cap(0x01000000) && !f.Ext(0x100)); }},
        {"a time-out has at least 1 ms", Timeout, 0xFF, [](F f) { return f.e.ReceiveTimeout == 0; }, 1},
        {"a time-out has at most 250 ms", Timeout, 0xFF, [](F f) { return f.e.ReceiveTimeout > 250; }, 250},
        {"neither bus speed, state input nor auxiliary speed", Timing, 0x18,
         [](F f) { return !f.isBusSpeedSent && !f.HasStatePort() && !f.IsAuxInTiming(); }},
        {"an inversion without an input is the third input", Timing, 0x18,
         [](F f) { return f.IsInversionOnly() && !f.IsAuxInTiming(); }, 0x18},
        {"a relay's connector that is the bus again takes its defaults: 38400", Timing, 0x18,
         [](F f) { return f.areDefaultsTaken && !f.IsAuxInTiming(); }, 0x18},
        {"the speed of the RS232 port is sent for another connector", Timing, 0x18,
         [](F f) { return f.isAuxKnown && f.isAuxMoved && f.isAuxSentShared; }, 0,
         [](F f) { return quint32(f.auxLow) << 3; }},
        {"refinements of RCMM without RCMM", Codes, 0x06, [](F f) { return (f.e.CodeFlags & 1) == 0; }},
        {"no duty cycle to choose", Codes, 0x80, [](F f) { return !f.Ext(0x400); }},
        {"a count of toggle bits without a position", Toggle, 0x80,
         [](F f) { return (f.e.ToggleConfig & 63) == 0; }},
        {"no control has the bit", Toggle, 0x40, [](F) { return true; }},
        {"doesn't send on the bus, or the connector is in other use", IO, 0x01,
         [](F f) { return !f.Cap(2) || !f.Ext(0x800) || !f.HasBus(); }},
        {"waking by USB is no choice", IO, 0x02, [](F f) { return !f.Cap(8) || !f.Ext(0x2000); }},
        {"no control has the bit", IO, 0x04, [](F) { return true; }},
        {"the IR input is no state input, or one that the list lacks", IO, 0x38,
         [](F f) { return !f.HasStateIr(); }},
        {"no state input that an output could follow", IO, 0xC0,
         [](F f) { return !f.HasStateIr() && !f.HasStatePort(); }},
        {"no relay and no RS232 output, or an input in its place", Serial, 0x01,
         [](F f) { return f.port < 8 && f.ir != 5; }},
        {"no RS232 input", Serial, 0x20, [](F f) { return f.port != 7 && f.ir != 6; }},
        {"no data bits and stop bits to choose", Serial, 0x06,
         [](F f) { return !f.hasAux || !f.Ext(0x100000); }},
        {"no parity to choose", Serial, 0x18, [](F f) { return !f.hasAux || !f.Ext(0x80000); }},
        {"a parity that the list lacks", Serial, 0x18, [](F f) { return (f.e.SerialFlags & 0x18) == 0x18; }},
        {"the IR output is no RS232 output, or the IR input is", Serial, 0x40,
         [](F f) { return !f.isOutSerial; }},
        {"no auxiliary speed, or none that the list has", Serial, 0x80, [](F f) { return !f.isAuxKnown; }},
        {"no free RC5 timings", Ext, 0x01, [](F f) { return !f.Ext(0x08000000); }},
        {"no UDP, or no RS232 port", Ext, 0x02,
         [](F f) { return !f.Ext(0x80000000) || (!f.hasAux && !f.hasSpeed); }},
        {"no inverted state input", Ext, 0x04, [](F f) { return f.port < 4 || f.port > 6; }},
        {"emulates no outputs", Ext, 0x08, [](F f) { return !f.Ext(0x200000); }},
        {"no RS232 port speed, or none that the list has", Ext, 0x10, [](F f) { return !f.isSpeedKnown; }},
        {"the firmware doesn't learn long presses", Ext, 0x20,
         [](F f) { return f.e.Version.mid(1) < u"6.04.43"; }},
        {"no control has the bits", Ext, 0xC0, [](F) { return true; }},
        {"a mask has 16 bits", Mask, 0xFFFF0000, [](F) { return true; }},
        {"no mask, or the connector is in other use", Mask, 0x0000FFFF,
         [](F f) { return !f.IsDisplay() && (!f.Cap(2) || !f.HasBus()); }},
        {"a relay's connector that is the bus again takes its defaults: all of the mask", Mask, 0x0000FFFF,
         [](F f) { return !f.IsDisplay() && f.areDefaultsTaken; }, 0xFFFF},
        {"no display control has the bits", Mask, 0x0000F800, [](F f) { return f.IsDisplay(); }},
        {"this display can't be off", Mask, 0x00000600, [](F f) { return f.Is(u"D"); }},
        {"off has no brightness", Mask, 0x00000060, [](F f) { return f.Is(u"F") && (f.e.SendMask & 0x200); }},
        {"off has no brightness", Mask, 0x00000180, [](F f) { return f.Is(u"F") && (f.e.SendMask & 0x400); }},
        {"no date has the number 3", Mask, 0x0000000F, [](F f) { return f.IsDisplay() && f.Date() == 3; }, 4},
        {"no date has the number 7", Mask, 0x0000000F, [](F f) { return f.IsDisplay() && f.Date() == 7; }, 8},
        {"no date has a number over 10", Mask, 0x0000000F,
         [](F f) { return f.IsDisplay() && f.Date() > 10; }},
    };
    return exceptions;
}

quint32 Pick(std::mt19937& random, quint32 count) {
    return quint32(random()) % count;
}

} // namespace

std::vector<int> Oracle::CodesOfReceiver1(const DeviceEntry& entry) {
    std::vector<int> codes = {2, 1, 4, 5, 6};
    if ((entry.ExtCapabilities & 0x80) != 0)
        codes = (entry.Capabilities & 0x800) != 0 ? std::vector{2, 6} : std::vector{2, 4, 6};
    if ((entry.Capabilities & 0x20) != 0 || (entry.ExtCapabilities & 0x800000) != 0)
        codes.insert(codes.end(), {10, 9, 12, 13, 14});
    return codes;
}

std::vector<int> Oracle::CodesOfReceiver2(const DeviceEntry& entry) {
    std::vector<int> codes = {2, 1, 4, 5, 6};
    const bool isExternal = (entry.ExtCapabilities2 & 0x100) != 0;
    if (isExternal)
        codes = {0};
    else if ((entry.ExtCapabilities & 0x80) != 0)
        codes = {(entry.ExtCapabilities & 0x10000000) != 0 ? 5 : 4};
    if ((entry.Capabilities & 0x20) != 0 || isExternal)
        codes.insert(codes.end(), {10, 9, 12, 13, 14});
    return codes;
}

bool Oracle::HasKnownReceivers(const DeviceEntry& entry) {
    const auto has = [](const std::vector<int>& codes, int code) {
        return std::ranges::count(codes, code) > 0;
    };
    return has(CodesOfReceiver1(entry), entry.Receivers & 15) &&
           ((entry.Capabilities & 0x800) == 0 || has(CodesOfReceiver2(entry), entry.Receivers >> 4));
}

ModeRequest Oracle::Expected(const DeviceEntry& entry, qint16 target) {
    const Facts facts(entry);
    quint32 values[] = {entry.Mode,           entry.ExtMode,       entry.ExtMode2,  entry.Receivers,
                        entry.ReceiveTimeout, entry.ReceiveTiming, entry.CodeFlags, entry.ToggleConfig,
                        entry.IOFlags,        entry.SerialFlags,   entry.ExtFlags,  entry.SendMask};
    for (Exception& exception : Exceptions()) {
        quint32& value = values[exception.place];
        const quint32 sent = exception.sentOf != nullptr ? exception.sentOf(facts) : exception.sent;
        if (!exception.applies(facts) || (value & exception.bits) == sent)
            continue;
        value = (value & ~exception.bits) | sent;
        ++exception.uses;
    }
    ModeRequest request;
    request.Mode = quint8(values[Mode]);
    request.ExtMode = quint8(values[ExtMode]);
    request.ExtMode2 = quint8(values[ExtMode2]);
    request.SendMask = qint32(values[Mask]);
    for (size_t i = 0; i < request.ExtParam.size(); ++i)
        request.ExtParam[i] = quint8(values[Receivers + i]);
    request.DeviceTag = target;

    if (!facts.Cap(0x80) || facts.Cap(0x400010)) {
        request.HotRemote = entry.HotRemote;
        request.HotCommand = entry.HotCommand;
    }
    const bool isNetwork = facts.Is(u"EGW");
    const bool hasPowerOff = facts.Cap(0x200000) && !isNetwork;
    request.HotRemote2 = hasPowerOff ? entry.HotRemote2 : u"_"_s;
    request.HotCommand2 = hasPowerOff ? FromCodePage(entry.HotCommand2.constData()) : QString();
    if (isNetwork && entry.HotRemote2 == u"@@@~~~LAN~~~@@@")
        std::copy_n(entry.HotCommand2.begin(), 6, request.mac.begin());
    return request;
}

std::vector<std::pair<const char*, int>> Oracle::Uses() {
    std::vector<std::pair<const char*, int>> uses;
    for (const Exception& exception : Exceptions())
        uses.emplace_back(exception.reason, exception.uses);
    return uses;
}

DeviceEntry Oracle::RandomEntry(std::mt19937& random, quint32 capabilities, quint32 extCapabilities,
                                quint32 extCapabilities2) {
    static const QString kinds = u"UVSTBCDDEGLXYFFW"_s;
    static const QStringList versions = {u"5.20.00"_s, u"5.20.01"_s, u"6.04.42"_s,
                                         u"6.04.43"_s, u"6.04.44"_s, u"10.00.00"_s};
    DeviceEntry entry;
    entry.Capabilities = capabilities;
    entry.ExtCapabilities = extCapabilities;
    entry.ExtCapabilities2 = extCapabilities2;
    entry.SendMask = quint32(random());
    for (quint8* byte : {&entry.Mode, &entry.ExtMode, &entry.ExtMode2, &entry.Receivers,
                         &entry.ReceiveTimeout, &entry.ReceiveTiming, &entry.CodeFlags, &entry.ToggleConfig,
                         &entry.IOFlags, &entry.SerialFlags, &entry.ExtFlags})
        *byte = quint8(random());
    // Mostly receivers that the device can have.
    const std::vector<int> first = CodesOfReceiver1(entry);
    const std::vector<int> second = CodesOfReceiver2(entry);
    if (Pick(random, 16) != 0)
        entry.Receivers = quint8(first[Pick(random, quint32(first.size()))] |
                                 second[Pick(random, quint32(second.size()))] << 4);
    entry.Version =
        kinds[Pick(random, quint32(kinds.size()))] + versions[Pick(random, quint32(versions.size()))];
    entry.HotRemote = u"tv"_s;
    entry.HotCommand = u"power on"_s;
    entry.HotRemote2 = Pick(random, 2) == 0 ? u"@@@~~~LAN~~~@@@"_s : u"hifi"_s;
    entry.HotCommand2 = QByteArray("\x02\x1A\xFF\x10\x9A\x01", 6).leftJustified(20, '\0');
    return entry;
}

DeviceEntry Oracle::RandomEntry(std::mt19937& random) {
    const auto word = [&random, how = Pick(random, 3)] {
        const auto some = quint32(random());
        return how == 0 ? some : how == 1 ? some & quint32(random()) : some | quint32(random());
    };
    const quint32 words[] = {word(), word(), word()};
    return RandomEntry(random, words[0], words[1], words[2]);
}
