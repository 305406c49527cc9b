#include "database/database_tree.h"
#include "database/frmIRDBAction.h"
#include "database/frmRemProperties.h"
#include "database/random_tags.h"

#include "support/suite.h"

#include <QPointer>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

template <class T> T* Find(const Form* form, const QString& name, int page = -1) {
    auto* control = form->findChild<T*>(page < 0 ? name : ElementName(name, page));
    if (control == nullptr)
        qFatal("no control %s", qPrintable(name));
    return control;
}

/// Presses OK; what the form of a tag gave back. The form must be gone.
template <class F> QString Accepted(F* form) {
    const QPointer<F> loaded = form;
    QSignalSpy changed(form, &F::TagChanged);
    Find<QPushButton>(form, u"cmdOK"_s)->click();
    QCoreApplication::sendPostedEvents(form, QEvent::DeferredDelete);
    return loaded.isNull() && changed.size() == 1 ? changed[0][0].toString() : u"nothing"_s;
}

} // namespace

class ActionFormTest : public QObject {
    Q_OBJECT

private slots:
    void UnchangedTagsStay() {
        Dice dice;
        const QString versions[] = {u"E5.05.07"_s, u"E5.08.10"_s, u"G6.05.10"_s, u"S6.03.10"_s};
        for (int i = 0; i < 100; ++i) {
            const QString action = dice.ActionTagOf(1, 256);
            QCOMPARE(Accepted(Action(action, versions[i % 4])), action);
            const QString remote = RemoteTag{dice.Target(), dice.Text(i % 2 == 0 ? 50 : 256)}.Format();
            QCOMPARE(Accepted(Remote(remote, i % 3 != 0)), remote);
        }
        ActionTag asTyped;
        asTyped.groups[5] = {{}, true, u"  1  FF A"_s};
        QCOMPARE(Accepted(Action(asTyped.Format())), asTyped.Format());
        QCOMPARE(Accepted(Remote({}, true)), DatabaseTree::DefaultRemoteTag);
        QCOMPARE(Accepted(Action({})), u'0' + ActionTag().Format().sliced(1));
    }

    /// EZ messages are the exception: they are packed anew, with the port and the flags that go with them.
    void EzMessagesAreNormalised() {
        ActionTag tag;
        tag.groups[1] = {{1, 80, true, false, true, true}, true, u"00 00 01 AB 06 00 07 00 "_s};
        tag.groups[2] = {{}, true, u"00 00 02 AB 0C 00 01 00 02 00 03 00 FF 01 05 00 00 00"_s};
        tag.groups[3] = tag.groups[1];
        tag.groups[0] = {{0, 7042, false, true, false, false},
                         true,
                         u"FD AB 02 AB 00 00 01 00 02 00 03 00 FF 00 00 00 01 00"_s}; // of no known type
        auto* form = Action(tag.Format());
        tag.groups[1] = {{1, 7042, false, true, false, true}, true, u"0E AB 01 AB 06 00 07 00"_s};
        tag.groups[2] = {{0, 7042, false, true, false, false},
                         true,
                         u"19 AC 02 AB 0C 00 01 00 02 00 03 00 FF 00 05 00 01 00"_s};
        QCOMPARE(Accepted(form), tag.Format());
    }

