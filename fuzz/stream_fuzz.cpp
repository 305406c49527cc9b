// The stream of the server through framing alone: whatever its bytes and however they are cut, the frames are
// those that a reader of the whole finds.

#include "fuzz/check.h"
#include "link/frame_reader.h"

#include <sanitizer/allocator_interface.h>

namespace {

using State = FrameReader::State;

struct Event {
    State state{};
    ReplyType type{}; ///< of headers and replies
    QByteArray payload;

    bool operator==(const Event&) const = default;
};

/// The frames of a whole stream, found without a state.
std::vector<Event> Expected(QByteArrayView bytes) {
    std::vector<Event> events;
    while (bytes.size() >= Wire::ReplyHeaderSize) {
        const bool isText = bytes.startsWith("**");
        const QByteArray digits = bytes.sliced(2, 5).toByteArray();
        const bool isNumber =
            std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
        const int length = !isText ? Wire::Get<qint16>(bytes.data() + 4) : isNumber ? digits.toInt() : 0;
        const auto type = isText ? ReplyType() : Wire::Get<ReplyType>(bytes.data() + 6);
        const bool isBroken = length < Wire::ReplyHeaderSize;
        if (isBroken || !isText)
            events.push_back({isBroken ? State::Broken : State::Header, isBroken ? ReplyType() : type, {}});
        if (!isBroken && bytes.size() < length)
            break;
        if (!isBroken)
            events.push_back({isText ? State::Text : State::Reply, type,
                              bytes.first(length).sliced(Wire::ReplyHeaderSize).toByteArray()});
        bytes = bytes.sliced(isBroken ? Wire::ReplyHeaderSize : length);
    }
    return events;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    Input input(data, size);
    std::array<int, 4> lengths{};
    for (int& length : lengths)
        length = 1 + input.Below(256);
    const QByteArray stream = input.Rest();
    const std::vector<Event> expected = Expected(stream);

    FrameReader reader;
    size_t found = 0;
    const auto before = __sanitizer_get_current_allocated_bytes();
    for (qsizetype at = 0, piece = 0; at < stream.size(); ++piece) {
        // A block of its own, so that the sanitizer sees a look beyond it or after its time.
        const auto bytes = stream.sliced(at, std::min<qsizetype>(lengths[piece % 4], stream.size() - at));
        const std::vector<char> block(bytes.begin(), bytes.end());
        QByteArrayView left(block);
        for (State state = reader.Next(left); state != State::NeedsMore; state = reader.Next(left)) {
            const bool hasType = state == State::Header || state == State::Reply;
            Check(found < expected.size());
            Check(expected[found++] ==
                  Event{state, hasType ? reader.Type() : ReplyType(), reader.Payload().toByteArray()});
        }
        Check(left.isEmpty());
        at += bytes.size();
    }
    Check(found == expected.size());
    Check(__sanitizer_get_current_allocated_bytes() < before + Wire::TextFrameMax + 1000);
    return 0;
}
