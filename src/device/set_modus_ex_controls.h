#pragma once

#include "device/set_modus_ex_state.h"
#include "forms/combo_boxes.h"
#include "forms/controls.h"
#include "forms/mask_boxes.h"

#include <functional>

/// The controls of the extended settings as a view of their state: what a control gets, by hand or by code,
/// is an action on the state, and then all controls show what the state has become.
class SetModusExControls {
public:
    /// The state outlives the controls.
    explicit SetModusExControls(ModusEx::State& state)
        : state(state) {}

    /// @name The names of the controls
    /// @{
    static QString NameOf(ModusEx::Box box);
    static QString NameOf(ModusEx::List list);
    /// @}

    /// @name Making
    /// @{
    QCheckBox* Make(ModusEx::Box box, const QString& caption, QWidget* parent);
    ComboBox* Make(ModusEx::List list, const QStringList& entries, QWidget* parent);
    TextBox* Make(ModusEx::Text text, int maxLength, QWidget* parent);
    MaskBoxes* MakeMask(const QLabel* title, const QString& digitsName, QWidget* parent);
    /// @}

    /// A widget that is enabled when the control is, such as its title.
    template <class Control> void Follow(QWidget* widget, Control control) {
        FollowIf(widget, [this, control] { return state.IsEnabled(control); });
    }
    void FollowMask(QWidget* widget) {
        FollowIf(widget, [this] { return state.IsMaskEnabled(); });
    }

    /// Gives the lists the entries that the state has. To be called once, when the texts are those of the
    /// language.
    void ShapeLists() const;
    void Show() const;

private:
    void FollowIf(QWidget* widget, std::function<bool()> isEnabled);

    ModusEx::State& state;
    std::vector<std::pair<ModusEx::List, ComboBox*>> lists;
    std::vector<std::function<void()>> shows; ///< each brings a part of the state to its control
};