    /// Version, page, and steps, which are clicks by the user or, with "=", changes by code. Then the tabs
    /// that remain, "!" if their strip is hidden, and whether the last (r)elay function is enabled. Of the
    /// page, enabled: (i)P, (p)ort, (d)efault, (u)dp, (a)ux, aux(2), (b)inary, (e)z, (s)hort and (l)ong
    /// fields; visible: (t)ext, e(z) fields; behind the stroke what is checked.
    void ActionControls() {
        for (const auto& [row, expected] :
             {std::pair{u"G6.05.10 0"_s, u"8r ipd2best/d"_s},
              {u"G6.05.10 7 chkDefault"_s, u"8r ipdua2bst/"_s},
              {u"G6.05.10 1 chkDefault chkUDP chkAUX chkAUX2 chkDefault"_s, u"8r ipd2best/d2"_s},
              {u"G6.05.10 0 chkBinary"_s, u"8r ipd2best/db"_s},
              {u"G6.05.10 0 chkEZ"_s, u"8r i2esz/ube"_s},
              {u"G6.05.10 2 =chkEZ optLong"_s, u"8r i2elz/ube"_s},
              {u"G6.05.10 2 chkEZ optLong optShort"_s, u"8r i2esz/ube"_s},
              {u"G6.05.10 2 chkEZ chkEZ"_s, u"8r ipdua2best/ub"_s},
              {u"G6.05.10 3 chkEZ"_s, u"8r ipd2bst/d"_s},
              {u"E5.05.07 0 chkDefault chkEZ"_s, u"1! 2bst/d"_s},
              {u"E5.08.10 2"_s, u"3r ipd2best/d"_s},
              {u"S6.03.10 0 chkDefault chkUDP"_s, u"2 d2bst/"_s},
              {u"S6.03.10 1 chkDefault"_s, u"2 2bst/d"_s},
              {u"S6.03.10 0 =chkEZ"_s, u"2 2sz/ube"_s}}) {
            QStringList steps = row.split(u' ');
            const Form* form = Action({}, steps.takeFirst());
            const int page = steps.takeFirst().toInt();
            for (const QString& step : steps) {
                step.startsWith(u'=') ? Find<QAbstractButton>(form, step.sliced(1), page)->toggle()
                                      : Find<QAbstractButton>(form, step, page)->click();
            }
            // A letter and the controls that are enabled together.
            const QString groups =
                u"i lblIP/p lblPort txtPort/d chkDefault/u chkUDP/a chkAUX/2 chkAUX2/b chkBinary/e chkEZ/"
                "s Label1 txtSNr Label2 txtSWert/l Label3 cmbTyp Label4 txtHC1 txtHC2 Label5 txtAdr "
                "Label6 txtValue Label7 txtArg txtRepeat"_s;
            QString state;
            QString checked;
            for (const QString& group : groups.split(u'/')) {
                const QStringList names = group.sliced(2).split(u' ');
                int enabled = 0;
                for (const QString& name : names) {
                    enabled += Find<QWidget>(form, name, page)->isEnabled() ? 1 : -1;
                    const auto* box = form->findChild<QCheckBox*>(ElementName(name, page));
                    checked += box != nullptr && box->isChecked() ? group.first(1) : QString();
                }
                QCOMPARE(qAbs(enabled), names.size());
                state += enabled > 0 ? group.first(1) : QString();
            }
            for (int place = 0; place < 4; ++place)
                QCOMPARE(Find<TextBox>(form, u"txtIP"_s, page * 4 + place)->isEnabled(),
                         state.startsWith(u'i'));
            state += Find<QWidget>(form, u"txtAction"_s, page)->isHidden() ? u""_s : u"t"_s;
            state += Find<QWidget>(form, u"frmEZ"_s, page)->isHidden() ? u""_s : u"z"_s;
            const auto* strip = Find<QTabBar>(form, u"tabMode"_s);
            int tabs = 0;
            for (int t = 0; t < strip->count(); ++t)
                tabs += int(strip->isTabVisible(t));
            const QString cuts =
                (strip->isHidden() ? u"!"_s : u""_s) +
                (Find<QRadioButton>(form, u"optRelais"_s, 5)->isEnabled() ? u"r "_s : u" "_s);
            QCOMPARE(row + u": "_s + QString::number(tabs) + cuts + state + u'/' + checked,
                     row + u": "_s + expected);
        }
    }

    void TypedActionsAreFilteredAndLimited() {
        const QString normal = BinaryToHex(QByteArray(255, '\x5A'));
        ActionTag tag;
        tag.groups[0] = {{}, true, normal};
        auto* form = Action(tag.Format());
        auto* box = Find<TextBox>(form, u"txtAction"_s, 0);
        box->setSelection(0, 5);
        QTest::keyClicks(box, u"1 2 3"_s); // the last would be one number more than an element holds
        QCOMPARE(box->text(), u"1 2 "_s + normal.sliced(5));
        auto* binary = Find<QCheckBox>(form, u"chkBinary"_s, 0);
        binary->click();
        QCOMPARE(box->text(), QString());
        box->insert(QString(300, u'ü'));
        QCOMPARE(box->text(), QString(255, u'ü'));
        binary->click();
        QTest::keyClicks(box, u"1aBg 2fF 0x3"_s);
        box->insert(u" ABC"_s);
        QCOMPARE(box->text(), u"1A 2F 03"_s);
        QTest::keyClicks(Find<TextBox>(form, u"txtIP"_s, 0), u"9x99"_s);
        QTest::keyClicks(Find<TextBox>(form, u"txtPort"_s, 0), u"-999999"_s);
        tag.groups[0] = {{qint32(0xFF000000), 65535, true, false, false, false}, true, u"1A 2F 03"_s};
        QCOMPARE(Accepted(form), tag.Format());
    }

