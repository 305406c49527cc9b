#pragma once

#include <QAbstractItemModel>
#include <QHash>

#include <memory>
#include <vector>

/// One node of a KeyedTree, which owns it. A node's address holds until the node is removed.
class KeyedNode {
public:
    const QString& Key() const { return key; }
    const QString& Text() const { return text; }
    const QString& Tag() const { return tag; }
    const QString& Image() const { return image; }
    bool IsBold() const { return isBold; }

    /// Null for a node at the top.
    const KeyedNode* Parent() const {
        return parent != nullptr && parent->parent != nullptr ? parent : nullptr;
    }
    int Children() const { return int(children.size()); }
    /// `row` from 0 to Children() - 1, in the order of adding.
    const KeyedNode& Child(int row) const { return *children[size_t(row)]; }

private:
    friend class KeyedTree;

    QString key;
    QString text;
    QString tag;
    QString image;
    bool isBold = false;
    KeyedNode* parent = nullptr; ///< null for the hidden node above the top, and for a node on its way out
    int row = 0;
    std::vector<KeyedNode*> children;
};

/// A tree whose nodes are known by key.
///
/// A key is any text but the empty one, unique in the tree and compared exactly. Each node has a text, a tag
/// (data of its owner's), the key of an image, and may be bold. Looking a key up takes constant time. The
/// tree also knows all its nodes in the order of adding, whatever was removed in between.
///
/// A function that takes a key says false, and changes nothing, if the tree doesn't have it.
class KeyedTree : public QAbstractItemModel {
    Q_OBJECT

public:
    enum Role {
        KeyRole = Qt::UserRole,
        TagRole,
        ImageRole,
        BoldRole,
    };

    explicit KeyedTree(QObject* parent = nullptr);

    /// Adds a node behind the other children of `parentKey`; at the top if that is empty. False if `key` is
    /// empty or exists already, or if there is no such parent.
    bool Add(const QString& key, const QString& text, const QString& image = {},
             const QString& parentKey = {});
    /// Removes a node and all below it.
    bool Remove(const QString& key);
    void Clear();

    bool SetText(const QString& key, const QString& text);
    bool SetTag(const QString& key, const QString& tag);
    bool SetImage(const QString& key, const QString& image);
    bool SetBold(const QString& key, bool isBold);

    /// Null if there is none.
    const KeyedNode* Find(const QString& key) const { return byKey.value(key); }
    int Count() const { return int(nodes.size()); }
    /// `number` from 0 to Count() - 1, in the order of adding.
    const KeyedNode& At(int number) const { return *nodes[size_t(number)]; }
    /// The children of the tree itself, as those of a node.
    const KeyedNode& Top() const { return top; }

    /// An invalid index if there is no such key.
    QModelIndex IndexOf(const QString& key) const;

    /// @name What views ask for
    /// @{
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// @}

private:
    template <class Value> bool Set(const QString& key, Value KeyedNode::*member, const Value& value);
    const KeyedNode* NodeOf(const QModelIndex& index) const;
    QModelIndex IndexOfNode(const KeyedNode* node) const;

    KeyedNode top;
    std::vector<std::unique_ptr<KeyedNode>> nodes;
    QHash<QString, KeyedNode*> byKey;
};
