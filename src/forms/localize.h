#pragma once

#include "language/language.h"

#include <QWidget>

/// Runs the texts of a form's controls through the language. The texts that stand in the controls are the
/// built-in ones. Keys hang on object names: "Form" for the caption of the form, "Form.Control" for labels,
/// buttons, check boxes, frames and text boxes, "Form.Control.Index" for option buttons and menus,
/// "Form.Control.i" for the entries of a list (from 0) and the tabs of a strip (from 1). Elements of a
/// control array share one key, unless their property "tag" is 9999: then each has its own,
/// "Form.Control.Index".
///
/// To be called once, when all controls stand; what is added or set later stays as it is.
void LocalizeForm(QWidget& form, const Language& language);

/// The tag of an element that has a key of its own.
constexpr int OwnKeyTag = 9999;
