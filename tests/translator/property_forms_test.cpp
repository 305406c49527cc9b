#include "base/tag_fields.h"
#include "translator/frmTransRcvProperties.h"
#include "translator/frmTransRemProperties.h"
#include "translator/frmTransSndProperties.h"

#include "app/program_rig.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString MacroKey = u"MACCON\\a@b"_s;
const QString CommandKey = u"RCVCON\\a@b"_s;

TranslatorDevice DeviceNamed(const QString& name) {
    static const QHash<QString, TranslatorDevice> devices = {
        {u"all"_s, {u"E"_s, u"5.08.17"_s, 0x09000002, 0x00404000}},
        {u"no relays"_s, {u"U"_s, u"4.05.01"_s, 0x08000000, 0x00000200}},
        {u"one relay"_s, {u"U"_s, u"5.08.16"_s, 0, 0x00004000}},
        {u"two relays"_s, {u"U"_s, u"4.05.02"_s, 0x01000000, 0x00400200}},
        {u"label"_s, {u"Y"_s, u"4.05.01"_s, 0x00000002, 0}},
    };
    return devices.value(name);
}

struct PropertyRig {
    /// The form for a node: by its key, or for what the tag says.
    Form* Open(const QString& tag, const QString& device = u"all"_s, const QString& stepParent = {}) {
        const TranslatorDevice of = DeviceNamed(device);
        if (!stepParent.isEmpty())
            return Opened(new frmTransSndProperties(services, tag, stepParent, of, nullptr),
                          &frmTransSndProperties::TagChanged);
        if (tag.startsWith(u"CON\\") || tag.startsWith(u"REM\\"))
            return Opened(new frmTransRemProperties(services, tag, of, nullptr),
                          &frmTransRemProperties::TagChanged);
        return Opened(new frmTransRcvProperties(services, tag, of, nullptr),
                      &frmTransRcvProperties::TagChanged);
    }

    /// The new tag, and the form is gone. Empty if it told none.
    QString Press(const char* button) {
        results.clear();
        form->findChild<QPushButton*>(QLatin1StringView(button))->click();
        return Closed();
    }

    QString Closed() {
        if (!QTest::qWaitFor([this] { return form.isNull(); }))
            return u"still open"_s;
        return results.join(u" and ");
    }

    Session session;
    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
    QPointer<Form> form;
    QStringList results;

private:
    template <class F> Form* Opened(F* opened, void (F::*changed)(const QString&)) {
        form = opened;
        QObject::connect(opened, changed, opened, [this](const QString& tag) { results += tag; });
        opened->ShowModal();
        return opened;
    }
};

/// One of "name=value": a tick is 1 or 0, a list takes the index.
void Set(const QWidget& form, const QString& edit) {
    auto* control = form.findChild<QWidget*>(edit.section(u'=', 0, 0));
    QVERIFY2(control != nullptr, qPrintable(edit));
    const QString value = edit.section(u'=', 1);
    if (auto* box = qobject_cast<QCheckBox*>(control))
        box->setChecked(value == u'1');
    else if (auto* list = qobject_cast<QComboBox*>(control))
        list->setCurrentIndex(value.toInt());
    else if (auto* text = qobject_cast<QLineEdit*>(control))
        text->setText(value);
}

/// What stands in the controls whose dependence is at stake: with a star what can't be used, without what
/// is hidden or empty and can't be used.
QString Shown(const QWidget& form) {
    QStringList shown;
    for (const char* name :
         {"cmbLEDSelect", "chkAcc", "cmbRepeat1", "cmbRepeat2", "txtTimeout", "cmbRelais", "cmbRelNum",
          "chkToggle", "chkOn", "chkOff", "chkSndIO", "cmbSndIO", "cmbSndIOVal", "chkLAN", "chkSBUS"}) {
        const auto* control = form.findChild<QWidget*>(QLatin1StringView(name));
        if (control == nullptr || !control->isVisibleTo(&form))
            continue;
        QString value;
        if (const auto* box = qobject_cast<const QCheckBox*>(control))
            value = box->isChecked() ? u"1"_s : u"0"_s;
        else if (const auto* list = qobject_cast<const QComboBox*>(control))
            value = list->currentText();
        else if (const auto* text = qobject_cast<const QLineEdit*>(control))
            value = text->text();
        if (control->isEnabled())
            shown += QLatin1StringView(name).sliced(3) + u'=' + value;
        else if (!value.isEmpty() && value != u"0")
            shown += u'*' + QLatin1StringView(name).sliced(3) + u'=' + value;
    }
    return shown.join(u' ');
}

} // namespace

class PropertyFormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnAnyWarning(); }

    void WhatIsNotChangedComesBack() {
        QRandomGenerator random(631);
        const auto from = [&random](int first, int last) {
            return QString::number(first + random.bounded(last - first + 1));
        };
        const auto oneOf = [&random](const QStringList& texts) {
            return texts[random.bounded(int(texts.size()))];
        };
        const auto mask = [&] { return from(0, 65535); };
        const auto flags = [&] { return from(0, 191); };
        const auto comesBack = [](const QStringList& fields, const QString& stepParent = {}) {
            const QString tag = fields.join(TagSeparator);
            PropertyRig rig;
            rig.Open(tag, u"all"_s, stepParent);
            QCOMPARE(rig.Press("cmdOK"), stepParent.isEmpty() ? tag : fields.sliced(3).join(TagSeparator));
        };
        for (int round = 0; round < 60; ++round) {
            comesBack({u"CON"_s, u"Config"_s, mask(), mask(), from(0, 63)});
            comesBack({u"REM"_s, u"Gerät"_s, mask(), mask(), from(0, 63)});
            const int relay = random.bounded(5);
            const int relayWord = relay == 0 ? 0 : 16 * relay + 128 * random.bounded(4);
            comesBack({u"tv"_s, u"on"_s, u"1"_s, mask(), flags(), u"0"_s, QString::number(relayWord)});
            const QString repeat = QString::number(16 * random.bounded(16) + 1 + random.bounded(15));
            comesBack({u"tv"_s, u"on"_s, u"2"_s, mask(), flags(), repeat, from(0, 4087)});
            comesBack({u"tv"_s, u"on"_s, from(100, 255), mask(), flags(), u"0"_s,
                       oneOf({u"0"_s, u"96"_s, u"112"_s, u"128"_s})});
            comesBack({u"tv"_s, u"on"_s, from(70, 99), mask(), flags(), u"0"_s, u"0"_s});
            const QStringList conditions = {u"0"_s, u"IO100"_s, u"IO101"_s, u"IO110"_s, u"IO111"_s};
            comesBack({u"tv"_s, u"on"_s, u"6"_s, mask(), from(0, 4000), oneOf(conditions)}, MacroKey);
            comesBack({u"tv"_s, u"on"_s, u"6"_s, mask(), u"0"_s, oneOf(conditions)}, CommandKey);
        }
    }

    void WhatDependsOnWhat_data() {
        QTest::addColumn<QString>("device");
        QTest::addColumn<QString>("parent"); // of a send step
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("edits");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("result");
        const auto row = [](const char* name, const char* device, const QString& parent, const char* tag,
                            const char* edits, const char* shown, const char* result) {
            QTest::newRow(name) << QString::fromLatin1(device) << parent << QString::fromLatin1(tag)
                                << QString::fromLatin1(edits) << QString::fromLatin1(shown)
                                << QString::fromLatin1(result);
        };
        const auto received = [&row](const char* name, const char* device, const char* tag, const char* edits,
                                     const char* shown, const char* result) {
            row(name, device, {}, tag, edits, shown, result);
        };
        const char* command = "tv\\on\\1\\65535\\0\\0\\0";
        received("command", "all", command, "", "LEDSelect=Default Acc=0 Relais= RelNum=1", command);
        received("accelerated", "all", command, "chkAcc=1",
                 "LEDSelect=Default Acc=1 Repeat1=3 Repeat2=3 Timeout=750 *RelNum=1",
                 "tv\\on\\2\\65535\\0\\51\\750");
        received("no more", "all", command, "chkAcc=1 txtTimeout=5 cmbRepeat1=9 chkAcc=0 chkAcc=1 chkAcc=0",
                 "LEDSelect=Default Acc=0 Relais= RelNum=1", command);
        received("its limits", "all", command, "chkAcc=1 cmbRepeat1=15 cmbRepeat2=14 txtTimeout=4088",
                 "LEDSelect=Default Acc=1 Repeat1=15 Repeat2=15 Timeout=4088 *RelNum=1",
                 "tv\\on\\2\\65535\\0\\255\\4087");
        received("below", "all", command, "chkAcc=1 cmbRepeat1=0 cmbRepeat2=0 txtTimeout=-1",
                 "LEDSelect=Default Acc=1 Repeat1=0 Repeat2=1 Timeout=-1 *RelNum=1",
                 "tv\\on\\2\\65535\\0\\1\\0");
        received("relay", "all", command, "cmbRelais=1", "LEDSelect=Default Relais=On RelNum=1",
                 "tv\\on\\1\\65535\\0\\0\\16");
        received("relay 2", "all", command, "cmbRelais=2 cmbRelNum=1",
                 "LEDSelect=Default Relais=Off RelNum=2", "tv\\on\\1\\65535\\0\\0\\160");
        received("instead", "all", command, "cmbRelais=4 cmbRelais=0 chkAcc=1 cmbLEDSelect=11",
                 "LEDSelect=External 8 Acc=1 Repeat1=3 Repeat2=3 Timeout=750 *RelNum=1",
                 "tv\\on\\2\\65535\\176\\51\\750");
        received("stored time-out", "all", "tv\\on\\2\\65535\\0\\51\\752", "txtTimeout=99999999999",
                 "LEDSelect=Default *Acc=1 Repeat1=3 Repeat2=3 Timeout=99999999999 *RelNum=1",
                 "tv\\on\\2\\65535\\0\\51\\4087");
        received("type of the wire", "all", "tv\\on\\3\\1\\0\\16\\0", "txtTimeout=x",
                 "LEDSelect=Default Acc=1 Repeat1=1 Repeat2=3 Timeout=x *RelNum=1", "tv\\on\\2\\1\\0\\19\\0");
        received("no relays", "no relays", "tv\\on\\1\\65535\\176\\0\\16", "", "*LEDSelect=Default *RelNum=1",
                 "tv\\on\\1\\65535\\0\\0\\0");
        received("one relay", "one relay", "tv\\on\\1\\65535\\255\\0\\176", "cmbPC=2",
                 "*LEDSelect=Default Relais=Toggle *RelNum=1", "tv\\on\\1\\65535\\13\\0\\48");
        received("two relays", "two relays", "tv\\on\\1\\65535\\0\\0\\416", "cmbRelais=3",
                 "*LEDSelect=Default Relais=Toggle RelNum=2", "tv\\on\\1\\65535\\0\\0\\176");
        received("unknown action", "all", "tv\\on\\1\\65535\\240\\0\\112", "",
                 "LEDSelect=Default Acc=0 Relais= RelNum=1", command);
        received("tag cut off", "all", "tv", "", "LEDSelect=Default Relais= RelNum=1", "tv\\\\0\\0\\0\\0\\0");

        const char* macro = "tv\\on\\102\\1\\0\\0\\0";
        received("macro", "no relays", macro, "", "*LEDSelect=Default *RelNum=1 Toggle=0 On=0 Off=0", macro);
        received("toggle macro", "no relays", macro, "chkOn=1 chkToggle=1",
                 "*LEDSelect=Default *RelNum=1 Toggle=1", "tv\\on\\102\\1\\0\\0\\96");
        received("power on", "no relays", macro, "chkToggle=1 chkToggle=0 chkOff=1 chkOn=1",
                 "*LEDSelect=Default *RelNum=1 On=1 Off=0", "tv\\on\\102\\1\\0\\0\\112");
        received("power off", "no relays", "tv\\on\\102\\1\\0\\0\\112", "chkOff=1",
                 "*LEDSelect=Default *RelNum=1 On=0 Off=1", "tv\\on\\102\\1\\0\\0\\128");
        received("neither", "no relays", "tv\\on\\102\\1\\0\\0\\128", "chkOn=1 chkOn=0",
                 "*LEDSelect=Default *RelNum=1 Toggle=0 On=0 Off=0", macro);
        received("macro with a relay", "all", macro, "chkOn=1 cmbRelais=2 cmbRelais=0 cmbRelais=1",
                 "LEDSelect=Default Relais=On RelNum=1 On=1 Off=0", "tv\\on\\102\\1\\0\\0\\16");
        received("and without it", "all", macro, "cmbRelais=2 cmbRelais=0",
                 "LEDSelect=Default Relais= RelNum=1 Toggle=0 On=0 Off=0", macro);

        row("step", "all", MacroKey, "tv\\on\\6\\7\\100", "", "Timeout=100 SndIO=0", "7\\100\\0");
        row("too long", "all", MacroKey, "tv\\on\\6\\7\\100", "txtTimeout=5000", "Timeout=5000 SndIO=0",
            "7\\4000\\0");
        row("too short", "all", MacroKey, "tv\\on\\6\\7\\100", "txtTimeout=-5000", "Timeout=-5000 SndIO=0",
            "7\\0\\0");
        row("no time", "all", MacroKey, "tv\\on\\6\\7\\100", "txtTimeout=", "Timeout= SndIO=0", "7\\0\\0");
        row("of a command", "all", CommandKey, "tv\\on\\6\\7\\100", "", "SndIO=0", "7\\0\\0");
        row("of a toggle", "all", u"TOGCON\\a@b"_s, "tv\\on\\6\\7\\100", "", "SndIO=0", "7\\0\\0");
        row("condition", "all", MacroKey, "tv\\on\\6\\7\\0", "chkSndIO=1",
            "Timeout=0 SndIO=1 SndIO= SndIOVal=", "7\\0\\IO100");
        row("input", "all", MacroKey, "tv\\on\\6\\7\\0", "chkSndIO=1 cmbSndIO=1",
            "Timeout=0 SndIO=1 SndIO=IR Input SndIOVal=OFF", "7\\0\\IO110");
        row("value first", "all", MacroKey, "tv\\on\\6\\7\\0", "chkSndIO=1 cmbSndIOVal=1 cmbSndIO=0",
            "Timeout=0 SndIO=1 SndIO=SBUS Input SndIOVal=ON", "7\\0\\IO101");
        row("off again", "all", MacroKey, "tv\\on\\6\\7\\9\\IO111", "chkSndIO=0", "Timeout=9 SndIO=0",
            "7\\9\\0");
        row("in the place of the pause", "all", CommandKey, "tv\\on\\6\\7\\IO111", "",
            "SndIO=1 SndIO=IR Input SndIOVal=ON", "7\\0\\IO111");
        row("the only input", "one relay", CommandKey, "tv\\on\\6\\7", "chkSndIO=1",
            "SndIO=1 SndIO=SBUS Input SndIOVal=OFF", "7\\0\\IO100");
        row("an input it lacks", "two relays", CommandKey, "tv\\on\\6\\7\\0\\IO101", "",
            "SndIO=1 SndIO=IR Input SndIOVal=ON", "7\\0\\IO111");
        row("no inputs", "no relays", CommandKey, "tv\\on\\6\\7\\0\\0", "", "", "7\\0\\0");
        row("a condition without inputs", "no relays", CommandKey, "tv\\on\\6\\7\\0\\IO111", "",
            "*SndIO=1 SndIO= SndIOVal=ON", "7\\0\\0");

        const char* root = "CON\\Config\\65535\\3\\10";
        received("root", "all", root, "", "LAN=1 SBUS=1", root);
        received("root keeps", "all", root, "chkLAN=0 chkSBUS=0 cmbPC=2 cmbSBUS=1", "LAN=0 SBUS=0",
                 "CON\\Config\\65535\\3\\55");
        received("LAN alone", "two relays", "CON\\Config\\1\\2\\58", "", "LAN=0", "CON\\Config\\1\\2\\26");
        received("SBUS alone", "label", "CON\\Config\\1\\2\\26", "", "SBUS=1", "CON\\Config\\1\\2\\10");
        received("remote", "all", "REM\\tv\\1\\2\\5", "cmbPC=0 cmbSBUS=1", "", "REM\\tv\\1\\2\\8");
    }
    void WhatDependsOnWhat() {
        QFETCH(const QString, device);
        QFETCH(const QString, parent);
        QFETCH(const QString, tag);
        QFETCH(const QString, edits);
        PropertyRig rig;
        const Form& form = *rig.Open(tag, device, parent);
        for (const QString& edit : edits.split(u' ', Qt::SkipEmptyParts))
            Set(form, edit);
        QTEST(Shown(form), "shown");
        for (const QLabel* label : form.findChildren<QLabel*>())
            if (const QWidget* named = label->buddy()) {
                QVERIFY2(named->isEnabled() == label->isEnabled(), qPrintable(label->text()));
                QVERIFY2(named->isVisible() == label->isVisible(), qPrintable(label->text()));
            }
        QTEST(rig.Press("cmdOK"), "result");
    }

    void WhatIsHidden() {
        PropertyRig rig;
        const Form* form = rig.Open(u"tv\\on\\1\\65535\\15\\0\\0"_s, u"label"_s);
        for (const char* name : {"Frame3", "Label5", "cmbSBUS"})
            QVERIFY(form->findChild<QWidget*>(QLatin1StringView(name))->isHidden());
        QCOMPARE(form->findChild<QLineEdit*>(u"txtRemote"_s)->text(), u"tv/on"_s);
        QCOMPARE(rig.Press("cmdOK"), u"tv\\on\\1\\65535\\3\\0\\0"_s);

        // The root says what the standard is.
        for (const bool isRoot : {true, false}) {
            form = rig.Open((isRoot ? u"CON"_s : u"REM"_s) + u"\\tv\\65535\\3\\10"_s);
            for (const char* name : {"txtRemote", "lblCommand"})
                QCOMPARE(form->findChild<QWidget*>(QLatin1StringView(name))->isHidden(), isRoot);
            for (const char* name : {"chkLAN", "chkSBUS"})
                QCOMPARE(form->findChild<QWidget*>(QLatin1StringView(name))->isHidden(), !isRoot);
            for (const char* name : {"cmbPC", "cmbSBUS"}) {
                const auto* list = form->findChild<QComboBox*>(QLatin1StringView(name));
                QCOMPARE(list->findText(u"(Standard)"_s), isRoot ? -1 : 0);
                QCOMPARE(list->currentText(), u"Übersetzt"_s);
            }
            rig.Press("cmdCancel");
        }
    }

    void MasksWithKeysAndMouse() {
        PropertyRig rig;
        Form* form = rig.Open(u"REM\\tv\\0\\65535\\0"_s);
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); // the highest bit
        for (const char* name : {"chkMask(0)", "chkMask(17)"})
            QTest::mouseClick(form->findChild<QCheckBox*>(QLatin1StringView(name)), Qt::LeftButton);
        QTest::keyClick(form, Qt::Key_Return);
        QCOMPARE(rig.Closed(), u"REM\\tv\\32769\\65533\\0"_s);
    }

    void CancelChangesNothing() {
        PropertyRig rig;
        for (const bool byKey : {true, false}) {
            rig.Open(u"tv\\on\\6\\7\\100"_s, u"all"_s, MacroKey);
            Set(*rig.form, u"txtTimeout=5"_s);
            if (byKey)
                QTest::keyClick(rig.form, Qt::Key_Escape);
            QCOMPARE(byKey ? rig.Closed() : rig.Press("cmdCancel"), QString());
        }
    }
};

SUITE(PropertyFormsTest);

#include "property_forms_test.moc"
