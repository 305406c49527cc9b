#pragma once

#include "database/address_texts.h"
#include "forms/controls.h"

#include <functional>
#include <vector>

/// Ties controls to the members of a value. What a control gets, by hand or by code, goes into its member at
/// once; what a rule changes in the value, `Show` brings to the controls.
///
/// Members keep their addresses as long as the controls live.
class ValueControls {
public:
    void Tie(QLineEdit* box, QString& member);
    /// `clicked`, if given, runs when the box has changed, be it by code; its member holds the new state.
    void Tie(QCheckBox* box, bool& member, std::function<void()> clicked = {});
    /// The boxes of an address and of its port.
    void Tie(const AddressBoxes& ip, QLineEdit* port, AddressTexts& member);

    void Show() const;

private:
    std::vector<std::function<void()>> shows; ///< each brings one member to its control
};

/// A box for the digits of a port.
TextBox* MakePortBox(const QString& name, QWidget* parent);
