#pragma once

#include "database/address_texts.h"
#include "link/requests.h"

/// What the controls of the dialog hold beside the tree, as texts and list indices. The defaults are those of
/// a new dialog.

/// One end of the range of an analog input: what it sends, and how.
struct AnalogSide {
    static constexpr int Leds = 12;       ///< entries of the LED list
    static constexpr int MaskTyped = 5;   ///< characters of `mask` that can be typed; a file may bring more
    static constexpr int CommandMax = 49; ///< characters of `command`

    int led = 0;                            ///< list index
    QString mask = QStringLiteral("65535"); ///< an i32
    QString remote;                         ///< the selected entry; empty for none
    QString command;

    bool operator==(const AnalogSide&) const = default;
};

/// One of the four analog inputs.
struct AnalogSettings {
    static constexpr int Modes = 7; ///< entries of the list of modes

    int mode = 0;             ///< list index of cmbModus, 0: off
    bool sendsToHost = false; ///< optAction, else optSend
    QString minimum;          ///< 0 to 255, as are the next two
    QString maximum;
    QString hysteresis;
    AnalogSide min;
    AnalogSide max;

    bool operator==(const AnalogSettings&) const = default;
};

struct DatabaseSettings {
    static constexpr int Inputs = 4;
    static constexpr int ActionMax = 100; ///< characters of the default action format
    static constexpr int StatusMax = 19;  ///< characters of either status format

    bool active = false;                                  ///< chkActive: the device uses the database
    bool aux = false;                                     ///< chkAUX: codes go to RS232 port 1
    bool lan = false;                                     ///< chkLAN: reception by LAN forwarding
    bool relay = false;                                   ///< chkRelay: relay control by LAN forwarding
    bool receive = false;                                 ///< chkReceive: the database receives
    bool line = false;                                    ///< chkLine: sends line by line over actions
    bool binary = false;                                  ///< chkBinary: sends over command actions
    QString actionFormat = QStringLiteral("%r,%c\\r\\n"); ///< the backslashes are characters of the text
    QString okFormat = QStringLiteral("OK");
    QString errorFormat = QStringLiteral("ERROR %e");
    AddressTexts target;
    std::array<AnalogSettings, Inputs> analog;

    bool operator==(const DatabaseSettings&) const = default;

    /// Limits every number to its field, so that the user sees what a save stores. Only the boxes of the
    /// address keep their texts; the record limits them.
    void Limit();
};

/// The record of the settings. Numbers are limited as by Limit. A side without both a remote and a command
/// goes out without either, and an input that is off without its kind of trigger.
IRDBGlobalRecord ToGlobalRecord(const DatabaseSettings& settings);

/// Takes the settings of a record. An address or port of 0 leaves what `settings` holds. A mode that the list
/// lacks is taken as off, such an LED as the default one.
///
/// The form shows the result in this order, so that its rules work: chkBinary after the other check boxes;
/// of an input the mode before all else. A remote that isn't in its list leaves the selection as it is.
void TakeGlobalRecord(const IRDBGlobalRecord& record, DatabaseSettings& settings);
