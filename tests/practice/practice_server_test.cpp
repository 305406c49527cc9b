#include "practice_client.h"

using namespace Qt::StringLiterals;

class PracticeServerTest : public QObject {
    Q_OBJECT

private slots:
    // Acknowledgement, then what the room has heard; the same for every way the stream may be cut.
    void SendIsAcknowledgedAndReported() {
        for (const int piece : {1, 7, 112, 113, 1000}) {
            GreetedServer practice;
            PracticeClient& client = practice.client;
            const QByteArray stream =
                Golden::PressTvPower() + Request(7, u"küche"_s.toLatin1(), "radio an", 0x4001);
            for (qsizetype at = 0; at < stream.size(); at += piece) {
                client.socket.write(stream.sliced(at, qMin<qsizetype>(piece, stream.size() - at)));
                client.socket.flush();
                if (piece > 1 || at % 50 == 0)
                    QCoreApplication::processEvents();
            }
            QCOMPARE(client.Frame(), Golden::Hex("00 00 00 00 08 00 01 00"));
            const QByteArray report = client.Frame();
            QCOMPARE(report.first(8), Golden::Hex("00 00 00 00 38 01 04 00"));
            QCOMPARE(report.sliced(12, 4), QByteArray("tv\0\0", 4));
            QCOMPARE(report.sliced(92, 6), QByteArray("power\0", 6));
            QVERIFY(report[112] != '\0' && report[112] != 'F');
            QCOMPARE(client.Frame().size(), 8);
            QCOMPARE(client.Frame().sliced(12, 6), u"küche\0"_s.toLatin1());
            QCOMPARE(practice.server.MalformedRecords(), 0);
        }
    }

    void WhatWasAskedIsSaid() {
        QByteArray press = Golden::PressTvPower();
        press.replace(4, 4, Golden::Hex("FF FF 01 40"));
        GreetedServer practice(press);
        QCOMPARE(practice.client.Frame().size(), 8);
        QVERIFY(practice.lines.contains(
            u"asked: send \"tv\" \"power\" (timeout 0, carrier 0, all buses, mask FFFF, LED default)"));
        QVERIFY(practice.lines.contains(u"answered: acknowledgement"));
    }

    void UnknownCommandsAndChecks() {
        GreetedServer practice(Request(1, "tv", "fly") + Request(56, "tv", "power", 256) +
                               Request(56, "tv", "fly", 3));
        PracticeClient& client = practice.client;
        const QByteArray refusal = client.Frame();
        QCOMPARE(refusal.size(), 272);
        QCOMPARE(ResultText(refusal), QByteArray("The remote control \"tv\" has no command \"fly\"."));
        const QByteArray known = client.Frame();
        QCOMPARE(known.sliced(10, 4), Golden::Hex("26 00 00 01"));
        QCOMPARE(client.Frame().sliced(10, 4), Golden::Hex("1C 00 03 00"));
    }

    // Requests that await nothing get nothing, those of a transfer a bare header and no result.
    void AnswersByKindOfRequest() {
        GreetedServer practice(Request(36) + Request(5) + Golden::LcdText() + Golden::SetMode() +
                               Golden::StoreCcf() + Golden::SerialText() + Golden::TranslatorMacro() +
                               Golden::DatabaseGlobal() + Golden::DatabaseBinaryAction());
        PracticeClient& client = practice.client;
        QCOMPARE(client.Frame().size(), 8); // of the serial text
        for (const bool outOfOrder : {true, false, true}) {
            if (outOfOrder)
                QCOMPARE(TypeOf(client.Frame()), 23);
            QCOMPARE(client.Frame().size(), 8);
        }
        QCOMPARE(practice.server.Records(), 9);
        QCOMPARE(practice.server.MalformedRecords(), 2);
        QVERIFY(practice.lines.contains(u"shown on the LCD: \" Guten Tag, Küche\""_s));
    }

    void PagesOfLists() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        World& world = practice.server.GetWorld();
        for (int i = int(world.remotes.size()); i < 85; ++i)
            world.remotes.push_back({u"remote %1"_s.arg(i), {}});
        for (int i = 0; i < 201; ++i)
            world.remotes.back().commands.push_back({u"c%1"_s.arg(i)});
        client.socket.write(Request(18) + Request(18, {}, {}, 40) + Request(18, {}, {}, 80));
        for (int offset = 0; offset < 85; offset += 40) {
            const QByteArray page = client.Frame();
            const int count = qMin(40, 85 - offset);
            QCOMPARE(page.size(), 16 + count * 88);
            QCOMPARE(Number(page, 0), offset);
            QCOMPARE(Number(page, 1), count);
            QCOMPARE(Number(page, 2), 85);
            QCOMPARE(Number(page, 3) != 0, offset + count < 85);
            QCOMPARE(QByteArray(page.constData() + 16 + 8), world.remotes[offset].name.toLatin1());
        }

        // A second client in between must not change what the later page of the first one belongs to.
        PracticeClient other(practice.server);
        other.Greet(Request(19, "tv"));
        client.socket.write(Request(19, "remote 84"));
        QCOMPARE(client.Frame().size(), 16 + 200 * 20);
        QCOMPARE(Number(other.Frame(), 2), 32);
        client.socket.write(Request(19, {}, {}, 200));
        const QByteArray last = client.Frame();
        QCOMPARE(last.sliced(8),
                 Golden::Hex("C8 00 01 00 C9 00 00 00") + QByteArray("c200").leftJustified(20, '\0'));

