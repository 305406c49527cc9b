// make_seeds SOURCE_FOLDER SEEDS_FOLDER: writes inputs to begin with, a folder for each target: records put
// together by hand, what the practice server answers to a tour of requests, and the files of the program.

#include "fuzz/record_kinds.h"
#include "link/frame_reader.h"
#include "practice/practice_server.h"
#include "support/golden.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Adds a seed; `control` bytes stand behind it, from which a target takes its numbers.
void Add(const QString& target, const QByteArray& seed, int control = 0, char value = 0) {
    const QDir place(QCoreApplication::arguments().at(2) + u'/' + target);
    place.mkpath(u"."_s);
    const QByteArray bytes = seed + QByteArray(control, value);
    QFile file(place.filePath(QString::number(qHash(bytes, 0), 16)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written", qUtf8Printable(file.fileName()));
}

QByteArray Ask(Netcommand netcommand, const QString& remote = {}, const QString& command = {},
               qint32 param = 0) {
    return Encode(CommandRequest{netcommand, 0, param, remote, command, 0});
}

/// All that the program asks of a server, by the records of the program and by those put together by hand.
QByteArray Tour(const World& world) {
    using enum Netcommand;
    const QString rules = world.translatorSets.Names().value(0);
    const QString actions = world.databaseSets.Names().value(0);
    const RecordSet database = *world.databaseSets.Find(actions);
    const QString tv = u"tv"_s;
    const QString noFlags = u"\x01"_s; // of a learn, in the place of a remote
    return Golden::Hello() + Ask(Start) + Ask(DeviceStatus) + Ask(NextStatus, {}, {}, 8) + Ask(ReadAnalog) +
           Ask(SendCommand, tv, u"power"_s, 0x40010001) + Ask(CheckCommand, tv, u"power"_s, 1) +
           "AGET_HTML_FILELIST\r\n" + "AFLASH_HTML index.htm;\r\n" + Ask(ListBuses) + Ask(ListRemotes) +
           Ask(ListCommands, tv) + Ask(ListTranslators) + Ask(ListDatabases) + Ask(OpenRemote, u"new"_s) +
           Ask(LearnTiming, noFlags) + Ask(LearnState) + Ask(LearnNormal, noFlags, u"on"_s) +
           Ask(LearnState) + Ask(CloseRemote) + Ask(ReadTranslator, rules) +
           world.translatorSets.Find(rules)->elements.join() + Ask(StoreTranslator, rules, {}, 1) +
           Ask(FlashTranslator) + Ask(ReadDatabase, actions) + Ask(ReadDatabase, {}, {}, 1) +
           database.settings + database.elements.join() + Ask(StoreDatabase, actions, {}, 2) +
           Ask(FlashDatabase) + Golden::LearnAtLimits() + Golden::SetMode() + Golden::LcdText() +
           Golden::SerialText() + Golden::StoreCcf() + Golden::DatabaseGlobal() +
           Golden::DatabaseBinaryAction();
}

/// What the server says to them, and what it doesn't say by itself.
QByteArray Answers(PracticeServer& server, const QByteArray& requests) {
    using enum ReplyType;
    server.GetOutcomes().learnTime = 1;
    QTcpSocket socket;
    if (server.Listen())
        socket.connectToHost(QHostAddress(QHostAddress::LocalHost), server.Port());
    socket.write(requests);
    for (qint64 before = -1; before != socket.bytesAvailable(); QTest::qWait(500))
        before = socket.bytesAvailable();
    return socket.readAll() + Golden::BareHeader() + "**00012!abc\n" + EncodeReply(Result, Golden::Result()) +
           EncodeReply(LearnedData, Golden::LearnedData()) + EncodeReply(Received, Golden::Received()) +
           EncodeReply(ServerVersion, Golden::ServerVersion()) +
           EncodeReply(DatabaseStatus, Golden::DatabaseStatus()) +
           EncodeReply(Analog, Golden::AnalogDegrees());
}

template <class... Records> void AddRecord(const QByteArray& record, const std::tuple<Records...>*) {
    char kind = 0;
    ((Records::Size == record.size() ? Add(u"records"_s, record, 1, kind++) : void(kind++)), ...);
}

/// A text file in parts.
void AddFile(const QString& target, const QString& path, const QByteArray& head) {
    QFile file(QCoreApplication::arguments().at(1) + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s can't be read", qUtf8Printable(file.fileName()));
    for (QByteArray part = file.read(1200); !part.isEmpty(); part = file.read(1200))
        Add(target, head + part + file.readLine());
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto* kinds = static_cast<RecordKinds*>(nullptr);
    PracticeServer server;
    const QByteArray tour = Tour(server.GetWorld());
    RequestReader requests;
    requests.Add(tour);
    QByteArrayList last;
    while (requests.Next() != RequestReader::State::NeedsMore) {
        AddRecord(requests.Bytes(), kinds);
        last = last.mid(last.size() < 8 ? 0 : 1) << requests.Bytes();
        Add(u"requests"_s, Golden::Hello() + requests.Bytes(), 4, '\1');
        Add(u"requests"_s, Golden::Hello() + last.join(), 4, '\1');
    }
    const QByteArray answers = Answers(server, tour);
    FrameReader replies;
    QByteArrayView left = answers;
    for (auto state = replies.Next(left); state != FrameReader::State::NeedsMore;
         state = replies.Next(left)) {
        if (state == FrameReader::State::Header)
            continue;
        const QByteArray payload =
            replies.Payload().first(std::min<qsizetype>(4000, replies.Payload().size())).toByteArray();
        AddRecord(payload, kinds);
        const QByteArray frame = state == FrameReader::State::Text
                                     ? "**00090!" + payload.leftJustified(82, ';', true)
                                     : EncodeReply(replies.Type(), payload);
        for (const char control : {0, 3, 17}) {
            Add(u"stream"_s, frame, 16, control);
            Add(u"replies"_s, frame, 24, control);
        }
    }
    AddRecord(Golden::Device(), kinds);
    AddFile(u"layout"_s, u"/data/Remote.lyt"_s, "[MAIN]\r\n");
    AddFile(u"language"_s, u"/data/English.tra"_s, {});
    const QByteArray group = "192168001020210000100002";
    for (const QByteArray& text :
         {"192168001021001000on"_ba, "A0T" + group.repeated(8) + "AxBFAzA1A2A3A4A5"_ba,
          "CON\\Config\\65535\\65535\\10"_ba, "tv\\on\\6\\65535\\100\\IO100"_ba,
          "tv\\on\\2\\65535\\10\\34\\750"_ba})
        Add(u"tags"_s, text, 10);
    for (const char* text :
         {"-12.5 ", "192168001020", "00-1A-2B", "0F A0 B1 ", "A1 AB 01 AB 00 00 05 00",
          "RESULT_HTML_FILELIST a;1;2.3.;\n", "RESULT_HTML_FLASH O12\n", "0000 006D\r\n0001"})
        Add(u"texts"_s, text, 9);
    return 0;
}
