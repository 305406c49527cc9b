#include "link/session_recorder.h"

#include "support/fake_server.h"
#include "support/golden.h"
#include "support/suite.h"

using namespace Qt::StringLiterals;

/// What replies mean doesn't hang on how their bytes come in.
class PiecesTest : public QObject {
    Q_OBJECT

    struct Case {
        QByteArray frame;
        int pending = 0;
        int listOwner = 0;
        int saveOwner = 0;
    };

    static std::vector<Case> Cases() {
        using namespace Golden;
        const QHash<int, QByteArray> payloads = {{1, Result()},
                                                 {2, LearnedData()},
                                                 {4, Received()},
                                                 {5, LearnState()},
                                                 {6, NamesPage()},
                                                 {7, CommandsPage()},
                                                 {8, TranslatorPage()},
                                                 {9, QByteArray(8, 'x')},
                                                 {13, ServerVersion()},
                                                 {16, NamesPage()},
                                                 {17, NamesPage()},
                                                 {15, DatabaseElementPage()},
                                                 {18, BusesPage()},
                                                 {20, DatabaseStatus()},
                                                 {21, AnalogDegrees()},
                                                 {23, "1234a\n765432"},
                                                 {24, StatusPage().first(99)},
                                                 {3, "x"},
                                                 {25, "x"},
                                                 {-1, "x"}};
        const QByteArray firstNames = Raw::Page(6, 0, 1, 2, 1, Raw::Name("n"));
        std::vector<Case> cases = {{Raw::Reply(24, StatusPage())}, {firstNames}};
        for (int pending = 0; pending <= int(Pending::DatabaseElement); ++pending) {
            for (auto each = payloads.cbegin(); each != payloads.cend(); ++each) {
                cases.push_back({Raw::Reply(each.key(), *each), pending});
                cases.push_back({Raw::Reply(each.key()), pending});
            }
            cases.push_back({Raw::TextFrame("RESULT \xE4"), pending});
            cases.push_back({Raw::Page(15, 0, 1, 7, 1, DatabaseGlobal()), pending});
        }
        for (const int owner : {1, 2, 3, 4, 8, 16, 32})
            for (const QByteArray& elements : {Raw::Command("c"), Raw::Command("c") + Raw::Command("d")})
                cases.push_back(
                    {Raw::Page(7, 0, int(elements.size()) / 20, 2, 1, elements) + firstNames, 0, owner});
        for (const int owner : {0, 6, 7})
            cases.push_back({Raw::Result(35, 0, "there"), 0, 0, owner});
        for (const auto& [code, detail] : {std::pair(28, 7), std::pair(38, 256), std::pair(4, 3)})
            cases.push_back({Raw::Result(code, detail, "t")});
        for (const char* outcome : {"F0", "F1", "F2", "F9"})
            cases.push_back({Raw::DatabaseStatus("1", "64K") + Raw::Received(outcome)});
        return cases;
    }

private slots:
    void AnyPiecesGiveTheSameTrace() {
        Session session;
        SessionTrace trace(session);
        QByteArray kept;
        const auto keep = [&](const auto& page) {
            for (const auto& element : page.elements)
                kept += Encode(element);
        };
        connect(&session, &Session::TranslatorPageReceived, &session, keep);
        connect(&session, &Session::DatabasePageReceived, &session, keep);
        connect(&session, &Session::DatabaseGlobalReceived, &session,
                [&](const PageHead&, const IRDBGlobalRecord& global) { kept += Encode(global); });
        connect(&session, &Session::StatusReceived, &session, [&](QByteArrayView page) { kept += page; });
        connect(&session, &Session::SendFailed, &session, [&] { kept += "asks"; }); // for the next page
        connect(&session, &Session::OverwriteAsked, &session,
                [&](const ResultReply& result) { session.AnswerOverwrite(result, true); });

        for (const Case& each : Cases()) {
            const auto tell = [&](const QByteArrayList& pieces) {
                session.PendingOp = Pending(each.pending);
                session.ListOwner = each.listOwner;
                session.SaveOwner = SaveOwnerKind(each.saveOwner);
                session.SaveState = {};
                session.LateLearnError = session.FlashIsDatabase = false;
                session.CommandList1 = session.CommandList2 = session.CommandList3 = session.NameList = {};
                session.BusList.clear();
                kept.clear();
                ReplyReader reader(session);
                for (const QByteArray& piece : pieces) {
                    // Memory of its own, so that a look at a piece that is gone shows.
                    const QByteArray bytes(piece.constData(), piece.size());
                    for (QByteArrayView input = bytes; !input.isEmpty();)
                        reader.Read(input);
                }
                const QStringList lists =
                    session.NameList + session.CommandList1 + session.CommandList2 + session.CommandList3;
                return u"%1; %2 %3 %4 %5 %6 %7 %8"_s.arg(trace.Said(), lists.join(u','))
                    .arg(session.BusList.size())
                    .arg(int(session.PendingOp))
                    .arg(int(session.SaveState))
                    .arg(session.LateLearnError)
                    .arg(session.FlashIsDatabase)
                    .arg(qHash(kept));
            };
            const QByteArray next = "*4**" + Raw::Reply(1).sliced(4) + Raw::TextFrame("t");
            const QByteArray stream = each.frame + next;
            const QString whole = tell({stream});
            QVERIFY2(whole.contains(u"text t; "), qPrintable(whole));
            QByteArrayList bytes;
            for (qsizetype cut = 0; cut < stream.size(); ++cut) {
                bytes += stream.sliced(cut, 1);
                if (const QString told = tell({stream.first(cut), stream.sliced(cut)}); told != whole)
                    QFAIL(qPrintable(u"cut at %1: %2\nnot %3"_s.arg(cut).arg(told, whole)));
            }
            QCOMPARE(tell(bytes), whole);
        }
    }
};

SUITE(PiecesTest);

#include "pieces_test.moc"
