#include "base/address_text.h"
#include "base/code_page.h"
#include "base/number.h"

#include "support/suite.h"

#include <cmath>

using namespace Qt::StringLiterals;

/// Numbers, addresses and characters, as texts and back.
class TextsTest : public QObject {
    Q_OBJECT

private slots:
    void Leading() {
        // Only blanks and tabs may stand in front, and only plain digits with one dot count.
        const std::pair<QString, double> cases[] = {
            {u""_s, 0},        {u" \t 0012"_s, 12}, {u"\u00A012"_s, 0}, {u"\n12"_s, 0},  {u"12 ms"_s, 12},
            {u"1 2"_s, 1},     {u"twelve"_s, 0},    {u"-7"_s, -7},      {u"+7"_s, 7},    {u"-"_s, 0},
            {u"--7"_s, 0},     {u"- 7"_s, 0},       {u"3.25"_s, 3.25},  {u"-.5"_s, -.5}, {u"5."_s, 5},
            {u"1.5.7"_s, 1.5}, {u"1,5"_s, 1},       {u"1e5"_s, 1},      {u"0x1F"_s, 0},  {u"inf"_s, 0},
            {u"\u0661"_s, 0},  {u"12\0x"_s, 12}};
        for (const auto& [text, number] : cases)
            QVERIFY2(LeadingNumber(text) == number, qPrintable(text));
    }

    /// 400 digits are more than a double holds: they end at the end of every range, and nowhere in a crash.
    void HugeNumbers() {
        const QString huge(400, u'9');
        QCOMPARE(RoundToI16(LeadingNumber(huge)), qint16(32767));
        QCOMPARE(RoundToI16(LeadingNumber(u'-' + huge)), qint16(-32768));
        QVERIFY(!WholeInteger<qint32>(huge));
        QVERIFY(!WholeInteger<qint32>(u'-' + huge + u".5"_s));
        QCOMPARE(WholeInteger<qint32>(QString(400, u'0') + u"42"_s), 42);
        QCOMPARE(WholeInteger<qint32>(u"0."_s + huge), 1);
    }

    void Whole() {
        using I16 = std::optional<qint16>;
        using I32 = std::optional<qint32>;
        const std::pair<QString, qint16> both[] = {
            {u"-0"_s, 0},          {u" \t-12 \t"_s, -12},  {u"2.5"_s, 2},  {u"3.5"_s, 4},
            {u"-2.5"_s, -2},       {u"2.49"_s, 2},         {u"2.51"_s, 3}, {u"7."_s, 7},
            {u"32767.4"_s, 32767}, {u"-32768.5"_s, -32768}};
        for (const auto& [text, value] : both) {
            QVERIFY2(WholeInteger<qint16>(text) == I16(value), qPrintable(text));
            QVERIFY2(WholeInteger<qint32>(text) == I32(value), qPrintable(text));
        }
        const std::pair<QString, qint64> onlyWide[] = {{u"32767.5"_s, 32768},
                                                       {u"32768"_s, 32768},
                                                       {u"-32769"_s, -32769},
                                                       {u"2147483647"_s, 2147483647},
                                                       {u"-2147483648"_s, -2147483648}};
        for (const auto& [text, value] : onlyWide) {
            QVERIFY2(!WholeInteger<qint16>(text), qPrintable(text));
            QVERIFY2(WholeInteger<qint32>(text) == I32(value), qPrintable(text));
        }
        for (const QString& text : {u"2147483647.5"_s, u"2147483648"_s, u"-2147483649"_s, u""_s, u"  "_s,
                                    u"12 ms"_s, u"1e2"_s, u"1 2"_s, u"+"_s, u"12\n"_s})
            QVERIFY2(!WholeInteger<qint32>(text) && !WholeInteger<qint16>(text), qPrintable(text));
    }

    void RoundingAndClamping() {
        const std::pair<double, qint16> cases[] = {
            {0.5, 0},         {1.5, 2},           {-1.5, -2},       {750.0 / 16, 47},  {32766.5, 32766},
            {32767.5, 32767}, {-32768.5, -32768}, {-32769, -32768}, {HUGE_VAL, 32767}, {-HUGE_VAL, -32768}};
        for (const auto& [value, rounded] : cases)
            QCOMPARE(RoundToI16(value), rounded);
        QCOMPARE(Clamp<quint8>(-1), quint8(0));
        QCOMPARE(Clamp<quint8>(256), quint8(255));
        QCOMPARE(Clamp<qint16>(40000u), qint16(32767));
        QCOMPARE(Clamp<qint16>(std::numeric_limits<qint64>::min()), qint16(-32768));
        QCOMPARE(Clamp<qint32>(std::numeric_limits<quint64>::max()), std::numeric_limits<qint32>::max());
    }

    void Ports() {
        QCOMPARE(PortToText(-1), u"65535"_s);
        QCOMPARE(PortToText(80), u"00080"_s);
        QCOMPARE(TextToPort(u"00080"), qint16(80));
        QCOMPARE(TextToPort(u"32768"), qint16(-32768));
        QCOMPARE(TextToPort(u"655351"), qint16(-1)); // five characters count
        QCOMPARE(TextToPort(u"-5"), qint16(0));
        QCOMPARE(TextToPort(u""), qint16(0));
    }

    void Addresses() {
        QCOMPARE(TextToIP(u"001002003004"), 0x01020304);
        QCOMPARE(TextToIP(u"192168000001"), qint32(0xC0A80001));
        QCOMPARE(TextToIP(u"999000000001"), qint32(0xFF000001));
        QCOMPARE(TextToIP(u"0010"), 0x01000000);
        QCOMPARE(IPToText(qint32(0xC0A80001)), u"192168000001"_s);
    }

    void HardwareAddresses() {
        const std::array<quint8, 6> mac = {0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0xFF};
        QCOMPARE(TextToMac(u"00:1A:2b-3C.4DFF"_s), mac);
        QCOMPARE(TextToMac({}), (std::array<quint8, 6>{}));
        QCOMPARE(TextToMac(u"zz:1"_s), (std::array<quint8, 6>{0, 1}));
    }

    void CodePage() {
        for (int i = 0; i < 256; ++i)
            QCOMPARE(ToCodePage(FromCodePage(QByteArray(1, char(i)))), QByteArray(1, char(i)));
        QCOMPARE(ToCodePage(u"Über €„“…œŸ"), QByteArray("\334ber \x80\x84\x93\x85\x9C\x9F"));
        // What the page lacks is one question mark.
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

SUITE(TextsTest);

#include "texts_test.moc"
