#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "translator/translator_lists_view.h"
#include "translator/translator_tree_view.h"

#include <QGroupBox>
#include <QPushButton>

/// The target side of the editor: what a device sends. A command gets into the tree by dragging, or by the
/// button, Enter or a double click, which add it to the node that is selected there.
class TranslatorTargetControls : public QGroupBox {
    Q_OBJECT

public:
    /// `tree` and `view` outlive this.
    TranslatorTargetControls(const FormServices& services, const KeyedTree& tree, TranslatorTreeView* view,
                             QWidget* parent);

    /// Takes over the names that have arrived.
    void FillTargetCombo();
    /// Takes over the commands that have arrived.
    void FillTargetList();

private:
    void AskForCommands();
    void EnableAdd();
    void AddToSelected();

    FormServices services;
    const KeyedTree& tree;
    TranslatorTreeView* view;

    ComboBox* cmbTarget;
    CommandListView* lvwCommands;
    QPushButton* cmdAddTarget;
};
