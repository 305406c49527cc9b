#include "practice/record_checker.h"

#include "practice/describe.h"
#include "practice/request_table.h"
#include "support/golden.h"
#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

/// What the row of a request finds, put together.
QString Faults(const QByteArray& bytes) {
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
            QCOMPARE(Faults(bytes), QString());
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
            const QString found = Faults(QByteArray(golden).replace(at, bytes.size(), bytes));
            QVERIFY2(found.contains(words), qPrintable(found));
        }
    }

    // The flag byte of a learn request is a number in a text field; 0 must not be taken for a stray NUL.
    void FlagByte() {
        QByteArray learn = Golden::LearnAtLimits();
        for (const char flag : {'\0', '\x01', '\x3F'}) {
            learn.replace(12, 80, QByteArray(1, flag) + '\0' + QByteArray(78, ' '));
            QCOMPARE(Faults(learn), QString());
        }
        learn[14] = 'x';
        QVERIFY(Faults(learn).contains(u"field \"remote\" (offset 12): byte 14"));
        QVERIFY(Faults(Golden::LearnAtLimits()).contains(u"more than one character"));
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
};

SUITE(RecordCheckerTest);

#include "record_checker_test.moc"
