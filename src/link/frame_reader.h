#pragma once

#include "link/replies.h"

/// Cuts the stream of the server into frames: replies with their binary header, and text frames.
///
/// It never sees a socket: bytes go in as spans of any length, frames come out one by one. A frame that lies
/// whole in the input is not copied; one that comes in pieces is collected once. Nothing beyond the longest
/// possible frame is ever held.
class FrameReader {
public:
    enum class State {
        NeedsMore, ///< the input is used up and the frame isn't complete
        Header,    ///< the header of a reply has arrived: Type() is valid, the payload isn't
        Reply,     ///< a reply is complete: Type() and Payload() are valid
        Text,      ///< a text frame is complete: Payload() is its text
        Broken,    ///< 8 bytes that are no header were dropped; the next frame starts behind them
    };

    /// Goes on until the next event and takes what it used from the front of `input`. A reply is reported as
    /// Header and then as Reply, a bare header too.
    State Next(QByteArrayView& input);

    /// Type of the current reply, whatever number the server gave.
    ReplyType Type() const { return header.type; }

    /// Bytes of the current frame without its header; valid until the next call and while the input is.
    QByteArrayView Payload() const { return payload; }

    /// Starts between frames, as a new connection does.
    void Reset();

private:
    State TakeHeader();
    State TakePayload(QByteArrayView& input);

    enum class Stage { InHeader, InReply, InText };

    Stage stage = Stage::InHeader;
    std::array<char, Wire::ReplyHeaderSize> headerBytes{};
    int headerHeld = 0;
    ReplyHeader header;
    int expected = 0;   ///< bytes of the current payload
    QByteArray partial; ///< the part of the current payload that arrived earlier
    QByteArrayView payload;
};
