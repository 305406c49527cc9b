#pragma once

#include "link/requests.h"

#include <QStringList>

/// What a learn request asks of a device, taken apart. Its `param` is
///
///   31 .. 16   15 .. 8   7         6 .. 0
///   V          bus       new form  address: 0 to 15, "*" for all devices, "L" for the local one
///
/// V in the old form, for devices below firmware 5.20.00:
///
///   15 .. 8   7 6        5           4   3 .. 0
///   0         receiver   calibrate   0   time-out
///
/// V in the new form, for learning a command and for learning a timing:
///
///   15       14   13        12  11  10 .. 6   5 4        3 .. 0
///   tolerance           1   0   receiver  calibrate  time-out   a command: tolerance in bits 15 to 13
///   no sort  B&O  tolerance     receiver  calibrate  time-out   a timing: tolerance in bits 13 to 11
///
/// The flag byte of a command is
///
///   5             4           3     2          1         0
///   long presses  toggle bit  B&O   new form   no sort   new form
///
/// and that of a timing 1 for the toggle bit, else 0.
struct LearnParam {
    static constexpr int AllDevices = '*';
    static constexpr int LocalDevice = 'L';

    bool newForm = false;
    int bus = 0;     ///< index in the list of buses
    int address = 0; ///< 0 to 15, AllDevices or LocalDevice
    int timeout = 0; ///< code, 0 or 8 to 15
    int calibrate = 0;
    int receiver = 0;  ///< as the form has it: 0 to 31, in the old one 0 to 3
    int tolerance = 0; ///< 0 to 7
    bool noSort = false;
    bool bo = false;        ///< B&O codes
    bool toggleBit = false; ///< maps the toggle bit out
    bool longPresses = false;
    QStringList odd = {}; ///< bits that don't fit the form, in words

    /// What the receiver hears best, in kHz; 0 if the request leaves it to the device.
    int ReceiverCarrier() const;
    QString Words() const;
};

/// Takes a learn request apart. Its flag byte is the first character of `remote`.
LearnParam ReadLearnParam(const CommandRequest& request);
