#include "device/set_modus_cases.h"

#include "base/code_page.h"

using namespace Qt::StringLiterals;

namespace {

/// What the rules ask of a device, in plain numbers.
struct Facts {
    explicit Facts(const ModusCase& device)
        : e(device.entry)
        , kind(e.Version[0])
        , v(e.Version.mid(1))
        , isTree(device.origin == DeviceOrigin::Tree)
        , isLcd(isTree && kind == u'L' && v >= u"2.01.00")
        , isDisplay(isTree ? kind == u'D' && v >= u"4.04.24" : kind == u'D' || kind == u'F')
        , isLan(!isTree && (kind == u'E' || kind == u'G'))
        , knowsPlasma(!isLcd && v >= u"5.08.12")
        , hasBusSpeed(isLcd ? v >= u"3.01.01" && (e.ExtMode & 0x80)
                            : Can(0x1000) && kind != u'B' && kind != u'C')
        , hasPowerOff(!isLcd && Can(0x200000) && (isTree || kind != u'Y') && !(isLan && v >= u"5.03.50")) {}

    bool Can(quint32 bits) const { return (e.Capabilities & bits) != 0; }
    QString Mac() const {
        return e.HotRemote2.startsWith(u"@@@~~~LAN~~~@@@")
                   ? QString::fromLatin1(e.HotCommand2.first(6).toHex('-').toUpper())
                   : QString();
    }

