#pragma once

#include "device/control_state.h"
#include "forms/combo_boxes.h"
#include "forms/mask_boxes.h"

#include <QCheckBox>
#include <QLineEdit>

#include <functional>

/// Ties the controls of a form to the states that rules work on. What a control gets, by hand or by code,
/// goes into its state at once; what a rule changes in the states, `Show` brings to the controls.
///
/// States keep their addresses as long as the form lives.
class BoundControls {
public:
    void Bind(QCheckBox* box, CheckState& state);
    void Bind(ComboBox* list, ListState& state);
    void Bind(QLineEdit* box, TextState& state);
    void Bind(MaskBoxes* boxes, MaskState& state);
    /// A box with a rule: `change` gets the new value, puts it into the state and does the rest.
    void Bind(QCheckBox* box, CheckState& state, std::function<void(bool isOn)> change);

    /// A control that is enabled and visible as the state says, such as a title.
    void Follow(QWidget* control, const ControlState& state);
    /// A control that is only as visible as the state says.
    void FollowVisible(QWidget* control, const ControlState& state);

    /// Shapes the lists as their states want them. To be called once, when the texts are those of the
    /// language.
    void ShapeLists();
    void Show() const;

private:
    std::vector<std::pair<ComboBox*, const ListState*>> lists;
    std::vector<std::function<void()>> shows; ///< each brings one state to its control
};
