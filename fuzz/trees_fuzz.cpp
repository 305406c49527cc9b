// Elements in any order and with any numbers, into the trees of translator and database and out again: what a
// tree has taken comes back of it as it is, or is refused.

#include "database/database_tree.h"
#include "database/elements.h"
#include "fuzz/check.h"
#include "translator/translator_elements.h"

using namespace Qt::StringLiterals;

namespace {

QString Name(int number) {
    static const QStringList names = {{},      u"tv"_s,   u"a-b"_s,  u"a"_s,           u" on "_s,
                                      u"ü€"_s, u"b\\c"_s, u"x@\\"_s, QString(80, u'n')};
    return names[number % names.size()];
}

/// One element of about ten bytes, numbers small so that they meet.
TranslatorRequest TakeRule(Input& input) {
    static constexpr std::array<quint8, 14> types = {0, 1, 2, 3, 4, 5, 6, 7, 70, 72, 99, 100, 105, 255};
    const quint8 names = input.ConsumeIntegral<quint8>();
    const quint8 places = input.ConsumeIntegral<quint8>();
    TranslatorRequest rule;
    rule.ElementType =
        input.ConsumeBool() ? types[size_t(input.Below(int(types.size())))] : input.ConsumeIntegral<quint8>();
    rule.remote = Name(names % 16);
    rule.command = Name(names / 16);
    rule.RemoteIndex = places & 3;
    rule.GroupIndex = places >> 2 & 3;
    rule.MultiIndex = places >> 4 & 3;
    rule.IncludeNames = places >> 6;
    rule.ElementFlags = rule.ElementRepeat = rule.ElementParam = rule.ElementIO =
        input.ConsumeIntegral<quint8>();
    rule.ElementIOValue = quint8(input.Below(12));
    rule.ElementPause = input.ConsumeIntegral<qint16>();
    rule.ElementSendMask = rule.ElementReceiveMask = rule.ElementPause * 60000;
    return rule;
}

template <class Record> QByteArray BytesOf(const std::vector<Record>& records) {
    QByteArray bytes;
    for (const Record& record : records)
        bytes += Encode(record);
    return bytes;
}

using Rules = std::vector<TranslatorRequest>;

void TryTranslator(Input& input, bool hasRoot) {
    KeyedTree tree;
    if (hasRoot)
        ResetTranslatorTree(tree);
    Rules rules;
    while (input.remaining_bytes() > 0)
        rules.push_back(TakeRule(input));
    const auto built = BuildNodes(rules, tree);
    const auto* nodes = std::get_if<TranslatorNodes>(&built);
    if (nodes == nullptr)
        return;
    FillTree(tree, *nodes);
    Check(tree.Count() == int(nodes->nodes.size()) + (hasRoot && !nodes->replacesTree ? 1 : 0));
    const bool includesNames = nodes->includeNames.value_or(false);
    const auto flat = FlattenTree(tree, includesNames);
    const auto* stored = std::get_if<Rules>(&flat);
    if (stored == nullptr)
        return;
    Check(int(stored->size()) == tree.Count());
    KeyedTree again;
    FillTree(again, std::get<TranslatorNodes>(BuildNodes(*stored, again)));
    Check(BytesOf(std::get<Rules>(FlattenTree(again, includesNames))) == BytesOf(*stored));
}

IRDBElementRecord TakeAction(Input& input) {
    IRDBElementRecord element;
    const quint8 names = input.ConsumeIntegral<quint8>();
    element.remote = Name(names % 16);
    element.command = Name(names / 16);
    element.ElementKind = quint8(IRDBElementRecord::Remote + input.Below(12));
    element.ElementFlags = input.ConsumeIntegral<quint8>();
    element.RelayByte = input.ConsumeIntegral<quint8>();
    element.ip = input.Word();
    element.port = input.ConsumeIntegral<qint16>();
    element.dataLength = quint8(input.ConsumeBool() ? input.Below(256) : input.Below(8));
    // As it comes off the wire, in the whole width of its field.
    element.action = input.Bytes(element.dataLength)
                         .leftJustified(Wire::ActionDataWidth, input.ConsumeBool() ? ' ' : '\0');
    return element;
}

std::vector<IRDBElementRecord> ElementsOf(const KeyedTree& tree) {
    std::vector<IRDBElementRecord> elements;
    for (const DatabaseTree::Marked& node : DatabaseTree::MarkedNodes(tree)) {
        if (node.isRemote)
            elements.push_back(DatabaseElement::OfRemote(node.remote, node.tag));
        else if (const auto tag = ActionTag::Parse(node.tag))
            for (int group = 0; group < ActionTag::Groups; ++group)
                elements.push_back(DatabaseElement::OfAction(node.remote, node.command, *tag, group));
    }
    for (IRDBElementRecord& element : elements)
        element = Decode<IRDBElementRecord>(Encode(element));
    return elements;
}

void TryDatabase(Input& input) {
    KeyedTree tree;
    for (int remote = 1; remote < 4; ++remote) {
        DatabaseTree::AddRemote(tree, Name(remote).trimmed());
        for (int command = 1; command < 4; ++command)
            DatabaseTree::AddCommand(tree, Name(remote).trimmed(), Name(command).trimmed());
    }
    std::vector<IRDBElementRecord> elements;
    while (input.remaining_bytes() > 0)
        elements.push_back(TakeAction(input));
    Check(DatabaseElement::Apply(tree, elements).size() == elements.size());

    const auto stored = ElementsOf(tree);
    DatabaseTree::ClearTags(tree);
    Check(DatabaseTree::MarkedNodes(tree).empty());
    for (const auto applied : DatabaseElement::Apply(tree, stored))
        Check(applied == DatabaseElement::Applied::Yes);
    Check(BytesOf(ElementsOf(tree)) == BytesOf(stored));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    Input input(data, size);
    if (const int kind = input.Below(3); kind < 2)
        TryTranslator(input, kind == 1);
    else
        TryDatabase(input);
    return 0;
}
