#pragma once

#include "database/ez_code.h"
#include "database/value_controls.h"
#include "forms/combo_boxes.h"

#include <QFrame>

class QGridLayout;

/// The fields of an EZ message, which stand in the place of the text of an action: either those of the short
/// form are enabled or those of the long one.
class EzControls : public QFrame {
    Q_OBJECT

public:
    /// Shows and edits `fields`, which must outlive it. All controls are the elements `page` of their arrays.
    EzControls(int page, EzFields& fields, QWidget* parent);

    /// Brings `fields` to the controls; `isShort` and `isLong` tell which of them are enabled.
    void Show(bool isShort, bool isLong);

signals:
    /// Another form was chosen; `fields` have it already.
    void FormChanged();

private:
    void MakeShortForm(QGridLayout* grid);
    void MakeLongForm(QGridLayout* grid);
    /// What is made joins `group`, which is enabled and disabled together.
    TextBox* MakeField(const QString& name, int maxLength, QString& member, std::vector<QWidget*>& group);
    QLabel* MakeTitle(int index, const QString& caption, std::vector<QWidget*>& group);

    int page;
    EzFields& fields;
    ValueControls controls;
    QRadioButton* optShort = nullptr;
    QRadioButton* optLong = nullptr;
    ComboBox* cmbTyp = nullptr;
    std::vector<QWidget*> shortControls;
    std::vector<QWidget*> longControls;
};
