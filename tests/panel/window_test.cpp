#include "app/program_rig.h"
#include "panel/living_room.h"

#include <QPointingDevice>
#include <QSignalSpy>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

const QString Press = u"1 tv/vol+ 1073741824"_s;
using Loss = void (*)(ProgramRig&);

} // namespace

/// The main window with its real controls, as the whole program builds it.
class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void PanelFromTheLayout() {
        ProgramRig rig(LivingRoom);
        rig.Start();
        QCOMPARE(rig.Window().windowTitle(), u"Vantrel Client"_s);
        QCOMPARE(rig.Find<QWidget>("panel")->size(), QSize(618, 477 - rig.Window().statusBar()->height()));
        rig.BringUp();
        QCOMPARE(rig.Window().windowTitle(), u"Wohnzimmer"_s);
        QCOMPARE(rig.Window().size(), QSize(600, 400));
        QCOMPARE(rig.Button("cmdModeP(1)")->geometry(), QRect(100, 0, 60, 20));
        QCOMPARE(rig.Button("cmdRem(1)")->geometry(), QRect(100, 100, 60, 20));
        QCOMPARE(rig.Button("cmdMode(1)")->geometry(), QRect(0, 150, 60, 20));
        // Background, separator, a button and a label's text; red is the lowest byte of a colour.
        const QImage panel = rig.Find<QWidget>("panel")->grab().toImage();
        QCOMPARE(panel.pixelColor(400, 300), QColor(Qt::blue));
        QCOMPARE(panel.pixelColor(80, 0), QColor(Qt::red));
        QCOMPARE(panel.pixelColor(3, 210), QColor(Qt::yellow));
        QCOMPARE(rig.Find<QLabel>("lblMain(1)")->palette().color(QPalette::WindowText), QColor(Qt::yellow));

        // What a layout or a server writes stands as it was written, whatever it looks like.
        const QByteArray data = "<b>" + QByteArray(197, 'x');
        rig.Play(Raw::Received(data, "<i>tv</i>", "R&D"));
        const std::pair<const char*, QString> labels[] = {{"lblRem(1)", u"Page"_s},
                                                          {"lblMain(1)", u"R&D <b>x</b>"_s},
                                                          {"sb1(1)", u"<i>tv</i>"_s},
                                                          {"sb1(2)", u"R&D"_s},
                                                          {"sb1(3)", QString::fromLatin1(data)}};
        for (const auto& [name, text] : labels) {
            QCOMPARE(rig.Text(name), text);
            QCOMPARE(rig.Find<QLabel>(name)->textFormat(), Qt::PlainText);
        }
        QCOMPARE(rig.Window().size(), QSize(600, 400));
        QCOMPARE(rig.Button("cmdModeP(2)")->text(), u"HIFI"_s);
        QCOMPARE(rig.Button("cmdRem(1)")->text(), u"a && <i>b</i>"_s);
        QVERIFY(!rig.Action("mnuRemoteItem(999)")->isVisible());

