#include "opening.h"
#include "wait_for.h"

#include "database/elements.h"
#include "database/frmDeviceDB.h"
#include "database/frmIRDBAction.h"

#include <QApplication>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

constexpr int CommandsPerRemote = 100;

/// Answers the requests of a load and of the lists on the loopback, from what is in it.
class PageServer {
public:
    PageServer() {
        QObject::connect(&listener, &QTcpServer::newConnection, &listener, [this] {
            client = listener.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, &listener, [this] { Answer(); });
        });
        if (!listener.listen(QHostAddress(QHostAddress::LocalHost)))
            qFatal("no port on the loopback");
    }
    quint16 Port() const { return listener.serverPort(); }

    int remotes = 0;
    std::vector<IRDBElementRecord> elements;

private:
    void Answer() {
        pending += client->readAll();
        for (; pending.size() >= CommandRequest::Size; pending.remove(0, CommandRequest::Size)) {
            const auto request = Decode<CommandRequest>(pending);
            const int first = request.param;
            if (request.netcommand == Netcommand::ReadDatabase && first == 0)
                Send(ReplyType::DatabaseElements,
                     Encode(Head(0, 1, int(elements.size()) + 1)) + Encode(IRDBGlobalRecord()));
            else if (request.netcommand == Netcommand::ReadDatabase)
                Page<IRDBElementRecord>(ReplyType::DatabaseElements, first, int(elements.size()) + 1,
                                        [this](int i) { return elements[size_t(i - 1)]; });
            else if (request.netcommand == Netcommand::ListRemotes)
                Page<NameElement>(ReplyType::Remotes, first, remotes,
                                  [](int i) { return NameElement{u"remote %1"_s.arg(i)}; });
            else if (request.netcommand == Netcommand::ListCommands)
                Page<CommandElement>(ReplyType::Commands, first, CommandsPerRemote,
                                     [](int i) { return CommandElement{u"command %1"_s.arg(i)}; });
            else
                Send(ReplyType::DatabaseSets, Encode(PageHead()));
        }
    }
    static PageHead Head(int first, int count, int total) {
        return {qint16(first), qint16(count), qint16(total), qint16(first + count < total)};
    }
    template <class Element, class Make> void Page(ReplyType type, int first, int total, Make make) {
        ListPage<Element> page{Head(first, std::min(ElementsPerPage<Element>, total - first), total), {}};
        for (int i = first; i < first + page.head.Count; ++i)
            page.elements.push_back(make(i));
        Send(type, EncodePage(page));
    }
    void Send(ReplyType type, const QByteArray& payload) { client->write(EncodeReply(type, payload)); }

    QTcpServer listener;
    QTcpSocket* client = nullptr;
    QByteArray pending;
};

struct Link {
    Link() {
        session.RemoteHost = u"127.0.0.1"_s;
        session.RemotePort = server.Port();
        session.Connect();
        WaitFor([this] { return session.IsUp(); });
    }
    PageServer server;
    Session session;
};

void FillTree(KeyedTree& tree, int remotes, int commands) {
    for (int r = 0; r < remotes; ++r) {
        const QString remote = u"remote %1"_s.arg(r);
        DatabaseTree::AddRemote(tree, remote);
        for (int c = 0; c < commands; ++c)
            DatabaseTree::AddCommand(tree, remote, u"command %1"_s.arg(c));
    }
}

