#pragma once

#include "practice/record_checker.h"

class ClientLink;

/// How a netcommand uses the general request.
struct CommandUse {
    enum class Remote { None, Name, FlagByte };
    enum class Param { Zero, Send, Index, Slot, SaveState, Learn, DeviceTag };

    Remote remote = Remote::None;
    bool command = false; ///< the command field is in use
    Param param = Param::Zero;
};

/// One kind of request: how its record is checked, put into words and answered. A new feature adds its
/// handler to the row of its netcommand.
struct RequestRow {
    /// What the client takes as the answer, should the request have a fault.
    enum class Answer {
        Result,
        NextHeader, ///< any header is the acknowledgement: a log tells the fault, and a bare header follows
    };

    Netcommand netcommand;
    const char* purpose; ///< in words, such as "list the remotes"
    Answer answer;
    CommandUse use; ///< of the general request
    int size;       ///< of the record in bytes
    /// The three take exactly `size` bytes; the last two only bytes without a fault.
    QStringList (*check)(const RequestRow& row, QByteArrayView bytes);
    QString (*describe)(const RequestRow& row, QByteArrayView bytes);
    void (*handle)(ClientLink& link, QByteArrayView bytes);
};

/// First byte of a text line; no netcommand has this number.
constexpr char TextLineMark = 'A';

/// How many bytes of a request FindRow needs to see if the first one is `first`.
int BytesToTell(char first);

/// The row of the request that begins with `start`; null if its netcommand isn't known.
const RequestRow* FindRow(QByteArrayView start);
