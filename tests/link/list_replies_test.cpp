#include "link/session_recorder.h"

using namespace Qt::StringLiterals;
using Raw::Page;

namespace {

QByteArray Names(int first, int count) {
    QByteArray names;
    for (int i = first; i < first + count; ++i)
        names += Raw::Name("n" + QByteArray::number(i));
    return names;
}

} // namespace

class ListRepliesTest : public QObject {
    Q_OBJECT

private slots:
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

SUITE(ListRepliesTest);

#include "list_replies_test.moc"
