#include "translator/translator_tree.h"

#include "base/blanks.h"
#include "base/tag_fields.h"
#include "link/requests.h"

#include <QStringList>

using namespace Qt::StringLiterals;

const QString TranslatorRootKey = u"CON"_s;
const QStringList TranslatorImages = {u"CommandRcv"_s, u"CommandSnd"_s,  u"Config"_s,
                                      u"Remote"_s,     u"Volumemacro"_s, u"Macro"_s,
                                      u"Group"_s,      u"Multi"_s,       u"Toggle"_s};

namespace {

constexpr int PrefixLength = 3;

constexpr struct {
    TranslatorKind kind;
    QStringView prefix;
    QStringView image;
} Kinds[] = {
    {TranslatorKind::Root, u"CON", u"Config"},        {TranslatorKind::Remote, u"REM", u"Remote"},
    {TranslatorKind::Group, u"GRP", u"Group"},        {TranslatorKind::Multi, u"MUL", u"Multi"},
    {TranslatorKind::Command, u"RCV", u"CommandRcv"}, {TranslatorKind::Macro, u"MAC", u"Macro"},
    {TranslatorKind::Toggle, u"TOG", u"Toggle"},      {TranslatorKind::Send, u"SND", u"CommandSnd"},
};

/// In the order of the enumerators, of which None has no row.
const auto& RowOf(TranslatorKind kind) {
    Q_ASSERT(kind != TranslatorKind::None);
    return Kinds[size_t(kind) - 1];
}

QString PrefixOf(TranslatorKind kind) {
    return RowOf(kind).prefix.toString();
}

/// Flags of a new root: everything is forwarded translated.
constexpr int NewRootFlags = 2 | 8;

} // namespace

TranslatorKind KindOf(QStringView key) {
    for (const auto& row : Kinds)
        if (key.startsWith(row.prefix))
            return row.kind;
    return TranslatorKind::None;
}

bool IsReceived(TranslatorKind kind) {
    return kind == TranslatorKind::Command || kind == TranslatorKind::Macro || kind == TranslatorKind::Toggle;
}

QString ContainerKey(QStringView key, bool includeSelf) {
    switch (KindOf(key)) {
    case TranslatorKind::Remote: return key.toString();
    case TranslatorKind::Root: return includeSelf ? key.toString() : QString();
    case TranslatorKind::Send: {
        QStringView parent = key.sliced(PrefixLength);
        while (!parent.isEmpty() && (parent[0] == u'@' || (parent[0] >= u'0' && parent[0] <= u'9')))
            parent = parent.sliced(1);
        return parent.toString();
    }
    case TranslatorKind::Group:
    case TranslatorKind::Multi:
        if (includeSelf)
            return key.toString();
        [[fallthrough]];
    case TranslatorKind::Command:
    case TranslatorKind::Macro:
    case TranslatorKind::Toggle: {
        const QStringView rest = key.sliced(PrefixLength);
        const auto end = rest.lastIndexOf(TagSeparator);
        return (end < 0 ? rest : rest.first(end)).toString();
    }
    case TranslatorKind::None: break;
    }
    return {};
}

QString RemoteKey(const QString& name) {
    return PrefixOf(TranslatorKind::Remote) + name;
}

QString TranslatorNodeKey(TranslatorKind kind, const QString& containerKey, const QString& remote,
                          const QString& command) {
    return PrefixOf(kind) + containerKey + TagSeparator + remote + u'@' + command;
}

QString SendKey(const QString& mark, const QString& parentKey) {
    return PrefixOf(TranslatorKind::Send) + mark + parentKey;
}

QString TranslatorText(const QString& remote, const QString& command) {
    return remote + u'.' + command;
}

QString TranslatorImage(TranslatorKind kind, int type) {
    const bool isAccelerated = kind == TranslatorKind::Command && type == TranslatorType::Accelerated;
    return isAccelerated ? u"Volumemacro"_s : RowOf(kind).image.toString();
}

TranslatorNode MakeRoot(const ContainerTag& tag) {
    return {TranslatorRootKey, {}, tag.name, TranslatorImage(TranslatorKind::Root, 0), FormatTag(tag)};
}

TranslatorNode MakeRemote(const ContainerTag& tag) {
    return {RemoteKey(tag.name), TranslatorRootKey, tag.name, TranslatorImage(TranslatorKind::Remote, 0),
            FormatTag(tag)};
}

TranslatorNode MakeGroup(const QString& containerKey, const GroupTag& tag) {
    const auto kind = tag.type == TranslatorType::Multi ? TranslatorKind::Multi : TranslatorKind::Group;
    return {TranslatorNodeKey(kind, containerKey, tag.remote, tag.command), containerKey,
            TranslatorText(tag.remote, tag.command), TranslatorImage(kind, tag.type), FormatTag(tag)};
}

TranslatorNode MakeReceived(TranslatorKind kind, const QString& containerKey, const CommandTag& tag) {
    Q_ASSERT(IsReceived(kind));
    return {TranslatorNodeKey(kind, containerKey, tag.remote, tag.command), containerKey,
            TranslatorText(tag.remote, tag.command), TranslatorImage(kind, tag.type), FormatTag(tag)};
}

TranslatorNode MakeSend(const QString& mark, const QString& parentKey, const SendTag& tag) {
    return {SendKey(mark, parentKey), parentKey, TranslatorText(tag.remote, tag.command),
            TranslatorImage(TranslatorKind::Send, TranslatorType::Send), FormatTag(tag)};
}

bool AddNode(KeyedTree& tree, const TranslatorNode& node) {
    return tree.Add(node.key, node.text, node.image, node.parentKey) && tree.SetTag(node.key, node.tag);
}

void ResetTranslatorTree(KeyedTree& tree) {
    tree.Clear();
    AddNode(tree, MakeRoot({.isRoot = true, .name = u"Config"_s, .flags = NewRootFlags}));
}

QString AsStoredName(const QString& name) {
    std::array<char, Wire::RemoteWidth> field{};
    Wire::PutText(field, Wire::TextForm::Trimmed, name);
    return WithoutBlanks(Wire::GetText(field)).toString();
}
