#include "database/database_tree.h"

namespace {

constexpr QChar RemoteLetter = u'R';
constexpr QChar CommandLetter = u'C';

constexpr QStringView RemoteMark = u" [*]";
constexpr QStringView CommandMark = u" [+]";

/// The node's text without its mark.
QString Name(const KeyedNode& node) {
    return DatabaseTree::IsRemote(node) ? DatabaseTree::RemoteName(node) : DatabaseTree::CommandName(node);
}

} // namespace

QString DatabaseTree::RemoteKey(const QString& remote) {
    return RemoteLetter + remote;
}

QString DatabaseTree::CommandKey(const QString& remote, const QString& command) {
    return CommandLetter + remote + u'-' + command;
}

bool DatabaseTree::IsRemote(const KeyedNode& node) {
    return node.Key().startsWith(RemoteLetter);
}

QString DatabaseTree::RemoteName(const KeyedNode& node) {
    const KeyedNode& remote = node.Parent() != nullptr ? *node.Parent() : node;
    return remote.Key().sliced(1);
}

QString DatabaseTree::CommandName(const KeyedNode& node) {
    return node.Key().sliced(CommandKey(RemoteName(node), {}).size());
}

const KeyedNode* DatabaseTree::FindRemote(const KeyedTree& tree, const QString& remote) {
    return tree.Find(RemoteKey(remote));
}

const KeyedNode* DatabaseTree::FindCommand(const KeyedTree& tree, const QString& remote,
                                           const QString& command) {
    // A name may hold the dash of the key: "a-b" and "c" make the key of "a" and "b-c".
    const KeyedNode* node = tree.Find(CommandKey(remote, command));
    return node != nullptr && RemoteName(*node) == remote ? node : nullptr;
}

bool DatabaseTree::AddRemote(KeyedTree& tree, const QString& remote) {
    return tree.Add(RemoteKey(remote), remote);
}

bool DatabaseTree::AddCommand(KeyedTree& tree, const QString& remote, const QString& command) {
    return tree.Add(CommandKey(remote, command), command, {}, RemoteKey(remote));
}

void DatabaseTree::SetTag(KeyedTree& tree, const QString& key, const QString& tag) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return;
    const bool isMarked = !tag.isEmpty();
    if (node->Tag().isEmpty() == isMarked) {
        const QStringView mark = IsRemote(*node) ? RemoteMark : CommandMark;
        tree.SetText(key, isMarked ? Name(*node).append(mark) : Name(*node));
        tree.SetBold(key, isMarked);
    }
    tree.SetTag(key, tag);
}

void DatabaseTree::ClearTags(KeyedTree& tree) {
    for (int i = 0; i < tree.Count(); ++i)
        if (!tree.At(i).Tag().isEmpty())
            SetTag(tree, tree.At(i).Key(), {});
}

DatabaseTree::MenuEntries DatabaseTree::MenuOf(const KeyedNode& node) {
    if (!IsRemote(node))
        return {};
    const bool isMarked = !node.Tag().isEmpty();
    return {!isMarked, isMarked, isMarked};
}

void DatabaseTree::SelectRemote(KeyedTree& tree, const QString& key) {
    SetTag(tree, key, DefaultRemoteTag.toString());
}

void DatabaseTree::TakeActionResult(KeyedTree& tree, const QString& commandKey, const QString& result) {
    const KeyedNode* node = tree.Find(commandKey);
    if (node == nullptr || result == Cancelled)
        return;
    if (!result.startsWith(u'A')) {
        SetTag(tree, commandKey, {});
        return;
    }
    SetTag(tree, commandKey, result);
    const KeyedNode* remote = node->Parent();
    if (remote != nullptr && remote->Tag().isEmpty())
        SelectRemote(tree, remote->Key());
}

std::vector<DatabaseTree::Marked> DatabaseTree::MarkedNodes(const KeyedTree& tree) {
    std::vector<Marked> marked;
    for (int i = 0; i < tree.Count(); ++i) {
        const KeyedNode& node = tree.At(i);
        if (node.Tag().isEmpty())
            continue;
        const bool isRemote = IsRemote(node);
        marked.push_back(
            {i + 1, isRemote, RemoteName(node), isRemote ? QString() : CommandName(node), node.Tag()});
    }
    return marked;
}
