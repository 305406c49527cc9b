#pragma once

#include "translator/translator_tree.h"

/// What the user may do to a translator tree. `selectedKey` is the key of the selected node, empty if none is
/// selected.

/// Whether the command may be offered for adding. In a group or shift key its direct children count,
/// everywhere else all nodes of the tree but groups and shift keys.
bool IsCommandFree(const KeyedTree& tree, const QString& selectedKey, const QString& remote,
                   const QString& command);

/// Those of `commands` that are free, in their order.
QStringList FreeCommands(const KeyedTree& tree, const QString& selectedKey, const QString& remote,
                         const QStringList& commands);

/// @name Adding from the source side
/// `kind` is Command, Macro, Group or Multi.
/// @{
/// The key of the node that a new one goes under; empty if the selected node takes none of that kind.
QString ContainerForNew(const KeyedTree& tree, const QString& selectedKey, TranslatorKind kind);
/// Adds the node and gives its key; empty, and nothing changes, if that is refused: by the rule above,
/// because the same node stands there already, or because a name has a backslash.
QString AddFromSource(KeyedTree& tree, const QString& selectedKey, TranslatorKind kind, const QString& remote,
                      const QString& command);
/// @}

/// @name Adding a remote
/// @{
/// False for a name that is empty, has a backslash, or exists already, whatever its letter case.
bool CanAddRemote(const KeyedTree& tree, const QString& name);
/// Adds it under the root, by the name with which a stored set would bring it back, and gives its key; empty
/// if it can't be added.
QString AddRemote(KeyedTree& tree, const QString& name);
/// @}

/// The context menu of a node. The values are the indices of `fnuPopupTree`.
enum class TranslatorMenu {
    None = 0,
    Received = 10, ///< properties and delete
    Send = 20,     ///< properties and delete
    Remote = 30,   ///< properties and delete
    Root = 40,     ///< properties
    Group = 50,    ///< delete
};
TranslatorMenu MenuFor(QStringView key);
/// The default item of the menu, 10, is the properties.
bool OffersProperties(TranslatorMenu menu);
bool OffersDelete(TranslatorMenu menu);

/// Removes a node and all below it, if its menu offers that. `deletedSteps` counts the send steps that were
/// removed by themselves.
bool DeleteNode(KeyedTree& tree, const QString& key, int& deletedSteps);

/// @name Properties that were edited
/// Nothing changes if the node is gone.
/// @{
/// Of commands, macros, toggles, remotes and the root: `result` is the new tag. The image follows.
void ApplyTag(KeyedTree& tree, const QString& key, const QString& result);
/// Of send steps: `result` is the new tag from its fourth field on.
void ApplySendTag(KeyedTree& tree, const QString& key, const QString& result);
/// @}

/// @name Dragging target commands onto the tree
/// @{
struct DraggedCommand {
    static constexpr int Format = 201; ///< number of the private format

    QString remote;
    QString command;
};
/// 100 bytes: 80 of the remote, 20 of the command, filled up with blanks.
QByteArray EncodeDrag(const DraggedCommand& dragged);
/// Names without blanks at their ends; nothing if `bytes` has another length.
std::optional<DraggedCommand> DecodeDrag(QByteArrayView bytes);

/// Whether the node takes a dragged command: a command, a macro, or a toggle of fewer than five steps.
bool AcceptsDrop(const KeyedTree& tree, const QString& key);
/// Adds a send step and gives its key. A plain command's step is replaced, and so is the second of an
/// accelerated one. `deletedSteps`, as DeleteNode counts them since the form opened, keeps keys unique.
/// Empty, and nothing changes, if the node doesn't take it.
QString DropCommand(KeyedTree& tree, const QString& key, const DraggedCommand& dragged, int deletedSteps);
/// @}
