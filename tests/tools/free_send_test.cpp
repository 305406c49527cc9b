#include "tools/free_send_rules.h"

#include "app/program_rig.h"
#include "forms/combo_boxes.h"
#include "support/golden.h"

using namespace Golden;
using namespace Qt::StringLiterals;

class FreeSendTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        FailOnWarnings();
        rig.emplace(QString());
        rig->BringUp(false);
        rig->Action("mnuSendItem(10)")->trigger();
        txtRemote = rig->Find<EditableComboBox>("txtRemote");
        txtCommand = rig->Find<EditableComboBox>("txtCommand");
        QVERIFY(txtRemote && txtCommand && txtRemote->window()->isModal());
        QCOMPARE(rig->Sent(), u"18 / 0"_s);
    }
    void cleanup() { rig.reset(); }

    void Params() {
        const std::tuple<int, int, int, quint32> rows[] = {
            {0, 255, 65535, 0x4001FFFF},  {0, 0, 1, 0x00010001},  {3, 15, 0x8000, 0x007F8000},
            {4, 255, 65535, 0xC001FFFF},  {11, 0, 2, 0xB8010002}, {12, 0, 2, 0x80030002},
            {19, 255, 65535, 0xF803FFFF},
        };
        for (const auto& [led, bus, mask, param] : rows)
            QCOMPARE(quint32(FreeSend::ParamOf(led, bus, mask)), param);
    }

    void ListsComeAndTypedTextStays() {
        QTest::keyClicks(txtRemote, u"tv"_s);
        QTest::keyClicks(txtCommand, u"pow"_s);
        rig->Play(Raw::Page(6, 0, 3, 3, 0, Raw::Name("amp ") + Raw::Name(" tv  ") + Raw::Name("k\374che")));
        QCOMPARE(Entries(txtRemote), u"amp|tv|küche"_s);
        QCOMPARE(txtRemote->currentText(), u"tv"_s);
        QCOMPARE(rig->Sent(), QString());
        txtRemote->setCurrentIndex(2);
        QCOMPARE(rig->Sent(), u"19 küche/ 0"_s);
        // The later pages are of the remote that was chosen, whatever is typed meanwhile.
        QTest::keyClicks(txtRemote, u"2"_s);
        rig->Play(Raw::Page(7, 0, 2, 3, 1, Raw::Command("an") + Raw::Command(" aus ")));
        QCOMPARE(rig->Sent(), u"19 küche/ 2"_s);
        rig->Play(Raw::Page(7, 2, 1, 3, 0, Raw::Command("power")));
        QCOMPARE(Entries(txtCommand), u"an|aus|power"_s);
        QCOMPARE(txtCommand->currentText() + txtRemote->currentText(), u"powküche2"_s);
        // Lists that others asked for aren't ours.
        rig->Link().ListOwner = ListTarget::Learn;
        rig->Play(Raw::Page(6, 0, 1, 1, 0, Raw::Name("x")) + Raw::Page(7, 0, 1, 1, 0, Raw::Command("x")));
        QCOMPARE(txtRemote->count() + txtCommand->count(), 6);
    }

    void EnterSendsOnceBothNamesAreThere() {
        txtRemote->setEditText(u" "_s);
        QTest::keyClick(txtRemote, Qt::Key_Return);
        QCOMPARE(rig->Sent(), QString());
        txtCommand->setEditText(u" "_s);
        QTest::keyClick(txtRemote, Qt::Key_Return);
        QCOMPARE(rig->Sent(), u"1 / 1073872895"_s); // blanks go, and all of all stands at first
        txtRemote->setEditText({});
        QVERIFY(!rig->Button("cmdSend")->isEnabled());
    }

    void RecordsAsTyped() {
        const auto send = [&](const QString& remote, const QString& command) {
            txtRemote->setEditText(remote);
            txtCommand->setEditText(command);
            QTest::mouseClick(rig->Button("cmdSend"), Qt::LeftButton);
            QVERIFY(txtCommand->hasFocus());
            QVERIFY(QTest::qWaitFor([&] { return rig->server.Records() == 1; }));
        };
        rig->Find<ComboBox>("cmbLED")->setCurrentIndex(5);
        rig->Find<ComboBox>("cmbBus")->setCurrentIndex(2);
        rig->Find<ComboBox>("cmbID")->setCurrentIndex(1);
        send(u"Küche"_s, u"Öffnen €"_s);
        // Output 2, bus 1, device 0; the version; remote, command, no carrier.
        QCOMPARE(rig->server.Record(0), Hex("01 00 00 00 01 00 09 88 D2 00 00 00") + Ascii("K") + Hex("FC") +
                                            Ascii("che") + Hex("00") + Fill(74, ' ') + Hex("D6") +
                                            Ascii("ffnen ") + Hex("80 00") + Fill(11, ' ') + Hex("00"));
        QCOMPARE(rig->Link().PendingOp, Pending::Panel);
        rig->server.TakeLog();
        // One character more than a field holds, and characters that the code page lacks.
        send(u' ' + QString(79, u'r') + u"Ω!"_s, QString(19, u'c') + u"漢字"_s);
        QCOMPARE(rig->server.Record(0).size(), 113);
        QCOMPARE(rig->server.Record(0).sliced(12), Fill(79, 'r') + "?" + Fill(19, 'c') + "?" + Fill(1, 0));
    }

private:
    static QString Entries(const QComboBox* list) {
        QStringList entries;
        for (int i = 0; i < list->count(); ++i)
            entries += list->itemText(i);
        return entries.join(u'|');
    }

    std::optional<ProgramRig> rig;
    EditableComboBox* txtRemote = nullptr;
    EditableComboBox* txtCommand = nullptr;
};

SUITE(FreeSendTest);

#include "free_send_test.moc"
