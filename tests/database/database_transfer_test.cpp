#include "database/elements.h"
#include "database/lists.h"
#include "database/transfer.h"

#include "support/golden.h"
#include "translator/transfer_rig.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// A transfer and a list chain.
class Rig : public TransferRig {
public:
    Rig() {
        TellEnds(*transfer, &DatabaseTransfer::Ended);
        QObject::connect(&*transfer, &DatabaseTransfer::NamesUnknown, &tree, TellNames(u"unknown "_s));
        QObject::connect(&*transfer, &DatabaseTransfer::SettingsLoaded, &tree,
                         [this] { Tell(u"settings"_s); });
        QObject::connect(&lists, &DatabaseLists::RemotesListed, &tree, TellNames(u"remotes "_s));
        QObject::connect(&lists, &DatabaseLists::SetsListed, &tree, TellNames(u"sets "_s));
        for (const QString& remote : {u"amp"_s, u"tv"_s})
            DatabaseTree::AddRemote(tree, remote);
        for (const QString& command : {u"mute"_s, u"loud"_s})
            DatabaseTree::AddCommand(tree, u"amp"_s, command);
    }

    /// One marked remote and one marked command.
    void Mark() {
        DatabaseTree::SetTag(tree, u"Ramp"_s, DatabaseTree::DefaultRemoteTag.toString());
        DatabaseTree::SetTag(tree, u"Camp-mute"_s, ActionTag().Format());
    }

    std::optional<DatabaseTransfer> transfer{std::in_place, session, tree};
    DatabaseLists lists{session, tree};

    /// The marked nodes.
    QString Marked() const {
        QStringList keys;
        for (const auto& node : DatabaseTree::MarkedNodes(tree))
            keys += node.remote + node.command;
        return keys.join(u' ');
    }

private:
    std::function<void(const QStringList&)> TellNames(const QString& what) {
        return [this, what](const QStringList& names) { Tell(what + names.join(u',')); };
    }
};

QString ElementStep(int kind, int number) {
    return u"46 kind %1 number %2 amp/"_s.arg(kind).arg(number) + (kind == 8 ? u""_s : u"mute"_s);
}

QByteArray GlobalPage(int total, bool more) {
    return Raw::Page(15, 0, 1, total, more ? 1 : 0, Golden::DatabaseGlobal());
}

IRDBElementRecord Element(int kind, const QString& remote, const QString& command = {}) {
    IRDBElementRecord element;
    element.ElementKind = quint8(kind);
    element.remote = remote;
    element.command = command;
    return element;
}

QByteArray ElementPage(int offset, int total, bool more, const std::vector<IRDBElementRecord>& elements) {
    QByteArray bytes;
    for (const auto& element : elements)
        bytes += Encode(element);
    return Raw::Page(15, offset, int(elements.size()), total, more ? 1 : 0, bytes);
}

} // namespace

class DatabaseTransferTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void SaveStepByStep() {
        Rig rig;
        rig.Mark();
        QVERIFY(!rig.transfer->Save(u"  "_s, {}));
        rig.session.SaveState = SaveStateKind::Named;
        QVERIFY(rig.transfer->Save(u"one"_s, {}));
        QCOMPARE(rig.Steps(), u"46 global"_s);
        QCOMPARE(rig.session.SaveOwner, SaveOwnerKind::Database);
        // Only the log comes between; whatever else comes is the acknowledgement.
        QCOMPARE(rig.After(Raw::Log("stored")), u""_s);
        QCOMPARE(rig.After(Raw::Result(9, 0, "refused")), ElementStep(8, 1));
        QCOMPARE(rig.session.TransferIndex, 1);
        // What is changed now belongs to the next save.
        DatabaseTree::SetTag(rig.tree, u"Rtv"_s, DatabaseTree::DefaultRemoteTag.toString());
        rig.tree.Clear();
        for (int g = 0; g < 8; ++g)
            QCOMPARE(rig.After(Raw::Ack()), ElementStep(10 + g, 2 + g));
        QCOMPARE(rig.session.TransferIndex, 3);
        QCOMPARE(rig.After(Raw::Ack()), u"48 one/ 1"_s);
        QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged);
        QCOMPARE(rig.session.PendingOp, Pending::None);
        QCOMPARE(rig.After(Raw::Ack()), u"<Stored>"_s);
        emit rig.session.DatabaseElementTaken(1); // of nobody's element
        QCOMPARE(rig.After(Raw::Ack() + Raw::Ack()), u""_s);
    }

    void Overwriting() {
        Rig rig;
        rig.session.SaveState = SaveStateKind::Named;
        for (const bool mayReplace : {false, true}) {
            rig.transfer->Save(u"one"_s, {});
            QCOMPARE(rig.After(Raw::Ack() + Raw::Result(35, 0)), u"46 global; 48 one/ 1 <FileExists>"_s);
            rig.session.AnswerOverwrite(rig.asked, mayReplace);
            QCOMPARE(rig.Steps(), mayReplace ? u"46 global"_s : u""_s);
        }
        QCOMPARE(rig.After(Raw::Ack().repeated(2)), u"48 one/ 2 <Stored>"_s);
        rig.transfer->Save(u"two"_s, {});
        QCOMPARE(rig.After(Raw::Ack() + Raw::Result(7, 0)), u"46 global; 48 two/ 0 <Refused>"_s);
    }

    void Flashing() {
        const auto fits = Raw::DatabaseStatus("32767", "64K");
        for (const auto& [replies, steps] :
             {std::pair(fits + Raw::Received("F2"), u"<Flashed>"_s),
              {fits + Raw::Received("F0"), u"<FlashFailed>"_s},
              {Raw::DatabaseStatus("32768", "64K") + Raw::Received("F0"), u"<FlashFailed>"_s},
              {Raw::Result(9, 0), u"<Refused>"_s},
              {Raw::Ack() + Raw::Received("x") + Raw::Received("F1"), u""_s}}) {
            Rig rig;
            rig.transfer->Flash(0x0206, {});
            QCOMPARE(rig.After(Raw::Ack()), u"46 global; 47 / 518"_s);
            QCOMPARE(rig.After(replies), steps);
        }
    }

    /// The server falls silent in the middle of a command; a new save begins with the first element.
    void SilentServer() {
        Rig rig;
        rig.Mark();
        DatabaseTree::SetTag(rig.tree, u"Ramp"_s, {});
        for (const int answered : {3, 2}) {
            rig.transfer->Save(u"one"_s, {});
            QCOMPARE(rig.Steps(), u"46 global"_s);
            for (int g = 0; g < answered; ++g)
                QCOMPARE(rig.After(Raw::Ack()), ElementStep(10 + g, 1 + g));
        }
        // A load gives the save up, and its page isn't taken for an acknowledgement.
        rig.transfer->Load(u"three"_s);
        QVERIFY(rig.After(GlobalPage(1, false)).endsWith(u"Loaded>"));
        QCOMPARE(rig.After(Raw::Ack()), u""_s);
        // What a load brings that was given up for a flash has no effect.
        rig.transfer->Load(u"four"_s);
        rig.transfer->Flash(1, {});
        QCOMPARE(rig.After(Raw::Ack()), u"49 four/ 0; 46 global; 47 / 1"_s);
        QCOMPARE(rig.After(GlobalPage(1, false)), u""_s);
    }

    void ChainEndsWithTheObject() {
        Rig rig;
        rig.Mark();
        rig.transfer->Save(u"one"_s, {});
        QCOMPARE(rig.Steps(), u"46 global"_s);
        rig.transfer.reset();
        QCOMPARE(rig.After(Raw::Ack() + Raw::Result(35, 0)), u""_s);
        rig.session.AnswerOverwrite(rig.asked, true);
        QCOMPARE(rig.Steps(), u""_s);
    }

    void LoadStepByStep() {
        Rig rig;
        rig.Mark();
        rig.session.SaveState = SaveStateKind::Named;
        QVERIFY(!rig.transfer->Load(u" "_s));
        QVERIFY(rig.transfer->Load(u"one"_s));
        QCOMPARE(rig.Steps(), u"49 one/ 0"_s);
        QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged);
        QCOMPARE(rig.Marked(), u""_s);
        QCOMPARE(rig.After(GlobalPage(15, true)), u"49 / 1 <settings>"_s);
        std::vector<IRDBElementRecord> first{Element(8, u"tv"_s), Element(8, u"gone"_s)};
        first.insert(first.end(), 8, Element(10, u"amp"_s, u"gone"_s));
        first.push_back(Element(77, u"amp"_s, u"mute"_s));
        // What answers no request of the load does it no harm.
        QCOMPARE(rig.After(Raw::Ack() + Raw::Received("code") + Raw::Result(9, 0)), u"<Refused>"_s);
        QCOMPARE(rig.After(Raw::Result(9, 0) + ElementPage(1, 15, true, first)), u"49 / 12"_s);
        QCOMPARE(rig.After(ElementPage(1, 15, true, first)), u""_s); // the same once more
        QCOMPARE(
            rig.After(ElementPage(12, 15, false, {Element(10, u"amp"_s, u"loud"_s), Element(8, u"gone"_s)})),
            u"<unknown min-remote-0,min-remote-1,min-remote-2,min-remote-3,max-remote-0,max-remote-1,"
            "max-remote-2,max-remote-3,gone,amp / gone; Loaded>"_s);
        QCOMPARE(rig.After(ElementPage(14, 15, true, {Element(8, u"amp"_s)}) + GlobalPage(1, true)), u""_s);
        QCOMPARE(rig.Marked(), u"tv amploud"_s);

        rig.transfer->Load(u"two"_s);
        QCOMPARE(rig.After(ElementPage(0, 9, true, {})), u"49 two/ 0 <Loaded>"_s); // brings it no further
        QCOMPARE(rig.session.SaveState, SaveStateKind::Named);                     // it wasn't the whole file
        QCOMPARE(rig.Marked(), u""_s);
    }

    /// The answers to both come, one after the other; the tree is that of the second.
    void TwoLoadsInARow() {
        Rig rig;
        rig.transfer->Load(u"one"_s);
        rig.transfer->Load(u"two"_s);
        QCOMPARE(rig.After(GlobalPage(3, true)), u"49 one/ 0; 49 two/ 0; 49 / 1 <settings>"_s);
        QCOMPARE(rig.After(GlobalPage(3, true)), u"49 / 1 <settings>"_s);
        const auto page = ElementPage(1, 3, true, {Element(8, u"amp"_s)});
        QCOMPARE(rig.After(page), u"49 / 2"_s);
        QCOMPARE(rig.After(page + GlobalPage(3, true)), u""_s);
        QVERIFY(rig.After(ElementPage(2, 3, false, {Element(8, u"tv"_s)})).endsWith(u"Loaded>"));
        QCOMPARE(rig.Marked(), u"amp tv"_s);
    }

    void LostLink() {
        Rig rig;
        using State = DatabaseTransfer::State;
        rig.Mark();
        rig.transfer->Save(u"one"_s, {});
        QCOMPARE(rig.Steps(), u"46 global"_s);
        rig.Reconnect([&] {
            QCOMPARE(rig.session.PendingOp, Pending::None);
            // A load that can't be asked for costs nobody his marks.
            rig.transfer->Load(u"one"_s);
            rig.transfer->Flash(0, {});
            QCOMPARE(rig.Marked(), u"amp ampmute"_s);
            QCOMPARE(rig.transfer->Current(), State::Idle);
        });
        QCOMPARE(rig.Steps(), u"<LinkLost; LinkLost; LinkLost>"_s);
        rig.transfer->Save(u"one"_s, {});
        rig.After(Raw::Ack().repeated(10));
        // A file isn't replaced unasked while nobody knows what it holds.
        for (const State state : {State::StoreOut, State::Loading}) {
            QCOMPARE(rig.transfer->Current(), state);
            QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged);
            rig.Reconnect([&] { QCOMPARE(rig.session.SaveState, SaveStateKind::Named); });
            rig.transfer->Load(u"one"_s);
        }
        rig.transfer->Save(u"one"_s, {}); // before anything was loaded
        QCOMPARE(rig.session.SaveState, SaveStateKind::Named);
    }

    void ListsFillTheTree() {
        Rig rig;
        rig.lists.Start();
        const auto remotes = Raw::Page(6, 0, 3, 3, 0, Raw::Name(" tv ") + Raw::Name("amp") + Raw::Name("tv"));
        const auto commands = Raw::Page(7, 0, 2, 2, 0, Raw::Command("on ") + Raw::Command("off"));
        const auto sets = Raw::Page(17, 0, 1, 1, 0, Raw::Name(" one"));
        QCOMPARE(rig.After(commands), u"18 / 0"_s); // of an earlier dialog
        QCOMPARE(rig.After(remotes), u"19 tv/ 0 <remotes tv,amp,tv>"_s);
        QCOMPARE(rig.After(remotes + commands), u"19 amp/ 0"_s);
        // An error doesn't say whose it is. The next request's answer does: none came for this remote.
        QCOMPARE(rig.After(Raw::Result(9, 0) + Raw::Result(9, 0)), u"52 / 0"_s);
        QCOMPARE(rig.After(sets), u"19 tv/ 0"_s);
        // Somebody else's error: the answer comes all the same.
        QCOMPARE(rig.After(Raw::Result(9, 0) + commands), u"52 / 0"_s);
        QCOMPARE(rig.After(sets + sets), u"52 / 0 <sets one>"_s);
        QCOMPARE(rig.lists.Current(), DatabaseLists::State::Idle);
        QStringList keys;
        for (int i = 0; i < rig.tree.Count(); ++i)
            keys += rig.tree.At(i).Key();
        QCOMPARE(keys.join(u' '), u"Rtv Ramp Ctv-on Ctv-off"_s);
    }

    void ListsOfAServerWithoutRemotes() {
        Rig rig;
        for (const QByteArray& reply : {Raw::Page(6, 0, 0, 0, 0), Raw::Result(9, 0)}) {
            rig.lists.Start();
            QVERIFY(rig.After(reply).startsWith(u"18 / 0; 52 / 0"));
        }
        const auto sets = Raw::Page(17, 0, 0, 0, 0);
        QCOMPARE(rig.After(sets + sets), u"52 / 0 <sets >"_s);
    }

    /// A save that starts too early takes an answer of the lists for its acknowledgement.
    void ListsRecoverFromASave() {
        Rig rig;
        rig.lists.Start();
        rig.After(Raw::Page(6, 0, 1, 1, 0, Raw::Name("tv")));
        rig.transfer->Save(u"one"_s, {});
        const auto commands = Raw::Page(7, 0, 1, 1, 0, Raw::Command("on"));
        QCOMPARE(rig.After(commands + Raw::Ack()), u"46 global; 48 one/ 0 <Stored>"_s);
        const auto sets = Raw::Page(17, 0, 0, 0, 0);
        rig.lists.Recover();
        QCOMPARE(rig.After(sets), u"52 / 0; 19 tv/ 0"_s);
        // Here nothing was swallowed.
        rig.lists.Recover();
        QCOMPARE(rig.After(commands + sets), u"52 / 0; 52 / 0"_s);
        rig.lists.Recover();
        QCOMPARE(rig.After(sets), u"52 / 0 <sets >"_s);
        QCOMPARE(rig.tree.Count(), 2);
    }
};

SUITE(DatabaseTransferTest);

#include "database_transfer_test.moc"
