#include "link/session.h"

#include "base/code_page.h"

#include <QElapsedTimer>

namespace {

/// A pass leaves the event loop waiting no longer than this, in milliseconds, and goes on in the next turn.
constexpr int LongestPass = 10;

} // namespace

Session::Session(QObject* parent)
    : QObject(parent)
    , reader(*this) {
    passTimer.setSingleShot(true);
    passTimer.setInterval(0);
    connect(&passTimer, &QTimer::timeout, this, &Session::Pass);
    // Reading from a timer and not from the signal: the socket doesn't signal again inside its own signal,
    // and a handler may sit in an event loop of its own.
    connect(&link, &Connection::Arrived, &passTimer, qOverload<>(&QTimer::start));
    connect(&link, &Connection::Connected, this, &Session::LinkUp);
    connect(&link, &Connection::Failed, this, &Session::LinkFailed);
}

void Session::Connect() {
    Disconnect();
    link.Open(RemoteHost, RemotePort);
}

void Session::Disconnect() {
    ++epoch;
    unread = {};
    reader.Reset();
    PendingOp = Pending::None;
    FlashIsDatabase = false;
    link.Close();
}

void Session::Pass() {
    QElapsedTimer clock;
    clock.start();
    const int begun = epoch;
    // Due again at once: for an event loop that a handler may run, and for what this pass leaves over.
    passTimer.start();
    while (!clock.hasExpired(LongestPass)) {
        if (unread.isEmpty())
            unread = link.Read();
        if (epoch != begun)
            return;
        if (unread.isEmpty()) {
            passTimer.stop();
            return;
        }
        reader.Read(unread);
    }
}

bool Session::Send(QByteArrayView bytes) {
    const auto sent = link.Send(bytes);
    if (sent == Connection::Sent::NoLink || sent == Connection::Sent::Stuck)
        emit SendFailed(sent == Connection::Sent::Stuck ? SendFault::ServerStuck : SendFault::NoLink);
    return sent == Connection::Sent::Yes;
}

bool Session::SendHello(qint32 value) {
    std::array<char, Wire::HelloSize> hello{};
    Wire::Put(hello.data(), value);
    return Send(hello);
}

bool Session::SendRemoteCommand(Netcommand netcommand, const QString& remote, const QString& command,
                                qint32 param) {
    const bool sent = Send(Encode(CommandRequest{netcommand, timeout, param, remote, command, carrier}));
    if (sent && param == 0)
        reader.ExpectList(netcommand);
    return sent;
}

bool Session::SendReadAnalog() {
    constexpr quint8 AnalogCarrier = 15;
    carrier = AnalogCarrier;
    return SendRemoteCommand(Netcommand::ReadAnalog, {}, {}, 0);
}

bool Session::SendModeCommand(const ModeRequest& request) {
    return Send(Encode(request));
}

bool Session::SocketSendRS232(const QString& text, qint32 param) {
    const QByteArray bytes = ToCodePage(text);
    if (bytes.size() > Wire::SerialTextMax) {
        emit SendFailed(SendFault::TextTooLong);
        return false;
    }
    return Send(Encode(SerialRequest{param, quint8(bytes.size()), bytes}));
}

bool Session::SocketSendLCDInit(const QString& text) {
    return Send(Encode(LcdRequest{text}));
}

bool Session::SendCode(const CodeRequest& request) {
    return Send(Encode(request));
}

bool Session::SendTranslatorElement(const TranslatorRequest& element) {
    return Send(Encode(element));
}

bool Session::SendIRDBGlobal(const IRDBGlobalRecord& record) {
    return Send(Encode(record));
}

bool Session::SendIRDBElementRecord(const IRDBElementRecord& record) {
    return Send(Encode(record));
}

bool Session::SendTextLine(const QString& line) {
    return Send(ToCodePage(line) + "\r\n");
}

void Session::AnswerOverwrite(const ResultReply& result, bool confirmed) {
    if (!confirmed) {
        SaveState = SaveStateKind::Named;
    } else if (SaveOwner == SaveOwnerKind::None) {
        emit ErrorReported(result);
        emit HoldRefused();
    } else {
        SaveState = SaveStateKind::Confirmed;
        emit SaveConfirmed(SaveOwner);
    }
}
