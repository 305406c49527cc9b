#include "tools/analog_rules.h"

#include "app/program_rig.h"
#include "support/golden.h"

using namespace Qt::StringLiterals;

class AnalogTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void Readings() {
        const std::tuple<int, int, int, const char16_t*> rows[] = {
            {0, 200, -550, u"Not enabled"}, {2, 200, -550, u"-5,50 °C"}, {2, 0, -5, u"-0,05 °C"},
            {2, 0, 32767, u"327,67 °C"},    {1, 200, 7, u"200"},         {255, 0, 7, u"0"},
        };
        for (const auto& [mode, value, temperature, text] : rows) {
            const AnalogValues values{{quint8(mode)}, {quint8(value)}};
            const AnalogTemperatures temperatures{{quint8(mode)}, {qint16(temperature)}};
            const auto reading = ReadingOf(values, temperatures, 0, QLocale(QLocale::German));
            QCOMPARE(reading.text, QString::fromUtf16(text));
            QCOMPARE(reading.isEnabled, mode != 0);
        }
    }

    void PolledOnceASecondUntilTheEnd() {
        ProgramRig rig(u"[MAIN]\n[END]\n"_s);
        rig.BringUp(false);
        rig.Action("mnuIO(10)")->trigger();
        QPointer<QDialog> form = rig.Find<QDialog>("frmAnalogIO");
        QVERIFY(form && !form->isModal());
        QTRY_COMPARE(rig.server.Log(), u"60 / 0"_s);
        QCOMPARE(rig.server.Record(0)[112], char(15));
        const auto shown = [&] {
            QStringList texts;
            for (int i = 0; i < 4; ++i) {
                const auto* value = form->findChild<QLabel*>(u"lblValue(%1)"_s.arg(i));
                texts += value->text() + (value->isEnabled() ? u""_s : u" grey"_s);
            }
            return texts.join(u'|');
        };
        QCOMPARE(shown(), u"--- grey|--- grey|--- grey|--- grey"_s);
        rig.Play(Raw::Reply(21, Golden::AnalogPlain()));
        QCOMPARE(shown(), u"128|255|33|34"_s);
        QTRY_COMPARE(rig.server.Records(), 2);
        const qint64 gap = rig.server.ArrivalOf(1) - rig.server.ArrivalOf(0);
        QVERIFY2(gap > 500 && gap < 2000, qPrintable(QString::number(gap)));
        QCOMPARE(shown(), u"128 grey|255 grey|33 grey|34 grey"_s);
        rig.Play(Raw::Reply(21, Golden::AnalogDegrees()) + Raw::Reply(21, QByteArray(2, '\0')));
        QCOMPARE(shown(), u"Not enabled grey|-5.00 °C|327.67 °C|-327.68 °C"_s);
        QVERIFY(!rig.Find<QLabel>("lblTitel(0)")->isEnabled());

        // Once more from the menu: no second form, and values at once.
        rig.Window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&rig.Window()));
        rig.server.TakeLog();
        rig.Action("mnuIO(10)")->trigger();
        QTRY_VERIFY(rig.server.Records() > 0);
        QCOMPARE(rig.Window().findChildren<QDialog*>(u"frmAnalogIO"_s).size(), 1);

        QTest::mouseClick(rig.Button("cmdEnd"), Qt::LeftButton);
        QVERIFY(form->isVisible());
        QTRY_VERIFY(form.isNull()); // with the next tick
    }

    void About() {
        for (const QString& title : {u"Ferolo <b>KT</b>"_s, u"Vantrel Client"_s}) {
            ProgramRig rig(u"[MAIN]\n[TITLE]%1\n[END]\n"_s.arg(title));
            rig.BringUp(false);
            rig.Action("mnuAbout(10)")->trigger();
            QCOMPARE(rig.Text("lblTitle"), title);
            QCOMPARE(rig.Find<QDialog>("frmAbout")->windowTitle(), title);
            QCOMPARE(rig.Find<QWidget>("picIcon")->isVisible(), !title.startsWith(u"Ferolo"));
            const QImage icon = rig.Find<QWidget>("picIcon")->grab().toImage();
            QVERIFY(icon.pixelColor(icon.rect().center()) != icon.pixelColor(0, 0));
            static const QRegularExpression version(u"^Version \\d+\\.\\d+\\.\\d+$"_s);
            QVERIFY(rig.Text("lblVersion").contains(version));
        }
    }
};

SUITE(AnalogTest);

#include "analog_test.moc"
