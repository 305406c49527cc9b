#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/text_boxes.h"
#include "translator/translator_editing_rules.h"
#include "translator/translator_tree_view.h"

#include <QGroupBox>
#include <QPushButton>

/// The source side of the editor: what a device receives, and the buttons that bring it into the tree.
class TranslatorSourceControls : public QGroupBox {
    Q_OBJECT

public:
    /// `tree` and `view` outlive this.
    TranslatorSourceControls(const FormServices& services, KeyedTree& tree, TranslatorTreeView* view,
                             QWidget* parent);

    /// Takes over the names that have arrived.
    void FillRemoteCombo();
    /// Offers those commands that are free where the tree is selected.
    void FillCommandCombo();
    /// To be called when nodes have gone, or come from elsewhere.
    void TakeNewTree();
    /// Says to which device the set is to go, as its list shows it: not every one knows shift keys.
    void SetDevice(const QString& text);

    /// The last one of the tab order.
    QWidget* LastControl() const { return cmdAddRem; }

private:
    void MakeLayout();
    void AskForCommands();
    void EnableAdds();
    void EnableAddRem();
    void Add(TranslatorKind kind);
    void AddTypedRemote();

    FormServices services;
    KeyedTree& tree;
    TranslatorTreeView* view;
    bool hasShiftKeys = false;

    ComboBox* cmbRemotes;
    ComboBox* cmbCommands;
    QPushButton* cmdAddSource;
    QPushButton* cmdAddMacro;
    QPushButton* cmdAddGroup;
    QPushButton* cmdAddMultikey;
    TextBox* txtAdd;
    QPushButton* cmdAddRem;
};
