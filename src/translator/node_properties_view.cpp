#include "translator/node_properties_view.h"

#include "translator/frmTransRcvProperties.h"
#include "translator/frmTransRemProperties.h"
#include "translator/frmTransSndProperties.h"
#include "translator/translator_editing_rules.h"

void OpenNodeProperties(const FormServices& services, KeyedTree& tree, const QString& key,
                        const TranslatorDevice& device, QWidget* parent) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return;
    const auto open = [&tree, key](auto* form, void (*apply)(KeyedTree&, const QString&, const QString&)) {
        QObject::connect(form, &std::remove_pointer_t<decltype(form)>::TagChanged, form,
                         [&tree, key, apply](const QString& tag) { apply(tree, key, tag); });
        form->ShowModal();
    };
    switch (MenuFor(key)) {
    case TranslatorMenu::Received:
        open(new frmTransRcvProperties(services, node->Tag(), device, parent), ApplyTag);
        break;
    case TranslatorMenu::Send:
        open(new frmTransSndProperties(services, node->Tag(), node->Parent()->Key(), device, parent),
             ApplySendTag);
        break;
    case TranslatorMenu::Remote:
    case TranslatorMenu::Root:
        open(new frmTransRemProperties(services, node->Tag(), device, parent), ApplyTag);
        break;
    case TranslatorMenu::Group:
    case TranslatorMenu::None: break;
    }
}
