#include "tools/free_send_rules.h"

#include "app/program_rig.h"
#include "forms/combo_boxes.h"
#include "support/golden.h"

using namespace Golden;
using namespace Qt::StringLiterals;

class FreeSendTest : public QObject {
    Q_OBJECT

private slots:
    void Params_data() {
        QTest::addColumn<int>("led");
        QTest::addColumn<int>("bus");
        QTest::addColumn<int>("mask");
        QTest::addColumn<quint32>("param");
        QTest::newRow("all of all") << 0 << 255 << 65535 << 0x4001FFFFu;
        QTest::newRow("bus 0, device 0") << 0 << 0 << 1 << 0x00010001u;
        QTest::newRow("LED all, bus 15, device 15") << 3 << 15 << 0x8000 << 0x007F8000u;
        QTest::newRow("output 1") << 4 << 255 << 65535 << 0xC001FFFFu;
        QTest::newRow("output 8") << 11 << 0 << 2 << 0xB8010002u;
        QTest::newRow("output 9") << 12 << 0 << 2 << 0x80030002u;
        QTest::newRow("output 16") << 19 << 255 << 65535 << 0xF803FFFFu;
    }
    void Params() {
        QFETCH(int, led);
        QFETCH(int, bus);
        QFETCH(int, mask);
        QFETCH(quint32, param);
        QCOMPARE(quint32(FreeSend::ParamOf(led, bus, mask)), param);
    }

    void init() {
        FailOnAnyWarning();
        rig.emplace(QString());
        rig->BringUp(false);
        if (rig->CurrentBox())
            rig->AnswerBox();
        rig->Action("mnuSendItem(10)")->trigger();
        txtRemote = rig->Find<EditableComboBox>("txtRemote");
        txtCommand = rig->Find<EditableComboBox>("txtCommand");
        QVERIFY(txtRemote && txtCommand && txtRemote->window()->isModal());
        QCOMPARE(rig->Sent(), u"18 / 0"_s);
    }
    void cleanup() { rig.reset(); }

    void ListsComeAndTypedTextStays() {
        QTest::keyClicks(txtRemote, u"tv"_s);
        QTest::keyClicks(txtCommand, u"pow"_s);
        rig->Play(Raw::Page(6, 0, 2, 3, 1, Raw::Name("amp ") + Raw::Name(" tv  ")));
        QCOMPARE(rig->Sent(), u"18 / 2"_s);
        QCOMPARE(txtRemote->count(), 0);
        rig->Play(Raw::Page(6, 2, 1, 3, 0,
                            Raw::Name("k\xFC"
                                      "che")));
        QCOMPARE(Entries(txtRemote), u"amp|tv|küche"_s);
        QCOMPARE(txtRemote->currentText(), u"tv"_s);
        QCOMPARE(txtRemote->currentIndex(), -1);

        txtRemote->setCurrentIndex(2);
        QCOMPARE(rig->Sent(), u"19 küche/ 0"_s);
        // The later pages are of the remote that was chosen, whatever is typed meanwhile.
        QTest::keyClicks(txtRemote, u"2"_s);
        rig->Play(Raw::Page(7, 0, 2, 3, 1, Raw::Command("an") + Raw::Command(" aus ")));
        QCOMPARE(rig->Sent(), u"19 küche/ 2"_s);
        rig->Play(Raw::Page(7, 2, 1, 3, 0, Raw::Command("power")));
        QCOMPARE(Entries(txtCommand), u"an|aus|power"_s);
        QCOMPARE(txtCommand->currentText(), u"pow"_s);
        QCOMPARE(txtRemote->currentText(), u"küche2"_s);
        rig->Play(Raw::Page(7, 0, 0, 0, 0));
        QCOMPARE(txtCommand->count(), 0);
        QCOMPARE(txtCommand->currentText(), u"pow"_s);
        // Lists that others asked for aren't ours.
        rig->Link().ListOwner = ListTarget::Learn;
        rig->Play(Raw::Page(6, 0, 1, 1, 0, Raw::Name("x")) + Raw::Page(7, 0, 1, 1, 0, Raw::Command("x")));
        QCOMPARE(Entries(txtRemote), u"amp|tv|küche"_s);
        QCOMPARE(txtCommand->count(), 0);
    }

    void SendsOnlyWithBothNames() {
        const auto* cmdSend = rig->Button("cmdSend");
        const auto expect = [&](const QString& remote, const QString& command, bool canSend) {
            txtRemote->setEditText(remote);
            txtCommand->setEditText(command);
            QCOMPARE(cmdSend->isEnabled(), canSend);
        };
        expect({}, {}, false);
        expect(u"tv"_s, {}, false);
        QTest::keyClick(txtRemote, Qt::Key_Return);
        expect(u"tv"_s, u"power"_s, true);
        QVERIFY(cmdSend->isDefault());
        expect({}, u"power"_s, false);
        expect(u" "_s, u" "_s, true);
        QCOMPARE(rig->Sent(), QString());
        QTest::keyClick(txtRemote, Qt::Key_Return);
        QCOMPARE(rig->Sent(), u"1 / 1073872895"_s); // blanks go, and all of all stands at first
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
        QCOMPARE(rig->server.Record(0), Join({
                                            Hex("01"),          // netcommand
                                            Hex("00 00 00"),    // no timeout
                                            Hex("01 00 09 88"), // output 2, bus 1, device 0
                                            Hex("D2 00 00 00"), // version 210
                                            Ascii("K") + Hex("FC") + Ascii("che"),   // remote
                                            Hex("00") + Fill(74, ' '),               //
                                            Hex("D6") + Ascii("ffnen ") + Hex("80"), // command
                                            Hex("00") + Fill(11, ' '),               //
                                            Hex("00"),                               // no carrier
                                        }));
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
