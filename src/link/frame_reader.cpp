#include "link/frame_reader.h"

#include <algorithm>

namespace {

/// The length that the five digits of a text frame's header give; -1 if they are none.
int TextFrameLength(std::span<const char> digits) {
    int length = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return -1;
        length = length * 10 + (c - '0');
    }
    return length;
}

} // namespace

void FrameReader::Reset() {
    stage = Stage::InHeader;
    headerHeld = 0;
    partial.resize(0);
    payload = {};
}

FrameReader::State FrameReader::Next(QByteArrayView& input) {
    if (stage != Stage::InHeader)
        return TakePayload(input);

    const auto taken = std::min<qsizetype>(Wire::ReplyHeaderSize - headerHeld, input.size());
    std::copy_n(input.begin(), taken, headerBytes.begin() + headerHeld);
    headerHeld += int(taken);
    input = input.sliced(taken);
    if (headerHeld < Wire::ReplyHeaderSize)
        return State::NeedsMore;

    headerHeld = 0;
    const State state = TakeHeader();
    return state == State::Text ? TakePayload(input) : state;
}

/// Looks at a whole header. Text means that a text frame has begun.
FrameReader::State FrameReader::TakeHeader() {
    partial.resize(0);
    payload = {};
    if (headerBytes[0] == '*' && headerBytes[1] == '*') {
        expected = TextFrameLength(std::span(headerBytes).subspan(2, 5)) - Wire::ReplyHeaderSize;
        if (expected < 0)
            return State::Broken;
        stage = Stage::InText;
        return State::Text;
    }
    header = Decode<ReplyHeader>(headerBytes);
    expected = header.length - Wire::ReplyHeaderSize;
    if (expected < 0)
        return State::Broken;
    stage = Stage::InReply;
    return State::Header;
}

FrameReader::State FrameReader::TakePayload(QByteArrayView& input) {
    const auto missing = expected - partial.size();
    const auto taken = std::min(missing, input.size());
    const QByteArrayView piece = input.first(taken);
    input = input.sliced(taken);
    if (partial.isEmpty() && taken == missing) {
        payload = piece;
    } else {
        if (partial.capacity() < expected)
            partial.reserve(std::max(expected, Wire::LargestPayload));
        partial.append(piece);
        if (taken < missing)
            return State::NeedsMore;
        payload = partial;
    }
    const State state = stage == Stage::InText ? State::Text : State::Reply;
    stage = Stage::InHeader;
    return state;
}
