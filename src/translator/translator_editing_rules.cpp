#include "translator/translator_editing_rules.h"

#include "base/blanks.h"
#include "base/tag_fields.h"
#include "link/requests.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int ToggleStepsByDragging = 5;

/// The texts of the nodes that keep a command from being added.
QSet<QString> TakenTexts(const KeyedTree& tree, const QString& selectedKey) {
    const KeyedNode* node = tree.Find(selectedKey);
    if (node != nullptr && KindOf(node->Key()) == TranslatorKind::Send)
        node = node->Parent();
    if (node != nullptr && KindOf(node->Key()) == TranslatorKind::Command)
        node = node->Parent();
    const auto isGroup = [](const KeyedNode& each) {
        const TranslatorKind kind = KindOf(each.Key());
        return kind == TranslatorKind::Group || kind == TranslatorKind::Multi;
    };
    QSet<QString> taken;
    if (node != nullptr && isGroup(*node)) {
        for (int row = 0; row < node->Children(); ++row)
            taken.insert(node->Child(row).Text());
    } else {
        for (int number = 0; number < tree.Count(); ++number)
            if (!isGroup(tree.At(number)))
                taken.insert(tree.At(number).Text());
    }
    return taken;
}

/// The container that a new node would go under, whatever its kind.
QString ContainerOfSelected(const KeyedTree& tree, const QString& selectedKey) {
    const KeyedNode* node = tree.Find(selectedKey);
    if (node == nullptr)
        return TranslatorRootKey;
    if (KindOf(selectedKey) == TranslatorKind::Send && node->Parent() != nullptr)
        node = node->Parent();
    return ContainerKey(node->Key(), true);
}

bool FallsApart(const QString& name) {
    return name.contains(TagSeparator);
}

/// The mark of a new step under a command: none, or "@" for the second one; whichever is free.
QString FreeCommandMark(const KeyedTree& tree, const KeyedNode& command) {
    const bool isSecond = command.Children() == 1;
    const QString mark = isSecond ? u"@"_s : QString();
    const bool isFree = tree.Find(SendKey(mark, command.Key())) == nullptr;
    return isFree ? mark : isSecond ? QString() : u"@"_s;
}

/// The data of a drag: names in fields that are filled up with blanks.
struct DragRecord {
    static constexpr const char* Name = "DragRecord";
    static constexpr int Size = Wire::RemoteWidth + Wire::CommandWidth;

    DraggedCommand dragged;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Text("remote", 0, Wire::RemoteWidth, Plain, r.dragged.remote);
        fields.Text("command", Wire::RemoteWidth, Wire::CommandWidth, Plain, r.dragged.command);
    }
};

} // namespace

bool IsCommandFree(const KeyedTree& tree, const QString& selectedKey, const QString& remote,
                   const QString& command) {
    return !TakenTexts(tree, selectedKey).contains(TranslatorText(remote, command));
}

QStringList FreeCommands(const KeyedTree& tree, const QString& selectedKey, const QString& remote,
                         const QStringList& commands) {
    const QSet<QString> taken = TakenTexts(tree, selectedKey);
    QStringList free;
    for (const QString& command : commands)
        if (!taken.contains(TranslatorText(remote, command)))
            free += command;
    return free;
}

QString ContainerForNew(const KeyedTree& tree, const QString& selectedKey, TranslatorKind kind) {
    QString container = ContainerOfSelected(tree, selectedKey);
    if (kind == TranslatorKind::Command || kind == TranslatorKind::Macro)
        return container;
    // Groups and shift keys ask for a selected container; a send step stands for the one around it.
    if (tree.Find(selectedKey) == nullptr || IsReceived(KindOf(selectedKey)))
        return {};
    const TranslatorKind holder = KindOf(container);
    bool takes = false;
    if (kind == TranslatorKind::Group)
        takes = holder == TranslatorKind::Remote || container.startsWith(u"MULREM");
    else if (kind == TranslatorKind::Multi)
        takes = holder == TranslatorKind::Root || holder == TranslatorKind::Remote ||
                holder == TranslatorKind::Group;
    return takes ? container : QString();
}

QString AddFromSource(KeyedTree& tree, const QString& selectedKey, TranslatorKind kind, const QString& remote,
                      const QString& command) {
    const QString container = ContainerForNew(tree, selectedKey, kind);
    if (container.isEmpty() || FallsApart(remote) || FallsApart(command))
        return {};
    const int type = kind == TranslatorKind::Group   ? TranslatorType::Group
                     : kind == TranslatorKind::Multi ? TranslatorType::Multi
                     : kind == TranslatorKind::Macro ? TranslatorType::Macro
                                                     : TranslatorType::Command;
    const TranslatorNode node =
        IsReceived(kind) ? MakeReceived(kind, container, {.remote = remote, .command = command, .type = type})
                         : MakeGroup(container, {.remote = remote, .command = command, .type = type});
    return AddNode(tree, node) ? node.key : QString();
}

