#include "link/status_store.h"

#include "link/session_recorder.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

using Raw::Entry;
using Raw::StatusPage;

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

    void Chain() {
        const QString all = u"69 / 0; 43 / 8; 43 / 16; 43 / 24; 43 / 32; 43 / 40; 43 / 48; 43 / 56"_s;
        const std::pair<int, QString> rows[] = {
            {0, u"69 / 0"_s}, {8, u"69 / 0"_s}, {9, u"69 / 0; 43 / 8"_s}, {64, all}, {65, all}};
        for (const auto& [total, requests] : rows) {
            init();
            QVERIFY(store->Request());
            QCOMPARE(link->session.PendingOp, Pending::Status);
            for (int first = 0; opened.isEmpty(); first += 8) {
                QTRY_VERIFY(link->server.Records() > first / 8);
                link->server.Play(StatusPage(first, total));
                QTRY_VERIFY(!opened.isEmpty() || link->server.Records() == first / 8 + 2);
            }
            QCOMPARE(link->server.Log(), requests);
            QCOMPARE(opened.join(u", "), total > 64 ? u"left out, devices"_s : u"devices"_s);
            QCOMPARE(store->BusTotal(), qMin(total, 64));
            QCOMPARE(int(store->Buses().size()), store->BusTotal());
        }
    }

    void Devices() {
        Answer(StatusPage(
            0, 2,
            {{0, 3, Entry("U5.20.00", 0x02000001)}, {1, 15, Entry("S6.04.44xy")}, {2, 0, Entry("X1")}}));
        const auto buses = store->Buses();
        QCOMPARE(buses.size(), 2u); // bus 2 is none of the two
        QCOMPARE(buses[0].devices.size(), 1u);
        QCOMPARE(buses[0].devices[0].address, 3);
        QCOMPARE(buses[0].devices[0].entry.Capabilities, 0x02000001u);
        QCOMPARE(buses[1].localAddress, 1);
        QCOMPARE(buses[1].devices[0].entry.Version, u"S6.04.44  "_s);
    }

    void Routing() {
        // Only the second device has a database; a translator is on a bus that is none of the status.
        const auto page = StatusPage(
            0, 1,
            {{0, 1, Entry("U1.0")}, {0, 9, Entry("E1.0", 0x02000000)}, {1, 0, Entry("X1.0", 0x00000200)}});
        for (const auto& [flags, afterTwo] : {std::pair(u""_s, u"devices, devices"_s),
                                              {u"t"_s, u"no translator, devices"_s},
                                              {u"dh"_s, u"html, database"_s},
                                              {u"td"_s, u"database, no translator"_s}}) {
            init();
            store->OpenHTML = flags.contains(u'h');
            store->OpenDatabase = flags.contains(u'd');
            store->OpenTranslator = flags.contains(u't');
            Answer(page);
            Answer(page);
            QCOMPARE(opened.join(u", "), afterTwo);
        }
    }

    void AnErrorInTheMiddleLeavesTheFlag() {
        store->OpenTranslator = true;
        QVERIFY(store->Request());
        link->server.Play(StatusPage(0, 9));
        QTRY_COMPARE(link->server.Log(), u"69 / 0; 43 / 8"_s);
        QSignalSpy errors(&link->session, &Session::ErrorReported);
        link->server.Play(Raw::Result(6, 0, "no"));
        QTRY_COMPARE(errors.size(), 1);
        QVERIFY(opened.isEmpty());
        Answer(StatusPage(0, 1, {{0, 0, Entry("X1.0", 0x00000200)}}));
        QCOMPARE(opened, QStringList{u"translator"_s});
    }

    void ATotalThatFallsLeavesThePagesTheirBuses() {
        QVERIFY(store->Request());
        link->server.Play(StatusPage(0, 9) + StatusPage(8, 3));
        QTRY_COMPARE(opened, QStringList{u"devices"_s});
        QCOMPARE(store->BusTotal(), 3);
        QCOMPARE(store->Buses().size(), 8u);
    }

    void PagesThatAreNotDueAreDropped() {
        QVERIFY(store->Request());
        for (const int first : {64, 255, 8, 5})
            link->server.Play(StatusPage(first, 255));
        link->server.Play(StatusPage(0, 9) + StatusPage(0, 9) + StatusPage(8, 9));
        QTRY_COMPARE(opened, QStringList{u"devices"_s});
        QTRY_COMPARE(link->server.Log(), u"69 / 0; 43 / 8"_s);
    }

private:
    /// Asks for the status and lets one page answer it.
    void Answer(const QByteArray& page) {
        const auto before = opened.size();
        QVERIFY(store->Request());
        link->server.Play(page);
        QTRY_COMPARE(opened.size(), before + 1);
    }

    std::unique_ptr<LinkedSession> link;
    std::unique_ptr<StatusStore> store;
    QStringList opened;
};

SUITE(StatusStoreTest);

#include "status_store_test.moc"