    const DeviceEntry& e;
    QChar kind;
    QString v;
    bool isTree;
    bool isLcd;
    bool isDisplay;
    bool isLan;
    bool knowsPlasma;
    bool hasBusSpeed;
    bool hasPowerOff;
};

quint32 HeldMask(const Facts& f) {
    if (f.isLcd || f.isDisplay)
        return !f.isTree && f.kind == u'F' ? 0x7FF : 0x1FF;
    return f.isTree || f.Can(0x2) ? 0xFFFF : 0;
}

quint8 HeldExt(const Facts& f) {
    int held = f.hasBusSpeed ? 0x80 : 0;
    if (f.isLcd)
        return quint8(held);
    if (f.Can(0x4000) || f.kind == u'X')
        held |= 0x43;
    if (f.Can(0x800))
        held |= 0x0C;
    if (f.knowsPlasma)
        held |= 0x1C;
    else if (f.Can(0x820))
        held |= 0x10;
    if (f.v >= u"3.02.10" && f.kind != u'D')
        held |= 0x20;
    return quint8(held);
}

quint8 HeldExt2(const Facts& f) {
    int held = f.hasBusSpeed ? 0x18 : 0;
    if (f.isLcd)
        return quint8(held);
    if (f.v >= u"4.04.01")
        held |= 0x07;
    if ((f.kind == u'S' || f.kind == u'T') && f.v >= u"5.02.30" && f.Can(0x100000))
        held |= 0x60;
    if (f.Can(0x4) && f.Can(0x1000000))
        held |= 0xE0;
    return quint8(held);
}

struct Exception {
    const char* reason;
    bool (*applies)(const Facts& f);
    void (*effect)(const Facts& f, ModeRequest& r);
};

void ClearBits(quint8& byte, int bits) {
    byte = quint8(byte & ~bits);
}

const Exception exceptions[] = {
    {"the boxes of an LCD module's functions are greyed and stay empty",
     [](const Facts& f) { return f.isLcd; }, [](const Facts&, ModeRequest& r) { r.Mode = 0; }},
    {"on the private-label model the hidden RAW box follows the list of repeat times, which without a choice "
     "counts",
     [](const Facts& f) { return !f.isTree && f.kind == u'Y'; },
     [](const Facts& f, ModeRequest& r) {
         ClearBits(r.Mode, 0x20);
         if (f.v < u"4.05.01" || (f.e.Mode & 0x40))
             r.Mode |= 0x20;
     }},
    {"before 4.04.01 the time-out stands at 90 ms",
     [](const Facts& f) { return !f.isLcd && f.v < u"4.04.01"; },
     [](const Facts&, ModeRequest& r) { r.ExtMode2 |= 4; }},
    {"before 4.04.35 there are no 250 ms to choose",
     [](const Facts& f) {
         return !f.isLcd && f.v >= u"4.04.01" && f.v < u"4.04.35" && (f.e.ExtMode2 & 7) == 7;
     },
     [](const Facts&, ModeRequest& r) { ClearBits(r.ExtMode2, 0x07); }},
    {"a classic serial bus has no speed", [](const Facts& f) { return (f.e.ExtMode & 0x80) == 0; },
     [](const Facts&, ModeRequest& r) { ClearBits(r.ExtMode2, 0x18); }},
    {"with one receiver, the plasma receiver goes with codes of 455 kHz and without the bit of the HF "
     "receiver",
     [](const Facts& f) {
         return f.knowsPlasma && f.e.Capabilities != 0 && !f.Can(0x800) && (f.e.ExtMode & 0x04) != 0;
     },
     [](const Facts&, ModeRequest& r) {
         ClearBits(r.ExtMode, 0x08);
         r.ExtMode |= 0x14;
     }},
    {"with one receiver, codes of 455 kHz need that receiver",
     [](const Facts& f) { return f.knowsPlasma && !f.Can(0x800) && (f.e.ExtMode & 0x0C) == 0; },
     [](const Facts&, ModeRequest& r) { ClearBits(r.ExtMode, 0x10); }},
    {"a device without any capability is told nothing of plasma",
     [](const Facts& f) { return f.knowsPlasma && f.e.Capabilities == 0 && (f.e.ExtMode & 0x04) != 0; },
     [](const Facts&, ModeRequest& r) {
         ClearBits(r.ExtMode, 0x1C);
         r.ExtMode |= 0x08;
     }},
    {"a date format that isn't on the list",
     [](const Facts& f) {
         const quint32 date = f.e.SendMask & 0xF;
         return (f.isLcd || f.isDisplay) && (date == 3 || date == 7 || date > 10);
     },
     [](const Facts&, ModeRequest& r) { r.SendMask &= ~0xF; }},
    {"an LCD module that isn't active is on or off",
     [](const Facts& f) { return f.isLcd && (f.e.SendMask & 0x40) != 0; },
     [](const Facts&, ModeRequest& r) { r.SendMask = (r.SendMask & ~0x60) | 0x20; }},
    {"an LCD module that is active has three levels",
     [](const Facts& f) { return f.isLcd && (f.e.SendMask & 0x180) == 0x180; },
     [](const Facts&, ModeRequest& r) { r.SendMask &= ~0x80; }},
    {"a display that is off while inactive has no brightness for that",
     [](const Facts& f) { return !f.isTree && f.kind == u'F' && (f.e.SendMask & 0x200) != 0; },
     [](const Facts&, ModeRequest& r) { r.SendMask &= ~0x60; }},
    {"a display that is off while active has no brightness for that",
     [](const Facts& f) { return !f.isTree && f.kind == u'F' && (f.e.SendMask & 0x400) != 0; },
     [](const Facts&, ModeRequest& r) { r.SendMask &= ~0x180; }},
    {"an LCD module has no power commands", [](const Facts& f) { return f.isLcd; },
     [](const Facts&, ModeRequest& r) { r.HotRemote = r.HotCommand = QString(); }},
    {"reached by the tree, the power-off command stays empty",
     [](const Facts& f) { return f.isTree && f.hasPowerOff; },
     [](const Facts&, ModeRequest& r) { r.HotRemote2 = r.HotCommand2 = QString(); }},
    {"before 5.03.50 a network device shows its MAC address in place of the power-off command",
     [](const Facts& f) { return f.isLan && f.hasPowerOff; },
     [](const Facts& f, ModeRequest& r) {
         r.HotRemote2 = f.Mac();
         r.HotCommand2 = QString();
     }},
};

constexpr const char* kindLetters = "UVSTBCDEGLXYFW?";

constexpr const char* firmwares[] = {
    "",        "2.00.99", "2.01.00", "3.01.00", "3.01.01", "3.02.09", "3.02.10", "4.04.00",
    "4.04.01", "4.04.23", "4.04.24", "4.04.34", "4.04.35", "4.05.00", "4.05.01", "5.02.29",
    "5.02.30", "5.03.49", "5.03.50", "5.05.00", "5.05.01", "5.08.11", "5.08.12", "10.00.00",
};

std::vector<quint32> CapabilitySets() {
    std::vector<quint32> sets = {0,      0x90,       0x400080, 0x400090, 0x1000004, 0x1100004,
                                 0x820,  0x4800,     0x200080, 0x1002,   0x1201802, 0x201802,
                                 0x5822, 0xFFFFFFFF, ~0x800U,  ~0x80U,   ~0x410010U};
    for (int bit = 0; bit < 32; ++bit)
        sets.push_back(1U << bit);
    return sets;
}

class Dice {
public:
    quint32 Number() { return quint32(engine()); }
    quint8 Byte() { return quint8(engine()); }
    bool Toss() { return (engine() & 1) != 0; }
    /// 0 to `longest` printable characters.
    QString Text(int longest) {
        QString text(int(Number() % quint32(longest + 1)), u'?');
        for (QChar& character : text)
            character = QChar(u'!' + char16_t(Number() % 94));
        return text;
    }

private:
    std::mt19937 engine{20'240'229};
};

void Randomize(DeviceEntry& entry, Dice& dice) {
    entry.SendMask = dice.Number();
    entry.Mode = dice.Byte();
    entry.ExtMode = dice.Byte();
    entry.ExtMode2 = dice.Byte();
    entry.HotRemote = dice.Text(80);
    entry.HotCommand = dice.Text(20);
    const bool isMac = dice.Toss();
    entry.HotRemote2 = isMac ? u"@@@~~~LAN~~~@@@"_s + dice.Text(5) : dice.Text(80);
    if (isMac)
        for (char& byte : entry.HotCommand2)
            byte = char(dice.Byte());
    else
        entry.HotCommand2 = ToCodePage(dice.Text(20)).leftJustified(20, '\0');
}

} // namespace

