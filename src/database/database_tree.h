#pragma once

#include "base/keyed_tree.h"

#include <vector>

/// The tree of remotes and their commands. It shows everything that can be given properties; a database marks
/// nodes and gives them a tag. A node is marked exactly when its tag isn't empty: its text bears a mark of
/// four characters, and it is bold.
///
/// The functions take the place of KeyedTree's own setters, so that tag and mark can't part. One that takes a
/// key does nothing if the tree doesn't have it.
namespace DatabaseTree {

/// What a remote that was just chosen has: no address, the device's default, no action.
inline constexpr QStringView DefaultRemoteTag = u"000000000000000001000";
/// What the action dialog returns when it is cancelled.
inline constexpr QStringView Cancelled = u"~~~~~";

QString RemoteKey(const QString& remote);
QString CommandKey(const QString& remote, const QString& command);

bool IsRemote(const KeyedNode& node);
/// The remote that the node is or belongs to.
QString RemoteName(const KeyedNode& node);
/// Of a command node.
QString CommandName(const KeyedNode& node);

/// Null if there is none.
const KeyedNode* FindRemote(const KeyedTree& tree, const QString& remote);
const KeyedNode* FindCommand(const KeyedTree& tree, const QString& remote, const QString& command);

/// Adds an unmarked node. False if there is one of that key, or no such remote.
bool AddRemote(KeyedTree& tree, const QString& remote);
bool AddCommand(KeyedTree& tree, const QString& remote, const QString& command);

/// Gives a node its tag and its mark; an empty tag takes both away.
void SetTag(KeyedTree& tree, const QString& key, const QString& tag);
/// Takes tag and mark from all nodes.
void ClearTags(KeyedTree& tree);

/// @name The pop-up menu of a remote
/// @{
struct MenuEntries {
    bool canSelect = false;   ///< fnuRemProperties(10)
    bool canDeselect = false; ///< fnuRemProperties(20)
    bool canEdit = false;     ///< fnuRemProperties(30)

    bool operator==(const MenuEntries&) const = default;
};
/// All off for a command: it has no menu, its dialog opens at once.
MenuEntries MenuOf(const KeyedNode& node);
/// Entry 10: the remote gets the default tag. Entry 20 is SetTag with an empty one; its commands keep theirs.
void SelectRemote(KeyedTree& tree, const QString& key);
/// @}

/// What becomes of a command when its action dialog has closed with `result`: nothing if it was cancelled;
/// else `result` is the new tag if it begins with "A", and any other takes the tag away. A remote without
/// properties is selected along with its command.
void TakeActionResult(KeyedTree& tree, const QString& commandKey, const QString& result);

/// A marked node as a transfer sends it.
struct Marked {
    int number; ///< of the node in the tree, from 1, in the order of adding
    bool isRemote;
    QString remote;
    QString command; ///< empty for a remote
    QString tag;
};
/// All marked nodes in the order of adding.
std::vector<Marked> MarkedNodes(const KeyedTree& tree);

} // namespace DatabaseTree