        QStringList order;
        const QWidget* first = rig.Button("cmdModeP(2)");
        for (const QWidget* at = first; order.isEmpty() || at != first; at = at->nextInFocusChain())
            if (qobject_cast<const QPushButton*>(at))
                order += at->objectName();
        QCOMPARE(order.join(u' '),
                 u"cmdModeP(2) cmdModeP(1) cmdRem(2) cmdRem(1) cmdMode(1) cmdMode(2) cmdRem(3)"_s);
    }

    void WithoutMain() {
        for (const QString& layout : {QString(), u"[Main]\n[END]\n"_s}) {
            ProgramRig rig(layout);
            rig.Start();
            QTRY_COMPARE(rig.Window().size(), QSize(400, 120));
            QCOMPARE(rig.Window().windowTitle(), u"Vantrel Client"_s);
            QCOMPARE(rig.CurrentBox() != nullptr, !layout.isNull());
            if (rig.CurrentBox()) {
                QCOMPARE(rig.CurrentBox()->windowTitle(), u"Load Remote"_s);
                QCOMPARE(rig.CurrentBox()->text(), u"Remote MAIN not found"_s);
                rig.AnswerBox();
            }
            // The link and the menus work all the same.
            rig.Action("mnuModus(10)")->trigger();
            QCOMPARE(rig.Sent(), u"hello; 36 / 0; 69 / 0"_s);
        }
    }

    void MousePressesAndHolds() {
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        QPushButton* button = rig.Button("cmdRem(1)");
        for (const Qt::MouseButton which : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            QTest::mouseClick(button, which);
            QCOMPARE(rig.Sent(), Press);
        }
        QTest::mousePress(button, Qt::LeftButton);
        QVERIFY(button->isDown());
        // Neither the pointer that leaves nor another button of the mouse lets it go.
        QTest::mouseMove(button, QPoint(-40, -40));
        QTest::mousePress(button, Qt::RightButton);
        QTest::mouseRelease(button, Qt::RightButton);
        QTRY_COMPARE(rig.server.Records(), 2);
        rig.Play(Raw::Ack());
        QCOMPARE(rig.Sent(), Press + u"; "_s + Press + u"; 7 tv/vol+ 1073741824"_s);
        QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-40, -40));
        QVERIFY(!button->isDown());
        rig.Play(Raw::Ack());
        QCOMPARE(rig.Sent(), QString());
    }

    void KeysTouchAndClick() {
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        QPushButton* button = rig.Button("cmdRem(1)");
        button->setFocus();
        for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            const auto send = [&](QEvent::Type type, bool repeats) {
                QKeyEvent event(type, key, Qt::NoModifier, QString(), repeats);
                QApplication::sendEvent(button, &event);
            };
            send(QEvent::KeyPress, true); // of a key that went down elsewhere
            QVERIFY(!button->isDown());
            send(QEvent::KeyPress, false);
            for (int i = 0; i < 3; ++i) {
                send(QEvent::KeyRelease, true);
                send(QEvent::KeyPress, true);
            }
            QVERIFY(button->isDown());
            send(QEvent::KeyRelease, false);
            QVERIFY(!button->isDown());
            QCOMPARE(rig.Sent(), Press);
        }
        QTest::keyClick(button, Qt::Key_A);
        QCOMPARE(rig.Sent(), QString());
        button->click();
        QCOMPARE(rig.Sent(), Press);
        QVERIFY(!rig.Find<QTimer>("Timer")->isActive());

        const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
        QTest::touchEvent(button, finger.get()).press(0, QPoint(5, 5));
        QTRY_COMPARE(rig.server.Records(), 2); // held
        QTest::touchEvent(button, finger.get()).move(0, QPoint(-50, 5));
        QVERIFY(button->isDown());
        QTest::touchEvent(button, finger.get()).release(0, QPoint(-50, 5));
        QVERIFY(!button->isDown());
        rig.Play(Raw::Ack());
        QCOMPARE(rig.Sent(), Press + u"; "_s + Press);
    }

    void LostReleases_data() {
        QTest::addColumn<Loss>("lose");
        QTest::newRow("hidden") << +[](ProgramRig& rig) { rig.Button("cmdRem(1)")->hide(); };
        QTest::newRow("disabled by the check") << +[](ProgramRig& rig) { rig.Play(Raw::Result(28, 1)); };
        QTest::newRow("focus moves") << +[](ProgramRig& rig) { rig.Button("cmdRem(2)")->setFocus(); };
        QTest::newRow("window deactivated") << +[](ProgramRig& rig) {
            QEvent away(QEvent::WindowDeactivate);
            QApplication::sendEvent(&rig.Window(), &away);
        };
        QTest::newRow("box opens") << +[](ProgramRig& rig) {
            rig.program->MessageBoxes().Show({QMessageBox::Information, u"x"_s, {}});
        };
        QTest::newRow("error while held") << +[](ProgramRig& rig) { rig.Play(Raw::Result(9, 9, "x")); };
        QTest::newRow("page switched") << +[](ProgramRig& rig) { rig.Action("mnuRemoteItem(2)")->trigger(); };
    }

    /// However a held button loses its release, the repeat ends with it.
    void LostReleases() {
        QFETCH(Loss, lose);
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        const QPointer<QPushButton> button = rig.Button("cmdRem(1)");
        QTest::mousePress(button, Qt::LeftButton);
        QTRY_COMPARE(rig.server.Records(), 2);
        lose(rig);
        QVERIFY(!button || !button->isDown());
        rig.server.TakeLog();
        rig.Play(Raw::Ack() + Raw::Ack());
        QVERIFY(!rig.Sent().contains(u"vol+"));
    }

    void PageButtons() {
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        // A button of the page that it removes.
        const QPointer<QPushButton> more = rig.Button("cmdMode(1)");
        QTest::mouseClick(more, Qt::LeftButton);
        QTRY_VERIFY(!more);
        QCOMPARE(rig.Sent(), u"56 amp/on 1"_s);
        QVERIFY(!rig.Button("cmdRem(2)") && !rig.Find<QLabel>("lblRem(1)"));
        QCOMPARE(rig.Button("cmdRem(1)")->text(), u"On"_s);
        QCOMPARE(rig.Window().size(), QSize(500, 300));
        QVERIFY(rig.Button("cmdModeP(1)") && rig.Find<QLabel>("lblMain(1)"));

        // Each page is asked about anew: by the permanent button, by the menu.
        rig.Play(Raw::Result(28, 1)); // about the page before
        QVERIFY(rig.Button("cmdRem(1)")->isEnabled());
        rig.Play(Raw::Result(28, 1));
        QVERIFY(!rig.Button("cmdRem(1)")->isEnabled());
        QTest::mouseClick(rig.Button("cmdModeP(2)"), Qt::LeftButton);
        QTRY_VERIFY(rig.Button("cmdRem(1)")->isEnabled());
        rig.Action("mnuRemoteItem(1)")->trigger();
        QCOMPARE(rig.Button("cmdRem(2)")->text(), u"Mute"_s);
        QCOMPARE(rig.Sent(), u"56 amp/on 1; 56 tv/vol+ 1"_s);

        // A page that isn't there leaves none.
        QTest::mouseClick(rig.Button("cmdMode(2)"), Qt::LeftButton);
        QTRY_VERIFY(rig.CurrentBox());
        QCOMPARE(rig.CurrentBox()->text(), u"Remote Gone not found"_s);
        rig.AnswerBox();
        QVERIFY(!rig.Button("cmdRem(1)") && !rig.Button("cmdMode(1)"));
        QCOMPARE(rig.Sent(), QString());
    }
};

SUITE(WindowTest);

#include "window_test.moc"
