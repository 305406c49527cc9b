#pragma once

#include "practice/set_shelf.h"

#include "link/replies.h"

/// What a database needs in the flash memory of a device.
struct DatabaseMemory {
    int words = 0;      ///< of 16 bits
    bool large = false; ///< the device has 128 K and not 64 K
    int remotes = 0;
    int commands = 0;
    int actions = 0; ///< action groups in use

    bool Fits() const;
    IRDBStatusRecord Status() const;
    QString Words() const;
};

/// The figures of a database that was sent.
DatabaseMemory MeasureDatabase(const RecordSet& set);
