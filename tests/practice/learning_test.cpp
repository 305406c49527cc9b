#include "practice_client.h"

#include "practice/learn_param.h"
#include "practice/world_options.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 LocalOnBus0 = 0x1000'00CC; // new form, everything left to the device

QByteArray State(const char* numbers, const QByteArray& remote, const char* counts, const QByteArray& code) {
    using namespace Golden;
    return Join({Hex("00 00 00 00 10 01 05 00"), Hex("00 00"), Hex(numbers), remote.leftJustified(80, '\0'),
                 Hex(counts), code.leftJustified(176, '\0')});
}

QByteArray Learn(int netcommand, const QByteArray& command, int carrier = 36, int timeout = 30000) {
    const QByteArray flags(1, netcommand == 3 ? '\0' : '\x05');
    return Request(netcommand, flags, command, LocalOnBus0, timeout, carrier) + Request(16);
}

} // namespace

class LearningTest : public QObject {
    Q_OBJECT

private slots:
    void FromANewRemoteToItsCommands() {
        Start(Request(16) + Request(2, "neu") + Request(16) + Learn(4, "power"));
        QCOMPARE(client->Frame(), State("00 00", "", "00 00 00 00", ""));
        QCOMPARE(client->Frame(), State("00 00", "neu", "00 00 00 00", ""));
        // Learning in the normal mode needs a timing.
        const QByteArray refusal = client->Frame();
        QCOMPARE(refusal.sliced(10, 4), Golden::Hex("07 00 00 00"));
        QVERIFY(ResultText(refusal).contains("\"neu\" needs a timing first"));
        QCOMPARE(TypeOf(client->Frame()), 5);

        // The timing: its data, then the state with the measured carrier, told only once.
        client->socket.write(Learn(3, {}, 0) + Request(1, "tv", "power", 0x4001'FFFF));
        QCOMPARE(client->Frame().size(), 8); // meanwhile the server goes on
        QCOMPARE(TypeOf(client->Frame()), 4);
        const QByteArray timing = client->Frame();
        QCOMPARE(TypeOf(timing), 2);
        QCOMPARE(timing.size(), 8 + 208);
        QCOMPARE(client->Frame(), State("03 26", "neu", "01 00 00 00", ""));
        client->socket.write(Request(16));
        QCOMPARE(client->Frame(), State("01 00", "neu", "01 00 00 00", ""));

        // One state for each request, and none beside; a name that is known keeps its place.
        client->socket.write(Learn(4, "power") + Request(16));
        for (int i = 0; i < 2; ++i)
            QCOMPARE(client->Frame(), State("01 00", "neu", "01 00 01 00", "RC5 09 00"));
        client->socket.write(Learn(12, "mute"));
        QCOMPARE(client->Frame(), State("01 00", "neu", "02 00 02 00", "TIMED 09 01"));
        client->socket.write(Learn(13, "power"));
        QCOMPARE(client->Frame(), State("01 00", "neu", "02 00 02 00", "RAW REPEAT 09 00"));

        client->socket.write(Request(56, "neu", "mute", 4) + Request(19, "neu") + Request(18) +
                             Request(1, "neu", "power", 0x4001'FFFF) + Request(5) + Request(16));
        QCOMPARE(client->Frame().sliced(10, 4), Golden::Hex("26 00 04 00"));
        QCOMPARE(client->Frame().sliced(16),
                 QByteArray("power").leftJustified(20, '\0') + QByteArray("mute").leftJustified(20, '\0'));
        QVERIFY(client->Frame().endsWith(QByteArray("neu").leftJustified(80, '\0')));
        QCOMPARE(client->Frame().size(), 8);
        QCOMPARE(client->Frame().sliced(112, 17), QByteArray("RAW REPEAT 09 00\0", 17));
        QCOMPARE(client->Frame(), State("00 00", "", "00 00 00 00", ""));
    }

    void LearnsThatFail() {
        Start(Request(2, "tv") + Request(16));
        QCOMPARE(client->Frame(), State("01 00", "tv", "01 00 20 00", ""));
        Outcomes& outcomes = practice->server.GetOutcomes();
        outcomes.learn = Outcomes::Learn::Fails;
        client->socket.write(Learn(8, "new", 0));
        QCOMPARE(client->Frame().sliced(10, 4), Golden::Hex("04 00 03 00"));
        QCOMPARE(client->Frame(), State("01 00", "tv", "01 00 20 00", ""));

        // The time-out is the request's, also where the learn would have taken longer.
        outcomes.learn = Outcomes::Learn::TimesOut;
        client->socket.write(Learn(9, "new", 0, 20));
        QCOMPARE(ResultText(client->Frame()), QByteArray("No code was received within 20 ms."));
        QCOMPARE(TypeOf(client->Frame()), 5);
        outcomes = {.learnTime = 60000};
        client->socket.write(Learn(10, "new", 0, 25));
        QCOMPARE(ResultText(client->Frame()), QByteArray("No code was received within 25 ms."));
        QCOMPARE(TypeOf(client->Frame()), 5);

        // A closed remote ends the learn without a result, and who waits is told.
        client->socket.write(Learn(8, "new") + Request(5));
        QCOMPARE(client->Frame(), State("00 00", "", "00 00 00 00", ""));

        outcomes = {.learnTime = 10, .carrierFails = true};
        client->socket.write(Request(2, "tv") + Learn(8, "new", 0));
        QCOMPARE(client->Frame(), State("05 00", "tv", "01 00 21 00", "RAW 01 20"));
    }

    // Names come with the blanks that were typed; sends name them without. A text must not pass for the
    // result of a flash.
    void TypedCodes() {
        QByteArray serial = Golden::StoreCcf();
        serial[0] = 71;
        serial.replace(112, 3, "F1!");
        Start(Golden::StoreCcf() + Request(2, "tv") + Golden::StoreCcf() + Request(16) +
              Request(1, "tv", "power", 0x4001'FFFF) + serial + Request(1, "tv", "power", 0x4001'FFFF));
        QCOMPARE(client->Frame(), State("01 00", "tv", "01 00 20 00", "CCF 0000 006D 0001 0000 0010 0020"));
        QCOMPARE(client->Frame().size(), 8);
        QVERIFY(client->Frame().sliced(112).startsWith("CCF 0000 006D"));
        QCOMPARE(client->Frame().size(), 8);
        QVERIFY(client->Frame().sliced(112).startsWith("RS232 F1!"));
        QVERIFY(practice->lines.contains(u"not stored: no remote control is open"));
    }

    void ParametersInWords_data() {
        QTest::addColumn<int>("netcommand");
        QTest::addColumn<quint32>("param");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* name, int netcommand, quint32 param, int flags,
                            const QString& words) {
            QTest::newRow(name) << netcommand << param << flags << words;
        };
        row("old", 4, (128u | 32 | 9) << 16 | 2 << 8 | 7, 0,
            u"old form, bus 2, address 7, receiver 455 kHz, calibration every 10, IR time-out 15 ms"_s);
        row("new command", 8, 0x8000'0000u | (3u * 16 | 15 | 26 * 64 | 0x1000 | 2 * 0x2000) << 16 | 0x80 | 42,
            0x3F,
            u"new form, bus 0, all devices, receiver 38 kHz external on channel 2 (26), calibration every "
            "75, IR time-out 250 ms, tolerance 680 µs, no sort, B&O, toggle bit mapped out, long presses"_s);
        row("new timing", 3, 0x8000'0000u | (8u | 5 * 64 | 7 * 2048 | 16384) << 16 | 12 << 8 | 0x80 | 76, 1,
            u"new form, bus 12, local device, receiver 455 kHz plasma (5), calibration none, IR time-out "
            "5 ms, tolerance 960 µs, no sort, B&O, toggle bit mapped out"_s);
        row("odd", 4, 0x0800'0080u | 3 << 16 | 99, 0x40,
            u"odd: the address is none; the time-out code is 3; bits 27 and 28 aren't 0 and 1; bits 0 and 2 "
            "of the flags hold 0 and not 5; bits 6 and 7 of the flags aren't 0"_s);
    }

    void ParametersInWords() {
        QFETCH(int, netcommand);
        QFETCH(quint32, param);
        QFETCH(int, flags);
        QFETCH(QString, words);
        const auto request =
            Decode<CommandRequest>(Request(netcommand, QByteArray(1, char(flags)), "x", param));
        const QString found = ReadLearnParam(request).Words();
        QVERIFY2(found.endsWith(words), qPrintable(found));
    }

    void LargeWorld() {
        QString error;
        World world = World::LivingRoom();
        const auto read = [&](const QStringList& options) {
            return ReadOptions<AddWorldOptions, ReadWorldOptions>(options, world, error);
        };
        QVERIFY(!read({u"--commands=-1"_s}));
        QCOMPARE(error, u"--commands: \"-1\" is not a number from 0 to 32767"_s);
        QVERIFY(read({u"--remotes=500"_s, u"--commands=1000"_s}));
        QCOMPARE(world.remotes.size(), size_t(500));
        QCOMPARE(world.remotes[8].commands.size(), size_t(1000));
        QCOMPARE(*world.FindCode(u"alle Befehle"_s, u"Befehl 1000"_s), u"RC5 09 3E7"_s);
    }

private:
    void Start(const QByteArray& requests) {
        practice = std::make_unique<GreetedServer>(requests);
        practice->server.GetOutcomes().learnTime = 10;
        client = &practice->client;
    }

    std::unique_ptr<GreetedServer> practice;
    PracticeClient* client = nullptr;
};

SUITE(LearningTest);

#include "learning_test.moc"
