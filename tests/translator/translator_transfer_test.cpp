#include "translator/transfer_rig.h"
#include "translator/translator_transfer.h"

using namespace Qt::StringLiterals;

namespace {

/// A page of a stored set: a root named `root` if the page is the first one, then commands with the numbers
/// of their elements.
QByteArray Page(const QString& root, int offset, int count, int total, bool more) {
    QByteArray elements;
    for (int i = offset; i < offset + count; ++i) {
        TranslatorRequest element;
        element.ElementType = i == 0 ? 4 : 1;
        element.remote = i == 0 ? root : QString::number(i);
        element.IncludeNames = 1;
        elements += Encode(element);
    }
    return Raw::Page(8, offset, count, total, more ? 1 : 0, elements);
}

/// A tree of three nodes and its transfer.
class Rig : public TransferRig {
public:
    Rig() {
        ResetTranslatorTree(tree);
        for (const QString& command : {u"1"_s, u"2"_s})
            AddNode(tree, MakeReceived(TranslatorKind::Command, TranslatorRootKey, {u"tv"_s, command}));
        session.SaveState = SaveStateKind::Named;
        MakeTransfer();
    }

    void MakeTransfer() {
        using T = TranslatorTransfer;
        transfer = std::make_unique<T>(session, tree, nullptr);
        TellEnds(*transfer, &T::Ended);
        QObject::connect(transfer.get(), &T::Progress, &tree,
                         [this](int element, int total) { Tell(u"%1/%2"_s.arg(element).arg(total)); });
        QObject::connect(transfer.get(), &T::Refused, &tree, [this](const TranslatorRefusal& r) {
            Tell(u"refused %1 %2"_s.arg(r.reason).arg(r.count));
        });
        QObject::connect(transfer.get(), &T::IncludeNamesLoaded, &tree,
                         [this](bool names) { Tell(u"names %1"_s.arg(names)); });
    }

    std::unique_ptr<TranslatorTransfer> transfer;

private:
    QByteArray Reply(const QString& word, const QStringList& arguments) const override {
        if (word != u"page")
            return TransferRig::Reply(word, arguments);
        return Page(arguments[0], arguments[1].toInt(), arguments[2].toInt(), arguments[3].toInt(),
                    arguments.size() > 4);
    }
    void Do(const QString& word, const QString& argument) override {
        if (word == u"store")
            transfer->Store(argument, false);
        else if (word == u"flash")
            transfer->Flash(qint16(argument.toInt()), true);
        else if (word == u"load")
            transfer->Load(argument);
        else if (word == u"taken")
            emit session.TranslatorElementTaken(1);
        else if (word == u"runs")
            Tell(transfer->IsRunning() ? u"runs"_s : u"rests"_s);
        else if (word == u"cut")
            tree.Remove(tree.At(tree.Count() - 1).Key());
        else if (word == u"tree")
            Tell(Texts());
        else
            TransferRig::Do(word, argument);
    }
    QString Texts() const {
        QStringList texts;
        for (int i = 0; i < tree.Count(); ++i)
            texts += tree.At(i).Text();
        return texts.join(u' ');
    }
};

/// Each begins with a set that has a name, and with a save of the database as the last one. A page has the
/// name of its root, offset, count, total, and a plus if more follow.
const QString Scripts = uR"(# stores element by element
store:__ |
store:_set_ log | #0
log ack | #1 <1/3>
// A result in the place of an acknowledgement counts as one.
error | #2 <2/3>
ack state runs | 22 set/ 1 <3/3; state 0; runs>
ack runs | <Stored; rests>
ack |

# asks before it replaces a file
store:set ack*3 exists | #0; #1; #2; 22 set/ 1 <1/3; 2/3; 3/3; FileExists>
no state | <state 1>
store:set ack*3 exists | #0; #1; #2; 22 set/ 1 <1/3; 2/3; 3/3; FileExists>
// The whole set goes out again, as the tree is by then.
cut yes ack*3 state | #0; #1; 22 set/ 2 <1/2; 2/2; Stored; state 0>
// The confirmation of somebody else's save, or of one that nobody waits for, starts nothing.
confirm:1 |
store:set ack*2 exists | #0; #1; 22 set/ 0 <1/2; 2/2; FileExists>
confirm:2 |

# flashes
flash:515 code:F1 ack*2 | #0; #1; #2; 23 / 515 <1/3; 2/3; 3/3>
ack code:00 |
code:F1 | <Flashed>
flash:515 ack*3 code:F0 | #0; #1; #2; 23 / 515 <1/3; 2/3; 3/3; Failed>
flash:515 ack*3 code:F1 | #0; #1; #2; 23 / 515 <1/3; 2/3; 3/3; Flashed>

# a silent server blocks nothing
store:a ack | #0; #1 <1/3>
flash:7 | #0
store:b ack*4 | #0; #1; #2; 22 b/ 1 <1/3; 2/3; 3/3; Stored>
// Each store request uses the state up, whether it is answered or not.
state:2 store:c ack*3 | #0; #1; #2; 22 c/ 2 <1/3; 2/3; 3/3>
store:c ack*3 | #0; #1; #2; 22 c/ 0 <1/3; 2/3; 3/3>
// A load isn't taken for the acknowledgement that never came.
store:c load:_c ack page:C,0,2,2 tree | #0; 21 c/ 0 <2/2; names 1; Loaded; C 1.>

# late acknowledgements of a chain that was given up, and a question when the store seemed done
store:a store:b ack*4 | #0; #0; #1; #2; 22 b/ 1 <1/3; 2/3; 3/3; Stored>
exists | <FileExists>
yes ack*4 | #0; #1; #2; 22 b/ 2 <1/3; 2/3; 3/3; Stored>

# replies that nobody waits for
ack code:F1 exists error page:stray,0,3,3 page:,3,2,5,+ |
taken |
// A page in the middle of a store passes for the acknowledgement, as any reply does.
store:a page:stray,0,3,3 | #0; #1 <1/3>
ack*3 | #2; 22 a/ 1 <2/3; 3/3; Stored>
ack code:F0 |
// An error while the store is awaited ends it; what comes then is too late.
store:a ack*3 error ack | #0; #1; #2; 22 a/ 0 <1/3; 2/3; 3/3; Failed>
state:1 load:a ack error page:late,0,1,1 | 21 a/ 0 <Failed>
tree state | <Config tv.1 tv.2; state 0>

# loads page by page
load: load:a ack page:A,0,30,31,+ | 21 a/ 0; 21 / 30 <30/31>
// The tree stays until the set is complete.
tree page:,60,1,61 page:again,0,1,1 | <Config tv.1 tv.2>
page:,30,1,31 cut cut | <31/31; names 1; Loaded>
// Two loads at once: each first page is taken, the last one stays.
load:b load:c page:B,0,2,2 | 21 b/ 0; 21 c/ 0 <2/2; names 1; Loaded>
page:C,0,1,1 page:D,0,1,1 tree | <1/1; Loaded; C>
)"_s;

} // namespace

