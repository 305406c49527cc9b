#pragma once

#include <QStringList>

/// What a rule knows of a control: these structs are to a form's controls what an entry is to the form.

struct ControlState {
    bool isEnabled = true;
    bool isVisible = true;
};

struct CheckState : ControlState {
    bool isOn = false;
};

struct ListState : ControlState {
    int index = -1; ///< -1 while nothing is selected
    /// The list as the form has it may change once, before it is filled: so many entries go from its end, and
    /// these come behind what is left.
    int dropped = 0;
    QStringList added;
};

struct TextState : ControlState {
    QString text;
};

/// Sixteen boxes and their title.
struct MaskState : ControlState {
    quint16 value = 0;
};
