#pragma once

// Room database: the table that a device works through by itself, and the dialogs that edit it. The files
// named here without a form are its widget-free half and include base and link only.

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

/// The texts in which a tree node holds its data. Positions are fixed and lie in the functions below alone;
/// everybody else speaks of the structs.

/// Where an action goes.
struct ActionTarget {
    static constexpr int Width = 21; ///< characters in a tag

    qint32 ip = 0;         ///< highest byte: first number of the address; 0 for none
    quint16 port = 0;      ///< 0 for none
    bool isDefault = true; ///< by the default of the remote, or of the device
    bool udp = false;      ///< UDP, of a remote: UDP broadcast
    bool aux = false;      ///< RS232 port 1
    bool aux2 = false;     ///< RS232 port 2

    bool operator==(const ActionTarget&) const = default;
};

/// Properties of a remote.
struct RemoteTag {
    static constexpr int ActionMax = 50; ///< characters of `action` that can be typed

    ActionTarget target;
    QString action; ///< default action text

    /// Nothing if `text` is shorter than the fixed part.
    static std::optional<RemoteTag> Parse(QStringView text);
    QString Format() const;

    bool operator==(const RemoteTag&) const = default;
};

/// One of the eight actions of a command.
struct ActionGroup {
    ActionTarget target;
    bool binary = false; ///< `text` is hexadecimal numbers separated by blanks
    QString text;        ///< at most ActionTag::TextMax characters

    bool operator==(const ActionGroup&) const = default;
};

/// What a command does: a relay function and eight actions.
struct ActionTag {
    static constexpr int Groups = 8;
    static constexpr int TextMax = 998; ///< characters of an action that a tag can hold

    static constexpr QChar NoFunction = u' ';

    int relay = 0;               ///< 0 to 3
    QChar function = NoFunction; ///< of the relay: "1" on, "0" off, "T", "I", "U", or a blank
    std::array<ActionGroup, Groups> groups;

    /// Nothing if `text` doesn't begin with "A" or is shorter than its fixed part. A length that reaches
    /// beyond the end of `text` ends there.
    static std::optional<ActionTag> Parse(QStringView text);
    /// A text beyond TextMax is cut.
    QString Format() const;

    bool operator==(const ActionTag&) const = default;
};

/// One byte for each hexadecimal number in `text`; blanks separate the numbers. What is no number is 0, a
/// number above FF is FF. An empty text, or a blank at its start, gives a first byte of 0.
QByteArray HexToBinary(QStringView text);

/// Two capital digits and a blank for each byte.
QString BinaryToHex(QByteArrayView bytes);
