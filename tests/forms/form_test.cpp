#include "forms/form_slot.h"

#include "support/suite.h"

#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

class frmSample : public Form {
public:
    explicit frmSample(const FormServices& services, QWidget* parent = nullptr)
        : Form(services, u"frmSample"_s, u"Sample"_s, parent) {}
};

} // namespace

/// Boxes and forms that come and go while others are up.
class FormTest : public QObject {
    Q_OBJECT

private slots:
    void BoxesOneAtATimeInOrder() {
        QSignalSpy opened(&boxes, &Boxes::Opened);
        QStringList answers;
        for (const QString& text : {u"<b>a</b> & b"_s, u"b"_s, u"c"_s})
            boxes.Show({QMessageBox::Warning, text, text == u"b" ? u"Title"_s : QString(), text == u"c"},
                       [&answers, text](bool ok) { answers += text + (ok ? u":1"_s : u":0"_s); });
        QCOMPARE(opened.size(), 1);
        QCOMPARE(boxes.Waiting(), 2);
        const QPointer<QMessageBox> first = boxes.Current();
        QVERIFY(first->isVisible() && first->isModal());
        QCOMPARE(first->text(), u"<b>a</b> & b"_s);
        QCOMPARE(first->textFormat(), Qt::PlainText);
        QCOMPARE(first->windowTitle(), u"Calvoris"_s);
        QTest::keyClick(first, Qt::Key_Return);
        QCOMPARE(boxes.Current()->windowTitle(), u"Title"_s);
        QVERIFY(!boxes.Current()->button(QMessageBox::Cancel));
        QTest::mouseClick(boxes.Current()->button(QMessageBox::Ok), Qt::LeftButton);
        QTest::keyClick(boxes.Current(), Qt::Key_Escape);
        QCOMPARE(answers.join(u' '), u"<b>a</b> & b:1 b:1 c:0"_s);
        QVERIFY(!boxes.Current());
        QTRY_VERIFY(!first);
    }

    void ClosedByItsProgramBelowABox() {
        QPointer<frmSample> form = new frmSample(services);
        form->ShowModal();
        QList<bool> answers;
        for (const QString& text : {u"over the form"_s, u"waits"_s})
            boxes.Show({QMessageBox::Warning, text, {}, true}, [&](bool ok) { answers += ok; });
        QCOMPARE(boxes.Current()->parentWidget(), form);
        form->Unload();
        QTRY_VERIFY(form.isNull());
        // The first box went with its form; the second one is up and can be answered.
        QTRY_VERIFY(boxes.Current() != nullptr && boxes.Current()->text() == u"waits");
        QTest::keyClick(boxes.Current(), Qt::Key_Return);
        QCOMPARE(answers, QList<bool>({false, true}));
    }

    void LoadedAnewAfterItWasClosed() {
        FormSlot<frmSample> slot;
        QPointer<frmSample> first = &slot.Load(services);
        QCOMPARE(&slot.Load(services), first);
        first->ShowModal();
        QTest::keyClick(first, Qt::Key_Escape);
        QCOMPARE(slot.Loaded(), nullptr);
        // At once, before the old form has been deleted.
        QPointer<frmSample> second = &slot.Load(services);
        QVERIFY(second != first);
        QTRY_VERIFY(first.isNull());
        QCOMPARE(slot.Loaded(), second);
        second->Unload(); // before it was shown
        QCOMPARE(slot.Loaded(), nullptr);
        QTRY_VERIFY(second.isNull());
    }

private:
    Session session;
    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
};

SUITE(FormTest);

#include "form_test.moc"
