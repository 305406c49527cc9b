#include "link/replies.h"

#include "support/golden.h"
#include "support/suite.h"

using Golden::Ascii;
using Golden::Hex;
using Wire::TextForm;
using namespace Qt::StringLiterals;

namespace {

/// Where two byte strings part, in words; empty if they don't.
QString Difference(const QByteArray& actual, const QByteArray& expected) {
    if (actual.size() != expected.size())
        return u"%1 bytes instead of %2"_s.arg(actual.size()).arg(expected.size());
    for (qsizetype i = 0; i < actual.size(); ++i)
        if (actual[i] != expected[i])
            return u"offset %1: %2 instead of %3"_s.arg(i)
                .arg(quint8(actual[i]), 2, 16)
                .arg(quint8(expected[i]), 2, 16);
    return {};
}

/// A row that holds a record against its golden bytes, in both directions.
template <class Record> void Row(const char* name, const QByteArray& golden, const Record& record) {
    QTest::newRow(name) << golden << Encode(record) << Encode(Decode<Record>(golden));
}

QByteArray FilledUp(const QByteArray& payload, qsizetype size) {
    return payload.leftJustified(size, '\0');
}

template <class Element>
void PageRow(const char* name, const QByteArray& golden, const PageHead& head,
             const std::vector<Element>& elements) {
    const auto decoded = DecodePage<Element>(FilledUp(golden, ListPage<Element>::Size));
    QTest::newRow(name) << golden << EncodePage(ListPage<Element>{head, elements}) << EncodePage(decoded);
}

// Values in the order of the fields, which is that of the golden bytes.

const TranslatorRequest Macro{0x010203E8, 0x3A, 103,      8,         0x95,  750,
                              40,         39,   u"amp"_s, u"mute"_s, 65534, qint32(0x80007FFF),
                              255,        1,    0x81,     3};
const IRDBElementRecord Remote{
    1, 0, 8, 0x0A, 0, 0x01020304, 8082, u"amp"_s, {}, QByteArray("%r!\0", 4).leftJustified(256, ' ')};
const QByteArray Binary = QByteArray("\0\xFE\0 \0", 5).leftJustified(256, ' ');
const IRDBElementRecord BinaryAction{2,        0xCB,      13,    0x0B, 5, qint32(0xE0000001), qint16(65534),
                                     u"amp"_s, u"mute"_s, Binary};
const DeviceEntry Device{.SendMask = 0x84030201,
                         .Mode = 0x11,
                         .ExtMode = 0x12,
                         .ExtMode2 = 0x13,
                         .Capabilities = 0xA4232221,
                         .ExtCapabilities = 0xB4333231,
                         .ExtCapabilities2 = 0xC4434241,
                         .Receivers = 0x51,
                         .ReceiveTimeout = 0x52,
                         .ReceiveTiming = 0x53,
                         .CodeFlags = 0x54,
                         .ToggleConfig = 0x55,
                         .IOFlags = 0x56,
                         .SerialFlags = 0x57,
                         .ExtFlags = 0x58,
                         .Version = u"LV6.12.03"_s,
                         .HotRemote = u"tv"_s,
                         .HotCommand = u"power"_s,
                         .HotRemote2 = u"@@@~~~LAN~~~@@@"_s,
                         .HotCommand2 = QByteArray("\x02\0\x2B\x3C\0\x5E", 6).leftJustified(20, '\0')};

/// `text` in a field of `width`, between two guards that must survive.
QByteArray Field(int width, TextForm form, const QString& text) {
    QByteArray bytes(width + 2, '#');
    Wire::PutText(std::span(bytes.data() + 1, size_t(width)), form, text);
    return bytes;
}

struct RawRecord {
    static constexpr int Size = 8;
    QByteArray raw;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Raw("raw", 1, 6, '.', r.raw);
    }
};

} // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void GoldenBytes_data() {
        QTest::addColumn<QByteArray>("golden");
        QTest::addColumn<QByteArray>("encoded");
        QTest::addColumn<QByteArray>("again"); // decoded, and encoded once more

        Row("press of a button", Golden::PressTvPower(),
            CommandRequest{Netcommand::SendCommand, 0, 0x103, u"tv"_s, u"power"_s, 0});
        Row("learn request at its limits", Golden::LearnAtLimits(),
            CommandRequest{Netcommand::LearnRawRepeat, 30000, qint32(0x800003FE),
                           u"Küche-"_s + QString(73, u'x') + u'!', u"Öffnen €"_s, 255});
        Row("mode", Golden::SetMode(),
            ModeRequest{.Mode = 0x21,
                        .DeviceTag = 7 * 256 + 15,
                        .HotRemote = u"tv"_s,
                        .HotCommand = u"power"_s,
                        .HotRemote2 = u"player"_s,
                        .HotCommand2 = u"stop"_s,
                        .SendMask = qint32(0xFFFF7FFE),
                        .ExtMode = 0x31,
                        .ExtMode2 = 0x32,
                        .mac = {0x02, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E},
                        .ExtParam = {0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58}});
        Row("LCD", Golden::LcdText(), LcdRequest{u" Guten Tag, Küche"_s.leftJustified(200)});
        Row("serial text", Golden::SerialText(),
            SerialRequest{qint32(0x81020304), 8, QByteArray("VOL +\xFC\r\n").leftJustified(256, ' ')});
        Row("CCF code", Golden::StoreCcf(),
            CodeRequest{Netcommand::StoreCcf, u" tv "_s, u" power "_s, u"0000 006D 0001 0000 0010 0020"_s});
        Row("translator element", Golden::TranslatorMacro(), Macro);
        const auto four = [](const QString& name) {
            return std::array<QString, 4>{name + u'0', name + u'1', name + u'2', name + u'3'};
        };
        Row("database settings", Golden::DatabaseGlobal(),
            IRDBGlobalRecord{.GlobalFlags = 0x6D,
                             .ElementKind = 9,
                             .port = qint16(50001),
                             .actionFormat = uR"(%r,%c\r\n)"_s,
                             .errorFormat = u"ERROR %e"_s,
                             .okFormat = u"OK"_s,
                             .mode = {0x81, 0x02, 0x83, 0x04},
                             .minimum = {0x11, 0x12, 0x13, 0x14},
                             .maximum = {0x21, 0x22, 0x23, 0xE4},
                             .hysteresis = {0x31, 0x32, 0x33, 0x34},
                             .minimumLed = {6, 7, 8, 9},
                             .maximumLed = {5, 10, 11, 1},
                             .minimumMask = {65535, 32769, 16386, -3},
                             .maximumMask = {0xFF0, 0xF00F, 0xCC33, qint32(0x81020304)},
                             .minimumRemote = four(u"min-remote-"_s),
                             .minimumCommand = four(u"min-command-"_s),
                             .maximumRemote = four(u"max-remote-"_s),
                             .maximumCommand = four(u"max-command-"_s),
                             .ip = qint32(0xC0A80704)});
        Row("remote of a database", Golden::DatabaseRemote(), Remote);
        Row("binary action of a database", Golden::DatabaseBinaryAction(), BinaryAction);

        Row("bare header", Golden::BareHeader(), ReplyHeader{8, ReplyType::Received});
        Row("result", Golden::Result(), ResultReply{ResultCode::LearnFailed, 258, u"Zeitüberlauf"_s});
        Row("learned data", Golden::LearnedData(),
            LearnedDataReply{.Address = 0x1234,
                             .Mode = 0x15,
                             .TimeCount = 6,
                             .RepeatCount = 3,
                             .RepeatPause = 0x2D,
                             .PauseLen = {0x1001, 0x2002, 0x3003, 0x4004, 0x5005, -1},
                             .PulseLen = {0x111, 0x212, 0x313, 0x414, 0x515, -32768},
                             .Data = u"0110"_s});
        Row("received", Golden::Received(), ReceivedReply{u"tv"_s, u"power"_s, u"bus 1, LED 2"_s});
        Row("learn state", Golden::LearnState(), LearnStateReply{3, 38, u"amp"_s, 258, 772, u"1A2B"_s});
        Row("server version", Golden::ServerVersion(), ServerInfoReply{u"V6.12.03"_s});
        Row("database status", Golden::DatabaseStatus(),
            IRDBStatusRecord{u"30123"_s, u"128K"_s, u"12"_s, u"345"_s, u"6789"_s});
        Row("analog values", Golden::AnalogPlain(),
            AnalogValues{{1, 3, 4, 5, 6, 7, 8, 9}, {0x80, 0xFF, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26}});
        Row("analog temperatures", Golden::AnalogDegrees(),
            AnalogTemperatures{{2, 2, 2, 2, 0, 1, 3, 4}, {2150, -500, 32767, -32768, 1, 2, 3, -1}});
        Row("device", Golden::Device(), Device);

        PageRow<NameElement>("names", Golden::NamesPage(), {40, 2, 300, 1},
                             {{u"amp"_s}, {u"Küche "_s + QString(73, u'n') + u'!'}});
        PageRow<CommandElement>("commands", Golden::CommandsPage(), {200, 3, 203, 0},
                                {{u"power"_s}, {u"a command of 20 chr."_s}, {u"mute"_s}});
        PageRow<BusElement>(
            "buses", Golden::BusesPage(), {3, 2, 6, 9},
            {{0x04030201, qint32(0x88070605), u"Küchenbus"_s, u"V2.10"_s, 0x0C0B0A09, 0xE1, 0xE2, 0xE3, 0xE4},
             {0x24232221, 0x28272625, u"Bus "_s + QString(55, u'b') + u'!', u"V3.11.07"_s, qint32(0xAC2B2A29),
              0xD1, 0xD2, 0xD3, 0xD4}});
        PageRow<TranslatorRequest>("translator elements", Golden::TranslatorPage(), {5, 1, 1001, 2}, {Macro});
        PageRow<IRDBElementRecord>("database elements", Golden::DatabaseElementPage(), {1, 2, 3, 0},
                                   {Remote, BinaryAction});
    }

    void GoldenBytes() {
        QFETCH(QByteArray, golden);
        QFETCH(QByteArray, encoded);
        QFETCH(QByteArray, again);
        QCOMPARE(Difference(encoded, golden), QString());
        QCOMPARE(Difference(again, golden), QString());
    }

    void StatusEntries() {
        const StatusHead head{.FirstBus = 8, .BusTotal = 16, .LocalAddress = {15, 14, 13, 12, 11, 10, 9, 7}};
        QByteArray page = FilledUp(Encode(head), StatusHead::PageSize);
        for (const int offset : {StatusHead::EntryOffset(2, 5), StatusHead::EntryOffset(7, 15)})
            page.replace(offset, DeviceEntry::Size, Encode(Device));
        QCOMPARE(Difference(page, Golden::StatusPage()), QString());
        QCOMPARE(Encode(Decode<StatusHead>(Golden::StatusPage())), Encode(head));
    }

    void LargestPages() {
        const auto elements = []<class... Element>(int count) {
            const QByteArray head = Encode(PageHead{0, qint16(count), 0, 0});
            const auto clamped = [](const auto& page) {
                return page.head.Count == int(page.elements.size()) ? int(page.head.Count) : -1;
            };
            return QList<int>{clamped(DecodePage<Element>(FilledUp(head, ListPage<Element>::Size)))...};
        };
        const auto of = [&](int count) {
            return elements.
            operator()<NameElement, CommandElement, BusElement, TranslatorRequest, IRDBElementRecord>(count);
        };
        QCOMPARE(of(12), (QList<int>{12, 12, 12, 12, 12}));
        QCOMPARE(of(32767), (QList<int>{40, 200, 40, 30, 12}));
        for (const int negative : {-1, -32768})
            QCOMPARE(of(negative), (QList<int>{0, 0, 0, 0, 0}));
    }

    void HeaderCountsItself() {
        QCOMPARE(EncodeReply(ReplyType::Received), Golden::BareHeader());
        QCOMPARE(EncodeReply(ReplyType::Result, Golden::Result()),
                 Hex("00 00 00 00 10 01 01 00") + Golden::Result());
        QCOMPARE(EncodeReply(ReplyType::Status, Golden::StatusPage()).first(8),
                 Hex("00 00 00 00 14 7C 18 00"));
    }

    void Forms() {
        // Fields of eight bytes: trimmed, plain with a NUL, plain, zeroed. "0" is a NUL, "_" a blank.
        const std::pair<QString, QByteArray> rows[] = {
            {u""_s, "0_______ 0_______ ________ 00000000"},
            {u"   "_s, "0_______ ___0____ ________ ___00000"},
            {u" t v  "_s, "t_v0____ _t_v__0_ _t_v____ _t_v__00"},
            {u"tv\t"_s, "tv\t0____ tv\t0____ tv\t_____ tv\t00000"},
            {u"abcdefg"_s, "abcdefg0 abcdefg0 abcdefg_ abcdefg0"},
            {u"abcdefgh"_s, "abcdefgh abcdefgh abcdefgh abcdefgh"},
            {u"abcdefghi"_s, "abcdefgh abcdefgh abcdefgh abcdefgh"},
            {u"  abcdefgh"_s, "abcdefgh __abcdef __abcdef __abcdef"},
            {u"abcdefg hi"_s, "abcdefg_ abcdefg_ abcdefg_ abcdefg_"},
            {u"aĀ😀€z"_s, "a??\x80z0__ a??\x80z0__ a??\x80z___ a??\x80z000"},
            {u"a\0b"_s, "a0b0____ a0b0____ a0b_____ a0b00000"},
        };
        for (const auto& [text, pictures] : rows) {
            QByteArrayList fields;
            for (const auto form :
                 {TextForm::Trimmed, TextForm::PlainNul, TextForm::Plain, TextForm::Zeroed}) {
                const QByteArray field = Field(8, form, text);
                QVERIFY(field.startsWith('#') && field.endsWith('#'));
                fields += field.sliced(1, 8).replace('\0', '0').replace(' ', '_');
            }
            QCOMPARE(fields.join(' '), pictures);
        }
    }

    void IncomingTextEndsAtTheFirstNul() {
        const std::pair<QByteArray, QString> cases[] = {
            {Hex("00") + Ascii("left"), u""_s},
            {Ascii("tv") + Hex("00") + Ascii("mer") + Hex("00"), u"tv"_s},
            {Ascii("b\xE4mer"), u"bämer"_s},
            {Ascii(" tv ") + Hex("00 20"), u" tv "_s},
            {QByteArray(), u""_s}};
        for (const auto& [field, text] : cases)
            QCOMPARE(Wire::GetText(std::span<const char>(field.constData(), size_t(field.size()))), text);
    }

    void RawKeepsNuls() {
        QCOMPARE(Encode(RawRecord{Hex("00 FF 00")}), Hex("00 00 FF 00 2E 2E 2E 00"));
        QCOMPARE(Encode(RawRecord{Hex("01 02 03 04 05 06 07")}), Hex("00 01 02 03 04 05 06 00"));
        QCOMPARE(Decode<RawRecord>(Hex("11 00 FF 00 20 00 00 11")).raw, Hex("00 FF 00 20 00 00"));
    }
};

SUITE(RecordsTest);

#include "records_test.moc"
