#pragma once

#include "base/keyed_tree.h"
#include "forms/form.h"
#include "translator/translator_device.h"

/// Opens the properties of a node, modally; the form belongs to `parent`. OK brings them into the tree, if
/// the node still stands there. Nothing happens for a node without properties.
///
/// `tree` must outlive `parent`.
void OpenNodeProperties(const FormServices& services, KeyedTree& tree, const QString& key,
                        const TranslatorDevice& device, QWidget* parent);
