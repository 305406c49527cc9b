#include "base/tag_fields.h"
#include "translator/frmTransRcvProperties.h"
#include "translator/frmTransRemProperties.h"
#include "translator/frmTransSndProperties.h"

#include "app/program_rig.h"

#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, TranslatorDevice> Devices = {
    {u"all"_s, {u"E"_s, u"5.08.17"_s, 0x09000002, 0x00404000}},
    {u"no-relays"_s, {u"U"_s, u"4.05.01"_s, 0x08000000, 0x00000200}},
    {u"one-relay"_s, {u"U"_s, u"5.08.16"_s, 0, 0x00004000}},
    {u"two-relays"_s, {u"U"_s, u"4.05.02"_s, 0x01000000, 0x00400200}},
    {u"label"_s, {u"Y"_s, u"4.05.01"_s, 0x00000002, 0}},
};

/// What the forms make of tags: tag, edits, what is shown then (see `Shown`), and what OK gives back, "=" for
/// the tag. The head of a table has the device and what its tags begin with; for send steps, whose tags and
/// results are told from the mask on, the key that holds them. An edit has the index of a list's entry.
const QString Tables = uR"(# all tv\on\
1\9\0\0\0 | | LED=Default Acc=0 Rel= Rel=1 | =
1\9\0\0\0 | chkMask(1)=1 chkMask(3)=0 cmbPC=1 cmbSBUS=2 | LED=Default Acc=0 Rel= Rel=1 | 1\3\6\0\0
1\9\0\0\0 | chkAcc=1 | LED=Default Acc=1 Rep=3 Rep=3 Tim=750 *Rel=1 | 2\9\0\51\750
1\9\0\0\0 | chkAcc=1 txtTimeout=5 cmbRepeat1=9 chkAcc=0 chkAcc=1 chkAcc=0 | LED=Default Acc=0 Rel= Rel=1 | =
1\9\0\0\0 | chkAcc=1 cmbRepeat1=15 cmbRepeat2=14 txtTimeout=4088
  | LED=Default Acc=1 Rep=15 Rep=15 Tim=4088 *Rel=1 | 2\9\0\255\4087
1\9\0\0\0 | chkAcc=1 cmbRepeat1=0 cmbRepeat2=0 txtTimeout=-1
  | LED=Default Acc=1 Rep=0 Rep=1 Tim=-1 *Rel=1 | 2\9\0\1\0
1\9\0\0\0 | cmbRelais=1 | LED=Default Rel=On Rel=1 | 1\9\0\0\16
1\9\0\0\0 | cmbRelais=2 cmbRelNum=1 | LED=Default Rel=Off Rel=2 | 1\9\0\0\160
1\9\0\0\0 | cmbRelais=4 cmbRelais=0 chkAcc=1 cmbLEDSelect=11
  | LED=External 8 Acc=1 Rep=3 Rep=3 Tim=750 *Rel=1 | 2\9\176\51\750
2\9\0\51\752 | txtTimeout=99999999999 | LED=Default *Acc=1 Rep=3 Rep=3 Tim=99999999999 *Rel=1 | 2\9\0\51\4087
3\1\0\16\0 | txtTimeout=x | LED=Default Acc=1 Rep=1 Rep=3 Tim=x *Rel=1 | 2\1\0\19\0
1\9\240\0\112 | | LED=Default Acc=0 Rel= Rel=1 | 1\9\0\0\0
 | | LED=Default Rel= Rel=1 | 0\0\0\0\0
