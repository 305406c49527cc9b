#include "practice_client.h"

using namespace Qt::StringLiterals;

class PracticeServerTest : public QObject {
    Q_OBJECT

private slots:
    // Acknowledgement, then what the room has heard; the same for every way the stream may be cut.
    void SendIsAcknowledgedAndReported() {
        for (const int piece : {1, 7, 113, 1000}) {
            GreetedServer practice;
            const QByteArray stream =
                Request(1, "tv", "power", 0x4001'FFFF) + Request(7, "k\374che", "radio an");
            for (qsizetype at = 0; at < stream.size(); at += piece) {
                practice.client.socket.write(stream.mid(at, piece));
                practice.client.socket.flush();
                if (piece > 1 || at % 50 == 0)
                    QCoreApplication::processEvents();
            }
            QCOMPARE(practice.client.Told(4),
                     u"ack; code tv|power|RC5 01 00; ack; code küche|radio an|RC5 06 00"_s);
            QCOMPARE(practice.server.MalformedRecords(), 0);
            QVERIFY(practice.lines.contains(
                u"asked: send \"tv\" \"power\" (timeout 0, carrier 0, all buses, mask FFFF, LED default)"));
            QVERIFY(practice.lines.contains(u"answered: acknowledgement"));
        }
    }

    void UnknownCommandsAndChecks() {
        GreetedServer practice(Request(1, "tv", "fly") + Request(56, "tv", "power", 256) +
                               Request(56, "tv", "fly", 3));
        QCOMPARE(practice.client.Told(3),
                 u"error 6/0 The remote control \"tv\" has no command \"fly\".; check 256 1; check 3 0"_s);
    }

    // Requests that await nothing get nothing, those of a transfer a bare header and no result.
    void AnswersByKindOfRequest() {
        GreetedServer practice(Request(36) + Request(5) + Golden::LcdText() + Golden::SetMode() +
                               Golden::StoreCcf() + Golden::SerialText() + Golden::TranslatorMacro() +
                               Golden::DatabaseGlobal() + Golden::DatabaseBinaryAction());
        QCOMPARE(practice.client.Told(6), u"ack; log <Element 16909288 of the set came where element 0 was "
                                          u"due.\r\n>; ack; ack; log <Element "
                                          "2 of the set came where element 1 was due.\r\n>; ack"_s);
        QCOMPARE(practice.server.Records(), 9);
        QCOMPARE(practice.server.MalformedRecords(), 2);
        QVERIFY(practice.lines.contains(u"shown on the LCD: \" Guten Tag, Küche\""_s));
    }

    void PagesOfLists() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        World& world = practice.server.GetWorld();
        world.remotes.resize(2);
        world.remotes[1] = {u"many"_s, {}};
        for (int i = 0; i < 201; ++i)
            world.remotes[1].commands.push_back({u"c%1"_s.arg(i), {}});
        world.remotes.resize(81);
        client.socket.write(Request(18) + Request(18, {}, {}, 40) + Request(18, {}, {}, 80));
        for (const char* head : {"0000 2800 5100 0100", "2800 2800 5100 0100", "5000 0100 5100 0000"})
            QCOMPARE(client.Frame().sliced(8, 8), QByteArray::fromHex(head));
        // A second client in between must not change what the later page of the first one belongs to.
        PracticeClient other(practice.server);
        other.Greet(Request(19, "tv"));
        client.socket.write(Request(19, "many"));
        QCOMPARE(client.Frame().size(), 16 + 200 * 20);
        QCOMPARE(other.Frame().sliced(12, 2), Golden::Hex("2000"));
        client.socket.write(Request(19, {}, {}, 200));
        QCOMPARE(client.Frame().sliced(8), Golden::Hex("C800 0100 C900 0000") + Golden::Nuls("c200", 20));

        world.translatorSets.Clear();
        client.socket.write(Request(51) + Request(53));
        QCOMPARE(
            client.Told(2),
            u"names 16: 0 = ; buses: 13 = USB Wohnzimmer,USB Küche,Seriell,Anzeige,LAN Flur,LAN Keller,Module,Übersetzer,Gäste,Uhr,Garten,Werkstatt,Studio"_s);
    }

    void PagesOfStatus() {
        GreetedServer practice(Request(69) + Request(43, {}, {}, 8) + Request(43, {}, {}, 3) + Request(60));
        PracticeClient& client = practice.client;
        const auto version = [](const QByteArray& page, qsizetype bus, qsizetype address) {
            return QByteArray(page.constData() + 8 + 12 + (bus * 16 + address) * 248 + 36);
        };
        const QByteArray first = client.Frame();
        QCOMPARE(first.size(), 31764);
        QCOMPARE(first.first(12), Golden::Hex("00000000 147C 1800 0000 00 0D"));
        QCOMPARE(version(first, 0, 3), QByteArray("B5.20.01"));
        QCOMPARE(version(first, 0, 4), QByteArray());
        const QByteArray second = client.Frame();
        QCOMPARE(second.sliced(8, 4), Golden::Hex("0000 08 0D"));
        QCOMPARE(version(second, 0, 5).first(10), QByteArray("B5.03.02RC"));
        QVERIFY(client.Told(1).startsWith(u"error "));
        QCOMPARE(client.Frame().sliced(8),
                 Golden::Hex("00 0101020200000000 80110000 00 6608 DAFD") + Golden::Fill(8, 0));
    }