/// A load of 1,000 tagged commands into the tree, against fetching the same pages without looking at them.
void LoadCommands(benchmark::State& state) {
    Link link;
    KeyedTree tree;
    FillTree(tree, 10, CommandsPerRemote);
    ActionTag tag;
    for (ActionGroup& group : tag.groups)
        group = {{0x01020304, 80, false, true, false, false}, true, BinaryToHex(QByteArray(40, 'x'))};
    for (int i = 0; i < tree.Count(); ++i)
        for (int g = 0; g < 8 && !DatabaseTree::IsRemote(tree.At(i)); ++g)
            link.server.elements.push_back(DatabaseElement::OfAction(
                DatabaseTree::RemoteName(tree.At(i)), DatabaseTree::CommandName(tree.At(i)), tag, g));

    const auto load = [&] {
        DatabaseTransfer transfer(link.session, tree);
        bool isLoaded = false;
        QObject::connect(&transfer, &DatabaseTransfer::Ended, [&isLoaded] { isLoaded = true; });
        return TimeOf([&] {
            transfer.Load(u"one"_s);
            WaitFor([&isLoaded] { return isLoaded; });
        });
    };
    const auto fetch = [&] {
        QObject pages;
        bool isFetched = false;
        const auto goOn = [&](const PageHead& head) {
            isFetched = head.More == 0;
            if (!isFetched)
                link.session.SendRemoteCommand(Netcommand::ReadDatabase, {}, {}, head.Offset + head.Count);
        };
        QObject::connect(&link.session, &Session::DatabaseGlobalReceived, &pages, goOn);
        QObject::connect(&link.session, &Session::DatabasePageReceived, &pages,
                         [&](const ListPage<IRDBElementRecord>& page) { goOn(page.head); });
        return TimeOf([&] {
            link.session.SendRemoteCommand(Netcommand::ReadDatabase, u"one"_s, {}, 0);
            WaitFor([&isFetched] { return isFetched; });
        });
    };
    CompareInTurns(state, load, fetch);
    if (DatabaseTree::MarkedNodes(tree).size() != 1000)
        state.SkipWithError("the database didn't get into the tree");
    const double beyond = state.counters["ours_us"] - state.counters["yardstick_us"];
    state.counters["beyond_us"] = beyond;
    state.counters["of_200_ms"] = beyond / 200'000;
}

double TimeToFill(Link& link, int remotes) {
    link.server.remotes = remotes;
    KeyedTree tree;
    DatabaseLists lists(link.session, tree);
    bool isFull = false;
    QObject::connect(&lists, &DatabaseLists::SetsListed, [&isFull] { isFull = true; });
    const double time = TimeOf([&] {
        lists.Start();
        WaitFor([&isFull] { return isFull; });
    });
    if (tree.Count() != remotes * (1 + CommandsPerRemote))
        qFatal("the lists didn't get into the tree");
    return time;
}

/// The lists of 500 remotes with 100 commands each into the tree, against those of 250 twice.
void FillLists(benchmark::State& state) {
    Link link;
    CompareInTurns(
        state, [&] { return TimeToFill(link, 500); },
        [&] { return TimeToFill(link, 250) + TimeToFill(link, 250); });
}

/// The dialog on the screen from its opening to the full tree, 500 remotes with 100 commands each, against
/// two with 250. `longest_us`: the longest that the user had to wait for the dialog meanwhile.
void FillDialog(benchmark::State& state) {
    Link link;
    const Language german;
    Boxes boxes(german);
    double longest = 0;
    const auto open = [&](int remotes) {
        link.server.remotes = remotes;
        frmDeviceDB* form = nullptr;
        const double time = TimeOf([&] {
            form = new frmDeviceDB({link.session, german, boxes}, {}, nullptr);
            form->ShowModal();
            const auto* progress = form->findChild<QProgressBar*>();
            while (progress->isVisible())
                longest = std::max(longest, TimeOf([] { QCoreApplication::processEvents(); }));
        });
        delete form;
        return time;
    };
    CompareInTurns(
        state, [&] { return open(500); }, [&] { return open(250) + open(250); });
    state.counters["longest_us"] = longest * 1e6;
}

/// The actions of a command, all eight in use.
void OpenActions(benchmark::State& state) {
    ActionTag tag;
    for (ActionGroup& group : tag.groups)
        group = {{0x01020304, 80, false, true, false, false}, true, BinaryToHex(QByteArray(255, 'x'))};
    const QString text = tag.Format();
    CompareOpening(state, [&text](const FormServices& services) {
        return new frmIRDBAction(services, text, {}, nullptr);
    });
}

} // namespace

BENCHMARK(LoadCommands)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FillLists)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FillDialog)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenActions)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
