#include "base/keyed_tree.h"

KeyedTree::KeyedTree(QObject* parent)
    : QAbstractItemModel(parent) {}

bool KeyedTree::Add(const QString& key, const QString& text, const QString& image, const QString& parentKey) {
    KeyedNode* parent = parentKey.isEmpty() ? &top : byKey.value(parentKey);
    if (key.isEmpty() || byKey.contains(key) || parent == nullptr)
        return false;
    const int row = parent->Children();
    beginInsertRows(IndexOfNode(parent), row, row);
    auto& node = nodes.emplace_back(std::make_unique<KeyedNode>());
    node->key = key;
    node->text = text;
    node->image = image;
    node->parent = parent;
    node->row = row;
    parent->children.push_back(node.get());
    byKey.insert(key, node.get());
    endInsertRows();
    return true;
}

bool KeyedTree::Remove(const QString& key) {
    KeyedNode* node = byKey.value(key);
    if (node == nullptr)
        return false;
    KeyedNode* parent = node->parent;
    beginRemoveRows(IndexOfNode(parent), node->row, node->row);
    for (auto next = parent->children.erase(parent->children.begin() + node->row);
         next != parent->children.end(); ++next)
        --(*next)->row;

    std::vector<KeyedNode*> removed = {node};
    for (size_t i = 0; i < removed.size(); ++i) {
        removed.insert(removed.end(), removed[i]->children.begin(), removed[i]->children.end());
        byKey.remove(removed[i]->key);
        removed[i]->parent = nullptr;
    }
    std::erase_if(nodes, [](const auto& each) { return each->parent == nullptr; });
    endRemoveRows();
    return true;
}

void KeyedTree::Clear() {
    beginResetModel();
    byKey.clear();
    top.children.clear();
    nodes.clear();
    endResetModel();
}

bool KeyedTree::SetText(const QString& key, const QString& text) {
    return Set(key, &KeyedNode::text, text);
}

bool KeyedTree::SetTag(const QString& key, const QString& tag) {
    return Set(key, &KeyedNode::tag, tag);
}

bool KeyedTree::SetImage(const QString& key, const QString& image) {
    return Set(key, &KeyedNode::image, image);
}

bool KeyedTree::SetBold(const QString& key, bool isBold) {
    return Set(key, &KeyedNode::isBold, isBold);
}

template <class Value> bool KeyedTree::Set(const QString& key, Value KeyedNode::*member, const Value& value) {
    KeyedNode* node = byKey.value(key);
    if (node == nullptr)
        return false;
    if (node->*member != value) {
        node->*member = value;
        const QModelIndex index = IndexOfNode(node);
        emit dataChanged(index, index);
    }
    return true;
}

QModelIndex KeyedTree::IndexOf(const QString& key) const {
    const KeyedNode* node = Find(key);
    return node != nullptr ? IndexOfNode(node) : QModelIndex();
}

const KeyedNode* KeyedTree::NodeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const KeyedNode*>(index.constInternalPointer()) : &top;
}

QModelIndex KeyedTree::IndexOfNode(const KeyedNode* node) const {
    return node == &top ? QModelIndex() : createIndex(node->row, 0, node);
}

QModelIndex KeyedTree::index(int row, int column, const QModelIndex& parent) const {
    const KeyedNode* node = NodeOf(parent);
    if (row < 0 || row >= node->Children() || column != 0)
        return {};
    return IndexOfNode(&node->Child(row));
}

QModelIndex KeyedTree::parent(const QModelIndex& child) const {
    return child.isValid() ? IndexOfNode(NodeOf(child)->parent) : QModelIndex();
}

int KeyedTree::rowCount(const QModelIndex& parent) const {
    return NodeOf(parent)->Children();
}

int KeyedTree::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QVariant KeyedTree::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const KeyedNode* node = NodeOf(index);
    switch (role) {
    case Qt::DisplayRole: return node->text;
    case KeyRole: return node->key;
    case TagRole: return node->tag;
    case ImageRole: return node->image;
    case BoldRole: return node->isBold;
    default: return {};
    }
}
