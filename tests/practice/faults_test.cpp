#include "practice_client.h"

#include "practice/world_options.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

const QString Press = u"ack; code tv|power|RC5 01 00"_s;

} // namespace

class FaultsTest : public QObject {
    Q_OBJECT

private slots:
    void Pieces() {
        Start({.pieceSize = 40});
        QCOMPARE(client->Told(2), Press);
        QVERIFY(client->arrivals > 2);
    }

    void Delay() {
        QElapsedTimer clock;
        clock.start();
        Start({.delay = 60});
        QCOMPARE(client->Told(2), Press);
        QVERIFY(clock.elapsed() >= 120);
    }

    void WrongAnswers() {
        Start({.refused = {u"tv/power"_s}});
        QCOMPARE(client->Told(1), u"error 6/0 \"power\" of \"tv\" could not be sent."_s);
        // The texts must lie where the client looks for them.
        Start({.logsBefore = 2});
        const QString logs = u"log <practice log 1 of 2\r\n>; log <practice log 2 of 2\r\n>; "_s;
        QCOMPARE(client->Told(6), logs + u"ack; "_s + logs + Press.sliced(5));
        Start({.twice = true, .headerFiller = "*+*+"});
        for (const int size : {8, 8, 312, 312}) {
            const QByteArray frame = client->Frame();
            QCOMPARE(frame.size(), size);
            QVERIFY(frame.startsWith("*+*+"));
        }
    }

    void Silence() {
        Start({.silentFor = {1}});
        client->socket.write(Golden::SerialText());
        QCOMPARE(client->Frame().size(), 8);
        server->GetFaults().silent = true;
        client->socket.write(Golden::SerialText());
        QTRY_COMPARE(server->Records(), 3);
        QCOMPARE(client->received, QByteArray());
    }

    void CutInTheMiddle() {
        for (const Faults::Cut cut : {Faults::Cut::Close, Faults::Cut::Reset}) {
            Start({.pieceSize = 50, .cut = cut, .cutAnswer = 2, .cutBytes = 100});
            QTRY_COMPARE(client->socket.state(), QTcpSocket::UnconnectedState);
            QCOMPARE(client->received.size(), 8 + 100);
        }
    }

    void NeverReadFillsTheConnection() {
        Start({.neverRead = true});
        client->socket.write(QByteArray(20'000'000, '\0'));
        QTRY_COMPARE(server->Clients(), 1);
        server->Push(Golden::BareHeader());
        QCOMPARE(client->Frame(), Golden::BareHeader());
        QCOMPARE(server->Records(), 0);
        QVERIFY(client->socket.bytesToWrite() > 0);
        // What lies unread makes a real reset of it.
        server->ResetClients();
        QTRY_COMPARE(client->socket.state(), QTcpSocket::UnconnectedState);
    }

    void CommandLine() {
        QString error;
        const auto read = [&](const QStringList& options) {
            return ReadOptions<AddFaultOptions, ReadFaultOptions>(options, error);
        };
        const auto faults = read({u"--pieces=3"_s, u"--silent-for=16"_s, u"--silent-for=60"_s,
                                  u"--reset=2:100"_s, u"--filler=00FF2A2A"_s, u"--refuse=tv/power"_s});
        QVERIFY(faults && faults->pieceSize == 3 && faults->refused == QStringList(u"tv/power"_s));
        QCOMPARE(faults->silentFor, (QSet<quint8>{16, 60}));
        QVERIFY(faults->cut == Faults::Cut::Reset && faults->cutAnswer == 2 && faults->cutBytes == 100);
        QCOMPARE(faults->headerFiller, QByteArray("\0\xFF**", 4));
        QVERIFY(!read({u"--filler=2A2A0000"_s}));
        QVERIFY(!read({u"--close=5"_s}));
        QCOMPARE(error, u"--close: \"5\" is not two numbers with a colon between them"_s);

        const auto outcome = [&](const QStringList& options) {
            return ReadOptions<AddOutcomeOptions, ReadOutcomeOptions>(options, error);
        };
        const auto outcomes = outcome({u"--learn=timeout"_s, u"--refuse-database-element=0"_s,
                                       u"--refuse-database-element=12"_s, u"--database-words=32768"_s});
        QVERIFY(outcomes && outcomes->learn == Outcomes::Learn::TimesOut && outcomes->learnTime == 1200);
        QCOMPARE(outcomes->refusedDatabaseElements, (QSet<int>{0, 12}));
        QCOMPARE(outcomes->databaseWords, 32768);
        QVERIFY(!outcome({u"--learn=maybe"_s}));
        QCOMPARE(error, u"--learn: \"maybe\" is not succeed, fail or timeout"_s);
    }

    void AWorldOnTheCommandLine() {
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
    /// A fresh server with these faults, and the press of "power" on its way.
    void Start(const Faults& faults) {
        practice = std::make_unique<GreetedServer>(Golden::PressTvPower(), faults);
        client = &practice->client;
        server = &practice->server;
    }

    std::unique_ptr<GreetedServer> practice;
    PracticeClient* client = nullptr;
    PracticeServer* server = nullptr;
};

SUITE(FaultsTest);

#include "faults_test.moc"
