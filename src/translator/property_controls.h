#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "forms/mask_boxes.h"
#include "translator/translator_tags.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>

/// What the three property dialogs have in common. All rows go to the end of a grid of two columns, title and
/// control.

/// A title and the control that it names.
QLabel* AddTitled(QGridLayout& grid, const QString& titleName, const QString& caption, QWidget* control);

/// A mask with its title. `first` is the element of `chkMask` for bit 0.
MaskBoxes* AddMask(QGridLayout& grid, const QString& titleName, const QString& caption, int first,
                   const QString& digitsName);

/// A list of what is forwarded. The data of its entries are the bits that `bits` names.
ComboBox* MakeForwardList(const QString& name, int ForwardEntry::*bits, QWidget* parent);

void ShowBox(QCheckBox& box, bool isOn, bool canUse);
void ShowIndex(ComboBox& list, int index, bool canUse);
/// Leaves the cursor where it is if the text is there already.
void ShowText(QLineEdit& box, const QString& text, bool canUse);