class TranslatorTransferTest : public QObject {
    Q_OBJECT

private slots:
    void Chains_data() { TransferRig::AddScripts(Scripts); }
    void Chains() {
        QFETCH(const QString, script);
        Rig rig;
        rig.session.SaveOwner = SaveOwnerKind::Database;
        rig.Run(script);
        QCOMPARE(rig.session.SaveOwner == SaveOwnerKind::Translator, script.contains(u"store:"));
    }

    void EndsWithTheObject() {
        Rig rig;
        rig.Run(u"store:a ack | #0; #1 <1/3>"_s);
        rig.transfer.reset();
        // A list that is asked for next isn't taken for the acknowledgement.
        rig.Play(Raw::Page(16, 0, 1, 1, 0, Raw::Name("set")));
        QCOMPARE(rig.session.NameList, QStringList{u"set"_s});
        rig.MakeTransfer();
        rig.Run(u"ack |"_s);
        // Whoever hears of the end may destroy it.
        connect(rig.transfer.get(), &TranslatorTransfer::Ended, this, [&rig] { rig.transfer.reset(); });
        rig.Run(u"load:b page:B,0,1,1 tree | 21 b/ 0 <1/1; Loaded; B>"_s);
        QVERIFY(!rig.transfer);
    }

    void EndsWithTheConnection() {
        Rig rig;
        rig.Run(u"store:a | #0"_s);
        rig.Reconnect([&] {
            QVERIFY(!rig.transfer->IsRunning());
            rig.transfer->Load(u"a"_s);
        });
        rig.Run(u"runs ack page:late,0,1,1 | <LinkLost; LinkLost; rests>\nstore:b ack | #0; #1 <1/3>"_s);
    }

    void SetsBeyondTheLimits() {
        Rig rig;
        for (int i = 3; i <= 1001; ++i)
            AddNode(rig.tree,
                    MakeReceived(TranslatorKind::Macro, TranslatorRootKey, {QString::number(i), {}, 100}));
        // After a load that was refused the tree isn't the set of that name.
        rig.Run(uR"(store:a flash:1 | <refused 0 1002; Refused; refused 0 1002; Refused>
load:a page:A,0,30,1002,+ state | 21 a/ 0 <refused 0 1002; Refused; state 1>
load:a page:A,0,0,0 state | 21 a/ 0 <refused 10 0; Refused; state 1>
load:a page:A,0,0,5,+ state | 21 a/ 0 <refused 11 0; Refused; state 1>)"_s);
        // A server that never comes to an end.
        rig.transfer->Load(u"a"_s);
        QString steps;
        for (int offset = 0; offset < 1020; offset += 30) {
            rig.Play(Page(u"A"_s, offset, 30, 30, true));
            steps = rig.Steps();
        }
        QCOMPARE(steps, u"<refused 0 1020; Refused>"_s);
        QCOMPARE(rig.tree.Count(), 1002);
    }

    void RefusalsNameWhat() {
        const Language language;
        QCOMPARE(RefusalText(language, {TranslatorRefusal::TooManyRemotes, 41, 40, 0, {}}),
                 u"Der Satz hat 41 Fernbedienungen. Höchstens 40 sind möglich."_s);
        QCOMPARE(RefusalText(language, {TranslatorRefusal::Twice, 0, 0, 12, u"%e 100%"_s}),
                 u"Element 12 des Satzes (%e 100%) ist doppelt."_s);
        QSet<QString> texts;
        for (int reason = 0; reason <= TranslatorRefusal::PagesMissing; ++reason)
            texts += RefusalText(language, {TranslatorRefusal::Reason(reason)});
        QCOMPARE(texts.size(), 12);
    }
};

SUITE(TranslatorTransferTest);

#include "translator_transfer_test.moc"
