#include "database/tag_dialogs_view.h"

#include "database/frmIRDBAction.h"
#include "database/frmRemProperties.h"

void OpenTagDialog(const FormServices& services, KeyedTree& tree, const QString& key,
                   const TargetDevice& device, QWidget* parent) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return;
    if (DatabaseTree::IsRemote(*node)) {
        const bool hasTarget = DatabaseDevice::RemoteHasTarget(device.version);
        auto* form = new frmRemProperties(services, node->Tag(), hasTarget, parent);
        QObject::connect(form, &frmRemProperties::TagChanged, parent,
                         [&tree, key](const QString& tag) { DatabaseTree::SetTag(tree, key, tag); });
        return form->ShowModal();
    }
    auto* form = new frmIRDBAction(services, node->Tag(), device.abilities, parent);
    QObject::connect(form, &frmIRDBAction::TagChanged, parent,
                     [&tree, key](const QString& tag) { DatabaseTree::TakeActionResult(tree, key, tag); });
    form->ShowModal();
}
