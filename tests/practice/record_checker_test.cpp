#include "practice_client.h"

#include "practice/describe.h"
#include "practice/learn_param.h"
#include "practice/record_checker.h"
#include "practice/request_table.h"

using namespace Qt::StringLiterals;

namespace {

/// What the row of a request finds, put together.
QString FaultsOf(const QByteArray& bytes) {
    const RequestRow* row = FindRow(bytes);
    if (!row || row->size != bytes.size())
        return u"no row fits"_s;
    return row->check(*row, bytes).join(u'\n');
}

} // namespace

class RecordCheckerTest : public QObject {
    Q_OBJECT

private slots:
    void GoodRecordsPass() {
        for (const QByteArray& bytes :
             {Golden::PressTvPower(), Golden::SetMode(), Golden::LcdText(), Golden::SerialText(),
              Golden::StoreCcf(), Golden::TranslatorMacro(), Golden::DatabaseGlobal(),
              Golden::DatabaseRemote(), Golden::DatabaseBinaryAction()})
            QCOMPARE(FaultsOf(bytes), QString());
        QCOMPARE(CheckRecord<CommandRequest>(Golden::LearnAtLimits()), QStringList());
    }

    void FaultsNameTheirField() {
        const QByteArray nul(1, '\0');
        const QByteArray command = Golden::PressTvPower();
        const std::tuple<QByteArray, int, QByteArray, QString> rows[] = {
            {command, 1, "\x05", u"CommandRequest: byte 1 is 0x05"_s},
            {command, 8, "\xD3", u"CommandRequest: field \"version\" (offset 8): 211"_s},
            {command, 2, "\xFF\xFF", u"field \"timeout\" (offset 2): -1"_s},
            {command, 17, nul,
             u"CommandRequest: field \"remote\" (offset 12): byte 17 is 0x00 behind the NUL, a blank was "
             "expected"_s},
            {command, 12, " v", u"field \"remote\" (offset 12): the text begins"_s},
            {command, 96, " ", u"field \"command\" (offset 92): the text ends"_s},
            {command, 97, " ", u"field \"command\" (offset 92): no NUL"_s},
            {Golden::SetMode(), 3, "\x01", u"ModeRequest: byte 3"_s},
            {Golden::LcdText(), 2, "\x01", u"LcdRequest: field \"kind\" (offset 2): 1"_s},
            {Golden::LcdText(), 213, nul, u"field \"text\" (offset 14): byte 213 is a NUL"_s},
            {Golden::SerialText(), 12, "\x01", u"SerialRequest: field \"text\" (offset 16): byte 17 "_s},
            {Golden::StoreCcf(), 4, "x", u"field \"reserved\" (offset 4): 120"_s},
            {Golden::TranslatorMacro(), 103, nul, u"TranslatorRequest: field \"remote\""_s},
            {Golden::DatabaseGlobal(), 1260, nul, u"IRDBGlobalRecord: field \"tail\""_s},
            {Golden::DatabaseGlobal(), 735, "x", u"field \"minimumCommand(3)\" (offset 686)"_s},
            {Golden::DatabaseRemote(), 17, "\x12", u"field \"ElementKind\" (offset 17): 18"_s},
            {Golden::DatabaseBinaryAction(), 391, nul, u"byte 391 is 0x00 behind the 5 in use"_s},
        };
        for (const auto& [golden, at, bytes, words] : rows) {
            const QString found = FaultsOf(QByteArray(golden).replace(at, bytes.size(), bytes));
            QVERIFY2(found.contains(words), qPrintable(found));
        }
    }

    // The flag byte of a learn request is a number in a text field; 0 must not be taken for a stray NUL.
    void FlagByte() {
        QByteArray learn = Golden::LearnAtLimits();
        for (const char flag : {'\0', '\x01', '\x3F'}) {
            learn.replace(12, 80, QByteArray(1, flag) + '\0' + QByteArray(78, ' '));
            QCOMPARE(FaultsOf(learn), QString());
        }
        learn[14] = 'x';
        QVERIFY(FaultsOf(learn).contains(u"field \"remote\" (offset 12): byte 14"));
        QVERIFY(FaultsOf(Golden::LearnAtLimits()).contains(u"more than one character"));
    }

    void SendParamInWords() {
        QCOMPARE(DescribeSendParam(0x4001FFFF), u"all buses, mask FFFF, LED default"_s);
        QCOMPARE(DescribeSendParam(0x00010000 | 3 << 19 | 1 << 17 | 0x12),
                 u"bus 3, mask 0012, LED internal"_s);
        QCOMPARE(DescribeSendParam(qint32(0x80000000u | 7u << 27 | 1u << 17)),
                 u"any bus, no mask, LED output 16"_s);
        QCOMPARE(
            DescribeSendParam(0x4000FFFF | 1 << 27),
            u"all buses, no mask (FFFF is named in vain), LED default (bits 27 to 29 hold 1, but bit 31 is "
            "clear)"_s);
    }

    void ParametersInWords() {
        const std::tuple<int, quint32, int, QString> rows[] = {
            {4, (128u | 32 | 9) << 16 | 2 << 8 | 7, 0,
             u"old form, bus 2, address 7, receiver 455 kHz, calibration every 10, IR time-out 15 ms"_s},
            {8, 0x8000'0000u | (3u * 16 | 15 | 26 * 64 | 0x1000 | 2 * 0x2000) << 16 | 0x80 | 42, 0x3F,
             u"new form, bus 0, all devices, receiver 38 kHz external on channel 2 (26), calibration every "
             "75, IR time-out 250 ms, tolerance 680 µs, no sort, B&O, toggle bit mapped out, long presses"_s},
            {3, 0x8000'0000u | (8u | 5 * 64 | 7 * 2048 | 16384) << 16 | 12 << 8 | 0x80 | 76, 1,
             u"new form, bus 12, local device, receiver 455 kHz plasma (5), calibration none, IR time-out "
             "5 ms, tolerance 960 µs, no sort, B&O, toggle bit mapped out"_s},
            {4, 0x0800'0080u | 3 << 16 | 99, 0x40,
             u"odd: the address is none; the time-out code is 3; bits 27 and 28 aren't 0 and 1; bits 0 and 2 "
             "of the flags hold 0 and not 5; bits 6 and 7 of the flags aren't 0"_s}};
        for (const auto& [netcommand, param, flags, words] : rows) {
            const QString found =
                ReadLearnParam(
                    Decode<CommandRequest>(Request(netcommand, QByteArray(1, char(flags)), "x", param)))
                    .Words();
            QVERIFY2(found.endsWith(words), qPrintable(found));
        }
    }
};

SUITE(RecordCheckerTest);

#include "record_checker_test.moc"
