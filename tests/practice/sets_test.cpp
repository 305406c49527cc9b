#include "practice_client.h"

#include "practice/request_table.h"
#include "practice/world_options.h"

#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// An element of a translator set with this index, of 136 bytes.
QByteArray Element(int index) {
    return Golden::TranslatorMacro().replace(12, 4, Bytes(index, 4));
}

/// An element of a database with this number, of 392 bytes.
QByteArray DatabaseElement(int number) {
    const QByteArray record = number % 2 ? Golden::DatabaseRemote() : Golden::DatabaseBinaryAction();
    return QByteArray(record).replace(12, 4, Bytes(number, 4));
}

QByteArray Flash(int netcommand, int bus, int address) {
    return Request(netcommand, {}, {}, bus * 256 + address);
}

QString Acks(int count) {
    return QStringList(count, u"ack"_s).join(u"; "_s);
}

} // namespace

class SetsTest : public QObject {
    Q_OBJECT

private slots:
    // What comes back is byte for byte what was sent, in pages of 30 and 12. The settings of a database are
    // entry 0 and have a page of their own.
    void RoundTrips() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        const auto check = [&client](const char* head, const QByteArray& elements) {
            const QByteArray page = client.Frame();
            QCOMPARE(page.sliced(6, 10), QByteArray::fromHex(head));
            QCOMPARE(page.sliced(16), elements);
        };
        constexpr qsizetype firstPage = 4080;    // bytes of 30 elements
        constexpr qsizetype firstEntries = 4704; // of 12
        QByteArray elements;
        QByteArray entries;
        for (int i = 0; i < 31; ++i)
            elements += Element(i);
        for (int number = 1; number <= 13; ++number)
            entries += DatabaseElement(number);
        client.socket.write(elements + Request(22, "b\374ro", {}, 1) + Golden::DatabaseGlobal() + entries +
                            Request(48, "Garten") + Golden::DatabaseGlobal() + Request(48, "leer"));
        QCOMPARE(client.Told(32 + 15 + 2), Acks(32 + 15 + 2));
        client.socket.write(Request(21, "b\374ro") + Request(21, {}, {}, 30) + Request(49, "Garten") +
                            Request(49, {}, {}, 1) + Request(49, {}, {}, 13) + Request(49, "leer"));
        check("0800 0000 1E00 1F00 0100", elements.first(firstPage));
        check("0800 1E00 0100 1F00 0000", elements.sliced(firstPage));
        check("0F00 0000 0100 0E00 0100", Golden::DatabaseGlobal());
        check("0F00 0100 0C00 0E00 0100", entries.first(firstEntries));
        check("0F00 0D00 0100 0E00 0000", entries.sliced(firstEntries));
        check("0F00 0000 0100 0100 0000", Golden::DatabaseGlobal());
        client.socket.write(Request(51) + Request(52) + Request(21, "none"));
        QCOMPARE(
            client.Told(3),
            u"names 16: 3 = Wohnzimmer,Demo,büro; names 17: 3 = Haus,Garten,leer; error 9/0 There is no set \"none\"."_s);
    }

    void NamesThatExist() {
        for (const auto& [store, set, name] :
             {std::tuple(22, Element(0), QByteArray("Demo")),
              std::tuple(48, Golden::DatabaseGlobal(), QByteArray("Haus"))}) {
            GreetedServer practice(Request(store, name) + set + Request(store, name, {}, 1) +
                                   Request(store, {}, {}, 2) + Request(store, name, {}, 2) + set +
                                   Request(store, name));
            QCOMPARE(
                practice.client.Told(7),
                u"error 10/0 No set was sent.; ack; overwrite?; error 10/0 The set needs a name.; ack; ack; ack"_s);
        }
    }

    // A refused or a lost element spoils the set, but the transfer comes to its end; the next one is whole.
    void ElementsThatAreMissing() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        practice.server.GetOutcomes().refusedTranslatorElements = {1};
        practice.server.GetOutcomes().refusedDatabaseElements = {0};
        client.socket.write(Element(0) + Element(1) + Element(2) + Request(22, "x") + Flash(23, 7, 2) +
                            Element(0) + Element(2) + Request(22, "x") + Element(0) + Request(22, "x"));
        QCOMPARE(
            client.Told(11),
            u"ack; error 10/0 Element 1 of the set was refused.; ack; error 10/0 Element 1 of the set was "
            "refused.; error 10/0 Element 1 of the set was refused.; ack; log <Element 2 of the set came "
            "where element 1 was due.\r\n>; ack; error 10/0 Element 2 of the set came where element 1 was "
            "due.; ack; ack"_s);
        client.socket.write(Golden::DatabaseGlobal() + DatabaseElement(1) + Request(48, "x"));
        QCOMPARE(
            client.Told(3),
            u"error 10/0 The settings of the database were refused.; ack; error 10/0 The settings of the "
            "database were refused."_s);
        QCOMPARE(practice.server.GetWorld().databaseSets.Names(), QStringList(u"Haus"_s));
    }

    void Flashes() {
        GreetedServer practice(Element(0) + Flash(23, 7, 2) + Flash(23, 1, 0) + Flash(23, 40, 3) +
                               Golden::DatabaseGlobal() + DatabaseElement(1) + DatabaseElement(2) +
                               Flash(47, 5, 0) + Flash(47, 0, 0));
        PracticeClient& client = practice.client;
        // Words: 64 of the settings, 24 and 2 of the remote and its text, 6 and 3 of the action and its data.
        QCOMPARE(
            client.Told(11),
            u"ack; translator flash 1; translator flash 0; translator flash 0; ack; ack; ack; memory 99 128K "
            "1; database flash 1; memory 99 64K 1; database flash 0"_s);
        // Where the memory is too small nothing follows the figures.
        Outcomes& outcomes = practice.server.GetOutcomes();
        outcomes = {.translatorFlashFails = true, .databaseFlashFails = true, .databaseWords = 32768};
        client.socket.write(Flash(47, 4, 6) + Flash(47, 5, 0) + Flash(23, 7, 2));
        QCOMPARE(client.Told(4),
                 u"memory 32768 64K 0; memory 32768 128K 1; database flash 0; translator flash 0"_s);
    }

    // What the server offers by itself would pass if a client sent it.
    void SetsOfTheLivingRoom() {
        const World world = World::LivingRoom();
        const auto check = [](const QByteArray& record) {
            const RequestRow* row = FindRow(record);
            QVERIFY(row && row->size == record.size());
            QCOMPARE(row->check(*row, record), QStringList());
        };
        const RecordSet& translator = *world.translatorSets.Find(u"Wohnzimmer"_s);
        QVERIFY(translator.elements.size() > 30);
        const RecordSet& database = *world.databaseSets.Find(u"Haus"_s);
        QVERIFY(database.elements.size() > 12);
        for (const QByteArray& record : translator.elements + database.elements)
            check(record);
        check(database.settings);
        for (const char kind : Golden::Hex("00 01 03 04 05 06 07 48 67"))
            QVERIFY(std::any_of(translator.elements.begin(), translator.elements.end(),
                                [kind](const QByteArray& element) { return element[17] == kind; }));
    }

    // Sets outlive the server, whatever their names; a file that is none is refused by name.
    void SetsInAFolder() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"sets"_s);
        const QString text = QString::fromLatin1("../\xFC. %41");
        QString error;
        const auto use = [&](World& world) {
            return ReadOptions<AddWorldOptions, ReadWorldOptions>({u"--folder"_s, path}, world, error);
        };
        {
            GreetedServer practice;
            QVERIFY2(use(practice.server.GetWorld()), qPrintable(error));
            practice.client.socket.write(Element(0) + Element(1) + Request(22, text.toLatin1(), {}, 1) +
                                         Golden::DatabaseGlobal() + Request(48, "Haus", {}, 2));
            QCOMPARE(practice.client.Told(5), Acks(5));
        }
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(u"sets"_s));
        World world = World::LivingRoom();
        QVERIFY2(use(world), qPrintable(error));
        QCOMPARE(world.translatorSets.Names(), (QStringList{u"Wohnzimmer"_s, u"Demo"_s, text}));
        QCOMPARE(world.translatorSets.Find(text)->elements, (QByteArrayList{Element(0), Element(1)}));
        QCOMPARE(world.databaseSets.Find(u"Haus"_s)->settings, Golden::DatabaseGlobal());
        QVERIFY(world.databaseSets.Find(u"Haus"_s)->elements.isEmpty());

        QFile broken(path + u"/x.translator"_s);
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("x") == 1);
        broken.close();
        QVERIFY(!use(world));
        QVERIFY2(error.contains(u"x.translator"), qPrintable(error));
    }
};

SUITE(SetsTest);

#include "sets_test.moc"
