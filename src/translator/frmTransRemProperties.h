#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/mask_boxes.h"
#include "translator/property_rules.h"

/// The properties of a remote or of the root.
class frmTransRemProperties : public Form {
    Q_OBJECT

public:
    /// `tag` is that of the node; a field that is missing or no number counts as 0.
    frmTransRemProperties(const FormServices& services, const QString& tag, const TranslatorDevice& device,
                          QWidget* parent);

signals:
    /// OK was pressed; the form closes next. `tag` is the node's new one, never empty. Not emitted if the
    /// form is cancelled.
    void TagChanged(const QString& tag);

private:
    ContainerProperties properties;
};