102\1\0\0\0 | chkOn=1 cmbRelais=2 cmbRelais=0 cmbRelais=1 | LED=Default Rel=On Rel=1 On=1 Off=0 | 102\1\0\0\16
102\1\0\0\0 | cmbRelais=2 cmbRelais=0 | LED=Default Rel= Rel=1 Tog=0 On=0 Off=0 | =
# no-relays tv\on\
1\9\176\0\16 | | *LED=Default *Rel=1 | 1\9\0\0\0
102\1\0\0\0 | | *LED=Default *Rel=1 Tog=0 On=0 Off=0 | =
102\1\0\0\0 | chkOn=1 chkToggle=1 | *LED=Default *Rel=1 Tog=1 | 102\1\0\0\96
102\1\0\0\0 | chkToggle=1 chkToggle=0 chkOff=1 chkOn=1 | *LED=Default *Rel=1 On=1 Off=0 | 102\1\0\0\112
102\1\0\0\112 | chkOff=1 | *LED=Default *Rel=1 On=0 Off=1 | 102\1\0\0\128
102\1\0\0\128 | chkOn=1 chkOn=0 | *LED=Default *Rel=1 Tog=0 On=0 Off=0 | 102\1\0\0\0
# one-relay tv\on\
1\9\255\0\176 | cmbPC=2 | *LED=Default Rel=Toggle *Rel=1 | 1\9\13\0\48
# two-relays tv\on\
1\9\0\0\416 | cmbRelais=3 | *LED=Default Rel=Toggle Rel=2 | 1\9\0\0\176
# all MACCON\a@b
7\100 | | Tim=100 Snd=0 | 7\100\0
7\100 | txtTimeout=5000 | Tim=5000 Snd=0 | 7\4000\0
7\100 | txtTimeout=-5000 | Tim=-5000 Snd=0 | 7\0\0
7\100 | txtTimeout= | Tim= Snd=0 | 7\0\0
7\0 | chkSndIO=1 chkMask(16)=0 | Tim=0 Snd=1 Snd= Snd= | 6\0\IO100
7\0 | chkSndIO=1 cmbSndIO=1 | Tim=0 Snd=1 Snd=IR Input Snd=OFF | 7\0\IO110
7\0 | chkSndIO=1 cmbSndIOVal=1 cmbSndIO=0 | Tim=0 Snd=1 Snd=SBUS Input Snd=ON | 7\0\IO101
7\9\IO111 | chkSndIO=0 | Tim=9 Snd=0 | 7\9\0
# all TOGCON\a@b
7\100 | | Snd=0 | 7\0\0
# all RCVCON\a@b
7\100 | | Snd=0 | 7\0\0
7\IO111 | | Snd=1 Snd=IR Input Snd=ON | 7\0\IO111
# one-relay RCVCON\a@b
7 | chkSndIO=1 | Snd=1 Snd=SBUS Input Snd=OFF | 7\0\IO100
# two-relays RCVCON\a@b
7\0\IO101 | | Snd=1 Snd=IR Input Snd=ON | 7\0\IO111
# no-relays RCVCON\a@b
7\0\0 | | | =
7\0\IO111 | | *Snd=1 Snd= Snd=ON | 7\0\0
# all CON\Config\
9\3\10 | | LAN=1 SBU=1 | =
9\3\10 | chkLAN=0 chkSBUS=0 cmbPC=2 cmbSBUS=1 | LAN=0 SBU=0 | 9\3\55
# two-relays CON\Config\
1\2\58 | | LAN=0 | 1\2\26
# label CON\Config\
1\2\26 | | SBU=1 | 1\2\10
# all REM\tv\
1\2\5 | cmbPC=0 cmbSBUS=1 | | 1\2\8
0\65535\0 | chkMask(15)=1 chkMask(0)=1 chkMask(17)=0 | | 32769\65533\0)"_s;

/// A tag of a pattern whose fields are texts, of which one is taken, or first and last of a range of numbers.
QString RandomTag(const QString& pattern, QRandomGenerator& random) {
    QStringList fields;
    for (const QString& field : pattern.split(u'\\')) {
        const QStringList texts = field.split(u' ');
        const QStringList range = field.split(u'-');
        fields += range.size() == 1 ? texts[random.bounded(int(texts.size()))]
                                    : QString::number(random.bounded(range[0].toInt(), range[1].toInt() + 1));
    }
    return fields.join(u'\\');
}

struct PropertyRig {
    /// The form of a node, for what the tag says; of a send step if it has a parent.
    Form* Open(const QString& tag, const QString& device = u"all"_s, const QString& stepParent = {}) {
        const TranslatorDevice of = Devices[device];
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
        Find<QPushButton>(button)->click();
        return Closed();
    }
    QString Closed() {
        const bool isClosed = QTest::qWaitFor([this] { return form.isNull(); });
        return isClosed ? std::exchange(results, {}).join(u" and ") : u"still open"_s;
    }

