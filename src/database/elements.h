#pragma once

#include "database/tags.h"
#include "link/requests.h"

#include <span>
#include <vector>

class KeyedTree;

/// A node's tag as elements of a database on the wire, and back. The number of an element is the sender's.
namespace DatabaseElement {

IRDBElementRecord OfRemote(const QString& remote, const QString& tag);
/// `group` from 0 to 7. Data beyond 255 bytes, the most that the length of an element can say, is cut.
IRDBElementRecord OfAction(const QString& remote, const QString& command, const ActionTag& tag, int group);

RemoteTag RemoteTagOf(const IRDBElementRecord& element);
ActionGroup ActionGroupOf(const IRDBElementRecord& element);

enum class Applied {
    Yes,
    UnknownName, ///< the tree has no such remote or command
    UnknownKind, ///< neither a remote nor an action
};
/// Marks and tags the nodes that the elements name, and says for each element what became of it. The first
/// action of a command begins its tag anew; the others may follow in any order and in later calls.
std::vector<Applied> Apply(KeyedTree& tree, std::span<const IRDBElementRecord> elements);

} // namespace DatabaseElement
