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

QByteArray Pages(int netcommand, const QByteArray& name, const QList<int>& offsets) {
    QByteArray requests;
    for (const int offset : offsets)
        requests += Request(netcommand, offset == 0 ? name : QByteArray(), {}, offset);
    return requests;
}

QByteArray Flash(int netcommand, int bus, int address) {
    return Request(netcommand, {}, {}, bus * 256 + address);
}

const QByteArray Office = "b\xFCro";

} // namespace

class SetsTest : public QObject {
    Q_OBJECT

private slots:
    // What comes back is byte for byte what was sent, in pages of 30.
    void TranslatorRoundTrip() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        QByteArrayList elements;
        for (int i = 0; i < 31; ++i)
            elements.append(Element(i));
        client.socket.write(elements.join() + Request(22, Office, {}, 1));
        for (int i = 0; i < 32; ++i)
            QCOMPARE(client.Frame(), Golden::Hex("00 00 00 00 08 00 01 00"));
        client.socket.write(Pages(21, Office, {0, 30}) + Request(51));
        QCOMPARE(client.Frame(),
                 Golden::Join({Golden::Hex("00 00 00 00 00 10 08 00"), Golden::Hex("00 00 1E 00 1F 00 01 00"),
                               elements.first(30).join()}));
        QCOMPARE(client.Frame(), Golden::Join({Golden::Hex("00 00 00 00 98 00 08 00"),
                                               Golden::Hex("1E 00 01 00 1F 00 00 00"), elements[30]}));
        QVERIFY(client.Frame().endsWith(Office.leftJustified(80, '\0')));
        client.socket.write(Request(21, "none"));
        QCOMPARE(ResultText(client.Frame()), QByteArray("There is no set \"none\"."));
    }

    void DatabaseRoundTrip() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        QByteArrayList elements;
        for (int number = 1; number <= 13; ++number)
            elements.append(DatabaseElement(number));
        client.socket.write(Golden::DatabaseGlobal() + elements.join() + Request(48, "Garten"));
        for (int i = 0; i < 15; ++i)
            QCOMPARE(client.Frame().size(), 8);
        client.socket.write(Pages(49, "Garten", {0, 1, 13}) + Request(52));
        // The settings are entry 0 and have a page of their own, whose size tells it from others.
        QCOMPARE(client.Frame(),
                 Golden::Join({Golden::Hex("00 00 00 00 00 05 0F 00"), Golden::Hex("00 00 01 00 0E 00 01 00"),
                               Golden::DatabaseGlobal()}));
        QCOMPARE(client.Frame(),
                 Golden::Join({Golden::Hex("00 00 00 00 70 12 0F 00"), Golden::Hex("01 00 0C 00 0E 00 01 00"),
                               elements.first(12).join()}));
        QCOMPARE(client.Frame(), Golden::Join({Golden::Hex("00 00 00 00 98 01 0F 00"),
                                               Golden::Hex("0D 00 01 00 0E 00 00 00"), elements[12]}));
        QCOMPARE(Number(client.Frame(), 2), 2);

        // A database of the settings alone has one page, the last.
        client.socket.write(Golden::DatabaseGlobal() + Request(48, "leer") + Pages(49, "leer", {0}));
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(client.Frame().sliced(8, 8), Golden::Hex("00 00 01 00 01 00 00 00"));
    }

    void NamesThatExist_data() {
        QTest::addColumn<int>("store");
        QTest::addColumn<QByteArray>("set");
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("translator") << 22 << Element(0) << QByteArray("Demo");
        QTest::newRow("database") << 48 << Golden::DatabaseGlobal() << QByteArray("Haus");
    }

    void NamesThatExist() {
        QFETCH(int, store);
        QFETCH(QByteArray, set);
        QFETCH(QByteArray, name);
        GreetedServer practice(Request(store, name) + set + Request(store, name, {}, 1) +
                               Request(store, {}, {}, 2) + Request(store, name, {}, 2) + set +
                               Request(store, name));
        PracticeClient& client = practice.client;
        QCOMPARE(ResultText(client.Frame()), QByteArray("No set was sent."));
        QCOMPARE(client.Frame().size(), 8);
        const QByteArray asked = client.Frame();
        QCOMPARE(asked.sliced(10, 4), Golden::Hex("23 00 00 00"));
        QCOMPARE(ResultText(client.Frame()), QByteArray("The set needs a name."));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(client.Frame().size(), 8);
    }

    // A refused or a lost element spoils the set, but the transfer comes to its end; the next one is whole.
    void ElementsThatAreMissing() {
        GreetedServer practice;
        PracticeClient& client = practice.client;
        practice.server.GetOutcomes().refusedTranslatorElements = {1};
        practice.server.GetOutcomes().refusedDatabaseElements = {0};
        client.socket.write(Element(0) + Element(1) + Element(2) + Request(22, "x") + Flash(23, 7, 2) +
                            Element(0) + Element(2) + Request(22, "x") + Element(0) + Request(22, "x"));
        QCOMPARE(client.Frame().size(), 8);
        const QByteArray refusal("Element 1 of the set was refused.");
        QCOMPARE(ResultText(client.Frame()), refusal);
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(ResultText(client.Frame()), refusal);
        QCOMPARE(ResultText(client.Frame()), refusal);
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(TypeOf(client.Frame()), 23);
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(ResultText(client.Frame()),
                 QByteArray("Element 2 of the set came where element 1 was due."));
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(client.Frame().size(), 8);

        client.socket.write(Golden::DatabaseGlobal() + DatabaseElement(1) + Request(48, "x"));
        QVERIFY(!ResultText(client.Frame()).isEmpty());
        QCOMPARE(client.Frame().size(), 8);
        QCOMPARE(ResultText(client.Frame()), QByteArray("The settings of the database were refused."));
        QCOMPARE(practice.server.GetWorld().databaseSets.Names(), QStringList(u"Haus"_s));
    }

    void Flashes() {
        GreetedServer practice(Element(0) + Flash(23, 7, 2) + Flash(23, 1, 0) + Flash(23, 40, 3) +
                               Golden::DatabaseGlobal() + DatabaseElement(1) + DatabaseElement(2) +
                               Flash(47, 5, 0) + Flash(47, 0, 0));
        PracticeClient& client = practice.client;
        const auto outcome = [&client] {
            const QByteArray frame = client.Frame();
            return TypeOf(frame) == 4 ? QByteArray(frame.constData() + 8 + 104) : QByteArray();
        };
        const auto memory = [&client] { return client.Frame().sliced(8).replace('\0', ""); };
        QCOMPARE(client.Frame().size(), 8);
        for (const char* expected : {"F1", "F0", "F0"})
            QCOMPARE(outcome(), QByteArray(expected));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(client.Frame().size(), 8);
        // Words: 64 of the settings, 24 and 2 of the remote and its text, 6 and 3 of the action and its data.
        QCOMPARE(memory(), QByteArray("99128K101"));
        QCOMPARE(outcome(), QByteArray("F2"));
        QCOMPARE(memory(), QByteArray("9964K101"));
        QCOMPARE(outcome(), QByteArray("F0"));

        // Where the memory is too small nothing follows the figures.
        Outcomes& outcomes = practice.server.GetOutcomes();
        outcomes = {.translatorFlashFails = true, .databaseFlashFails = true, .databaseWords = 32768};
        client.socket.write(Flash(47, 4, 6) + Flash(47, 5, 0) + Flash(23, 7, 2));
        QCOMPARE(memory(), QByteArray("3276864K101"));
        QCOMPARE(memory(), QByteArray("32768128K101"));
        QCOMPARE(outcome(), QByteArray("F0"));
        QCOMPARE(outcome(), QByteArray("F0"));
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
            for (int i = 0; i < 5; ++i)
                QCOMPARE(practice.client.Frame().size(), 8);
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
