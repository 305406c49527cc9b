#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/mask_boxes.h"
#include "translator/property_rules.h"

#include <QGridLayout>

/// The properties of a send step.
class frmTransSndProperties : public Form {
    Q_OBJECT

public:
    /// `tag` is that of the node; a field that is missing or no number counts as 0. `parentKey` is the key of
    /// the node that holds the step: only the steps of macros have a time-out.
    frmTransSndProperties(const FormServices& services, const QString& tag, const QString& parentKey,
                          const TranslatorDevice& device, QWidget* parent);

signals:
    /// OK was pressed; the form closes next. `tag` is the node's new one from its fourth field on, as
    /// ApplySendTag takes it, never empty. Not emitted if the form is cancelled.
    void TagChanged(const QString& tag);

private:
    void AddCondition(QGridLayout& grid);
    void Connect();
    /// Brings what a rule has changed to the controls.
    void Show();

    SendProperties properties;

    MaskBoxes* chkMask = nullptr;
    QLabel* lblTimeout = nullptr;
    QLineEdit* txtTimeout = nullptr;
    QCheckBox* chkSndIO = nullptr;
    ComboBox* cmbSndIO = nullptr;
    QLabel* lblSndIO = nullptr;
    ComboBox* cmbSndIOVal = nullptr;
};
