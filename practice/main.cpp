#include "practice/practice_server.h"
#include "practice/world_options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

void Print(const QString& line) {
    static QTextStream out(stdout);
    out << line << Qt::endl;
}

int Fail(const QString& line) {
    QTextStream(stderr) << "brenmard-practice: " << line << Qt::endl;
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"brenmard-practice"_s);
    QCoreApplication::setApplicationVersion(u"" PROGRAM_VERSION ""_s);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"A device server for practice: a living room, and faults on demand."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {u"address"_s, u"Listen on <address>."_s, u"address"_s, u"127.0.0.1"_s},
        {u"port"_s, u"Listen on <port>; 0 takes any free one."_s, u"port"_s,
         QString::number(PracticeServer::DefaultPort)},
        {u"exit-with-client"_s, u"End when the last client has left."_s},
    });
    AddWorldOptions(parser);
    AddOutcomeOptions(parser);
    AddFaultOptions(parser);
    parser.process(application);

    const QHostAddress address(parser.value(u"address"_s));
    if (address.isNull())
        return Fail(u"--address: \"%1\" is not an address"_s.arg(parser.value(u"address"_s)));
    bool portOk = false;
    const quint16 port = parser.value(u"port"_s).toUShort(&portOk);
    if (!portOk)
        return Fail(u"--port: \"%1\" is not a number from 0 to 65535"_s.arg(parser.value(u"port"_s)));
    QString error;
    const auto faults = ReadFaultOptions(parser, error);
    if (!faults)
        return Fail(error);
    const auto outcomes = ReadOutcomeOptions(parser, error);
    if (!outcomes)
        return Fail(error);

    PracticeServer server;
    if (!ReadWorldOptions(parser, server.GetWorld(), error))
        return Fail(error);
    server.GetFaults() = *faults;
    server.GetOutcomes() = *outcomes;
    QObject::connect(&server, &PracticeServer::Said, &application, Print);
    if (parser.isSet(u"exit-with-client"_s))
        QObject::connect(&server, &PracticeServer::LastClientLeft, &application, &QCoreApplication::quit);
    if (!server.Listen(address, port))
        return Fail(u"port %1: %2"_s.arg(port).arg(server.ErrorText()));
    Print(u"listening on %1:%2"_s.arg(address.toString()).arg(server.Port()));
    return QCoreApplication::exec();
}
