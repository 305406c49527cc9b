#pragma once

#include "forms/text_boxes.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <initializer_list>
#include <vector>

/// Controls are made by name and German caption. The name is the `objectName`, on which language keys and
/// tests hang; an element of a control array is `name(index)`.

/// The name of element `index` of the control array `name`.
QString ElementName(const QString& name, int index);

/// The two halves of such a name. `index` is -1 for a control that is no element of an array.
struct ControlName {
    QString name;
    int index = -1;
};
ControlName SplitControlName(const QString& objectName);

/// @name Captions
/// A caption is shown as it stands. Buttons, check boxes, menus, tabs, group boxes and labels with a buddy
/// take a single ampersand for a mnemonic, so theirs are doubled; a plain label shows it as it is.
/// @{
QString ToMnemonicText(const QString& caption);
QString FromMnemonicText(const QString& text);
/// What a label shows, whether it has a buddy or not.
QString CaptionOf(const QLabel& label);
/// Shows `caption`. A list or tree that is the label's buddy bears it as its name for screen readers, which
/// other controls take from the label by themselves.
void SetCaption(QLabel& label, const QString& caption);
/// @}

/// Space and Enter press it while it has the focus. Elsewhere Enter presses the form's default button.
QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* parent);

/// A label in plain text. With a buddy it names that control for the keyboard and for screen readers.
QLabel* MakeLabel(const QString& name, const QString& caption, QWidget* parent, QWidget* buddy = nullptr);

/// Tab goes through `controls` one after the other.
void ChainTabs(const std::vector<QWidget*>& controls);

/// `maxLength` in characters; 0 for no limit.
TextBox* MakeTextBox(const QString& name, int maxLength, QWidget* parent);

QCheckBox* MakeCheckBox(const QString& name, const QString& caption, QWidget* parent);

/// The check boxes `name(0)` to `name(n - 1)`. Each has a language key of its own.
std::vector<QCheckBox*> MakeCheckBoxes(const QString& name, const QStringList& captions, QWidget* parent);

/// An option button. Those with one parent exclude each other.
QRadioButton* MakeOption(const QString& name, const QString& caption, QWidget* parent);

QGroupBox* MakeFrame(const QString& name, const QString& caption, QWidget* parent);

/// The row of buttons at the foot of a form, at the right. The first is the default button.
QHBoxLayout* MakeButtonRow(std::initializer_list<QPushButton*> buttons);
