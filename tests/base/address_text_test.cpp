#include "base/address_text.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;

class AddressTextTest : public QObject {
    Q_OBJECT

private slots:
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
};

SUITE(AddressTextTest);

#include "address_text_test.moc"