QString ModusCase::Words() const {
    return u"%1 %2, capabilities %3, mask %4, modes %5 %6 %7"_s
        .arg(origin == DeviceOrigin::Tree ? u"tree"_s : u"single"_s, entry.Version)
        .arg(entry.Capabilities, 0, 16)
        .arg(entry.SendMask, 0, 16)
        .arg(entry.Mode, 0, 16)
        .arg(entry.ExtMode, 0, 16)
        .arg(entry.ExtMode2, 0, 16);
}

void ForEachModusCase(int rounds, const std::function<void(const ModusCase&)>& take) {
    Dice dice;
    const auto sets = CapabilitySets();
    for (int round = 0; round < rounds; ++round)
        for (const char* kind = kindLetters; *kind != '\0'; ++kind)
            for (const char* firmware : firmwares)
                for (const quint32 capabilities : sets)
                    for (const DeviceOrigin origin : {DeviceOrigin::Tree, DeviceOrigin::Single}) {
                        ModusCase device;
                        device.origin = origin;
                        device.entry.Version = QChar::fromLatin1(*kind) + QString::fromLatin1(firmware);
                        device.entry.Capabilities = capabilities;
                        device.entry.HotCommand2 = QByteArray(20, '\0');
                        Randomize(device.entry, dice);
                        take(device);
                    }
}

ModeRequest UnchangedRequest(const ModusCase& device, std::map<QString, int>& used) {
    const Facts f(device);
    const DeviceEntry& e = f.e;
    ModeRequest r;
    r.SendMask = qint32(e.SendMask & HeldMask(f));
    r.Mode = e.Mode;
    r.ExtMode = e.ExtMode & HeldExt(f);
    r.ExtMode2 = e.ExtMode2 & HeldExt2(f);
    r.HotRemote = e.HotRemote;
    r.HotCommand = e.HotCommand;
    r.HotRemote2 = f.hasPowerOff ? e.HotRemote2 : u"_"_s;
    r.HotCommand2 = f.hasPowerOff ? FromCodePage(e.HotCommand2).section(QChar(u'\0'), 0, 0) : QString();
    if (f.isLan && f.v >= u"5.03.50" && !f.Mac().isEmpty())
        std::copy_n(e.HotCommand2.begin(), 6, r.mac.begin());
    for (const Exception& exception : exceptions) {
        if (!exception.applies(f))
            continue;
        const QByteArray before = Encode(r);
        exception.effect(f, r);
        used[QLatin1StringView(exception.reason)] += int(Encode(r) != before);
    }
    return r;
}

int ModusExceptions() {
    return int(std::size(exceptions));
}