    void EzFormsAndRelayByHand() {
        auto* form = Action({});
        ActionTag tag;
        for (int page = 0; page < 3; ++page) {
            Find<TextBox>(form, u"txtAction"_s, page)->setText(u"gone"_s);
            Find<QCheckBox>(form, u"chkEZ"_s, page)->click();
            tag.groups[size_t(page)] = {{0, 7042, false, true, false, false}, true, {}};
            // On page 1 no type is chosen: its text stays, which is empty.
            if (page > 0)
                Find<QRadioButton>(form, u"optLong"_s, page)->click();
        }
        const QString typed = u"txtSNr(0) 1/txtSWert(0) 1/txtHC1(2) 1/txtHC2(2) 2/txtAdr(2) 3/"
                              "txtValue(2) 999999/txtArg(2) x"_s;
        for (const QString& each : typed.split(u'/'))
            QTest::keyClicks(Find<TextBox>(form, each.section(u' ', 0, 0)), each.section(u' ', 1));
        Find<ComboBox>(form, u"cmbTyp"_s, 2)->setCurrentIndex(1);
        Find<ComboBox>(form, u"cmbRelais"_s)->setCurrentIndex(3);
        Find<QRadioButton>(form, u"optRelais"_s, 4)->click();
        tag.groups[0].text = u"02 AB 01 AB 00 00 01 00"_s;
        tag.groups[2].text = u"0A AC 02 AB 02 00 01 00 02 00 03 00 FF 00 00 00 01 00"_s;
        tag.relay = 3;
        tag.function = u'I';
        QCOMPARE(Accepted(form), tag.Format());
    }

    void RemoteControls() {
        for (const bool hasTarget : {true, false}) {
            auto* form = Remote(u"010000000000000000111"_s, hasTarget);
            QCOMPARE(Find<TextBox>(form, u"txtIP(0)"_s)->text() + Find<TextBox>(form, u"txtIP(3)"_s)->text(),
                     u"010"_s);
            for (const char* name : {"Label1", "txtIP(0)", "txtIP(3)", "Label2", "txtPort", "chkDefault"})
                QCOMPARE(Find<QWidget>(form, QString::fromLatin1(name))->isEnabled(), hasTarget);
            for (const bool isDefault : {true, false}) {
                Find<QCheckBox>(form, u"chkDefault"_s)->setChecked(isDefault);
                for (const char* name : {"chkUDP", "chkAUX"}) {
                    const auto* box = Find<QCheckBox>(form, QString::fromLatin1(name));
                    QVERIFY(box->isEnabled() != isDefault && !box->isChecked());
                }
            }
            Find<TextBox>(form, u"txtAction"_s)->insert(QString(60, u'x'));
            Find<TextBox>(form, u"txtIP(1)"_s)->insert(u"777"_s);
            Find<TextBox>(form, u"txtPort"_s)->insert(u"65536"_s);
            QCOMPARE(Accepted(form), u"010255000000655350001"_s + QString(50, u'x'));
        }
    }

    void EscapeAndCancelGiveNothingBack() {
        for (const bool byKey : {true, false}) {
            const QPointer<frmIRDBAction> form = Action({});
            connect(form, &frmIRDBAction::TagChanged, this, [] { QFAIL("a cancelled form gave its tag"); });
            form->ShowModal();
            byKey ? QTest::keyClick(form, Qt::Key_Escape) : Find<QPushButton>(form, u"cmdCancel"_s)->click();
            QTRY_VERIFY(form.isNull());
        }
    }

private:
    frmIRDBAction* Action(const QString& tag, const QString& version = u"G6.05.10"_s) {
        return new frmIRDBAction(services, tag, DatabaseDevice::ControlsOf(version, false), &owner);
    }
    frmRemProperties* Remote(const QString& tag, bool hasTarget) {
        return new frmRemProperties(services, tag, hasTarget, &owner);
    }

    Session session;
    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
    QWidget owner; ///< of the forms that a test leaves open
};

SUITE(ActionFormTest);

#include "action_form_test.moc"
