#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "link/status_store.h"

#include <QPushButton>
#include <QTreeWidget>

/// Shows which page files the server offers, and has the checked ones written into the network controller.
/// The outcome comes later and is told by a box, whether this form is still up or not.
class frmHTML : public Form {
    Q_OBJECT

public:
    /// Asks the server for its files. `status` says which devices take pages; it is read only here.
    frmHTML(const FormServices& services, const StatusStore& status, QWidget* parent);

private:
    /// Adds the files of `list`, unless lists without end have come.
    void FillHTMLFilelist(const QString& list);
    /// Gives every file the mark that `isChecked` says for its present one.
    void Check(bool (*isChecked)(bool isCheckedNow));
    void Flash();

    QTreeWidget* lstFiles;
    ComboBox* cmbDevice;
    QPushButton* cmdFlash;
    qsizetype listed = 0; ///< characters of all lists
};
