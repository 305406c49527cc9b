#include "database/elements.h"

#include "base/blanks.h"
#include "base/code_page.h"
#include "database/database_tree.h"

#include <algorithm>

namespace {

// ElementFlags of a remote.
//
//   7  6  5  4    3        2        1      0
//   -  -  -  -  port 2   port 1    UDP   default
namespace RemoteFlag {
constexpr quint8 Default = 0x01;
constexpr quint8 Udp = 0x02;
constexpr quint8 Aux = 0x04;
constexpr quint8 Aux2 = 0x08;
} // namespace RemoteFlag

// ElementFlags of an action.
//
//   7    6     5    4      3       2      1        0
//   -  port 2  -  port 2  port 1  UDP   default  binary
//
// A device server may give port 2 back in the bit in which it got it, or in bit 4; nothing else has these.
namespace ActionFlag {
constexpr quint8 Binary = 0x01;
constexpr quint8 Default = 0x02;
constexpr quint8 Udp = 0x04;
constexpr quint8 Aux = 0x08;
constexpr quint8 Aux2 = 0x40;
constexpr quint8 Aux2Stored = 0x10;
} // namespace ActionFlag

// RelayByte: the character of the function, in whose two free bits the number of the relay lies.
//
//      7      6  5  4  3  2     1     0
//   number/2  f  f  f  f  f  number%2  f
namespace RelayBits {
constexpr quint8 Low = 0x02;
constexpr quint8 High = 0x80;
constexpr quint8 Function = 0x7D;
} // namespace RelayBits

constexpr qsizetype DataMax = 255; // what the byte of the length can say

template <class Flag>
quint8 FlagsOf(const ActionTarget& target, Flag isDefault, Flag udp, Flag aux, Flag aux2) {
    return quint8((target.isDefault ? isDefault : 0) | (target.udp ? udp : 0) | (target.aux ? aux : 0) |
                  (target.aux2 ? aux2 : 0));
}

quint8 RelayByteOf(const ActionTag& tag) {
    return quint8((quint8(tag.function.toLatin1()) & RelayBits::Function) |
                  ((tag.relay & 1) != 0 ? RelayBits::Low : 0) | ((tag.relay & 2) != 0 ? RelayBits::High : 0));
}

void TakeRelay(quint8 relayByte, ActionTag& tag) {
    tag.relay = ((relayByte & RelayBits::Low) != 0 ? 1 : 0) + ((relayByte & RelayBits::High) != 0 ? 2 : 0);
    tag.function = QLatin1Char(char(relayByte & RelayBits::Function));
}

void TakeTarget(const ActionTarget& target, IRDBElementRecord& element) {
    element.ip = target.ip;
    element.port = qint16(target.port);
}

/// The node that an element names; null if the tree has none.
const KeyedNode* NodeOf(const KeyedTree& tree, const IRDBElementRecord& element, bool isAction) {
    const QString remote = WithoutBlanks(element.remote).toString();
    return isAction ? DatabaseTree::FindCommand(tree, remote, WithoutBlanks(element.command).toString())
                    : DatabaseTree::FindRemote(tree, remote);
}

/// What an action element of a command goes into: the first begins a new tag.
ActionTag TagBefore(const KeyedNode& node, const IRDBElementRecord& element) {
    if (element.ElementKind != IRDBElementRecord::FirstAction)
        if (const auto tag = ActionTag::Parse(node.Tag()))
            return *tag;
    ActionTag tag;
    TakeRelay(element.RelayByte, tag);
    return tag;
}

} // namespace

IRDBElementRecord DatabaseElement::OfRemote(const QString& remote, const QString& tag) {
    IRDBElementRecord element;
    element.ElementKind = IRDBElementRecord::Remote;
    element.remote = remote;
    if (const auto parsed = RemoteTag::Parse(tag)) {
        using namespace RemoteFlag;
        TakeTarget(parsed->target, element);
        element.ElementFlags = FlagsOf(parsed->target, Default, Udp, Aux, Aux2);
        element.action = ToCodePage(WithoutBlanks(parsed->action)) + '\0';
    }
    return element;
}

IRDBElementRecord DatabaseElement::OfAction(const QString& remote, const QString& command,
                                            const ActionTag& tag, int group) {
    using namespace ActionFlag;
    const ActionGroup& action = tag.groups[size_t(group)];
    IRDBElementRecord element;
    element.ElementKind = quint8(IRDBElementRecord::FirstAction + group);
    element.RelayByte = RelayByteOf(tag);
    element.ElementFlags = FlagsOf(action.target, Default, Udp, Aux, Aux2);
    if (action.binary)
        element.ElementFlags |= Binary;
    TakeTarget(action.target, element);
    element.remote = remote;
    element.command = command;
    element.action = (action.binary ? HexToBinary(action.text) : ToCodePage(action.text)).left(DataMax);
    element.dataLength = quint8(element.action.size());
    return element;
}

RemoteTag DatabaseElement::RemoteTagOf(const IRDBElementRecord& element) {
    using namespace RemoteFlag;
    const auto has = [&element](quint8 bit) { return (element.ElementFlags & bit) != 0; };
    const auto end = element.action.indexOf('\0');
    const QString action = FromCodePage(end < 0 ? element.action : element.action.first(end));
    return {{element.ip, quint16(element.port), has(Default), has(Udp), has(Aux), has(Aux2)},
            WithoutBlanks(action).toString()};
}

ActionGroup DatabaseElement::ActionGroupOf(const IRDBElementRecord& element) {
    using namespace ActionFlag;
    const auto has = [&element](quint8 bits) { return (element.ElementFlags & bits) != 0; };
    const QByteArray data = element.action.left(element.dataLength);
    return {{element.ip, quint16(element.port), has(Default), has(Udp), has(Aux), has(Aux2 | Aux2Stored)},
            has(Binary),
            has(Binary) ? BinaryToHex(data) : FromCodePage(data)};
}

std::vector<DatabaseElement::Applied> DatabaseElement::Apply(KeyedTree& tree,
                                                             std::span<const IRDBElementRecord> elements) {
    std::vector<Applied> applied;
    applied.reserve(elements.size());
    // A tag is put together from all elements of its command that stand in a row, and only then written.
    const KeyedNode* command = nullptr;
    ActionTag tag;
    const auto writeTag = [&] {
        if (command != nullptr)
            DatabaseTree::SetTag(tree, command->Key(), tag.Format());
        command = nullptr;
    };
    for (const IRDBElementRecord& element : elements) {
        const bool isAction = element.IsAction();
        if (!isAction && !element.IsRemote()) {
            applied.push_back(Applied::UnknownKind);
            continue;
        }
        const KeyedNode* node = NodeOf(tree, element, isAction);
        applied.push_back(node != nullptr ? Applied::Yes : Applied::UnknownName);
        if (node == nullptr)
            continue;
        if (!isAction) {
            DatabaseTree::SetTag(tree, node->Key(), RemoteTagOf(element).Format());
            continue;
        }
        if (node != command || element.ElementKind == IRDBElementRecord::FirstAction) {
            writeTag();
            command = node;
            tag = TagBefore(*node, element);
        }
        tag.groups[size_t(element.ElementKind - IRDBElementRecord::FirstAction)] = ActionGroupOf(element);
    }
    writeTag();
    return applied;
}
