#include "panel/layout.h"
#include "panel/layout_line.h"

#include "support/suite.h"

#include <QFile>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QString Size = u"[SIZE]900,300"_s;
const QString Button = u"[POS]0,0[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]c"_s;

QString Describe(const LayoutRect& rect) {
    return u"%1,%2 %3x%4"_s.arg(rect.left).arg(rect.top).arg(rect.width).arg(rect.height);
}

QString Describe(const LayoutColor& color) {
    return color ? QString::number(*color, 16) : u"-"_s;
}

} // namespace

class LayoutTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        panel = {};
        path = folder.filePath(u"Remote.lyt"_s);
    }

    void Values() {
        const QString line = u"[POS]120,40[SIZE] 900 [TEXT]Vol + [SLED]3[LED]4[EMPTY][TEXT]again"_s;
        QCOMPARE(GetLayoutValue(line, u"SIZE"), u"900"_s);
        QCOMPARE(GetLayoutValue(line, u"TEXT"), u"Vol +"_s);
        QCOMPARE(GetLayoutValue(line, u"LED"), u"4"_s);
        QCOMPARE(GetLayoutValue(line, u"EMPTY"), QString());
        QCOMPARE(GetLayoutValue(line, u"pos"), QString());
        const QString longText = u"[TEXT]"_s + QString(1200, u'x');
        QCOMPARE(GetLayoutValue(longText, u"TEXT"), QString(999, u'x'));
        QCOMPARE(GetLayoutValue(longText + u'[', u"TEXT"), QString(1200, u'x')); // whole before a key
        QCOMPARE(GetLayoutValue(u"[TEXT] \ta b\t\t ", u"TEXT"), u"\ta b"_s);
        QCOMPARE(GetLayoutValue(u"[TEXT]a \t", u"TEXT"), u"a "_s);
    }

    void SendParams() {
        const std::pair<const char*, quint32> rows[] = {
            {"", 0x40000000},
            {"[SENDMASK]-1", 0xFFFFFFFF},
            {"[SENDMASK]5[BUS]3", 0x00190005},
            {"[BUS]3\n[BUS]255", 0x4001FFFF},
            {"[SDEVICE]2[BUS]1", 0x0011FFFF}, // BUS is read first, wherever it stands
            {"[BUS]32768", 0x40000000},
            {"[SENDMASK]4294967296", 0x40000000},
            {"[SLED]1\n[SLED]2", 0x4007FFFF}, // the low form adds up
            {"[SLED]11", 0xF801FFFF},
            {"[SLED]3\n[SLED]5", 0xC801FFFF}, // the extended form replaces what was there
            {"[SLED]5\n[SLED]1", 0xC803FFFF},
            {"[BUS]2[SLED]12[SENDMASK]1", 0x80130001},
            {"[SENDMASK]1\n[SLED]1\n[BUS]0", 0x00030001},
        };
        for (const auto& [lines, param] : rows) {
            panel = {};
            for (const QString& line : QString::fromLatin1(lines).split(u'\n'))
                ParseLayoutLine(panel, line, false);
            QVERIFY2(quint32(panel.PanelSendParam) == param, lines);
        }
    }

    void OwnSendParams() {
        const std::pair<const char*, std::optional<quint32>> rows[] = {
            {"", {}},
            {"[LED]x[CBUS]y", {}},
            {"[LED]0", 0},
            {"[LED]19", 0xB8020000},
            {"[CBUS]255", 0x40000000},
            {"[CBUS]258", 0x100000}, // eight bits of it
            {"[CSENDMASK]65535[LED]1", 0x3FFFF},
            {"[CSENDMASK]9[CBUS]255[LED]12", 0xC0030009},
        };
        for (const auto& [keys, param] : rows) {
            panel = {};
            ParseLayoutLine(panel, u"[SENDMASK]3[BUS]7[SLED]9"_s, false); // nothing of these is added
            ParseLayoutLine(panel, Button + QLatin1StringView(keys), false);
            const auto& own = panel.cmdRem.at(0).sendParam;
            QVERIFY2(own.has_value() == param.has_value() && quint32(own.value_or(0)) == param.value_or(0),
                     keys);
        }
    }

    /// They make nothing, and the log says why.
    void DroppedLines() {
        QLoggingCategory::setFilterRules(u"calvoris.layout.info=true"_s);
        for (const QString& line :
             {u"[POS]0,0[SIZE]900[TEXT]x[REMOTE]r[COMMAND]c"_s, u"[POS]0,0[SIZE]9,9[REMOTE]r[COMMAND]c"_s,
              u"[POS]0,0[SIZE]9,9[TEXT]x[REMOTE]r"_s, u"[POS]0,0[SIZE]9,9[TEXT]x[COMMAND]c"_s,
              u"[MOD]0,0[SIZE]9,9[TEXT]x"_s, u"[MOD]0,0[PANEL]x"_s, u"[LBL]0,0[SIZE]9,9"_s,
              u"[LBL]0,0[TEXT]x"_s, u"[SEP]5,5[END]9"_s, u"[SEP]1,1[MOD]0,0[SIZE]9,9[TEXT]x[PANEL]p"_s,
              u"["_s})
            for (const bool isMain : {true, false}) {
                if (line != u"[")
                    QTest::ignoreMessage(
                        QtInfoMsg, QRegularExpression(QRegularExpression::escape(line) + u" - [A-Z]+ : "_s));
                ParseLayoutLine(panel, line, isMain);
                QVERIFY2(panel.cmdRem.empty() && panel.cmdMode.empty() && panel.cmdModeP.empty() &&
                             panel.lblMain.empty() && panel.lblRem.empty() && !panel.linLine &&
                             !panel.windowSize && panel.PanelOffsetX == 0,
                         qPrintable(line));
            }
        QLoggingCategory::setFilterRules({});
    }

    void OneElementPerLine() {
        ParseLayoutLine(panel, u"[LBL]1,1"_s + Button + u"[MOD]2,2[PANEL]p"_s, false);
        QCOMPARE(panel.cmdMode.size(), size_t(1));
        QVERIFY(panel.cmdRem.empty() && panel.lblRem.empty());
        QCOMPARE(panel.cmdMode[0].caption, u"x"_s);
    }

    void Offsets() {
        Load(u"[MAIN]\n[POS]1,1"_s + Size +
             u"[TEXT]a[REMOTE]r[COMMAND]c\n"_s
             u"[SEP]100,200[END]300,400[LCOLOR]255\n"_s
             u"[POS]1,1"_s +
             Size + u"[TEXT]b[REMOTE]r[COMMAND]c\n[MOD]1,1"_s + Size + u"[PANEL]S\n[LBL]1,1"_s + Size +
             u"[TEXT]l\n[FRMPIX]10,20\n[END]\n[S]\n[POS]1.5,2.5"_s + Size +
             u"[TEXT]a[REMOTE]r[COMMAND]c\n[MOD]1,1"_s + Size + u"[PANEL]S\n[LBL]1,1"_s + Size +
             u"[TEXT]l\n[SEP]-5,-6[END]0,0\n[LBL]1,1"_s + Size + u"[TEXT]m\n[FRM]7,8\n[END]\n"_s);
        QCOMPARE(Describe(panel.cmdRem[1].rect), u"101,201 900x300"_s);
        QCOMPARE(Describe(panel.cmdModeP[0].rect), u"1,1 900x300"_s);
        QCOMPARE(Describe(panel.lblMain[0].rect), u"1,1 900x300"_s);
        QCOMPARE(panel.windowSize->width, 110 * 15);
        QCOMPARE(panel.windowSize->height, 300 * 15);
        QCOMPARE(panel.linLine->x2, 300);

        QCOMPARE(LoadRemote(panel, path, u"S"_s), LayoutResult::Loaded);
        QCOMPARE(panel.cmdRem.size(), size_t(1));                       // those of MAIN are gone
        QCOMPARE(Describe(panel.cmdRem[0].rect), u"102,202 900x300"_s); // a tie goes to the even number
        QCOMPARE(Describe(panel.cmdMode[0].rect), u"101,201 900x300"_s);
        QCOMPARE(Describe(panel.lblRem[0].rect), u"101,201 900x300"_s);
        QCOMPARE(Describe(panel.lblRem[1].rect), u"-4,-5 900x300"_s);
        QCOMPARE(Describe(panel.linLine->color), u"ff"_s); // kept without a colour of its own
        QCOMPARE(panel.windowSize->width, 7);
    }

    void NumbersBeyondTheirRange() {
        ParseLayoutLine(panel, u"[POS]99999,-99999[SIZE]x,1e3[TEXT]x[REMOTE]r[COMMAND]c[FONT]99999[BOLD]2"_s,
                        false);
        QCOMPARE(Describe(panel.cmdRem.at(0).rect), u"32767,-32768 0x1"_s);
        QVERIFY(panel.cmdRem[0].fontSize == 0 && !panel.cmdRem[0].bold);
        ParseLayoutLine(panel, u"[SEP]32767,32767[END]0,0"_s, false);
        ParseLayoutLine(panel, Button, false);
        ParseLayoutLine(panel, u"[FRMPIX]32767,32767"_s, false);
        QCOMPARE(Describe(panel.cmdRem.at(1).rect), u"32767,32767 900x300"_s);
        QCOMPARE(panel.windowSize->width, 65534 * 15);
    }

    void Colors() {
        Load(u"[MAIN]\n[BCOLOR]255[FCOLOR]65280\n"_s + Button + u"\n[MOD]0,0"_s + Size +
             u"[PANEL]S\n[BCOLOR]-1\n[FCOLOR]16777216\n"_s + Button +
             u"\n[BCOLOR]red[BACKGROUND]1\n[LBL]0,0"_s + Size + u"[TEXT]a\n[LBL]0,0"_s + Size +
             u"[TEXT]a[LCOLOR]-1\n[BACKGROUND]2\n[LBL]0,0"_s + Size +
             u"[TEXT]a[LCOLOR]9\n[BCOLOR]7\n[END]\n[S]\n"_s + Button + u"\n[BCOLOR]3\n"_s + Button +
             u"[TITLE]no[NOSEND]2\n[MOD]0,0"_s + Size + u"[PANEL]S\n[END]\n"_s);
        const auto colors = [](const LayoutElement& e) {
            return Describe(e.backColor) + u' ' + Describe(e.foreColor);
        };
        QCOMPARE(colors(panel.cmdRem[0]), u"ff ff00"_s);
        QCOMPARE(colors(panel.cmdModeP[0]), u"ff ff00"_s);
        QCOMPARE(colors(panel.cmdRem[1]), u"- -"_s);
        QCOMPARE(colors(panel.lblMain[0]), u"1 0"_s);
        QCOMPARE(colors(panel.lblMain[1]), u"1 -"_s);
        QCOMPARE(colors(panel.lblMain[2]), u"2 9"_s);
        QCOMPARE(panel.lblMain[2].fontSize, qint16(10));
        LoadRemote(panel, path, u"S"_s);
        QCOMPARE(colors(panel.cmdRem[0]), u"- -"_s); // each section begins without colours
        QCOMPARE(colors(panel.cmdRem[1]), u"3 -"_s);
        QCOMPARE(colors(panel.cmdMode[0]), u"- -"_s);
        QCOMPARE(panel.PanelTitle, u"Vantrel Client"_s); // switches of MAIN alone
        QVERIFY(!panel.send.hidden && !panel.send.disabled);
    }

    void WhatStaysAcrossSections() {
        Load(u"[MAIN]\n[SENDMASK]5[BUS]3[SLED]1[SREMOTE]amp\n[END]\n"
             u"[S]\n[POS]0,0[SIZE]9,9[TEXT]x[COMMAND]c\n[SREMOTE]tv\n[POS]0,0[SIZE]9,9[TEXT]x[COMMAND]c\n["
             u"END]\n"
             u"[T]\n[BUS]4\n[END]\n"_s);
        QCOMPARE(panel.PanelSendParam, 0x001B0005);
        LoadRemote(panel, path, u"S"_s);
        QCOMPARE(panel.PanelSendParam, 0x001B0005); // the LED too, until it is worked out anew
        QCOMPARE(panel.cmdRem.size(), size_t(1));   // the remote isn't kept
        QCOMPARE(panel.RemoteList[1], u"tv"_s);
        LoadRemote(panel, path, u"T"_s);
        QCOMPARE(panel.PanelSendParam, 0x00210005);
        QCOMPARE(panel.RemoteList[1], u"tv"_s);
    }

    void SectionEnds() {
        const QString b = Button + u'\n';
        const std::tuple<const char*, QString, int> rows[] = {
            // buttons; -1: no such section
            {"END", u"[S]\n"_s + b + b + u"[END]\n"_s + b, 2},
            {"END on the last line, unended", u"[S]\n"_s + b + u"[END]"_s, 1},
            {"blanks around END", u"[S]\n"_s + b + u"  [END]  \n"_s + b + b, 1},
            {"something behind END", u"[S]\n"_s + b + u"[END]x\n"_s + b + b, 2},
            {"END as a key", u"[S]\n[SEP]1,1[END]2,2\n"_s + b + b, 1},
            {"END in another case", u"[S]\n[end]\n"_s + b + b, 1},
            {"another head is no end", u"[S]\n"_s + b + u"[T]\n"_s + b + u"[END]\n"_s, 2},
            {"the last line is lost", u"[S]\n"_s + b + b, 1},
            {"an empty last line saves it", u"[S]\n"_s + b + b + u"\n"_s, 2},
            {"CR LF", u"x\r\n [S] \r\n\r\n"_s + Button + u"\r\n[END]\r\n"_s, 1},
            {"head on the last line", b + u"[S]\n"_s, -1},
            {"head in another case", u"[s]\n"_s + b + u"[END]\n"_s, -1},
            {"something behind the head", u"[S]1\n"_s + b + u"[END]\n"_s, -1},
            {"the first of two", u"[S]\n"_s + b + u"[END]\n[S]\n"_s + b + b + u"[END]\n"_s, 1},
        };
        for (const auto& [name, file, buttons] : rows) {
            Write(file.toUtf8());
            ParseLayoutLine(panel, Button, false);
            const LayoutResult expected = buttons < 0 ? LayoutResult::NoSection : LayoutResult::Loaded;
            QVERIFY2(LoadRemote(panel, path, u"S"_s) == expected, name);
            // What isn't found empties the page.
            QVERIFY2(int(panel.cmdRem.size()) == std::max(0, buttons), name);
        }
    }

    void Files() {
        ParseLayoutLine(panel, Button, false);
        QCOMPARE(LoadRemote(panel, folder.filePath(u"gone.lyt"_s), MainSection), LayoutResult::NoFile);
        QCOMPARE(panel.cmdRem.size(), size_t(1));
        QCOMPARE(LoadRemote(panel, folder.path(), u"S"_s), LayoutResult::NoFile);
        QVERIFY(panel.cmdRem.empty());
        Write("[S]\n[LBL]0,0[SIZE]9,9[TEXT]K\xFC"
              "che \x80\n[END]\n");
        LoadRemote(panel, path, u"S"_s);
        QCOMPARE(panel.lblRem.at(0).caption, u"Küche €"_s);
#ifdef Q_OS_LINUX
        // The file that all users share comes first.
        QVERIFY(QDir(folder.path()).mkdir(u"Vantrel"_s));
        const QString shared = folder.filePath(u"Vantrel/Remote.lyt"_s);
        const QByteArray before = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", folder.path().toUtf8());
        QCOMPARE(FindLayoutFile(u"/a"_s), u"/a/Remote.lyt"_s);
        QVERIFY(QFile::copy(path, shared));
        QCOMPARE(FindLayoutFile(u"/a"_s), shared);
        qputenv("XDG_DATA_HOME", before);
#endif
    }

    void ElementsBeyondTheLimit() {
        for (int i = 1; i <= 300; ++i) {
            ParseLayoutLine(panel, u"[POS]0,0[SIZE]9,9[TEXT]x[REMOTE]tv[COMMAND]c%1"_s.arg(i), false);
            ParseLayoutLine(panel, u"[LBL]0,0[SIZE]9,9[TEXT]x"_s, true);
            ParseLayoutLine(panel, u"[MOD]0,0[SIZE]9,9[PANEL]x"_s, true);
        }
        QCOMPARE(panel.cmdRem.size() + panel.lblMain.size() + panel.cmdModeP.size(), size_t(3 * 256));
        QCOMPARE(panel.CommandList.back(), u"c256"_s);
        QCOMPARE(panel.CommandList.front(), QString());
    }

private:
    void Write(const QByteArray& bytes) const {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    void Load(const QString& text) {
        Write(text.toUtf8());
        QCOMPARE(LoadRemote(panel, path, MainSection), LayoutResult::Loaded);
    }

    QTemporaryDir folder;
    QString path;
    PanelModel panel;
};

SUITE(LayoutTest);

#include "layout_test.moc"
