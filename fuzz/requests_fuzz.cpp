// The stream of a client through the practice server: its reader, its checks and its handlers, without a
// network.

#include "fuzz/check.h"
#include "link/frame_reader.h"
#include "practice/client_link.h"
#include "practice/request_table.h"

#include <QCoreApplication>
#include <QTcpSocket>

namespace {

/// A socket whose two ends are byte arrays.
class MemorySocket : public QTcpSocket {
public:
    MemorySocket() { setOpenMode(ReadWrite | Unbuffered); }

    qint64 bytesAvailable() const override { return received.size(); }
    qint64 bytesToWrite() const override { return 0; }
    void disconnectFromHost() override {}

    void Receive(QByteArrayView bytes) {
        received += bytes;
        emit readyRead();
    }

    QByteArray sent;

protected:
    qint64 readData(char* to, qint64 most) override {
        const auto count = std::min<qint64>(most, received.size());
        std::copy_n(received.begin(), count, to);
        received.remove(0, count);
        return count;
    }
    qint64 writeData(const char* from, qint64 count) override {
        sent.append(from, count);
        return count;
    }

private:
    QByteArray received;
};

/// What the practice server takes without a word, or answers when a learn is over.
bool IsSilent(Netcommand netcommand) {
    using enum Netcommand;
    constexpr std::array silent = {Start,       LcdText,     StoreCcf,        StoreSerialCode, OpenRemote,
                                   CloseRemote, SetMode,     LearnTiming,     LearnNormal,     LearnRaw,
                                   LearnRepeat, LearnToggle, LearnWithTiming, LearnRawRepeat,  LearnState};
    return std::find(silent.begin(), silent.end(), netcommand) != silent.end();
}

bool IsWhole(RequestReader::State state) {
    return state != RequestReader::State::NeedsMore && state != RequestReader::State::Broken;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    static int argc = 1;
    static std::array<char*, 2> argv = {const_cast<char*>("fuzz_requests"), nullptr};
    static const QCoreApplication application(argc, argv.data());
    static const World livingRoom = World::LivingRoom();

    Input input(data, size);
    const qsizetype piece = 1 + input.Below(4096);
    const QByteArray stream = input.Rest();
    QByteArrayList received;
    Practice practice;
    practice.world = livingRoom;
    auto* socket = new MemorySocket;
    ClientLink link(socket, practice, nullptr);
    QObject::connect(&link, &ClientLink::RecordReceived, [&](const QByteArray& raw) { received += raw; });
    for (QByteArrayView left = stream; !left.isEmpty(); left = left.sliced(std::min(piece, left.size())))
        socket->Receive(left.first(std::min(piece, left.size())));

    // Fed whole, the reader finds the same records, each as wide as its row says.
    RequestReader reader;
    reader.Add(stream);
    qsizetype records = 0;
    qsizetype unanswered = 0;
    qsizetype taken = 0;
    auto state = reader.Next();
    for (; IsWhole(state); state = reader.Next()) {
        taken += reader.Bytes().size();
        if (state != RequestReader::State::Record)
            continue;
        Check(records < received.size() && received[records++] == reader.Bytes());
        Check(reader.Bytes().size() == reader.Row()->size);
        unanswered += IsSilent(reader.Row()->netcommand) ? 0 : 1;
    }
    if (const QByteArray left = stream.sliced(taken); state == RequestReader::State::NeedsMore && taken > 0 &&
                                                      !left.isEmpty() && left.size() >= BytesToTell(left[0]))
        Check(left[0] == TextLineMark || left.size() < FindRow(left)->size);
    Check(records == received.size() && practice.records == records);

    FrameReader frames;
    QByteArrayView answers = socket->sent;
    for (auto answer = frames.Next(answers); answer != FrameReader::State::NeedsMore;
         answer = frames.Next(answers)) {
        Check(answer != FrameReader::State::Broken);
        unanswered -= answer == FrameReader::State::Header ? 0 : 1;
    }
    Check(unanswered <= 0);
    return 0;
}
