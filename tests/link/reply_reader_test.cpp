#include "link/session_recorder.h"

using namespace Qt::StringLiterals;
using Raw::Ack;
using Raw::Page;
using Raw::Reply;
using Raw::Result;

namespace {

QByteArray Names(int first, int count) {
    QByteArray names;
    for (int i = first; i < first + count; ++i)
        names += Raw::Name("n" + QByteArray::number(i));
    return names;
}

} // namespace

class ReplyReaderTest : public QObject {
    Q_OBJECT

private slots:
    void Replies() {
        const std::pair<QByteArray, QString> rows[] = {
            {Ack(), u"ack"_s},
            {Reply(23) + Reply(1) + Reply(99), u"ack; ack; ack"_s},
            {Result(28, 0) + Result(38, 256) + Result(28, -1) + Result(38, 257), u"check 0 0; check 256 1"_s},
            {Result(4, 2, "x\xFC") + Result(4, 3, "x"), u"error 4/2 xü; hold refused; hold refused"_s},
            {Result(35, 0, "z"), u"overwrite?"_s},
            {Reply(1, QByteArray(1, '\0')), u"error 0/0 ; hold refused"_s},
            {Raw::Received("data", "tv", "on"), u"code tv|on|data"_s},
            {Raw::Received("F1") + Raw::Received("F2") + Raw::Received("F0") + Raw::Received("F9") +
                 Raw::Received("F"),
             u"translator flash 1; database flash 1; translator flash 0"_s},
            {Reply(5, QByteArray("\0\0\3\46amp\0", 8)), u"learn amp 3 38 kHz 0/0 "_s},
            {Reply(9, QByteArray(8, 'x')) + Reply(2, QByteArray(208, 'x')), QString()},
            {Reply(13, QByteArray(8, 'x') + QByteArray("2.17\0xx", 7)), u"version 2.17"_s},
            {Reply(0, "x") + Reply(3, "x") + Reply(25, "x") + Reply(-1, "x") + Reply(32767, "x"), QString()},
            {Reply(24, QByteArray("\0\0\10\20", 4)), u"status 31756 8"_s},
            {Reply(21, QByteArray(9, '\0') + "\1\2\3"), u"analog 2 770"_s},
            {Raw::Header(7, 4) + Raw::Header(-1, 1) + "**00x20!" + Ack(), u"ack"_s},
            {Reply(1, QByteArray(2, '\0') + Raw::I16(9) + QByteArray(32755, 'x')) + Ack(),
             u"error 9/30840 %1; hold refused; ack"_s.arg(QString(256, u'x'))},
            {Raw::TextFrame("RESULT \xE4") + Raw::TextFrame({}) + Ack(), u"text RESULT ä; text ; ack"_s},
            {Page(8, 5, 40, 50, 0), u"translator page 5+30"_s},
            {Page(15, 3, 2, 5, 0), u"database page 3+2"_s},
            {Page(15, 0, 1, 7, 0,
                  QByteArray(17, '\0') + '\x09' + QByteArray(122, 'g') + "ok" + QByteArray(1122, '\0')),
             u"global 7 ok"_s},
        };
        for (const auto& [bytes, said] : rows) {
            Recorder recorder;
            QCOMPARE(recorder.Play(bytes), said);
            QCOMPARE(recorder.Sent(), QString());
        }
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

    void PendingOps() {
        struct Case {
            int pending;
            QByteArray bytes;
            QString said;
            int left;
        };
        std::vector<Case> cases;
        const QByteArray logs = Raw::Log("a") + Reply(23);
        const QString logged = u"log <a>; ack; "_s;
        for (const int kept : {0, 1, 3, 4})
            cases.push_back({kept, Ack() + Result(9, 0), u"ack; error 9/0 ; hold refused"_s, kept});
        for (const int wait : {2, 5}) {
            cases.push_back({wait, logs + Ack() + Ack(), logged + u"wait ended; ack; ack"_s, 0});
            cases.push_back({wait, Result(4, 3), u"wait ended; hold refused"_s, 0});
        }
        for (const auto& [element, next] :
             {std::pair(6, u"translator next 12"_s), {7, u"database next 12"_s}}) {
            cases.push_back({element, logs + Ack() + Ack(), logged + next + u"; ack"_s, 0});
            cases.push_back(
                {element, Result(9, 9, "no") + logs + Ack(), next + u"; "_s + logged + u"ack"_s, 0});
            cases.push_back({element, Raw::Received("d") + Ack(), next + u"; ack"_s, 0});
        }
        for (const int waits : {2, 5, 6, 7})
            cases.push_back({waits, Raw::Header(0, 0) + Raw::TextFrame("x"), u"text x"_s, waits});
        for (const auto& [pending, bytes, said, left] : cases) {
            Recorder recorder;
            recorder.session.PendingOp = Pending(pending);
            recorder.session.TransferIndex = 11;
            QCOMPARE(recorder.Play(bytes), said);
            QCOMPARE(int(recorder.session.PendingOp), left);
            QCOMPARE(recorder.session.TransferIndex, 11);
        }
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

    void NameLists() {
        for (const auto& [type, request] : {std::pair(6, 18), std::pair(16, 51), std::pair(17, 52)}) {
            const QString ready = u"names %1: "_s.arg(type);
            Recorder recorder;
            QCOMPARE(recorder.Play(Page(type, 0, 40, 43, 1, Names(0, 40))), QString());
            QCOMPARE(recorder.Sent(), u"%1 / 40"_s.arg(request));
            QCOMPARE(recorder.Play(Page(type, 40, 2, 43, 1, Names(40, 2))), QString());
            QCOMPARE(recorder.Sent(), u"%1 / 42"_s.arg(request));
            QVERIFY(
                recorder.Play(Page(type, 42, 1, 43, 0, Names(42, 1))).startsWith(ready + u"43 = n0,n1"_s));
            QCOMPARE(recorder.session.NameList.last(), u"n42"_s);
            QCOMPARE(recorder.Sent(), QString());

            QCOMPARE(recorder.Play(Page(type, 0, 0, 0, 0)), ready + u"0 = "_s);
            QCOMPARE(recorder.Play(Page(type, 0, 2, 3, 0, Names(0, 2))), ready + u"3 = n0,n1,"_s);
        }
    }

    /// Pages that no sound server sends: nothing is written outside the list, and no request goes round and
    /// round.
    void UnsoundPages() {
        struct Case {
            int offset, count, total, more;
            QString list;
        };
        for (const Case& c :
             {Case{0, 0, 2, 1, u"2 = ,"_s}, Case{1, 0, 9, 1, u"1 = old"_s}, Case{0, 2, 2, 1, u"2 = n0,n1"_s},
              Case{0, 40, 2, 0, u"2 = n0,n1"_s}, Case{0, 32767, 1, 1, u"1 = n0"_s},
              Case{0, -1, 1, 1, u"1 = "_s}, Case{0, 1, -1, 0, u"0 = "_s}, Case{-1, 2, 2, 1, u"1 = n1"_s},
              Case{5, 1, 9, 0, u"1 = old"_s}, Case{32767, 40, 32767, 1, u"1 = old"_s}}) {
            Recorder recorder;
            recorder.Play(Page(6, 0, 1, 1, 0, Raw::Name("old")));
            QCOMPARE(recorder.Play(Page(6, c.offset, c.count, c.total, c.more, Names(0, 40))),
                     u"names 6: "_s + c.list);
            QCOMPARE(recorder.Sent(), QString());
        }
    }

    void TheTranslatorsListIsFollowedByItsSets() {
        Recorder recorder;
        for (const int owner : {2, 3, 7, 19}) {
            recorder.session.ListOwner = owner;
            recorder.Play(Page(6, 0, 1, 1, 0, Names(0, 1)));
            QCOMPARE(recorder.Sent(), owner == 3 ? u"51 / 0"_s : QString());
            recorder.Play(Page(16, 0, 1, 1, 0, Names(0, 1)));
            QCOMPARE(recorder.Sent(), QString());
        }
    }

    void BusLists() {
        Recorder recorder;
        QCOMPARE(recorder.Play(Page(18, 0, 1, 2, 1, Raw::Bus("one"))), QString());
        QCOMPARE(recorder.Sent(), u"53 / 1"_s);
        QCOMPARE(recorder.Play(Page(18, 1, 1, 2, 0, Raw::Bus("two"))), u"buses: 2 = one,two"_s);
        QCOMPARE(recorder.Play(Page(18, 0, 0, 0, 0)), u"buses: 0 = "_s);
        QCOMPARE(recorder.Sent(), QString());
    }

    void CommandLists() {
        const std::pair<int, QString> cases[] = {{0, {}},
                                                 {1, u"commands 1: a,b//"_s},
                                                 {2, u"commands 2: /a,b/"_s},
                                                 {3, u"commands 1: a,b/a,b/; commands 2: a,b/a,b/"_s},
                                                 {8, u"commands 8: //a,b"_s},
                                                 {16, u"commands 16: a,b//"_s},
                                                 {32, u"commands 32: a,b//"_s},
                                                 {4, {}}};
        for (const auto& [owner, said] : cases) {
            Recorder recorder;
            recorder.session.ListOwner = owner;
            recorder.session.FreeSendRemote = u"amp"_s;
            QCOMPARE(recorder.Play(Page(7, 0, 1, 2, 1, Raw::Command("a"))), QString());
            QCOMPARE(recorder.Sent(), owner == 8 ? u"19 amp/ 1"_s : u"19 / 1"_s);
            QCOMPARE(recorder.Play(Page(7, 1, 1, 2, 0, Raw::Command("b"))), said);
            QCOMPARE(recorder.Sent(), QString());
            recorder.Play(Page(7, 0, 0, 0, 0));
            QVERIFY(recorder.session.CommandList1.isEmpty() && recorder.session.CommandList2.isEmpty() &&
                    recorder.session.CommandList3.isEmpty());
        }
    }
};

SUITE(ReplyReaderTest);

#include "reply_reader_test.moc"
