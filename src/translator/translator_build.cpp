#include "translator/translator_elements.h"

#include "base/blanks.h"
#include "base/tag_fields.h"

#include <QSet>

namespace {

/// Makes the nodes of a set, element by element.
class Builder {
public:
    explicit Builder(const KeyedTree& tree)
        : tree(tree) {
        StartAtRoot();
    }

    std::optional<TranslatorRefusal> Take(const TranslatorRequest& element, int number);

    TranslatorNodes built;

private:
    using Reason = TranslatorRefusal::Reason;

    void StartAtRoot();
    TranslatorNode MakeNode(const TranslatorRequest& element, const QString& remote, const QString& command);
    QString ContainerOf(const TranslatorRequest& element, bool inMulti) const;
    void Remember(const TranslatorRequest& element, const TranslatorNode& node);
    bool IsKnown(const QString& key) const {
        return keys.contains(key) || (!built.replacesTree && tree.Find(key) != nullptr);
    }

    const KeyedTree& tree;
    QSet<QString> keys;
    /// Keys of remotes and groups by their numbers, and the root's at 0, 0.
    QString containers[TranslatorLimits::Remotes + 1][TranslatorLimits::Groups + 1];
    QString multis[TranslatorLimits::Multis + 1];
    QString lastKey; ///< of the last command, macro or toggle
    int lastSteps = 0;
};

void Builder::StartAtRoot() {
    built.nodes.clear();
    keys.clear();
    for (auto& row : containers)
        std::fill(std::begin(row), std::end(row), QString());
    std::fill(std::begin(multis), std::end(multis), QString());
    containers[0][0] = TranslatorRootKey;
    lastKey.clear();
}

std::optional<TranslatorRefusal> Builder::Take(const TranslatorRequest& element, int number) {
    const QString remote = WithoutBlanks(element.remote).toString();
    const QString command = WithoutBlanks(element.command).toString();
    const QString name = command.isEmpty() ? remote : TranslatorText(remote, command);
    const auto refuse = [&](Reason reason, int count = 0, int limit = 0) {
        return TranslatorRefusal{reason, count, limit, number, name};
    };
    if (element.RemoteIndex > TranslatorLimits::Remotes)
        return refuse(Reason::TooManyRemotes, element.RemoteIndex, TranslatorLimits::Remotes);
    if (element.GroupIndex > TranslatorLimits::Groups)
        return refuse(Reason::TooManyGroups, element.GroupIndex, TranslatorLimits::Groups);
    if (name.contains(TagSeparator))
        return refuse(Reason::BackslashInName);

    if (element.ElementType == TranslatorType::Root) {
        StartAtRoot();
        built.replacesTree = true;
    }
    TranslatorNode node = MakeNode(element, remote, command);
    if (node.key.isEmpty())
        return refuse(Reason::UnknownType, element.ElementType);
    if (element.ElementType != TranslatorType::Root && !IsKnown(node.parentKey))
        return refuse(Reason::NoContainer);
    if (IsKnown(node.key))
        return refuse(Reason::Twice);
    keys.insert(node.key);
    Remember(element, node);
    built.nodes.push_back(std::move(node));
    return {};
}

TranslatorNode Builder::MakeNode(const TranslatorRequest& element, const QString& remote,
                                 const QString& command) {
    const int type = element.ElementType;
    const qint32 receive = element.ElementReceiveMask;
    const qint32 send = element.ElementSendMask;
    const int flags = element.ElementFlags;
    const auto received = [&](TranslatorKind kind, int tagType) {
        return MakeReceived(kind, ContainerOf(element, true),
                            {remote, command, tagType, receive, flags, element.ElementRepeat,
                             element.ElementParam * CommandTag::ParamUnit});
    };
    switch (type) {
    case TranslatorType::Root: return MakeRoot({true, remote, receive, send, flags});
    case TranslatorType::Remote: return MakeRemote({false, remote, receive, send, flags});
    case TranslatorType::Group: {
        const QString container =
            element.MultiIndex != 0 ? multis[element.MultiIndex] : containers[element.RemoteIndex][0];
        return MakeGroup(container, {remote, command, TranslatorType::Group, receive, flags});
    }
    case TranslatorType::Multi:
        return MakeGroup(ContainerOf(element, false),
                         {remote, command, TranslatorType::Multi, receive, flags});
    case TranslatorType::Command: return received(TranslatorKind::Command, TranslatorType::Command);
    case TranslatorType::Accelerated:
    case TranslatorType::AcceleratedTwoSteps:
        return received(TranslatorKind::Command, TranslatorType::Accelerated);
    case TranslatorType::Send: {
        const SendCondition condition{(element.ElementIO & TranslatorIo::Flag) != 0,
                                      element.ElementIO & TranslatorIo::Input, element.ElementIOValue};
        return MakeSend(QString::number(lastSteps), lastKey,
                        {remote, command, send, element.ElementPause, FormatCondition(condition)});
    }
    default: break;
    }
    if (type >= TranslatorType::Macro)
        return received(TranslatorKind::Macro, type);
    if (type >= TranslatorType::Toggle)
        return received(TranslatorKind::Toggle, type);
    return {};
}

QString Builder::ContainerOf(const TranslatorRequest& element, bool inMulti) const {
    return inMulti && element.MultiIndex != 0 ? multis[element.MultiIndex]
                                              : containers[element.RemoteIndex][element.GroupIndex];
}

void Builder::Remember(const TranslatorRequest& element, const TranslatorNode& node) {
    switch (KindOf(node.key)) {
    case TranslatorKind::Remote:
        if (element.RemoteIndex != 0)
            containers[element.RemoteIndex][element.GroupIndex] = node.key;
        break;
    case TranslatorKind::Group:
        if (element.GroupIndex != 0)
            containers[element.RemoteIndex][element.GroupIndex] = node.key;
        break;
    case TranslatorKind::Multi: multis[element.MultiIndex] = node.key; break;
    case TranslatorKind::Command:
    case TranslatorKind::Macro:
    case TranslatorKind::Toggle:
        lastKey = node.key;
        lastSteps = 0;
        built.includeNames = element.IncludeNames != 0;
        break;
    case TranslatorKind::Send: ++lastSteps; break;
    case TranslatorKind::Root:
    case TranslatorKind::None: break;
    }
}

} // namespace

std::variant<TranslatorNodes, TranslatorRefusal> BuildNodes(const std::vector<TranslatorRequest>& elements,
                                                            const KeyedTree& tree) {
    using namespace TranslatorLimits;
    if (elements.empty())
        return TranslatorRefusal{TranslatorRefusal::EmptySet};
    if (elements.size() > Elements)
        return TranslatorRefusal{TranslatorRefusal::TooManyElements, int(elements.size()), Elements};
    Builder builder(tree);
    for (size_t i = 0; i < elements.size(); ++i)
        if (auto refusal = builder.Take(elements[i], int(i) + 1))
            return *std::move(refusal);
    return std::move(builder.built);
}

void FillTree(KeyedTree& tree, const TranslatorNodes& nodes) {
    if (nodes.replacesTree)
        tree.Clear();
    for (const TranslatorNode& node : nodes.nodes)
        AddNode(tree, node);
}
