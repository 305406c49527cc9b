#include "translator/translator_elements.h"

#include "base/number.h"

#include <cmath>

namespace {

/// Numbers of the containers that enclose a node, itself included; 0 for none.
struct Enclosing {
    int remote = 0;
    int group = 0;
    int multi = 0;
};

/// Walks a tree depth first and makes its elements. Whether they fit is known at the end.
class Flattener {
public:
    explicit Flattener(bool includeNames)
        : includeNames(includeNames) {}

    void Walk(const KeyedNode& node, Enclosing enclosing);

    std::optional<TranslatorRefusal> Refusal() const;
    std::vector<TranslatorRequest> elements;

private:
    void Add(const KeyedNode& node, const Enclosing& enclosing);
    void AddReceived(const KeyedNode& node, TranslatorRequest& element);
    void Limit(TranslatorRefusal::Reason reason, const KeyedNode& node, int count, int limit);

    bool includeNames;
    int remotes = 0;
    int groups = 0;
    int multis = 0;
    std::optional<TranslatorRefusal> firstUnfit; ///< the first node that by itself doesn't fit
};

void Flattener::Walk(const KeyedNode& node, Enclosing enclosing) {
    const TranslatorKind kind = KindOf(node.Key());
    if (kind == TranslatorKind::Remote)
        enclosing.remote = ++remotes;
    else if (kind == TranslatorKind::Group)
        enclosing.group = ++groups;
    else if (kind == TranslatorKind::Multi)
        enclosing.multi = ++multis;
    Add(node, enclosing);
    // The number of a shift key would lead past the group.
    if (kind == TranslatorKind::Group)
        enclosing.multi = 0;
    for (int row = 0; row < node.Children(); ++row)
        Walk(node.Child(row), enclosing);
}

void Flattener::Add(const KeyedNode& node, const Enclosing& enclosing) {
    TranslatorRequest element;
    element.ElementIndex = qint32(elements.size());
    // Numbers that don't fit are refused as a whole, at the end.
    element.RemoteIndex = quint8(enclosing.remote);
    element.GroupIndex = quint8(enclosing.group);
    element.MultiIndex = quint8(enclosing.multi);
    switch (const TranslatorKind kind = KindOf(node.Key())) {
    case TranslatorKind::Root:
    case TranslatorKind::Remote: {
        const auto tag = ParseContainerTag(node.Tag());
        const bool isRoot = kind == TranslatorKind::Root;
        element.ElementType = isRoot ? TranslatorType::Root : TranslatorType::Remote;
        element.ElementFlags = Clamp<quint8>(tag.flags);
        element.remote = tag.name;
        element.ElementReceiveMask = tag.receiveMask;
        element.ElementSendMask = tag.sendMask;
        break;
    }
    case TranslatorKind::Group:
    case TranslatorKind::Multi: {
        const auto tag = ParseGroupTag(node.Tag());
        element.ElementType = kind == TranslatorKind::Group ? TranslatorType::Group : TranslatorType::Multi;
        element.ElementFlags = Clamp<quint8>(tag.flags);
        element.remote = tag.remote;
        element.command = tag.command;
        element.ElementReceiveMask = tag.receiveMask;
        break;
    }
    case TranslatorKind::Command:
    case TranslatorKind::Macro:
    case TranslatorKind::Toggle: AddReceived(node, element); break;
    case TranslatorKind::None: // no node has such a key
    case TranslatorKind::Send: {
        const auto tag = ParseSendTag(node.Tag());
        const auto condition = ParseCondition(tag.condition).value_or(SendCondition());
        element.ElementType = TranslatorType::Send;
        element.ElementPause = Clamp<qint16>(tag.pause.value_or(0));
        element.remote = tag.remote;
        element.command = tag.command;
        element.ElementSendMask = tag.sendMask;
        element.ElementIO = quint8((condition.isOn ? TranslatorIo::Flag : 0) | condition.input);
        element.ElementIOValue = quint8(condition.value);
        break;
    }
    }
    elements.push_back(std::move(element));
}

void Flattener::AddReceived(const KeyedNode& node, TranslatorRequest& element) {
    const auto tag = ParseCommandTag(node.Tag());
    const int steps = node.Children();
    int type = tag.type;
    if (type >= TranslatorType::Macro) {
        Limit(TranslatorRefusal::TooManySteps, node, steps, TranslatorLimits::MacroSteps);
        type = TranslatorType::Macro + steps;
    } else if (type >= TranslatorType::Toggle) {
        Limit(TranslatorRefusal::TooManySteps, node, steps, TranslatorLimits::ToggleSteps);
        type = TranslatorType::Toggle + steps;
    } else if (type == TranslatorType::Accelerated && steps > 1) {
        type = TranslatorType::AcceleratedTwoSteps;
    }
    Limit(TranslatorRefusal::TimeoutTooLong, node, tag.param, CommandTag::ParamMax);
    element.ElementType = Clamp<quint8>(type);
    element.ElementFlags = Clamp<quint8>(tag.flags);
    // The rounding mode in force takes a tie to the even number.
    element.ElementParam = Clamp<quint8>(int(std::nearbyint(double(tag.param) / CommandTag::ParamUnit)));
    element.ElementRepeat = Clamp<quint8>(tag.repeat);
    element.remote = tag.remote;
    element.command = tag.command;
    element.ElementReceiveMask = tag.receiveMask;
    element.IncludeNames = includeNames ? 1 : 0;
}

void Flattener::Limit(TranslatorRefusal::Reason reason, const KeyedNode& node, int count, int limit) {
    if (count > limit && !firstUnfit)
        firstUnfit = {reason, count, limit, 0, node.Text()};
}

std::optional<TranslatorRefusal> Flattener::Refusal() const {
    using namespace TranslatorLimits;
    const TranslatorRefusal totals[] = {
        {TranslatorRefusal::TooManyElements, int(elements.size()), Elements},
        {TranslatorRefusal::TooManyRemotes, remotes, Remotes},
        {TranslatorRefusal::TooManyGroups, groups, Groups},
        {TranslatorRefusal::TooManyMultis, multis, Multis},
    };
    for (const TranslatorRefusal& total : totals)
        if (total.count > total.limit)
            return total;
    return firstUnfit;
}

} // namespace

std::variant<std::vector<TranslatorRequest>, TranslatorRefusal> FlattenTree(const KeyedTree& tree,
                                                                            bool includeNames) {
    Flattener flattener(includeNames);
    const KeyedNode* root = tree.Find(TranslatorRootKey);
    if (root == nullptr)
        return TranslatorRefusal{TranslatorRefusal::EmptySet};
    flattener.Walk(*root, {});
    if (auto refusal = flattener.Refusal())
        return *std::move(refusal);
    return std::move(flattener.elements);
}