bool CanAddRemote(const KeyedTree& tree, const QString& name) {
    const QString stored = AsStoredName(name).toLower();
    if (stored.isEmpty() || FallsApart(stored))
        return false;
    for (int number = 0; number < tree.Count(); ++number) {
        const KeyedNode& node = tree.At(number);
        if (KindOf(node.Key()) == TranslatorKind::Remote && node.Text().toLower() == stored)
            return false;
    }
    return true;
}

QString AddRemote(KeyedTree& tree, const QString& name) {
    if (!CanAddRemote(tree, name))
        return {};
    const TranslatorNode node = MakeRemote({.name = AsStoredName(name)});
    return AddNode(tree, node) ? node.key : QString();
}

TranslatorMenu MenuFor(QStringView key) {
    switch (KindOf(key)) {
    case TranslatorKind::Command:
    case TranslatorKind::Macro:
    case TranslatorKind::Toggle: return TranslatorMenu::Received;
    case TranslatorKind::Send: return TranslatorMenu::Send;
    case TranslatorKind::Remote: return TranslatorMenu::Remote;
    case TranslatorKind::Root: return TranslatorMenu::Root;
    case TranslatorKind::Group:
    case TranslatorKind::Multi: return TranslatorMenu::Group;
    case TranslatorKind::None: break;
    }
    return TranslatorMenu::None;
}

bool OffersProperties(TranslatorMenu menu) {
    return menu != TranslatorMenu::None && menu != TranslatorMenu::Group;
}

bool OffersDelete(TranslatorMenu menu) {
    return menu != TranslatorMenu::None && menu != TranslatorMenu::Root;
}

bool DeleteNode(KeyedTree& tree, const QString& key, int& deletedSteps) {
    const TranslatorMenu menu = MenuFor(key);
    if (!OffersDelete(menu) || !tree.Remove(key))
        return false;
    if (menu == TranslatorMenu::Send)
        ++deletedSteps;
    return true;
}

void ApplyTag(KeyedTree& tree, const QString& key, const QString& result) {
    if (tree.SetTag(key, result) && KindOf(key) == TranslatorKind::Command)
        tree.SetImage(key, TranslatorImage(TranslatorKind::Command, ParseCommandTag(result).type));
}

void ApplySendTag(KeyedTree& tree, const QString& key, const QString& result) {
    const KeyedNode* node = tree.Find(key);
    const QString tag = node != nullptr ? node->Tag() : QString();
    tree.SetTag(key,
                QStringList{TagField(tag, 1), TagField(tag, 2), TagField(tag, 3), result}.join(TagSeparator));
}

QByteArray EncodeDrag(const DraggedCommand& dragged) {
    return Encode(DragRecord{dragged});
}

std::optional<DraggedCommand> DecodeDrag(QByteArrayView bytes) {
    if (bytes.size() != DragRecord::Size)
        return {};
    const DraggedCommand raw = Decode<DragRecord>(bytes).dragged;
    return DraggedCommand{WithoutBlanks(raw.remote).toString(), WithoutBlanks(raw.command).toString()};
}

bool AcceptsDrop(const KeyedTree& tree, const QString& key) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return false;
    const TranslatorKind kind = KindOf(key);
    return kind == TranslatorKind::Command || kind == TranslatorKind::Macro ||
           (kind == TranslatorKind::Toggle && node->Children() < ToggleStepsByDragging);
}

QString DropCommand(KeyedTree& tree, const QString& key, const DraggedCommand& dragged, int deletedSteps) {
    if (!AcceptsDrop(tree, key) || FallsApart(dragged.remote) || FallsApart(dragged.command))
        return {};
    const KeyedNode& target = *tree.Find(key);
    SendTag step;
    step.remote = dragged.remote;
    step.command = dragged.command;
    QString mark;
    if (KindOf(key) == TranslatorKind::Command) {
        const bool isAccelerated = ParseCommandTag(target.Tag()).type == TranslatorType::Accelerated;
        const int steps = target.Children();
        if (steps > 1 || (steps == 1 && !isAccelerated))
            tree.Remove(QString(target.Child(steps - 1).Key()));
        mark = FreeCommandMark(tree, target);
    } else {
        step.pause = SendTag::DefaultPause;
        mark = QString::number(deletedSteps + target.Children());
    }
    const TranslatorNode node = MakeSend(mark, key, step);
    return AddNode(tree, node) ? node.key : QString();
}