    void MalformedRecordsAreNamed() {
        QByteArray element = Golden::TranslatorMacro();
        element[1] = 1;
        GreetedServer practice(Request(1, " tv", "power") + Request(18, "tv") + element +
                               Golden::PressTvPower());
        QCOMPARE(
            practice.client.Told(5),
            u"error 8/0 CommandRequest: field \"remote\" (offset 12): the text begins with a blank; error "
            "8/0 CommandRequest of netcommand 18: field \"remote\" (offset 12): \"tv\" stands where nothing "
            "is due; log <TranslatorRequest: byte 1 is 0x01, but belongs to no field: 0 was expected\r\n>; ack; ack"_s);
        QCOMPARE(practice.server.MalformedRecords(), 3);
    }

    void StreamsThatCannotBeCutEnd() {
        GreetedServer practice(Golden::PressTvPower() + QByteArray(1, 99) + Golden::PressTvPower());
        QTRY_COMPARE(practice.client.socket.state(), QTcpSocket::UnconnectedState);
        QCOMPARE(practice.client.received.size(), 8 + 312);
        QVERIFY(practice.lines.join(u' ').contains(u"malformed: netcommand: 99 is not known"));
        PracticeClient rude(practice.server);
        QTRY_COMPARE(rude.socket.state(), QTcpSocket::ConnectedState);
        rude.socket.write(Golden::PressTvPower());
        QTRY_COMPARE(rude.socket.state(), QTcpSocket::UnconnectedState);
        QVERIFY(
            practice.lines.join(u' ').contains(u"malformed: hello: the connection began with 01 00 00 00"));
        QTRY_COMPARE(practice.server.Clients(), 0);
    }

    // A flash without names is one.
    void TextLines() {
        GreetedServer practice("AGET_HTML_FILELIST\r\nAFLASH_HTML \374.css;a.htm;\r\nAFLASH_HTML \r\n"
                               "AFLASH_HTML b;\r\nAFLASH_HTML a.htm\r\n" +
                               Golden::PressTvPower());
        PracticeClient& client = practice.client;
        World& world = practice.server.GetWorld();
        world.pageFiles = {{u"a.htm"_s, 12, u"1.2.03"_s}, {u"\u00FC.css"_s, 30, u"4.5.06"_s}};
        QCOMPARE(client.Frame(),
                 QByteArray("**00062 RESULT_HTML_FILELIST a.htm;12;1.2.03;\374.css;30;4.5.06;\n"));
        QCOMPARE(
            client.Told(6),
            u"text RESULT_HTML_FLASH O42\n; text RESULT_HTML_FLASH O0\n; text RESULT_HTML_FLASH EThere is no "
            "file \"b\".\n; error 8/0 text line \"AFLASH_HTML a.htm\": each file name must be ended by "
            "\";\"; ack; code tv|power|RC5 01 00"_s);

        practice.server.GetOutcomes().pageFlashFails = true;
        client.socket.write("AFLASH_HTML a.htm;\r\n");
        QCOMPARE(client.Told(1), u"text RESULT_HTML_FLASH EThe device could not be written.\n"_s);
        world.buses.clear();
        world.pageFiles = {{QString(200'000, u'x'), 1, {}}};
        client.socket.write("AFLASH_HTML a.htm;\r\nAGET_HTML_FILELIST\r\n");
        QCOMPARE(client.Told(1), u"text RESULT_HTML_FLASH ENo device takes page files.\n"_s);
        const QByteArray longest = client.Frame();
        QVERIFY(longest.startsWith("**99999 ") && longest.endsWith("xx\n"));
    }

    // Values move with each reading, up and down; signed where they are temperatures.
    void AnalogInputsMove() {
        GreetedServer practice;
        practice.server.GetWorld().analogInputs = {{{1, 250, 10}, {0}, {2, -20, 30}}};
        practice.client.socket.write(Request(60).repeated(41));
        QByteArrayList values;
        for (int i = 0; i < 41; ++i)
            values.append(practice.client.Frame().sliced(8 + 9, 7).toHex());
        QCOMPARE(values[0], QByteArray("fa00000000ecff"));
        QCOMPARE(values[5], QByteArray("ff00000000fbff"));
        QCOMPARE(values[10], QByteArray("ff000000000a00")); // a byte ends at 255
        QCOMPARE(values[30], QByteArray("f000000000ceff"));
        QCOMPARE(values[40], values[0]);
    }
};

SUITE(PracticeServerTest);

#include "practice_server_test.moc"
