#include "link/status_store.h"

#include "link/session_recorder.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A device of a page: bus in page, address, version, capabilities.
struct Slot {
    int bus;
    int address;
    QByteArray version;
    quint32 capabilities = 0;
};

QByteArray StatusPage(int firstBus, int total, const std::vector<Slot>& devices = {}) {
    QByteArray page(31756, '\0');
    page[2] = char(firstBus);
    page[3] = char(total);
    for (int bus = 0; bus < 8; ++bus)
        page[4 + bus] = char(firstBus + bus);
    for (const Slot& slot : devices) {
        const int at = 12 + (slot.bus * 16 + slot.address) * 248;
        for (int i = 0; i < 4; ++i)
            page[at + 12 + i] = char(slot.capabilities >> (8 * i));
        page.replace(at + 36, slot.version.size(), slot.version);
    }
    return page;
}

} // namespace

class StatusStoreTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        store.reset();
        link = std::make_unique<LinkedSession>();
        store = std::make_unique<StatusStore>(link->session);
        opened.clear();
        connect(store.get(), &StatusStore::HtmlWanted, this, [this] { opened += u"html"_s; });
        connect(store.get(), &StatusStore::DatabaseWanted, this,
                [this](bool found) { opened += found ? u"database"_s : u"no database"_s; });
        connect(store.get(), &StatusStore::TranslatorWanted, this,
                [this](bool found) { opened += found ? u"translator"_s : u"no translator"_s; });
        connect(store.get(), &StatusStore::DevicesWanted, this, [this] { opened += u"devices"_s; });
        connect(store.get(), &StatusStore::BusesLeftOut, this, [this] { opened += u"left out"_s; });
    }

    void Chain_data() {
        QTest::addColumn<int>("total");
        QTest::addColumn<QString>("requests");
        QTest::addColumn<QStringList>("end");
        const QStringList devices = {u"devices"_s};
        QTest::newRow("none") << 0 << u"69 / 0"_s << devices;
        QTest::newRow("a full page") << 8 << u"69 / 0"_s << devices;
        QTest::newRow("a page and one") << 9 << u"69 / 0; 43 / 8"_s << devices;
        const QString all = u"69 / 0; 43 / 8; 43 / 16; 43 / 24; 43 / 32; 43 / 40; 43 / 48; 43 / 56"_s;
        QTest::newRow("as many as fit") << 64 << all << devices;
        QTest::newRow("one too many") << 65 << all << QStringList{u"left out"_s, u"devices"_s};
    }

    void Chain() {
        QFETCH(int, total);
        QVERIFY(store->Request());
        QCOMPARE(link->session.PendingOp, Pending::Status);
        for (int first = 0; opened.isEmpty(); first += 8) {
            QTRY_VERIFY(link->server.Records() > first / 8);
            link->server.Play(Raw::Reply(24, StatusPage(first, total)));
            QTRY_VERIFY(!opened.isEmpty() || link->server.Records() == first / 8 + 2);
        }
        QTEST(link->server.Log(), "requests");
        QTEST(opened, "end");
        QCOMPARE(store->BusTotal(), qMin(total, 64));
        QCOMPARE(int(store->Buses().size()), store->BusTotal());
    }

    void Devices() {
        Answer(StatusPage(0, 2, {{0, 3, "U5.20.00", 0x02000001}, {1, 15, "S6.04.44xy"}, {2, 0, "X1"}}));
        const auto buses = store->Buses();
        QCOMPARE(buses.size(), 2u); // bus 2 is none of the two
        QCOMPARE(buses[0].devices.size(), 1u);
        QCOMPARE(buses[0].devices[0].address, 3);
        QCOMPARE(buses[0].devices[0].entry.Capabilities, 0x02000001u);
        QCOMPARE(buses[1].localAddress, 1);
        QCOMPARE(buses[1].devices[0].entry.Version, u"S6.04.44  "_s);
    }

    void Routing_data() {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QStringList>("afterTwo");
        QTest::newRow("no flag") << QString() << QStringList{u"devices"_s, u"devices"_s};
        QTest::newRow("translator") << u"t"_s << QStringList{u"no translator"_s, u"devices"_s};
        QTest::newRow("two at once") << u"dh"_s << QStringList{u"html"_s, u"database"_s};
        QTest::newRow("the others") << u"td"_s << QStringList{u"database"_s, u"no translator"_s};
    }

    void Routing() {
        QFETCH(QString, flags);
        store->OpenHTML = flags.contains(u'h');
        store->OpenDatabase = flags.contains(u'd');
        store->OpenTranslator = flags.contains(u't');
        // Only the second device has a database; a translator is on a bus that is none of the status.
        const auto page =
            StatusPage(0, 1, {{0, 1, "U1.0"}, {0, 9, "E1.0", 0x02000000}, {1, 0, "X1.0", 0x00000200}});
        Answer(page);
        Answer(page);
        QTEST(opened, "afterTwo");
    }

    void AnErrorInTheMiddleLeavesTheFlag() {
        store->OpenTranslator = true;
        QVERIFY(store->Request());
        link->server.Play(Raw::Reply(24, StatusPage(0, 9)));
        QTRY_COMPARE(link->server.Log(), u"69 / 0; 43 / 8"_s);
        QSignalSpy errors(&link->session, &Session::ErrorReported);
        link->server.Play(Raw::Result(6, 0, "no"));
        QTRY_COMPARE(errors.size(), 1);
        QVERIFY(opened.isEmpty());
        Answer(StatusPage(0, 1, {{0, 0, "X1.0", 0x00000200}}));
        QCOMPARE(opened, QStringList{u"translator"_s});
    }

    void PagesThatAreNotDueAreDropped() {
        QVERIFY(store->Request());
        for (const int first : {64, 255, 8, 5})
            link->server.Play(Raw::Reply(24, StatusPage(first, 255)));
        link->server.Play(Raw::Reply(24, StatusPage(0, 9)) + Raw::Reply(24, StatusPage(0, 9)) +
                          Raw::Reply(24, StatusPage(8, 9)));
        QTRY_COMPARE(opened, QStringList{u"devices"_s});
        QTRY_COMPARE(link->server.Log(), u"69 / 0; 43 / 8"_s);
    }

private:
    /// Asks for the status and lets one page answer it.
    void Answer(const QByteArray& page) {
        const auto before = opened.size();
        QVERIFY(store->Request());
        link->server.Play(Raw::Reply(24, page));
        QTRY_COMPARE(opened.size(), before + 1);
    }

    std::unique_ptr<LinkedSession> link;
    std::unique_ptr<StatusStore> store;
    QStringList opened;
};

SUITE(StatusStoreTest);

#include "status_store_test.moc"
