#pragma once

#include "base/keyed_tree.h"
#include "translator/translator_tags.h"

/// The tree of a translator set: which nodes there are, and what their keys, texts and images are. All data
/// of a node sits in its key, text, image and tag.
///
///    Config                 "CON"
///    +- command             "RCV" container "\" remote "@" command
///    |  +- send step        "SND" number, "@" or nothing, and the key of its parent
///    +- macro               "MAC" container "\" remote "@" command
///    +- toggle              "TOG" ...
///    +- shift key           "MUL" ...
///    +- remote              "REM" name
///       +- group            "GRP" container "\" remote "@" command
///
/// "container" is the key of the node that holds it. Commands, macros and toggles stand in the root, remotes,
/// groups and shift keys.

enum class TranslatorKind { None, Root, Remote, Group, Multi, Command, Macro, Toggle, Send };

/// By the first three letters of a key; None for a key that is empty or unknown.
TranslatorKind KindOf(QStringView key);

/// Command, macro or toggle: what a device receives, and what holds send steps.
bool IsReceived(TranslatorKind kind);

extern const QString TranslatorRootKey;

/// The key of the node that holds the node of `key`; empty for the root. A remote counts as its own
/// container; with `includeSelf`, so do groups, shift keys and the root.
QString ContainerKey(QStringView key, bool includeSelf);

QString RemoteKey(const QString& name);
/// For all kinds but root, remote and send step.
QString TranslatorNodeKey(TranslatorKind kind, const QString& containerKey, const QString& remote,
                          const QString& command);
/// `mark` is a number, "@" or empty.
QString SendKey(const QString& mark, const QString& parentKey);

/// Text of a node that isn't a root or remote.
QString TranslatorText(const QString& remote, const QString& command);

/// The keys of the images, one for each picture that a node can bear.
extern const QStringList TranslatorImages;
/// The image of a node; `type` is field 3 of its tag and tells an accelerated command.
QString TranslatorImage(TranslatorKind kind, int type);

/// A node before it is in the tree.
struct TranslatorNode {
    QString key;
    QString parentKey; ///< empty for the root
    QString text;
    QString image;
    QString tag;
};

/// @name Nodes as they are new, or as their tag says
/// @{
TranslatorNode MakeRoot(const ContainerTag& tag);
TranslatorNode MakeRemote(const ContainerTag& tag);
TranslatorNode MakeGroup(const QString& containerKey, const GroupTag& tag);
TranslatorNode MakeReceived(TranslatorKind kind, const QString& containerKey, const CommandTag& tag);
TranslatorNode MakeSend(const QString& mark, const QString& parentKey, const SendTag& tag);
/// @}

/// False, and nothing changes, if the key exists or the parent doesn't.
bool AddNode(KeyedTree& tree, const TranslatorNode& node);

/// Empties the tree down to a new root.
void ResetTranslatorTree(KeyedTree& tree);

/// `name` as it comes back from a stored set: without blanks at its ends, in the character set of the wire,
/// cut at the width of its field.
QString AsStoredName(const QString& name);
