#include "link/session_recorder.h"

using namespace Qt::StringLiterals;
using Raw::Ack;
using Raw::Page;
using Raw::Reply;
using Raw::Result;

namespace {

/// What a session without a connection says to bytes that come in pieces.
QString InPieces(const QByteArray& bytes, qsizetype length, Pending pending = Pending::None) {
    Session session;
    SessionTrace trace(session);
    session.PendingOp = pending;
    session.TransferIndex = 11;
    ReplyReader reader(session);
    for (qsizetype at = 0; at < bytes.size(); at += length) {
        const QByteArray piece = bytes.mid(at, length);
        for (QByteArrayView input = piece; !input.isEmpty();)
            reader.Read(input);
    }
    return trace.Said();
}

} // namespace

class ReplyReaderTest : public QObject {
    Q_OBJECT

private slots:
    void Replies_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("said");
        const auto row = [](const char* name, const QByteArray& bytes, const QString& said) {
            QTest::newRow(name) << bytes << said;
        };
        row("bare header", Ack(), u"ack"_s);
        row("bare header, whatever its type", Reply(23) + Reply(1) + Reply(99), u"ack; ack; ack"_s);
        row("checked commands", Result(28, 0) + Result(38, 256) + Result(28, -1) + Result(38, 257),
            u"check 0 0; check 256 1"_s);
        row("learn errors", Result(4, 2, "x\xFC") + Result(4, 3, "x"),
            u"error 4/2 xü; hold refused; hold refused"_s);
        row("overwrite", Result(35, 0, "z"), u"overwrite?"_s);
        row("empty result", Reply(1, QByteArray(1, '\0')), u"error 0/0 ; hold refused"_s);
        row("code", Raw::Received("data", "tv", "on"), u"code tv|on|data"_s);
        row("flash outcomes",
            Raw::Received("F1") + Raw::Received("F2") + Raw::Received("F0") + Raw::Received("F9") +
                Raw::Received("F"),
            u"translator flash 1; database flash 1; translator flash 0"_s);
        row("learn state", Reply(5, QByteArray("\0\0\3\46amp\0", 8)), u"learn amp 3 38 kHz 0/0 "_s);
        row("server info", Reply(9, QByteArray(8, 'x')) + Reply(2, QByteArray(208, 'x')), QString());
        row("server version", Reply(13, QByteArray(8, 'x') + QByteArray("2.17\0xx", 7)), u"version 2.17"_s);
        row("unknown types",
            Reply(0, "x") + Reply(3, "x") + Reply(25, "x") + Reply(-1, "x") + Reply(32767, "x"), QString());
        row("status", Reply(24, QByteArray("\0\0\10\20", 4)), u"status 31756 8"_s);
        row("analog", Reply(21, QByteArray(9, '\0') + "\1\2\3"), u"analog 2 770"_s);
        row("lengths that are none", Raw::Header(7, 4) + Raw::Header(-1, 1) + "**00x20!" + Ack(), u"ack"_s);
        row("longer than its record",
            Reply(1, QByteArray(2, '\0') + Raw::I16(9) + QByteArray(32755, 'x')) + Ack(),
            u"error 9/30840 %1; hold refused; ack"_s.arg(QString(256, u'x')));
        row("text frames", Raw::TextFrame("RESULT \xE4") + Raw::TextFrame({}) + Ack(),
            u"text RESULT ä; text ; ack"_s);
        row("translator page", Page(8, 5, 40, 50, 0), u"translator page 5+30"_s);
        row("database page", Page(15, 3, 2, 5, 0), u"database page 3+2"_s);
        row("database global",
            Page(15, 0, 1, 7, 0,
                 QByteArray(17, '\0') + '\x09' + QByteArray(122, 'g') + "ok" + QByteArray(1122, '\0')),
            u"global 7 ok"_s);
    }

    void Replies() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, said);
        Recorder whole;
        QCOMPARE(whole.Play(bytes), said);
        QCOMPARE(whole.Sent(), QString());
        for (const int length : {1, 7, 9})
            QCOMPARE(InPieces(bytes, length), said);
    }

    void OverwriteAnswers() {
        struct Case {
            int owner;
            bool confirmed;
            int state;
            QString said;
        };
        for (const Case& c : {Case{0, false, 1, {}}, Case{6, false, 1, {}}, Case{7, false, 1, {}},
                              Case{0, true, 0, u"error 35/0 exists; hold refused"_s},
                              Case{6, true, 2, u"save 6"_s}, Case{7, true, 2, u"save 7"_s}}) {
            Recorder recorder;
            recorder.session.SaveOwner = SaveOwnerKind(c.owner);
            QCOMPARE(recorder.Play(Result(35, 0, "exists")), u"overwrite?"_s);
            recorder.session.AnswerOverwrite(recorder.asked, c.confirmed);
            QCOMPARE(recorder.Said(), c.said);
            QCOMPARE(int(recorder.session.SaveState), c.state);
        }
    }

    void ShortRepliesKeepWhatWasThere() {
        Recorder recorder;
        recorder.Play(Result(9, 7, "a long message"));
        QCOMPARE(recorder.Play(Reply(1, Result(5, 1, "the").sliced(8, 11))),
                 u"error 5/1 theong message; hold refused"_s);
        QCOMPARE(recorder.Play(Reply(1, Raw::Field({}, 3))), u"error 0/1 theong message; hold refused"_s);
        // Each type has a record of its own.
        QCOMPARE(recorder.Play(Reply(4, "1234tv")), u"code tv||"_s);
        QCOMPARE(recorder.Play(Page(6, 0, 2, 2, 0, Raw::Name("n0") + Raw::Name("n1")) +
                               Page(6, 0, 1, 2, 0, Raw::Name("x"))),
                 u"names 6: 2 = n0,n1; names 6: 2 = x,"_s);
    }

    void PendingOps_data() {
        QTest::addColumn<int>("pending");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("said");
        QTest::addColumn<int>("left");
        const QByteArray logs = Raw::Log("a") + Reply(23);
        const QString logged = u"log <a>; ack; "_s;
        for (const int kept : {0, 1, 3, 4})
            QTest::addRow("%d stays", kept)
                << kept << Ack() + Result(9, 0) << u"ack; error 9/0 ; hold refused"_s << kept;
        for (const int wait : {2, 5}) {
            QTest::addRow("%d, bare header", wait)
                << wait << logs + Ack() + Ack() << logged + u"wait ended; ack; ack"_s << 0;
            QTest::addRow("%d, result", wait) << wait << Result(4, 3) << u"wait ended; hold refused"_s << 0;
            QTest::addRow("%d, text frame", wait) << wait << Raw::TextFrame("x") << u"text x"_s << wait;
            QTest::addRow("%d, no header", wait) << wait << Raw::Header(0, 0) << QString() << wait;
        }
        for (const auto& [element, next] :
             {std::pair(6, u"translator next 12"_s), std::pair(7, u"database next 12"_s)}) {
            QTest::addRow("%d, bare header", element)
                << element << logs + Ack() + Ack() << logged + next + u"; ack"_s << 0;
            QTest::addRow("%d, payload instead", element) << element << Result(9, 9, "refused") + logs + Ack()
                                                          << next + u"; "_s + logged + u"ack"_s << 0;
            QTest::addRow("%d, code instead", element)
                << element << Raw::Received("d") + Ack() << next + u"; ack"_s << 0;
            QTest::addRow("%d, text frame", element)
                << element << Raw::TextFrame("x") << u"text x"_s << element;
        }
    }

    void PendingOps() {
        QFETCH(int, pending);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, said);
        QFETCH(int, left);
        Recorder recorder;
        recorder.session.PendingOp = Pending(pending);
        recorder.session.TransferIndex = 11;
        QCOMPARE(recorder.Play(bytes), said);
        QCOMPARE(int(recorder.session.PendingOp), left);
        QCOMPARE(recorder.session.TransferIndex, 11);
        for (const int length : {1, 7, 9})
            QCOMPARE(InPieces(bytes, length, Pending(pending)), said);
    }

    void FlagsOfResults() {
        Recorder recorder;
        for (const int detail : {2, 3}) {
            recorder.Play(Result(4, detail));
            QCOMPARE(recorder.session.LateLearnError, detail == 3);
        }
        QCOMPARE(recorder.Play(Raw::DatabaseStatus("100", "64K") + Raw::Received("F9") + Raw::Received("F0") +
                               Raw::Received("F0")),
                 u"memory 100 64K 1; database flash 0; translator flash 0"_s);
        recorder.Play(Raw::DatabaseStatus("100", "64K") + Raw::Received("F1"));
        QVERIFY(!recorder.session.FlashIsDatabase);
    }

    void DatabaseStatus() {
        struct Case {
            QByteArray usage;
            QByteArray size;
            bool fits;
        };
        for (const Case& c :
             {Case{"32767", "64K", true}, Case{" 32768 words", "64Kbyte", false}, Case{"65535", "128K", true},
              Case{"65536", "128K", false}, Case{"99999999999999999999", "128K", false},
              Case{"99999999", "256K", true}, Case{"99999999", " 64K", true}, Case{"-40000", "64K", true}}) {
            Recorder recorder;
            QVERIFY2(recorder.Play(Raw::DatabaseStatus(c.usage, c.size)).endsWith(c.fits ? u"1" : u"0"),
                     c.usage.constData());
            QCOMPARE(recorder.session.FlashIsDatabase, c.fits);
        }
    }

    void LogTexts() {
        Recorder recorder;
        const QByteArray text = "....abcdefgh";
        for (int length = 1; length < 12; ++length)
            QCOMPARE(recorder.Play(Reply(23, text.first(length))), QString());
        QCOMPARE(recorder.Play(Reply(23, text)), u"log <a>"_s); // the last byte that shows is at length - 8
        QCOMPARE(recorder.Play(Raw::Log(QByteArray("ab\0cd", 5))), u"log <ab>"_s);
        QCOMPARE(recorder.Play(Raw::Log("a\nb\r\n\xE4")), u"log <a\r\nb\r\r\nä>"_s);
        QCOMPARE(recorder.Play(Reply(23, QByteArray(32759, 'x'))), u"log <%1>"_s.arg(QString(32748, u'x')));
    }
};

SUITE(ReplyReaderTest);

#include "reply_reader_test.moc"
