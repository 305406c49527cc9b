#include "translator/transfer_rig.h"
#include "translator/translator_transfer.h"

using namespace Qt::StringLiterals;

namespace {

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

    QString Texts() const {
        QStringList texts;
        for (int i = 0; i < tree.Count(); ++i)
            texts += tree.At(i).Text();
        return texts.join(u' ');
    }

    std::unique_ptr<TranslatorTransfer> transfer;
};

/// The steps of a whole store or flash.
QString Whole(const QString& request, const QString& end) {
    return u"#0; #1; #2; "_s + request + u" <1/3; 2/3; 3/3"_s + end + u'>';
}

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

} // namespace

class TranslatorTransferTest : public QObject {
    Q_OBJECT

private slots:
    void StoresElementByElement() {
        Rig rig;
        rig.transfer->Store(u"  "_s, false);
        QCOMPARE(rig.Steps(), u""_s);
        rig.transfer->Store(u" set "_s, false);
        QCOMPARE(rig.After(Raw::Log("busy")), u"#0"_s);
        QCOMPARE(rig.After(Raw::Log("busy") + Raw::Ack()), u"#1 <1/3>"_s);
        // A result in the place of an acknowledgement counts as one.
        QCOMPARE(rig.After(Raw::Result(9, 0, "refused")), u"#2 <2/3>"_s);
        QCOMPARE(rig.After(Raw::Ack()), u"22 set/ 1 <3/3>"_s);
        QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged);
        QVERIFY(rig.transfer->IsRunning());
        QCOMPARE(rig.After(Raw::Ack()), u"<Stored>"_s);
        QVERIFY(!rig.transfer->IsRunning());
        QCOMPARE(rig.After(Raw::Ack()), u""_s);
    }

    void AsksBeforeItReplacesAFile() {
        Rig rig;
        for (const bool mayReplace : {false, true}) {
            rig.transfer->Store(u"set"_s, false);
            QCOMPARE(rig.After(Raw::Ack().repeated(3) + Raw::Result(35, 0)),
                     Whole(u"22 set/ 1"_s, u"; FileExists"_s));
            if (mayReplace)
                rig.tree.Remove(rig.tree.At(2).Key());
            rig.session.AnswerOverwrite(rig.asked, mayReplace);
            QCOMPARE(rig.session.SaveState, SaveStateKind(mayReplace ? 2 : 1));
            // The whole set goes out again, as the tree is by then.
            QCOMPARE(rig.Steps(), mayReplace ? u"#0"_s : u""_s);
        }
        QCOMPARE(rig.After(Raw::Ack().repeated(3)), u"#1; 22 set/ 2 <1/2; 2/2; Stored>"_s);
        QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged);

        // The confirmation of somebody else's save, or of one that nobody waits for, starts nothing.
        emit rig.session.SaveConfirmed(SaveOwnerKind::Translator);
        rig.transfer->Store(u"set"_s, false);
        rig.After(Raw::Ack().repeated(2) + Raw::Result(35, 0));
        emit rig.session.SaveConfirmed(SaveOwnerKind::Database);
        QCOMPARE(rig.Steps(), u""_s);
    }

    void Flashes() {
        Rig rig;
        rig.session.SaveOwner = SaveOwnerKind::Database;
        for (const bool ok : {true, false, true}) {
            rig.transfer->Flash(0x0203, true);
            QCOMPARE(rig.After(Raw::Received("F1") + Raw::Ack().repeated(2)), Whole(u"23 / 515"_s, {}));
            QCOMPARE(rig.After(Raw::Ack() + Raw::Received("00")), u""_s);
            QCOMPARE(rig.After(Raw::Received(ok ? "F1" : "F0")), ok ? u"<Flashed>"_s : u"<Failed>"_s);
        }
        QCOMPARE(rig.session.SaveOwner, SaveOwnerKind::Database);
    }

    void ASilentServerBlocksNothing() {
        Rig rig;
        rig.transfer->Store(u"a"_s, false);
        QCOMPARE(rig.After(Raw::Ack()), u"#0; #1 <1/3>"_s);
        rig.transfer->Flash(7, false);
        QCOMPARE(rig.Steps(), u"#0"_s);
        rig.transfer->Store(u"b"_s, false);
        QCOMPARE(rig.After(Raw::Ack().repeated(4)), Whole(u"22 b/ 1"_s, u"; Stored"_s));
        // Each store request uses the state up, whether it is answered or not.
        for (const int state : {2, 0}) {
            rig.session.SaveState = SaveStateKind(state);
            rig.transfer->Store(u"c"_s, false);
            QCOMPARE(rig.After(Raw::Ack().repeated(3)), Whole(u"22 c/ %1"_s.arg(state), {}));
        }
        // A load isn't taken for the acknowledgement that never came.
        rig.transfer->Store(u"c"_s, false);
        rig.transfer->Load(u" c"_s);
        QCOMPARE(rig.After(Raw::Ack() + Page(u"C"_s, 0, 2, 2, false)),
                 u"#0; 21 c/ 0 <2/2; names 1; Loaded>"_s);
        QCOMPARE(rig.Texts(), u"C 1."_s);
    }

    /// Acknowledgements of a chain that was given up come late, and the server asks when the store seemed
    /// done.
    void LateAcknowledgements() {
        Rig rig;
        rig.transfer->Store(u"a"_s, false);
        rig.transfer->Store(u"b"_s, false);
        QCOMPARE(rig.After(Raw::Ack().repeated(4)), u"#0; "_s + Whole(u"22 b/ 1"_s, u"; Stored"_s));
        QCOMPARE(rig.After(Raw::Result(35, 0)), u"<FileExists>"_s);
        rig.session.AnswerOverwrite(rig.asked, true);
        QCOMPARE(rig.After(Raw::Ack().repeated(4)), Whole(u"22 b/ 2"_s, u"; Stored"_s));
    }

    void RepliesThatNobodyWaitsFor() {
        Rig rig;
        const QString before = rig.Texts();
        QCOMPARE(rig.After(Raw::Ack() + Raw::Received("F1") + Raw::Result(35, 0) + Raw::Result(9, 0) +
                           Page(u"stray"_s, 0, 3, 3, false) + Page({}, 3, 2, 5, true)),
                 u""_s);
        emit rig.session.TranslatorElementTaken(1);
        QCOMPARE(rig.Steps(), u""_s);
        // A page in the middle of a store passes for the acknowledgement, as any reply does.
        rig.transfer->Store(u"a"_s, false);
        QCOMPARE(rig.After(Page(u"stray"_s, 0, 3, 3, false)), u"#0; #1 <1/3>"_s);
        QCOMPARE(rig.After(Raw::Ack().repeated(3)), u"#2; 22 a/ 1 <2/3; 3/3; Stored>"_s);
        QCOMPARE(rig.After(Raw::Ack() + Raw::Received("F0")), u""_s);
        // An error while the store is awaited ends it; what comes then is too late.
        rig.transfer->Store(u"a"_s, false);
        QCOMPARE(rig.After(Raw::Ack().repeated(3) + Raw::Result(9, 0) + Raw::Ack()),
                 Whole(u"22 a/ 0"_s, u"; Failed"_s));
        rig.session.SaveState = SaveStateKind::Named;
        rig.transfer->Load(u"a"_s);
        QCOMPARE(rig.After(Raw::Ack() + Raw::Result(9, 0) + Page(u"late"_s, 0, 1, 1, false)),
                 u"21 a/ 0 <Failed>"_s);
        QCOMPARE(rig.Texts(), before);
        QCOMPARE(rig.session.SaveState, SaveStateKind::Unchanged); // as after every load
    }

    void EndsWithTheObject() {
        Rig rig;
        rig.transfer->Store(u"a"_s, false);
        QCOMPARE(rig.After(Raw::Ack()), u"#0; #1 <1/3>"_s);
        rig.transfer.reset();
        // A list that is asked for next isn't taken for the acknowledgement.
        QCOMPARE(rig.After(Raw::Page(16, 0, 1, 1, 0, Raw::Name("set")) + Raw::Ack()), u""_s);
        QCOMPARE(rig.session.NameList, QStringList{u"set"_s});
        rig.MakeTransfer();
        QCOMPARE(rig.After(Raw::Ack()), u""_s);
        // Whoever hears of the end may destroy it.
        connect(rig.transfer.get(), &TranslatorTransfer::Ended, this, [&rig] { rig.transfer.reset(); });
        rig.transfer->Load(u"b"_s);
        QCOMPARE(rig.After(Page(u"B"_s, 0, 1, 1, false)), u"21 b/ 0 <1/1; Loaded>"_s);
        QVERIFY(!rig.transfer);
        QCOMPARE(rig.Texts(), u"B"_s);
    }

    void EndsWithTheConnection() {
        Rig rig;
        rig.transfer->Store(u"a"_s, false);
        QCOMPARE(rig.Steps(), u"#0"_s);
        rig.Reconnect([&] {
            QVERIFY(!rig.transfer->IsRunning());
            rig.transfer->Load(u"a"_s);
            QVERIFY(!rig.transfer->IsRunning());
        });
        QCOMPARE(rig.After(Raw::Ack() + Page(u"late"_s, 0, 1, 1, false)), u"<LinkLost; LinkLost>"_s);
        rig.transfer->Store(u"b"_s, false);
        QCOMPARE(rig.After(Raw::Ack()), u"#0; #1 <1/3>"_s);
    }

    void LoadsPageByPage() {
        Rig rig;
        const QString before = rig.Texts();
        rig.transfer->Load({});
        rig.transfer->Load(u"a"_s);
        QCOMPARE(rig.After(Raw::Ack() + Page(u"A"_s, 0, 30, 31, true)), u"21 a/ 0; 21 / 30 <30/31>"_s);
        QCOMPARE(rig.Texts(), before); // until the set is complete
        QCOMPARE(rig.After(Page({}, 60, 1, 61, false) + Page(u"again"_s, 0, 1, 1, false)), u""_s);
        QCOMPARE(rig.After(Page({}, 30, 1, 31, false)), u"<31/31; names 1; Loaded>"_s);
        QCOMPARE(rig.tree.Count(), 31);
        QVERIFY(rig.Texts().startsWith(u"A 1. 2. 3."));
        // Two loads at once: each first page is taken, the last one stays.
        rig.transfer->Load(u"b"_s);
        rig.transfer->Load(u"c"_s);
        QCOMPARE(rig.After(Page(u"B"_s, 0, 2, 2, false)), u"21 b/ 0; 21 c/ 0 <2/2; names 1; Loaded>"_s);
        QCOMPARE(rig.After(Page(u"C"_s, 0, 1, 1, false) + Page(u"D"_s, 0, 1, 1, false)), u"<1/1; Loaded>"_s);
        QCOMPARE(rig.Texts(), u"C"_s);
    }

    void SetsBeyondTheLimits() {
        Rig rig;
        for (int i = 3; i <= 1001; ++i)
            AddNode(rig.tree,
                    MakeReceived(TranslatorKind::Macro, TranslatorRootKey, {QString::number(i), {}, 100}));
        rig.transfer->Store(u"a"_s, false);
        rig.transfer->Flash(1, false);
        QCOMPARE(rig.Steps(), u"<refused 0 1002; Refused; refused 0 1002; Refused>"_s);
        for (const auto& [page, said] : {std::pair(Page(u"A"_s, 0, 30, 1002, true), u"refused 0 1002"_s),
                                         {Page(u"A"_s, 0, 0, 0, false), u"refused 10 0"_s},
                                         {Page(u"A"_s, 0, 0, 5, true), u"refused 11 0"_s}}) {
            rig.transfer->Load(u"a"_s);
            QCOMPARE(rig.After(page), u"21 a/ 0 <%1; Refused>"_s.arg(said));
            QCOMPARE(rig.session.SaveState, SaveStateKind::Named); // the tree isn't the set of that name
        }
        // A server that never comes to an end.
        rig.transfer->Load(u"a"_s);
        QString steps;
        for (int offset = 0; offset < 1020; offset += 30)
            steps = rig.After(Page(u"A"_s, offset, 30, 30, true));
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
