#include "forms/combo_boxes.h"
#include "forms/controls.h"
#include "forms/mask_boxes.h"
#include "forms/tab_frames.h"

#include "support/suite.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

void Commit(QWidget* widget, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(widget, &event);
}

void Wheel(QWidget* widget) {
    const QPoint middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class ControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        window = std::make_unique<QWidget>();
        rows = new QVBoxLayout(window.get());
    }

    void FilterHoldsWhateverTheWayIn() {
        auto* port = MakeTextBox(u"txtPort"_s, 5, window.get());
        port->SetFilter(&DigitsOnly);
        QTest::keyClicks(port, u"1x2-"_s);
        QGuiApplication::clipboard()->setText(u"a3\u0664b"_s); // an Arabic digit is none
        QTest::keySequence(port, QKeySequence::Paste);
        Commit(port, u"4c"_s);
        QCOMPARE(port->text(), u"1234"_s);
        port->setText(u"8x0"_s);
        QTest::keyClick(port, Qt::Key_Home);
        QTest::keyClicks(port, u"x1"_s);
        QCOMPARE(port->text(), u"180"_s);
        QCOMPARE(port->cursorPosition(), 1);
        port->SetFilter(nullptr);
        port->setMaxLength(100);
        port->setText(u"%r,af"_s);
        port->SetFilter(&HexDigitsAndBlanks);
        QTest::keyClicks(port, u" 0g1"_s);
        Commit(port, u"\tb\u00e4"_s);
        QCOMPARE(port->text(), u"AF 01 B"_s);
    }

    void FocusMovesOnBehindTheThirdDigit() {
        auto* address =
            Add(new AddressBoxes(u"txtIP"_s, 4, MakeLabel(u"lblIP"_s, u"IP"_s, window.get()), window.get()));
        ShowWindow();
        QCOMPARE(address->Box(3)->objectName(), u"txtIP(7)"_s);
        QCOMPARE(address->Box(3)->accessibleName(), u"IP 4"_s);
        address->Box(1)->setText(u"255"_s);
        address->Box(0)->setFocus();
        QTest::keyClicks(address->Box(0), u"1x9a"_s);
        QVERIFY(address->Box(0)->hasFocus());
        QTest::keyClicks(address->Box(0), u"2"_s);
        QCOMPARE(address->Box(0)->text(), u"192"_s);
        QVERIFY(address->Box(1)->hasFocus());
        // What is selected is replaced, and two more digits have room.
        QTest::keyClicks(address->Box(1), u"16"_s);
        QVERIFY(address->Box(1)->hasFocus());
        Commit(address->Box(1), u"8"_s);
        QVERIFY(address->Box(2)->hasFocus());
        // A full box takes no more digits, but lets the focus go; the last one keeps it.
        address->Box(1)->setFocus();
        QTest::keyClicks(address->Box(1), u"9"_s);
        QCOMPARE(address->Box(1)->text(), u"168"_s);
        QVERIFY(address->Box(2)->hasFocus());
        address->Box(3)->setFocus();
        QTest::keyClicks(address->Box(3), u"1234"_s);
        QVERIFY(address->Box(3)->hasFocus());
        QCOMPARE(address->Box(3)->text(), u"123"_s);
    }

    void Masks() {
        auto* label = MakeLabel(u"Label1"_s, u"Mask"_s, window.get());
        auto* mask = Add(new MaskBoxes(u"chkMask"_s, 16, label, u"Label2"_s, window.get()));
        SetCaption(*label, u"Sendemaske"_s); // as a translation comes
        ShowWindow();
        QSignalSpy changed(mask, &MaskBoxes::Changed);
        mask->SetValue(0x8005);
        QVERIFY(window->findChild<QCheckBox*>(u"chkMask(31)"_s)->isChecked());
        mask->Box(0)->click();
        QCOMPARE(mask->Value(), quint16(0x8004));
        QCOMPARE(changed.size(), 4);
        QVERIFY(mask->Box(15)->x() < mask->Box(14)->x());
        QCOMPARE(mask->Box(15)->accessibleName(), u"Sendemaske 15"_s);

        mask->Box(14)->setEnabled(false);
        mask->Box(15)->setFocus();
        QTest::keyClick(window.get(), Qt::Key_Tab);
        QVERIFY(mask->Box(13)->hasFocus());
        mask->setEnabled(false);
        mask->SetValue(0xFFFF); // also while it is disabled
        QCOMPARE(mask->Value(), quint16(0xFFFF));
        mask->setEnabled(true);
        QVERIFY(mask->Box(0)->isEnabled() && !mask->Box(14)->isEnabled());
    }

    void ListsStartWithNothing() {
        auto* list = MakeComboBox(u"cmbDate"_s, {}, window.get());
        QSignalSpy changed(list, &QComboBox::currentIndexChanged);
        list->addItem(u"DD.MM."_s, 0);
        list->addItem(u"MM/DD"_s, 6);
        list->addItem(u"MM-DD"_s, 5);
        QCOMPARE(list->currentIndex(), -1);
        QVERIFY(changed.isEmpty());
        QVERIFY(list->SelectByData(5) && !list->SelectByData(7));
        list->RemoveEntry(0);
        QCOMPARE(list->currentText(), u"MM-DD"_s);
        list->RemoveEntry(1);
        QCOMPARE(list->currentIndex(), -1);
    }

    void CombosWithWheelAndKeys() {
        auto* list = Add(MakeComboBox(u"cmbTime"_s, {u"a"_s, u"b"_s, u"c"_s}, window.get()));
        auto* typed = Add(MakeEditableComboBox(u"txtName"_s, window.get()));
        auto* other = Add(MakeTextBox(u"txtOther"_s, 0, window.get()));
        typed->addItems({u"TV"_s, u"Amp"_s});
        list->setCurrentIndex(0);
        ShowWindow();
        other->setFocus();
        Wheel(list);
        Wheel(typed->lineEdit());
        QCOMPARE(list->currentIndex(), 0);
        QCOMPARE(typed->currentText(), QString());
        QVERIFY(other->hasFocus());
        list->setFocus();
        Wheel(list);
        QCOMPARE(list->currentIndex(), 1);
        // Typed text stays as typed, whatever the list has.
        typed->setFocus();
        for (const QString& letter : {u"t"_s, u"v"_s}) {
            QTest::keyClicks(typed, letter);
            QTest::keyClick(typed, Qt::Key_Return);
        }
        QCOMPARE(typed->currentText(), u"tv"_s);
        QCOMPARE(typed->count(), 2);
    }

    void TypedTextOutlivesTheList() {
        auto* box = Add(MakeEditableComboBox(u"txtRemote"_s, window.get()));
        auto* other = Add(MakeTextBox(u"txtOther"_s, 0, window.get()));
        ShowWindow();
        QSignalSpy changed(box, &EditableComboBox::TextChanged);
        QSignalSpy picked(box, &EditableComboBox::Picked);
        box->setFocus();
        QTest::keyClicks(box, u"amp"_s);
        QTest::keyClick(box, Qt::Key_Left);
        QTest::keyClick(box, Qt::Key_Left, Qt::ShiftModifier);
        for (const QStringList& entries : {QStringList{u"amp"_s, u"tv"_s}, {u"ampx"_s}, {}, {u"tv"_s}}) {
            box->SetEntries(entries);
            QCOMPARE(box->currentText(), u"amp"_s);
            QCOMPARE(box->lineEdit()->selectedText(), u"m"_s);
            QCOMPARE(box->lineEdit()->cursorPosition(), 1);
            QCOMPARE(box->currentIndex(), -1);
        }
        // Typed in full, and left by Enter and Tab: still no choice.
        QTest::keySequence(box, QKeySequence::SelectAll);
        QTest::keyClicks(box, u"tv"_s);
        QTest::keyClick(box, Qt::Key_Return);
        other->setFocus();
        QCOMPARE(box->currentIndex(), -1);
        QCOMPARE(changed.size(), 5);
        QVERIFY(picked.isEmpty());
    }

    void ChoicesByHandAndByCode() {
        auto* box = Add(MakeEditableComboBox(u"txtRemote"_s, window.get()));
        ShowWindow();
        QStringList picks;
        connect(box, &EditableComboBox::Picked, this, [&](const QString& entry) { picks += entry; });
        box->SetEntries({u"amp"_s, u"Tuner"_s, u"tv"_s, u"tv 2"_s});
        const auto openAndPress = [&](const QString& letters, Qt::Key key) {
            box->showPopup();
            QTest::keyClicks(box->view(), letters);
            QTest::keyClick(box->view(), key);
        };
        box->setEditText(u"t"_s);
        openAndPress({}, Qt::Key_Escape);
        QCOMPARE(box->currentText(), u"t"_s);
        openAndPress({}, Qt::Key_Return); // it had opened at what was typed
        QCOMPARE(box->currentText(), u"Tuner"_s);
        openAndPress(u"tv"_s, Qt::Key_Return);
        QCOMPARE(box->currentText(), u"tv"_s);
        box->setEditText(u"tv"_s);
        openAndPress({}, Qt::Key_Return); // the same once more
        QTest::keyClick(box, Qt::Key_Down);
        box->setCurrentIndex(0);
        box->setCurrentIndex(0);
        openAndPress({}, Qt::Key_Return);
        QCOMPARE(picks, QStringList({u"Tuner"_s, u"tv"_s, u"tv"_s, u"tv 2"_s, u"amp"_s, u"amp"_s}));
    }

    void Tabs() {
        auto* tabs = Add(new TabFrames(u"tabMode"_s, window.get()));
        auto* outside = Add(MakeTextBox(u"txtOther"_s, 0, window.get()));
        std::vector<QWidget*> frames;
        for (int i = 0; i < 4; ++i) {
            frames.push_back(MakeFrame(ElementName(u"frmMode"_s, i), {}, nullptr));
            frames.back()->setMinimumSize(i == 2 ? 900 : 100, i == 1 ? 700 : 100);
            tabs->AddPage(u"Act. %1"_s.arg(i), frames.back());
        }
        ShowWindow();
        const auto shows = [&](size_t page) {
            for (size_t i = 0; i < frames.size(); ++i)
                if (frames[i]->isVisible() != (i == page))
                    return false;
            return true;
        };
        QVERIFY(shows(0));
        QVERIFY(frames[0]->width() >= 900 && frames[0]->height() >= 700);
        QSignalSpy changed(tabs, &TabFrames::Changed);
        tabs->SetIndex(2);
        QVERIFY(shows(2));
        QCOMPARE(changed.takeLast().constFirst(), 2);

        tabs->Strip()->setTabVisible(3, false);
        outside->setFocus();
        QTest::keyClick(outside, Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(shows(0));
        QTest::keyClick(outside, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(shows(2));
        tabs->Strip()->hide();
        QTest::keyClick(outside, Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(shows(2));
    }

    void SizesFollowTheFont() {
        auto* port = Add(MakeTextBox(u"txtPort"_s, 5, window.get()));
        ShowWindow();
        QFont large = window->font();
        large.setPointSize(40);
        window->setFont(large);
        QTRY_VERIFY(port->width() > port->fontMetrics().horizontalAdvance(u"65535"_s));
        QVERIFY(port->width() < port->fontMetrics().horizontalAdvance(u"655356553565535"_s));
    }

private:
    template <class Control> Control* Add(Control* control) {
        rows->addWidget(control);
        return control;
    }

    void ShowWindow() {
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    std::unique_ptr<QWidget> window;
    QVBoxLayout* rows = nullptr;
};

SUITE(ControlsTest);

#include "controls_test.moc"
