#include "practice_client.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int EntrySize = 248;

QByteArray SetMode(int tag) {
    return Golden::SetMode().replace(4, 2, Bytes(tag, 2));
}

QByteArray SetModeWithoutMac(int tag, const QByteArray& hotRemote2) {
    return SetMode(tag)
        .replace(218, 6, QByteArray(6, '\0'))
        .replace(112, 80, (hotRemote2 + '\0').leftJustified(80, ' '));
}

} // namespace

class ModeTest : public QObject {
    Q_OBJECT

private slots:
    // The whole entry byte for byte: what the request says, and what it can't say as it was.
    void EveryFieldShowsAtTheNextStatus() {
        using namespace Golden;
        GreetedServer practice(Request(69));
        const QByteArray before = Entry(practice, 4, 6);
        practice.client.socket.write(SetMode(4 * 256 + 6) + Request(69));
        const QByteArray after = Entry(practice, 4, 6);
        const QByteArray expected = Join({
            Hex("FE 7F FF FF 21 31 32"),
            before.sliced(7, 21), // SendMask, modes; capabilities
            Hex("51 52 53 54 55 56 57 58"),
            before.sliced(36, 10), // Receivers to ExtFlags; Version
            Ascii("tv") + Fill(78, 0),
            Ascii("power") + Fill(15, 0),           // power on
            Ascii("@@@~~~LAN~~~@@@") + Fill(65, 0), // woken by its address
            Hex("02 1A 2B 3C 4D 5E") + Fill(14, 0),
            before.sliced(246),
        });
        QCOMPARE(after, expected);

        practice.client.socket.write(SetModeWithoutMac(4 * 256 + 6, "_") + Request(69));
        QCOMPARE(Entry(practice, 4, 6), expected);
        QVERIFY(practice.lines.contains(u"set: device 4.6, E6.04.44: nothing changes"));
        practice.client.socket.write(SetModeWithoutMac(4 * 256 + 6, "player") + Request(69));
        const QByteArray command = Ascii("player") + Fill(74, 0) + Ascii("stop") + Fill(16, 0);
        QCOMPARE(Entry(practice, 4, 6).sliced(146, 100), command);
    }

    // Old firmware has none of the eight further bytes; what is said names field by field what changes.
    void OldFirmwareAndWords() {
        GreetedServer practice(Request(69));
        const QByteArray before = Entry(practice, 7, 2);
        practice.client.socket.write(SetModeWithoutMac(7 * 256 + 2, "_") + Request(69));
        const QByteArray after = Entry(practice, 7, 2);
        QCOMPARE(after.sliced(28, 18), before.sliced(28, 18));
        QVERIFY(practice.lines.contains(u"odd: the firmware X5.03.11 has no extended parameters"));
        QVERIFY(practice.lines.contains(
            u"set: device 7.2, X5.03.11: SendMask 00000F0F -> FFFF7FFE, Mode 03 -> 21, ExtMode 03 -> 31, "
            "ExtMode2 00 -> 32, HotRemote \"\" -> \"tv\", HotCommand \"\" -> \"power\""));
    }

    void UnknownDevicesAndTheOnlyOne() {
        GreetedServer practice(SetMode(7 * 256 + 15) + SetMode(-1) + SetMode(3) + Request(69));
        Entry(practice, 0, 0);
        QVERIFY(practice.lines.contains(u"not set: there is no device at bus 7, address 15"));
        QVERIFY(!practice.lines.join(u' ').contains(u"set: device 4"));
        // A device that is alone goes by its plain address, on whatever bus it is.
        World& world = practice.server.GetWorld();
        for (size_t bus = 0; bus < world.buses.size(); ++bus)
            if (bus != 4)
                world.buses[bus].devices.clear();
        world.buses[4].devices.erase(0);
        practice.client.socket.write(SetMode(6) + Request(69));
        QCOMPARE(Entry(practice, 4, 6).first(4), Golden::Hex("FE 7F FF FF"));
    }

private:
    /// The bytes of a device in the status that comes next.
    static QByteArray Entry(GreetedServer& practice, int bus, int address) {
        const QByteArray page = practice.client.Frame();
        return page.size() < 31764 ? QByteArray()
                                   : page.sliced(8 + 12 + (bus * 16 + address) * EntrySize, EntrySize);
    }
};

SUITE(ModeTest);

#include "mode_test.moc"
