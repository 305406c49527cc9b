#include "database/elements.h"
#include "database/lists.h"
#include "database/transfer.h"

#include "support/golden.h"
#include "translator/transfer_rig.h"

using namespace Qt::StringLiterals;

namespace {

/// A transfer and a list chain.
class Rig : public TransferRig {
public:
    Rig() {
        TellEnds(*transfer, &DatabaseTransfer::Ended);
        QObject::connect(&*transfer, &DatabaseTransfer::NamesUnknown, &tree,
                         [this](const QStringList& names) {
                             QStringList others = names;
                             others.removeIf([](const QString& name) { return name.contains(u"-remote-"); });
                             Tell(u"unknown %1: "_s.arg(names.size()) + others.join(u", "));
                         });
        QObject::connect(&*transfer, &DatabaseTransfer::SettingsLoaded, &tree,
                         [this] { Tell(u"settings"_s); });
        QObject::connect(&lists, &DatabaseLists::RemotesListed, &tree, TellNames(u"remotes "_s));
        QObject::connect(&lists, &DatabaseLists::SetsListed, &tree, TellNames(u"sets "_s));
        for (const QString& remote : {u"amp"_s, u"tv"_s})
            DatabaseTree::AddRemote(tree, remote);
        for (const QString& command : {u"mute"_s, u"loud"_s})
            DatabaseTree::AddCommand(tree, u"amp"_s, command);
    }

    std::optional<DatabaseTransfer> transfer{std::in_place, session, tree};
    DatabaseLists lists{session, tree};

private:
    std::function<void(const QStringList&)> TellNames(const QString& what) {
        return [this, what](const QStringList& names) { Tell(what + names.join(u',')); };
    }

    QByteArray Reply(const QString& word, const QStringList& arguments) const override {
        const int list = word == u"remotes" ? 6 : word == u"commands" ? 7 : word == u"sets" ? 17 : 0;
        if (list != 0) {
            QByteArray names;
            const int count = arguments == QStringList{{}} ? 0 : int(arguments.size());
            for (const QString& name : arguments.first(count))
                names += word == u"commands" ? Raw::Command(name.toLatin1()) : Raw::Name(name.toLatin1());
            return Raw::Page(list, 0, count, count, 0, names);
        }
        if (word == u"memory")
            return Raw::DatabaseStatus(arguments[0].toLatin1(), "64K");
        const bool more = arguments.last() == u"+";
        if (word == u"global")
            return Raw::Page(15, 0, 1, arguments[0].toInt(), more ? 1 : 0, Golden::DatabaseGlobal());
        if (word != u"page")
            return TransferRig::Reply(word, arguments);
        QByteArray elements;
        int count = 0;
        for (const QString& each : arguments.sliced(2, arguments.size() - (more ? 3 : 2))) {
            IRDBElementRecord element;
            element.ElementKind = quint8(each.section(u'/', 0, 0).toInt());
            element.remote = each.section(u'/', 1, 1);
            element.command = each.section(u'/', 2);
            elements += Encode(element);
            ++count;
        }
        return Raw::Page(15, arguments[0].toInt(), count, arguments[1].toInt(), more ? 1 : 0, elements);
    }
    void Do(const QString& word, const QString& argument) override {
        if (word == u"save")
            Expect(transfer->Save(argument, {}), argument);
        else if (word == u"load")
            Expect(transfer->Load(argument), argument);
        else if (word == u"flash")
            transfer->Flash(argument.toInt(), {});
        else if (word == u"start")
            lists.Start();
        else if (word == u"recover")
            lists.Recover();
        else if (word == u"mark")
            DatabaseTree::SetTag(tree, argument,
                                 argument[0] == u'R' ? DatabaseTree::DefaultRemoteTag.toString()
                                                     : ActionTag().Format());
        else if (word == u"clear")
            tree.Clear();
        else if (word == u"taken")
            emit session.DatabaseElementTaken(1);
        else if (word == u"waits")
            Tell(u"op %1 index %2"_s.arg(int(session.PendingOp)).arg(session.TransferIndex));
        else if (word == u"tree")
            TellTree();
        else
            TransferRig::Do(word, argument);
    }
    static void Expect(bool begins, const QString& name) { QCOMPARE(begins, !name.trimmed().isEmpty()); }
    void TellTree() {
        QStringList keys;
        for (int i = 0; i < tree.Count(); ++i)
            keys += tree.At(i).Key() + (tree.At(i).Tag().isEmpty() ? u""_s : u"!"_s);
        Tell(keys.join(u' '));
    }
};

/// "mark" gives a node its tag, "tree" tells the keys with an exclamation mark behind marked ones, and
/// "waits" what is awaited of the server. A page has offset, total, elements as kind, remote and command, and
/// a plus if more follow. Of unknown names those of the settings are only counted.
const QString Scripts = uR"(# saves step by step
save:__ |
mark:Ramp mark:Camp-mute save:one | 46 global
// Only the log comes between; whatever else comes is the acknowledgement.
log |
error waits | 46 kind 8 number 1 amp/ <op 7 index 1>
// What is changed now belongs to the next save.
mark:Rtv clear ack*2 | 46 kind 10 number 2 amp/mute; 46 kind 11 number 3 amp/mute
ack*3 | 46 kind 12 number 4 amp/mute; 46 kind 13 number 5 amp/mute; 46 kind 14 number 6 amp/mute
ack*3 | 46 kind 15 number 7 amp/mute; 46 kind 16 number 8 amp/mute; 46 kind 17 number 9 amp/mute
waits ack waits state | 48 one/ 1 <op 7 index 3; op 0 index 3; state 0>
ack | <Stored>
taken ack*2 |

# asks before it replaces a file
save:one ack exists | 46 global; 48 one/ 1 <FileExists>
no |
save:one ack exists | 46 global; 48 one/ 1 <FileExists>
yes ack*2 | 46 global; 48 one/ 2 <Stored>
save:two ack exists | 46 global; 48 two/ 0 <FileExists>
save:two ack error | 46 global; 48 two/ 0 <Refused>

# flashes
flash:518 ack memory:32767 code:F2 | 46 global; 47 / 518 <Flashed>
flash:518 ack memory:32767 code:F0 | 46 global; 47 / 518 <FlashFailed>
flash:518 ack memory:32768 code:F0 | 46 global; 47 / 518 <FlashFailed>
flash:518 ack error | 46 global; 47 / 518 <Refused>
flash:518 ack*2 code:x code:F1 | 46 global; 47 / 518

# the server falls silent in the middle of a command; a new save begins with the first element
mark:Camp-mute save:one ack*2 | 46 global; 46 kind 10 number 1 amp/mute; 46 kind 11 number 2 amp/mute
save:two ack*2 | 46 global; 46 kind 10 number 1 amp/mute; 46 kind 11 number 2 amp/mute
// A load gives the save up, and its page isn't taken for an acknowledgement.
load:three ack | 49 three/ 0
// What a load brings that was given up for a flash has no effect.
flash:1 ack global:1 | 46 global; 47 / 1

# loads step by step
load:_ |
mark:Rtv load:one state tree | 49 one/ 0 <state 0; Ramp Rtv Camp-mute Camp-loud>
global:9,+ | 49 / 1 <settings>
// What answers no request of the load does it no harm.
ack code:x error | <Refused>
error page:1,9,8/tv,8/gone,10/amp/gone,17/amp/gone,77/amp/mute,+ | 49 / 6
// The same once more.
page:1,9,8/tv,8/gone,10/amp/gone,17/amp/gone,77/amp/mute,+ |
page:6,9,10/amp/loud,8/gone | <unknown 10: gone, amp / gone; Loaded>
page:8,9,8/amp,+ global:1,+ tree | <Ramp Rtv! Camp-mute Camp-loud!>
// One that brings it no further: it wasn't the whole file.
load:two page:0,9,+ state tree | 49 two/ 0 <Loaded; state 1; Ramp Rtv Camp-mute Camp-loud>

# two loads in a row: the answers come one after the other, and the tree is that of the second
load:one load:two global:3,+ | 49 one/ 0; 49 two/ 0; 49 / 1 <settings>
global:3,+ page:2,3,8/tv | 49 / 1 <settings>
page:1,3,8/amp,+ | 49 / 2
page:1,3,8/amp,+ global:3,+ |
page:2,3,8/tv tree | <unknown 8: ; Loaded; Ramp! Rtv! Camp-mute Camp-loud>

# the lists fill the tree
// The first answer is of an earlier dialog.
start commands:on_,off | 18 / 0
remotes:_tv_,_,amp,tv | 19 tv/ 0 <remotes tv,,amp,tv>
remotes:_tv_,_,amp,tv commands:on_,off | 19 amp/ 0
// An error doesn't say whose it is. The next request's answer does: none came for this remote.
error*2 | 52 / 0
sets:_one | 19 tv/ 0
// Somebody else's error: the answer comes all the same.
error commands:on_,off | 52 / 0
sets:_one*2 tree | 52 / 0 <sets one; Rtv R Ramp Ctv-on Ctv-off>

# the lists of a server without remotes
start remotes: | 18 / 0; 52 / 0 <remotes >
start error | 18 / 0; 52 / 0
sets:*2 | 52 / 0 <sets >

# a save that starts too early takes an answer of the lists for its acknowledgement
start remotes:tv | 18 / 0; 19 tv/ 0 <remotes tv>
save:one commands:on ack | 46 global; 48 one/ 1 <Stored>
recover sets: | 52 / 0; 19 tv/ 0
// Here nothing was swallowed.
recover commands:on sets: | 52 / 0; 52 / 0
recover sets: tree | 52 / 0 <sets ; Rtv Ctv-on>
)"_s;

} // namespace

class DatabaseTransferTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void Chains_data() { TransferRig::AddScripts(Scripts); }
    void Chains() {
        QFETCH(const QString, script);
        Rig rig;
        rig.session.SaveOwner = SaveOwnerKind::Translator;
        rig.session.SaveState = SaveStateKind::Named;
        rig.Run(script);
        QCOMPARE(rig.session.SaveOwner == SaveOwnerKind::Database, script.contains(u"save:"));
        QCOMPARE(rig.lists.Current(), DatabaseLists::State::Idle);
    }

    void EndsWithTheObject() {
        Rig rig;
        rig.Run(u"save:one | 46 global"_s);
        rig.transfer.reset();
        rig.Run(u"ack exists |\nyes |"_s);
    }

    void LostLink() {
        Rig rig;
        using State = DatabaseTransfer::State;
        rig.Run(u"mark:Ramp mark:Camp-mute save:one | 46 global"_s);
        rig.Reconnect([&] {
            QCOMPARE(rig.session.PendingOp, Pending::None);
            // A load that can't be asked for costs nobody his marks.
            rig.transfer->Load(u"one"_s);
            rig.transfer->Flash(0, {});
            rig.lists.Start();
            QCOMPARE(rig.lists.Current(), DatabaseLists::State::Idle);
            QCOMPARE(rig.transfer->Current(), State::Idle);
        });
        rig.Run(u"tree | <LinkLost; LinkLost; LinkLost; Ramp! Rtv Camp-mute! Camp-loud>"_s);
        rig.transfer->Save(u"one"_s, {});
        rig.Play(Raw::Ack().repeated(10));
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
};

SUITE(DatabaseTransferTest);

#include "database_transfer_test.moc"
