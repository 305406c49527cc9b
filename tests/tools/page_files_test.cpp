#include "tools/text_replies.h"

#include "app/program_rig.h"

#include <QComboBox>
#include <QTreeWidget>

using namespace PageProtocol;
using namespace Qt::StringLiterals;

namespace {

/// A status of one bus with one device at address 5.
QByteArray Status(quint32 capabilities) {
    const QByteArray network = Raw::Field("@@@~~~LAN~~~@@@ cellar            192.168.1.20   ", 80);
    const QByteArray entry = Raw::Entry("E5.20.01", capabilities).leftJustified(146, '\0') + network;
    return Raw::StatusPage(0, 1, {{0, 5, entry}});
}

} // namespace

class PageFilesTest : public QObject {
    Q_OBJECT

private slots:
    void Replies() {
        using enum Reply::Kind;
        const std::tuple<QString, Reply::Kind, QString> rows[] = {
            {u"RESULT_HTML_FILELIST a;1;2;\n"_s, FileList, u"a;1;2;"_s},
            {u"RESULT_HTML_FILELIST \n"_s, FileList, {}},
            {u"RESULT_HTML_FILELIST"_s, Other, {}}, // its last letter doesn't count
            {u"RESULT_HTML_FLASH Eno room;\n"_s, FlashFailed, u"no room;"_s},
            {u"RESULT_HTML_FLASH O13191\n"_s, FlashDone, u"13191"_s},
            {u"RESULT_HTML_FLASH x\n"_s, Other, {}},
            {u"RESULT_HTML_FLASH\n"_s, Other, {}},
            {QString(), Other, {}},
        };
        for (const auto& [text, kind, rest] : rows) {
            QCOMPARE(Parse(text).kind, kind);
            QCOMPARE(Parse(text).rest, rest);
        }
    }

    void FileLists() {
        const std::pair<QString, std::vector<PageFile>> rows[] = {
            {u"a b;1;2;c;3;4;"_s, {{u"a b"_s, u"1"_s, u"2"_s}, {u"c"_s, u"3"_s, u"4"_s}}},
            {u"a;1;2"_s, {{u"a"_s, u"1"_s, u"2"_s}}},
            {u"a;1;2;b"_s, {{u"a"_s, u"1"_s, u"2"_s}}}, // a name that isn't closed is none
            {u"a;1"_s, {{u"a"_s, u"1"_s, {}}}},
            {QString(), {}},
        };
        for (const auto& [list, files] : rows)
            QVERIFY2(ParseFiles(list) == files, qPrintable(list));
    }

    void ChosenFilesGoOut() {
        FailOnWarnings();
        ProgramRig rig(u"[MAIN]\n[END]\n"_s);
        rig.BringUp(false);
        // Without a device for them the files are still listed.
        rig.Action("mnuModus(15)")->trigger();
        rig.Play(Status(0x7FFFFFFF) + Raw::TextFrame("RESULT_HTML_FILELIST a;1;2;\n"));
        QCOMPARE(rig.Find<QTreeWidget>("lstFiles")->topLevelItemCount(), 1);
        QVERIFY(!rig.Button("cmdFlash")->isEnabled());
        rig.Find<QDialog>("frmHTML")->reject();
        QTRY_VERIFY(!rig.Find<QDialog>("frmHTML"));
        rig.server.TakeLog();

        rig.Action("mnuModus(15)")->trigger();
        rig.Play(Status(0x80000000));
        QCOMPARE(rig.Sent(), u"69 / 0; AGET_HTML_FILELIST"_s);
        const auto* cmbDevice = rig.Find<QComboBox>("cmbDevice");
        QCOMPARE(cmbDevice->currentText(), u"0.5 - E5.20.01 - 192.168.1.20 - cellar            "_s);
        QCOMPARE(cmbDevice->currentData().toInt(), 5);
        QVERIFY(cmbDevice->window()->isModal());

        const QByteArray list = Raw::TextFrame("RESULT_HTML_FILELIST <b>a</b>.htm;1;2;\xFC.css;3;4;c;5;6;\n");
        rig.Play(list.repeated(2));
        auto* lstFiles = rig.Find<QTreeWidget>("lstFiles");
        QCOMPARE(lstFiles->topLevelItemCount(), 6); // nothing empties it
        QCOMPARE(lstFiles->topLevelItem(1)->text(2), u"4"_s);
        const auto press = [&](const char* button) { QTest::mouseClick(rig.Button(button), Qt::LeftButton); };
        press("cmdAll");
        lstFiles->topLevelItem(4)->setCheckState(0, Qt::Unchecked);
        lstFiles->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        press("cmdRevert");
        press("cmdFlash");
        QCOMPARE(rig.Sent(), u"AFLASH_HTML <b>a</b>.htm;ü.css;"_s);
        press("cmdNone");
        press("cmdFlash");
        QCOMPARE(rig.Sent(), u"AFLASH_HTML "_s);

        // The outcome is told whether the form is still there or not.
        press("cmdDone");
        rig.Play(list + Raw::TextFrame("RESULT_HTML_FLASH O13191\n") +
                 Raw::TextFrame("RESULT_HTML_FLASH E<i>no room</i>\n"));
        QCOMPARE(rig.CurrentBox()->windowTitle(), u"HTML Flash"_s);
        QCOMPARE(rig.CurrentBox()->text(), u"HTML Flash OK: 13191 Bytes"_s);
        rig.AnswerBox();
        QCOMPARE(rig.CurrentBox()->text(), u"Error flashing HTML Pages\n<i>no room</i>"_s);
        QCOMPARE(rig.CurrentBox()->icon(), QMessageBox::Warning);
    }

    void ANewConnectionOwesNothing() {
        FailOnWarnings();
        ProgramRig rig(u"[MAIN]\n[END]\n"_s);
        rig.BringUp(false);
        for (const char* entry : {"mnuModus(15)", "mnuModus(14)"})
            rig.Action(entry)->trigger();
        QVERIFY(rig.Find<QDialog>("frmTranslatorWait"));
        rig.Link().Connect();
        QTRY_VERIFY(rig.server.Log().contains(u"36 / 0"));
        QTRY_VERIFY(!rig.Find<QDialog>("frmTranslatorWait"));
        rig.Action("mnuModus(10)")->trigger();
        rig.Play(Status(0x7FFFFFFF));
        QVERIFY(!rig.Find<QDialog>("frmHTML"));
        QVERIFY(!rig.CurrentBox());
        for (const auto& [entry, box] :
             {std::pair("mnuModus(13)", u"No Vantrel Translator connected to your system."_s),
              {"mnuModus(14)", u"No Vantrel Device with IR DB connected to your system."_s}}) {
            rig.Action(entry)->trigger();
            rig.Play(Status(0));
            QCOMPARE(rig.CurrentBox()->text(), box);
            rig.AnswerBox();
        }
    }
};

SUITE(PageFilesTest);

#include "page_files_test.moc"
