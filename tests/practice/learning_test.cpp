#include "practice_client.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 LocalOnBus0 = 0x1000'00CC; // new form, everything left to the device

QByteArray Learn(int netcommand, const QByteArray& command, int carrier = 36, int timeout = 30000) {
    const QByteArray flags(1, netcommand == 3 ? '\0' : '\x05');
    return Request(netcommand, flags, command, LocalOnBus0, timeout, carrier) + Request(16);
}

} // namespace

class LearningTest : public QObject {
    Q_OBJECT

private slots:
    void FromANewRemoteToItsCommands() {
        // Learning in the normal mode needs a timing.
        Start(Request(16) + Request(2, "neu") + Request(16) + Learn(4, "power"));
        QCOMPARE(
            client->Told(4),
            u"learn  0 0 kHz 0/0 ; learn neu 0 0 kHz 0/0 ; error 7/0 The remote control \"neu\" needs a timing first.; learn neu 0 0 kHz 0/0 "_s);
        // The timing: its data, then the state with the measured carrier, told only once. Meanwhile the
        // server goes on.
        client->socket.write(Learn(3, {}, 0) + Request(1, "tv", "power", 0x4001'FFFF));
        QCOMPARE(client->Told(2), u"ack; code tv|power|RC5 01 00"_s);
        const QByteArray timing = client->Frame();
        QCOMPARE(timing.first(8), Golden::Hex("00000000 D800 0200"));
        QCOMPARE(client->Told(1), u"learn neu 3 38 kHz 1/0 "_s);
        client->socket.write(Request(16));
        QCOMPARE(client->Told(1), u"learn neu 1 0 kHz 1/0 "_s);
        // One state for each request, and none beside; a name that is known keeps its place.
        client->socket.write(Learn(4, "power") + Request(16));
        QCOMPARE(client->Told(2), u"learn neu 1 0 kHz 1/1 RC5 09 00; learn neu 1 0 kHz 1/1 RC5 09 00"_s);
        client->socket.write(Learn(12, "mute"));
        QCOMPARE(client->Told(1), u"learn neu 1 0 kHz 2/2 TIMED 09 01"_s);
        client->socket.write(Learn(13, "power"));
        QCOMPARE(client->Told(1), u"learn neu 1 0 kHz 2/2 RAW REPEAT 09 00"_s);

        client->session.ListOwner = 1;
        client->socket.write(Request(56, "neu", "mute", 4) + Request(19, "neu") + Request(18) +
                             Request(1, "neu", "power", 0x4001'FFFF) + Request(5) + Request(16));
        QCOMPARE(
            client->Told(6),
            u"check 4 1; commands 1: power,mute//; names 6: 9 = tv,amp,light,screen,player,küche,büro,rollo süd,neu; ack; code neu|power|RAW REPEAT 09 00; learn  0 0 kHz 0/0 "_s);
    }

    void LearnsThatFail() {
        Start(Request(2, "tv") + Request(16));
        QCOMPARE(client->Told(1), u"learn tv 1 0 kHz 1/32 "_s);
        Outcomes& outcomes = practice->server.GetOutcomes();
        // The time-out is the request's, also where the learn would have taken longer.
        const std::tuple<Outcomes, QByteArray, QString> rows[] = {
            {{.learn = Outcomes::Learn::Fails, .learnTime = 10},
             Learn(8, "new", 0),
             u"The code that was received can't be learned."_s},
            {{.learn = Outcomes::Learn::TimesOut, .learnTime = 10},
             Learn(9, "new", 0, 20),
             u"No code was received within 20 ms."_s},
            {{.learnTime = 60000}, Learn(10, "new", 0, 25), u"No code was received within 25 ms."_s}};
        for (const auto& [outcome, learn, text] : rows) {
            outcomes = outcome;
            client->socket.write(learn);
            QCOMPARE(client->Told(2), u"hold refused; learn tv 1 0 kHz 1/32 "_s);
            QCOMPARE(client->session.LateLearnResult.Text, text);
        }
        // A closed remote ends the learn without a result, and who waits is told.
        client->socket.write(Learn(8, "new") + Request(5));
        QCOMPARE(client->Told(1), u"learn  0 0 kHz 0/0 "_s);

        outcomes = {.learnTime = 10, .carrierFails = true};
        client->socket.write(Request(2, "tv") + Learn(8, "new", 0));
        QCOMPARE(client->Told(1), u"learn tv 5 0 kHz 1/33 RAW 01 20"_s);
    }

    // Names come with the blanks that were typed; sends name them without. A text must not pass for the
    // result of a flash.
    void TypedCodes() {
        QByteArray serial = Golden::StoreCcf();
        serial[0] = 71;
        serial.replace(112, 3, "F1!");
        Start(Golden::StoreCcf() + Request(2, "tv") + Golden::StoreCcf() + Request(16) +
              Request(1, "tv", "power", 0x4001'FFFF) + serial + Request(1, "tv", "power", 0x4001'FFFF));
        QCOMPARE(
            client->Told(5),
            u"learn tv 1 0 kHz 1/32 CCF 0000 006D 0001 0000 0010 0020; ack; code tv|power|CCF 0000 006D 0001 0000 0010 0020; ack; code tv|power|RS232 F1!0 006D 0001 0000 0010 0020"_s);
        QVERIFY(practice->lines.contains(u"not stored: no remote control is open"));
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
