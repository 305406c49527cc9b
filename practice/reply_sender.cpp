#include "practice/reply_sender.h"

#include "base/code_page.h"
#include "link/replies.h"

#include <QTcpSocket>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

ReplySender::ReplySender(QTcpSocket& socket, const Faults& faults)
    : socket(socket)
    , faults(faults) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &ReplySender::Go);
}

void ReplySender::Answer(QByteArray frame) {
    const auto fill = [this](QByteArray& reply) {
        const bool isText = reply.startsWith("**");
        if (!isText)
            reply.replace(0, faults.headerFiller.size(), faults.headerFiller);
    };
    fill(frame);
    for (int copy = 0; copy < (faults.twice ? 2 : 1); ++copy) {
        for (int i = 1; i <= faults.logsBefore; ++i) {
            QByteArray log = EncodeLog(u"practice log %1 of %2\n"_s.arg(i).arg(faults.logsBefore));
            fill(log);
            Queue({log});
        }
        Item item{frame, faults.delay};
        if (++answers == faults.cutAnswer && faults.cut != Faults::Cut::None) {
            item.cut = faults.cut;
            item.bytes.truncate(faults.cutBytes);
        }
        Queue(item);
    }
    Go();
}

void ReplySender::Push(const QByteArray& bytes) {
    Queue({bytes});
    Go();
}

void ReplySender::Close() {
    CutOff(Faults::Cut::Close);
}

void ReplySender::Reset() {
    CutOff(Faults::Cut::Reset);
}

qsizetype ReplySender::Held() const {
    return queued + socket.bytesToWrite();
}

void ReplySender::Queue(const Item& item) {
    if (ended)
        return;
    queue.push_back(item);
    queued += item.bytes.size();
}

void ReplySender::Go() {
    while (!ended && !timer.isActive() && !queue.empty()) {
        Item& item = queue.front();
        if (item.delay > 0)
            return timer.start(std::exchange(item.delay, 0));
        qsizetype count = item.bytes.size() - item.done;
        const bool inPieces = faults.pieceSize > 0;
        if (inPieces)
            count = std::min<qsizetype>(count, faults.pieceSize);
        socket.write(item.bytes.constData() + item.done, count);
        item.done += count;
        queued -= count;
        if (item.done == item.bytes.size()) {
            const Faults::Cut cut = item.cut;
            queue.pop_front();
            if (cut != Faults::Cut::None) {
                emit Said(u"cut off: answer %1 behind %2 bytes"_s.arg(faults.cutAnswer).arg(faults.cutBytes));
                return CutOff(cut);
            }
        }
        if (inPieces) {
            timer.start(0);
            socket.flush();
        }
    }
}

void ReplySender::CutOff(Faults::Cut cut) {
    ended = true;
    timer.stop();
    queue.clear();
    queued = 0;
    if (cut == Faults::Cut::Close) {
        socket.disconnectFromHost();
    } else {
        socket.flush();
        socket.abort();
    }
}

QByteArray EncodeLog(QStringView text) {
    // Four bytes that aren't read stand in front of the text, and the reader stops eight bytes before the
    // end.
    constexpr int Front = 4;
    constexpr int Behind = 9;
    const QByteArray bytes = ToCodePage(text.left(32000));
    return EncodeReply(ReplyType::Log, QByteArray(Front, '\0') + bytes + QByteArray(Behind, '\0'));
}
