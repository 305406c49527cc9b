#pragma once

#include <QString>

#include <array>
#include <vector>

/// The extended settings of a device as a state machine without a window. The state is what the controls of
/// `frmSetModusEx` hold; the dialog is a view of it. An action of the user is a call of one of its setters,
/// and so is a step of the pre-fill: both run the same click rules (set_modus_ex_clicks.h).
///
/// A setter runs the rule of its control when the value changes, and does nothing else when it doesn't:
/// ticking a ticked box, or choosing the entry that is chosen, is no click. Adding and removing entries isn't
/// one either.
namespace ModusEx {

/// The check boxes; `chkMask` apart.
enum class Box {
    Mode0, ///< `chkMode(0)`, and so on
    Mode1,
    Mode2,
    Mode3,
    Mode4,
    Mode5,
    Mode7,
    Ext0,
    Ext1,
    Ext4,
    Ext5,
    Ext6,
    RCV1,
    RCV2,
    Sort,
    LongRepeat,
    Repeat,
    RTS,
    RCMM,
    ForceRCMM,
    RCMMToggle,
    RStep56,
    RC5,
    RC6,
    RC6Toggle,
    SBUSSend,
    USBWakeup,
    StateInternal,
    StateExternal,
    IROutRS232,
    RC5free,
    UDP,
    EmulateExternal,
    XLong,
    Count
};

/// The drop-down lists.
enum class List {
    Receiver1,
    Receiver2,
    Tolerance,
    Idle,
    Filter,
    Cycle,
    ToggleCount,
    IO,
    IRInput,
    Baudrate,
    AuxBaudrate,
    Parity,
    Databits,
    Stopbits,
    SBUS,
    Date,
    Time,
    Aktiv,
    Inaktiv,
    Count
};

/// The text boxes.
enum class Text { Timeout, Toggle, Hotremote, Hotcommand, Hotremote2, Hotcommand2, MAC, Count };

/// The code of a list in which nothing is selected.
constexpr int NoCode = -1;

class State {
public:
    /// The controls as the dialog has them before a device is read: nothing ticked, nothing selected, and
    /// only what every device has enabled.
    State();

    /// @name What the controls hold
    /// @{
    bool IsOn(Box box) const { return boxes[size_t(box)].isOn; }
    /// The entry that is selected, from 0; -1 for none.
    int Index(List list) const { return lists[size_t(list)].index; }
    /// The code of that entry, or NoCode.
    int Code(List list) const;
    /// The codes of all entries, by index.
    const std::vector<int>& Codes(List list) const { return lists[size_t(list)].codes; }
    const QString& Content(Text text) const { return texts[size_t(text)].content; }
    /// Bit i is `chkMask(i)`.
    quint16 Mask() const { return mask; }

    bool IsEnabled(Box box) const { return boxes[size_t(box)].isEnabled; }
    bool IsEnabled(List list) const { return lists[size_t(list)].isEnabled; }
    bool IsEnabled(Text text) const { return texts[size_t(text)].isEnabled; }
    bool IsMaskEnabled() const { return isMaskEnabled; }
    /// @}

    /// @name Setters
    /// @{
    void SetOn(Box box, bool isOn);
    /// An index that the list doesn't have selects nothing.
    void Select(List list, int index);
    /// The first entry with this code; nothing if there is none.
    void SelectCode(List list, int code);
    void SetContent(Text text, const QString& content);
    void SetMask(quint16 value) { mask = value; }

    void Enable(Box box, bool isEnabled) { boxes[size_t(box)].isEnabled = isEnabled; }
    void Enable(List list, bool isEnabled) { lists[size_t(list)].isEnabled = isEnabled; }
    void Enable(Text text, bool isEnabled) { texts[size_t(text)].isEnabled = isEnabled; }
    void EnableMask(bool isEnabled) { isMaskEnabled = isEnabled; }

    void AddEntry(List list, int code) { lists[size_t(list)].codes.push_back(code); }
    /// If it was the selected one, nothing is selected.
    void RemoveEntry(List list, int code);
    /// @}

    /// @name What the rules must know of the device
    /// @{
    quint32 extCapabilities = 0;
    bool hasPlainReceivers = true;  ///< built-in receivers don't need to be told from external ones
    bool hasExternalSecond = false; ///< the second receiver's title is "Extern."
    /// The serial bus had no speed to show when the device was read. The next change to it takes the
    /// defaults, also if the pre-fill makes it.
    bool areBusDefaultsDue = false;
    /// @}

private:
    struct BoxState {
        bool isOn = false;
        bool isEnabled = false;
    };
    struct ListState {
        std::vector<int> codes;
        int index = -1;
        bool isEnabled = false;
    };
    struct TextState {
        QString content;
        bool isEnabled = false;
    };

    std::array<BoxState, size_t(Box::Count)> boxes;
    std::array<ListState, size_t(List::Count)> lists;
    std::array<TextState, size_t(Text::Count)> texts;
    quint16 mask = 0;
    bool isMaskEnabled = false;
};

} // namespace ModusEx