        world.translatorSets.Clear();
        client.socket.write(Request(51) + Request(53));
        QCOMPARE(client.Frame(), Golden::Hex("00 00 00 00 10 00 10 00 00 00 00 00 00 00 00 00"));
        QCOMPARE(Number(client.Frame(), 2), 13);
    }

    void PagesOfStatus() {
        GreetedServer practice(Request(69) + Request(43, {}, {}, 8) + Request(43, {}, {}, 3) + Request(60));
        PracticeClient& client = practice.client;
        const QByteArray first = client.Frame();
        QCOMPARE(first.size(), 31764);
        QCOMPARE(first.first(12), Golden::Hex("00 00 00 00 14 7C 18 00 00 00 00 0D"));
        const auto version = [](const QByteArray& page, qsizetype bus, qsizetype address) {
            return QByteArray(page.constData() + 8 + 12 + (bus * 16 + address) * 248 + 36);
        };
        QCOMPARE(version(first, 0, 3), QByteArray("B5.20.01"));
        QCOMPARE(version(first, 0, 4), QByteArray());
        QCOMPARE(int(first[8 + 4 + 3]), 1); // local address of bus 3
        const QByteArray second = client.Frame();
        QCOMPARE(second.sliced(8, 4), Golden::Hex("00 00 08 0D"));
        QCOMPARE(version(second, 0, 5).first(10), QByteArray("B5.03.02RC"));
        QVERIFY(!ResultText(client.Frame()).isEmpty());
        QCOMPARE(client.Frame().sliced(8),
                 Golden::Join({Golden::Hex("00 01 01 02 02 00 00 00 00 80 11 00 00 00"),
                               Golden::Hex("66 08 DA FD"), Golden::Fill(8, 0)}));
    }

    void MalformedRecordsAreNamed() {
        QByteArray element = Golden::TranslatorMacro();
        element[1] = 1;
        GreetedServer practice(Request(1, " tv", "power") + Request(18, "tv") + element +
                               Golden::PressTvPower());
        PracticeClient& client = practice.client;
        QCOMPARE(ResultText(client.Frame()),
                 QByteArray("CommandRequest: field \"remote\" (offset 12): the text begins with a blank"));
        QVERIFY(ResultText(client.Frame()).contains("field \"remote\" (offset 12): \"tv\" stands where"));
        QCOMPARE(TypeOf(client.Frame()), 23);
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(client.Frame().size(), 8);
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

    // A flash without names is one; frames may be cut anywhere.
    void TextLines() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        World& world = practice.server.GetWorld();
        world.pageFiles = {{u"a.htm"_s, 12, u"1.2.03"_s}, {u"\u00FC.css"_s, 30, u"4.5.06"_s}};
        const QByteArray list("**00062 RESULT_HTML_FILELIST a.htm;12;1.2.03;\xFC.css;30;4.5.06;\n");
        client.socket.write("AGET_HTML_FILELIST\r\nAFLASH_HTML \xFC.css;a.htm;\r\nAFLASH_HTML \r\n"
                            "AFLASH_HTML b;\r\nAFLASH_HTML a.htm\r\n" +
                            Golden::PressTvPower());
        QCOMPARE(client.Frame(), list);
        QCOMPARE(client.Frame(), QByteArray("**00030 RESULT_HTML_FLASH O42\n"));
        QCOMPARE(client.Frame(), QByteArray("**00029 RESULT_HTML_FLASH O0\n"));
        QVERIFY(client.Frame().contains("RESULT_HTML_FLASH EThere is no file \"b\"."));
        QVERIFY(ResultText(client.Frame()).contains("each file name must be ended"));
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(TypeOf(client.Frame()), 4);

        practice.server.GetFaults().pieceSize = 1;
        client.arrivals = 0;
        client.socket.write("AGET_HTML_FILELIST\r\n");
        QCOMPARE(client.Frame(), list);
        QVERIFY(client.arrivals > 8);
        practice.server.GetFaults().pieceSize = 0;

        practice.server.GetOutcomes().pageFlashFails = true;
        client.socket.write("AFLASH_HTML a.htm;\r\n");
        QVERIFY(client.Frame().contains("RESULT_HTML_FLASH EThe device could not be written.\n"));
        world.buses.clear();
        world.pageFiles = {{QString(200'000, u'x'), 1, {}}};
        client.socket.write("AFLASH_HTML a.htm;\r\nAGET_HTML_FILELIST\r\n");
        QVERIFY(client.Frame().contains("RESULT_HTML_FLASH ENo device takes page files.\n"));
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
            values.append(practice.client.Frame().sliced(8 + 9, 7));
        QCOMPARE(values[0], Golden::Hex("FA 00 00 00 00 EC FF"));
        QCOMPARE(values[5], Golden::Hex("FF 00 00 00 00 FB FF"));
        QCOMPARE(values[10], Golden::Hex("FF 00 00 00 00 0A 00")); // a byte ends at 255
        QCOMPARE(values[30], Golden::Hex("F0 00 00 00 00 CE FF"));
        QCOMPARE(values[40], values[0]);
    }
};

SUITE(PracticeServerTest);

#include "practice_server_test.moc"
