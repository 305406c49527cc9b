#include "base/code_page.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;

class CodePageTest : public QObject {
    Q_OBJECT

private slots:
    void EveryByteSurvives() {
        QByteArray all;
        for (int i = 0; i < 256; ++i)
            all.append(char(i));
        QCOMPARE(ToCodePage(FromCodePage(all)), all);
    }

    void KnownCharacters() {
        QCOMPARE(ToCodePage(u"Überschrift €„“…œŸ"), QByteArray("\xDC"
                                                               "berschrift \x80\x84\x93\x85\x9C\x9F"));
    }

    void WhatThePageLacksIsOneQuestionMark() {
        QCOMPARE(ToCodePage(u"aĀb😀c"), QByteArray("a?b?c"));
        const char16_t lone[] = {'x', 0xD83D, 'y', 0xDE00};
        QCOMPARE(ToCodePage(QStringView(lone, 4)), QByteArray("x?y?"));
    }

    void FileText() {
        QCOMPARE(DecodeFileText("\xEF\xBB\xBFK\xC3\xBC"), u"Kü"_s);
        QCOMPARE(DecodeFileText("K\xFC"), u"Kü"_s);
        QCOMPARE(DecodeFileText("\xEF\xBB"), u"ï»"_s);
    }
};

SUITE(CodePageTest);

#include "code_page_test.moc"