    template <class Control = QWidget> Control* Find(const char* name) const {
        return form->findChild<Control*>(QLatin1StringView(name));
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

/// What stands in the controls whose dependence is at stake, each with the first letters of its name: with a
/// star what can't be used, without what is hidden or empty and can't be used.
QString Shown(const QWidget& form) {
    QStringList shown;
    for (const char* name :
         {"cmbLEDSelect", "chkAcc", "cmbRepeat1", "cmbRepeat2", "txtTimeout", "cmbRelais", "cmbRelNum",
          "chkToggle", "chkOn", "chkOff", "chkSndIO", "cmbSndIO", "cmbSndIOVal", "chkLAN", "chkSBUS"}) {
        const auto* control = form.findChild<QWidget*>(QLatin1StringView(name));
        if (control == nullptr || !control->isVisibleTo(&form))
            continue;
        const auto* box = qobject_cast<const QCheckBox*>(control);
        const auto* list = qobject_cast<const QComboBox*>(control);
        const QString value = box    ? QString::number(int(box->isChecked()))
                              : list ? list->currentText()
                                     : control->property("text").toString();
        const QString text = QString::fromLatin1(name).mid(3, 3) + u'=' + value;
        if (control->isEnabled())
            shown += text;
        else if (!value.isEmpty() && value != u"0")
            shown += u'*' + text;
    }
    return shown.join(u' ');
}

} // namespace

class PropertyFormsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void WhatIsNotChangedComesBack() {
        QRandomGenerator random(631);
        const QString condition = u"\\0 IO100 IO101 IO110 IO111"_s;
        const std::pair<QString, QString> patterns[] = {
            {u"CON\\Config\\0-65535\\0-65535\\0-63"_s, {}},
            {u"REM\\Gerät\\0-65535\\0-65535\\0-63"_s, {}},
            {u"tv\\on\\1\\0-65535\\0-191\\0\\0 16 160 304 448"_s, {}},
            {u"tv\\on\\2\\0-65535\\0-191\\1 17 34 129 255\\0-4087"_s, {}},
            {u"tv\\on\\100-255\\0-65535\\0-191\\0\\0 96 112 128"_s, {}},
            {u"tv\\on\\70-99\\0-65535\\0-191\\0\\0"_s, {}},
            {u"tv\\on\\6\\0-65535\\0-4000"_s + condition, u"MACCON\\a@b"_s},
            {u"tv\\on\\6\\0-65535\\0"_s + condition, u"RCVCON\\a@b"_s},
        };
        for (int round = 0; round < 40; ++round)
            for (const auto& [pattern, stepParent] : patterns) {
                const QString tag = RandomTag(pattern, random);
                PropertyRig rig;
                rig.Open(tag, u"all"_s, stepParent);
                QCOMPARE(rig.Press("cmdOK"), stepParent.isEmpty() ? tag : tag.section(u'\\', 3));
            }
    }

    void WhatDependsOnWhat() {
        QString device;
        QString head;
        for (const QString& row : QString(Tables).replace(u"\n  "_s, u" "_s).split(u'\n')) {
            if (row.startsWith(u'#')) {
                device = row.section(u' ', 1, 1);
                head = row.section(u' ', 2);
                continue;
            }
            QStringList parts = row.split(u'|');
            for (QString& part : parts)
                part = part.trimmed();
            const bool isStep = head.contains(u'@');
            PropertyRig rig;
            const Form& form =
                *rig.Open((isStep ? u"tv\\on\\6\\"_s : head) + parts[0], device, isStep ? head : QString());
            for (const QString& edit : parts[1].split(u' ', Qt::SkipEmptyParts))
                Set(form, edit);
            for (const QLabel* label : form.findChildren<QLabel*>())
                if (const QWidget* named = label->buddy())
                    QVERIFY2(named->isEnabled() == label->isEnabled() &&
                                 named->isVisible() == label->isVisible(),
                             qPrintable(label->text()));
            const QString shown = Shown(form);
            QCOMPARE((QStringList{parts[0], parts[1], shown, rig.Press("cmdOK")}),
                     (QStringList{parts[0], parts[1], parts[2],
                                  (isStep ? QString() : head) + (parts[3] == u"=" ? parts[0] : parts[3])}));
        }
    }

    void WhatIsHidden() {
        PropertyRig rig;
        rig.Open(u"tv\\on\\1\\65535\\15\\0\\0"_s, u"label"_s);
        for (const char* name : {"Frame3", "Label5", "cmbSBUS"})
            QVERIFY(rig.Find(name)->isHidden());
        QCOMPARE(rig.Find<QLineEdit>("txtRemote")->text(), u"tv/on"_s);
        QCOMPARE(rig.Press("cmdOK"), u"tv\\on\\1\\65535\\3\\0\\0"_s);

        // The root says what the standard is.
        for (const bool isRoot : {true, false}) {
            rig.Open((isRoot ? u"CON"_s : u"REM"_s) + u"\\tv\\65535\\3\\10"_s);
            for (const char* name : {"txtRemote", "lblCommand"})
                QCOMPARE(rig.Find(name)->isHidden(), isRoot);
            for (const char* name : {"cmbPC", "cmbSBUS"}) {
                QCOMPARE(rig.Find<QComboBox>(name)->findText(u"(Standard)"_s), isRoot ? -1 : 0);
                QCOMPARE(rig.Find<QComboBox>(name)->currentText(), u"Übersetzt"_s);
            }
            rig.Press("cmdCancel");
        }
    }

    void CancelChangesNothing() {
        PropertyRig rig;
        for (const bool byKey : {true, false}) {
            rig.Open(u"REM\\tv\\0\\0\\0"_s)->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(rig.form));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); // the highest bit of a mask
            QVERIFY(rig.Find<QCheckBox>("chkMask(15)")->isChecked());
            if (byKey)
                QTest::keyClick(rig.form, Qt::Key_Escape);
            QCOMPARE(byKey ? rig.Closed() : rig.Press("cmdCancel"), QString());
        }
    }
};

SUITE(PropertyFormsTest);

#include "property_forms_test.moc"
