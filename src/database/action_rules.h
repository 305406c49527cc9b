#pragma once

#include "database/address_texts.h"
#include "database/device_rules.h"
#include "database/ez_code.h"
#include "database/tags.h"

/// The values and rules of the two dialogs that edit the tags: properties of a remote, actions of a command.
namespace ActionDialog {

constexpr int Pages = ActionTag::Groups;
constexpr int EzPages = 3;   ///< the pages that have EZ fields, from the first
constexpr int TextMax = 255; ///< characters of an action that can be typed, and bytes that an element holds

/// The characters of `optRelais` 0 to 5.
inline constexpr QStringView RelayFunctions = u" 10TIU";

/// What the controls of one page hold.
struct Page {
    AddressTexts address;
    bool isDefault = true;
    bool udp = false;
    bool aux = false;
    bool aux2 = false;
    bool binary = false;
    bool ez = false;
    QString text; ///< txtAction, also while EZ fields stand in its place
    EzFields fields;

    bool operator==(const Page&) const = default;
};

struct Values {
    int relay = 0;    ///< list index of cmbRelais
    int function = 0; ///< index of optRelais
    std::array<Page, Pages> pages;

    bool operator==(const Values&) const = default;
};

/// The values of a tag, EZ messages taken apart; those of a new dialog if the tag is no action. A function
/// that the dialog doesn't know is taken as none.
///
/// The form shows a page's chkBinary and chkEZ first, then chkDefault, the other boxes and the address, and
/// the text last, so that what the clicks of the first change is put right by what follows.
Values FromTag(const QString& tag);

/// What OK makes of the values: packs the EZ messages and limits the numbers, in `values` too. The result
/// begins with "A", or with "0" if nothing is set. See DatabaseTree::TakeActionResult.
QString ActionResult(Values& values);

/// What the device's abilities leave of the dialog.
struct Cuts {
    bool hasTabs = true;   ///< tabMode is visible
    int pages = Pages;     ///< tabs that remain, from the first
    bool lastRelay = true; ///< optRelais(5) is enabled
    /// @name Of the pages 0 and 1 alone
    /// @{
    std::array<bool, 2> hasTarget = {true, true};  ///< chkEZ, IP and port are enabled
    std::array<bool, 2> hasDefault = {true, true}; ///< chkDefault is enabled; else it is checked
    /// @}

    bool operator==(const Cuts&) const = default;
};
/// `device`: the enabled state of the boxes chkAUX, chkLAN, chkRelay and chkBinary.
Cuts CutsOf(const DatabaseDevice::Controls& device);

/// Which controls of a page are enabled or visible.
struct PageControls {
    bool ip = true;          ///< txtIP, lblIP
    bool port = true;        ///< txtPort, lblPort
    bool isDefault = true;   ///< chkDefault
    bool udp = true;         ///< chkUDP
    bool aux = true;         ///< chkAUX
    bool binary = true;      ///< chkBinary
    bool ez = true;          ///< chkEZ
    bool showsEz = false;    ///< frmEZ stands in the place of txtAction
    bool shortFields = true; ///< Label1, Label2 and their boxes
    bool longFields = false; ///< Label3 to Label7 and their boxes

    bool operator==(const PageControls&) const = default;
};
/// `page` from 0 to 7.
PageControls ControlsOf(const Page& values, const Cuts& cuts, int page);

/// @name What a click on a check box changes in the other controls of its page
/// `page` holds the box's new state already.
/// @{
/// Only while the port is enabled.
void DefaultClicked(Page& page);
/// Also when code changes the box.
void BinaryClicked(Page& page);
void EzClicked(Page& page);
/// @}

/// How many characters txtAction takes. Binary data that a tag brings may be longer than what can be typed
/// and isn't cut.
int TextLimit(const Page& page);

/// Whether `text` can stand in txtAction of a binary action: capital hexadecimal digits and blanks, at most
/// two digits in a row, and no more numbers than an element holds bytes.
bool IsBinaryText(QStringView text);

} // namespace ActionDialog

namespace RemoteDialog {

/// What the controls of frmRemProperties hold.
struct Values {
    AddressTexts address;
    bool isDefault = true;
    bool udp = false;
    bool aux = false;
    bool aux2 = false;
    QString action;

    bool operator==(const Values&) const = default;
};

/// The values of a tag; those of a new dialog if the tag is none. Numbers keep their leading zeros; 0 shows
/// as an empty box.
Values FromTag(const QString& tag);

/// The tag that OK stores. Limits the numbers in `values` too.
QString ToTag(Values& values);

/// chkDefault was clicked and `values` holds its new state. While it is checked, chkUDP and chkAUX are
/// disabled.
void DefaultClicked(Values& values);

/// How many characters txtAction takes. What a tag brings may be longer than what can be typed and isn't cut.
int ActionLimit(const Values& values);

} // namespace RemoteDialog
