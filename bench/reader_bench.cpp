#include "ratio.h"

#include "link/status_store.h"

#include <cstring>

namespace {

constexpr qsizetype Piece = 1460; ///< bytes of a full TCP segment

/// A full reply of device status, again and again.
QByteArray Stream(int replies) {
    return EncodeReply(ReplyType::Status, QByteArray(StatusHead::PageSize, 'x')).repeated(replies);
}

void CopyPieces(const QByteArray& stream, QByteArray& to) {
    for (qsizetype at = 0; at < stream.size(); at += Piece)
        std::memcpy(to.data() + at, stream.constData() + at, std::min(Piece, stream.size() - at));
    benchmark::ClobberMemory();
}

/// From pieces of the stream to the record that the session hands out, against one copy of the same bytes.
void StatusRepliesFromPieces(benchmark::State& state) {
    const QByteArray stream = Stream(int(state.range(0)));
    QByteArray copy(stream.size(), '\0');
    Session session;
    ReplyReader reader(session);
    int replies = 0;
    QObject::connect(&session, &Session::StatusReceived, [&replies](QByteArrayView) { ++replies; });

    const auto read = [&] {
        for (qsizetype at = 0; at < stream.size(); at += Piece) {
            QByteArrayView piece = QByteArrayView(stream).sliced(at, std::min(Piece, stream.size() - at));
            while (!piece.isEmpty())
                reader.Read(piece);
        }
    };
    CompareInTurns(
        state, [&] { return TimeOf(read); }, [&] { return TimeOf([&] { CopyPieces(stream, copy); }); });
    if (replies == 0)
        state.SkipWithError("no reply was read");
    state.counters["us_per_reply"] = state.counters["ours_us"] / double(state.range(0));
}

/// One reply that arrives in pieces of a given size: the cost per byte must not grow with their number.
void OneReplyBySizeOfPiece(benchmark::State& state) {
    const QByteArray stream = Stream(16);
    FrameReader frames;
    for (auto _ : state) {
        for (qsizetype at = 0; at < stream.size(); at += state.range(0)) {
            QByteArrayView piece =
                QByteArrayView(stream).sliced(at, std::min<qsizetype>(state.range(0), stream.size() - at));
            while (!piece.isEmpty())
                benchmark::DoNotOptimize(frames.Next(piece));
        }
    }
    state.counters["ns_per_piece"] =
        benchmark::Counter(double(state.iterations()) * double(stream.size()) / double(state.range(0)) / 1e9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// 64 buses of 16 devices from the wire into the store, beyond reading the same bytes without one.
void StatusIntoStore(benchmark::State& state) {
    QByteArray stream;
    for (int page = 0; page < StatusStore::Pages; ++page) {
        QByteArray payload(StatusHead::PageSize, 'x');
        payload[2] = char(page * StatusHead::Buses);
        payload[3] = char(StatusStore::MostBuses);
        stream += EncodeReply(ReplyType::Status, payload);
    }
    Session session;
    Session bareSession;
    StatusStore store(session);
    ReplyReader reader(session);
    ReplyReader bareReader(bareSession);
    int complete = 0;
    QObject::connect(&store, &StatusStore::DevicesWanted, [&complete] { ++complete; });
    const auto read = [&stream](ReplyReader& with) {
        return TimeOf([&] {
            for (QByteArrayView bytes(stream); !bytes.isEmpty();)
                with.Read(bytes);
        });
    };
    CompareInTurns(
        state, [&] { return read(reader); }, [&] { return read(bareReader); });
    int devices = 0;
    for (const DeviceBus& bus : store.Buses())
        devices += int(bus.devices.size());
    if (complete == 0 || devices != 1024)
        state.SkipWithError("the status didn't get into the store");
    const double beyond = state.counters["ours_us"] - state.counters["yardstick_us"];
    state.counters["beyond_us"] = beyond;
    state.counters["of_2_ms"] = beyond / 2000;
}

} // namespace

BENCHMARK(StatusIntoStore)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(StatusRepliesFromPieces)->Arg(1)->Arg(16)->Arg(256)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(OneReplyBySizeOfPiece)->Arg(1)->Arg(16)->Arg(256)->Arg(1460)->Arg(31764);

BENCHMARK_MAIN();
