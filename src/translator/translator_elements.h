#pragma once

#include "link/requests.h"
#include "translator/translator_refusal.h"
#include "translator/translator_tree.h"

#include <variant>
#include <vector>

/// Bits of `ElementIO`.
namespace TranslatorIo {
constexpr int Flag = 0x80; ///< there is a condition
constexpr int Input = 0x7F;
} // namespace TranslatorIo

/// The way from a tree to the elements of the wire and back.
///
/// What comes back differs from what went out in these fields of tags alone: a type counts the steps of its
/// macro or toggle; a param is rounded to units of 16; a step has a pause and a condition, 0 and "IO000" if
/// it had none; fields that a tag lacked are 0.

/// The whole tree, depth first, the node before its children. Or why it can't go out.
std::variant<std::vector<TranslatorRequest>, TranslatorRefusal> FlattenTree(const KeyedTree& tree,
                                                                            bool includeNames);

/// The nodes of a stored set, in an order in which they can be added.
struct TranslatorNodes {
    std::vector<TranslatorNode> nodes;
    bool replacesTree = false;        ///< the set has a root: the tree is emptied first
    std::optional<bool> includeNames; ///< of the last command, macro or toggle
};

/// A set without a root is to be added to `tree`, and is refused if it doesn't fit there.
std::variant<TranslatorNodes, TranslatorRefusal> BuildNodes(const std::vector<TranslatorRequest>& elements,
                                                            const KeyedTree& tree);

/// Puts the nodes into the tree for which they were built.
void FillTree(KeyedTree& tree, const TranslatorNodes& nodes);
