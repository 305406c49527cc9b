#include "ratio.h"
#include "wait_for.h"

#include "database/tags.h"
#include "database/transfer.h"
#include "translator/translator_elements.h"
#include "translator/translator_transfer.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

/// Answers every record with a bare header and knows no more of it than its length.
class AckServer {
public:
    AckServer() {
        QObject::connect(&listener, &QTcpServer::newConnection, &listener, [this] {
            QTcpSocket* client = listener.nextPendingConnection();
            auto pending = std::make_shared<QByteArray>();
            QObject::connect(client, &QTcpSocket::readyRead, client, [client, pending] {
                *pending += client->readAll();
                for (int size = SizeOf(*pending); pending->size() >= size; size = SizeOf(*pending)) {
                    pending->remove(0, size);
                    client->write(EncodeReply(ReplyType::Received));
                }
            });
        });
        if (!listener.listen(QHostAddress(QHostAddress::LocalHost)))
            qFatal("no port on the loopback");
    }
    quint16 Port() const { return listener.serverPort(); }

private:
    static int SizeOf(const QByteArray& bytes) {
        constexpr int KindOffset = 17;
        if (bytes.size() <= KindOffset)
            return CommandRequest::Size;
        switch (Netcommand(quint8(bytes[0]))) {
        case Netcommand::TranslatorElement: return TranslatorRequest::Size;
        case Netcommand::DatabaseElement:
            return quint8(bytes[KindOffset]) == IRDBGlobalRecord::Kind ? IRDBGlobalRecord::Size
                                                                       : IRDBElementRecord::Size;
        default: return CommandRequest::Size;
        }
    }

    QTcpServer listener;
};

/// A session for the chains, and a bare socket for the same round trips without them.
struct Links {
    Links() {
        session.RemoteHost = u"127.0.0.1"_s;
        session.RemotePort = server.Port();
        session.Connect();
        bare.setProxy(QNetworkProxy::NoProxy);
        bare.connectToHost(QHostAddress(QHostAddress::LocalHost), server.Port());
        WaitFor([this] { return session.IsUp() && bare.state() == QTcpSocket::ConnectedState; });
    }

    /// Each record goes out when the one before it has been answered.
    void GoAndReturn(const QByteArray& record, int times) {
        for (int i = 0; i < times; ++i) {
            bare.write(record);
            WaitFor([this] { return bare.bytesAvailable() >= Wire::ReplyHeaderSize; });
            bare.read(Wire::ReplyHeaderSize);
        }
    }

    AckServer server;
    Session session;
    QTcpSocket bare;
};

template <class Transfer, class Start> double TimeOfChain(Transfer& transfer, Start start) {
    bool isOver = false;
    const auto watch = QObject::connect(&transfer, &Transfer::Ended, [&isOver] { isOver = true; });
    const double time = TimeOf([&] {
        start();
        WaitFor([&isOver] { return isOver; });
    });
    QObject::disconnect(watch);
    return time;
}

/// The largest translator set is stored, against as many round trips of one element.
void StoreTranslatorSet(benchmark::State& state) {
    Links links;
    KeyedTree tree;
    ResetTranslatorTree(tree);
    AddNode(tree, MakeRemote({.name = u"tv"_s}));
    while (tree.Count() < TranslatorLimits::Elements) {
        const CommandTag command{u"tv"_s, QString::number(tree.Count()), TranslatorType::Command};
        if (!AddNode(tree, MakeReceived(TranslatorKind::Command, RemoteKey(u"tv"_s), command)))
            return state.SkipWithError("the set can't be made");
    }
    TranslatorTransfer transfer(links.session, tree, nullptr);
    CompareInTurns(
        state, [&] { return TimeOfChain(transfer, [&] { transfer.Store(u"set"_s, false); }); },
        [&] { return TimeOf([&] { links.GoAndReturn(Encode(TranslatorRequest()), tree.Count() + 1); }); });
    state.counters["of_twice"] = state.counters["ratio"] / 2;
}

/// A database of 1,000 commands, each with its eight action groups, is saved, against as many round trips of
/// one element.
void SaveDatabase(benchmark::State& state) {
    constexpr int Commands = 1000;
    Links links;
    KeyedTree tree;
    DatabaseTree::AddRemote(tree, u"tv"_s);
    ActionTag tag;
    tag.groups[0] = {{0x01020304, 80, false, true, false, false}, true, u"30 31"_s};
    for (int i = 0; i < Commands; ++i) {
        DatabaseTree::AddCommand(tree, u"tv"_s, QString::number(i));
        tree.SetTag(tree.At(i + 1).Key(), tag.Format());
    }
    DatabaseTransfer transfer(links.session, tree);
    int elements = 0;
    QObject::connect(&transfer, &DatabaseTransfer::Progress,
                     [&elements](int, int total) { elements = total; });
    CompareInTurns(
        state, [&] { return TimeOfChain(transfer, [&] { transfer.Save(u"set"_s, DatabaseSettings()); }); },
        [&] { return TimeOf([&] { links.GoAndReturn(Encode(IRDBElementRecord()), elements + 2); }); });
    state.counters["of_twice"] = state.counters["ratio"] / 2;
    state.counters["elements"] = elements;
}

BENCHMARK(StoreTranslatorSet)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDatabase)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
