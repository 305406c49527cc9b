#pragma once

#include "link/status_store.h"

/// What the editor and its dialogs know of the device whose translator they edit.
struct TranslatorDevice {
    QString kind;    ///< first letter of its version; empty if there is no device
    QString version; ///< firmware, the rest of it
    quint32 capabilities = 0;
    quint32 extCapabilities = 0;

    bool IsFerolo() const { return kind == u'Y'; }
    /// Names can be stored beside the commands.
    bool HasNames() const;
    bool HasLedSelection() const;
    bool HasRelays() const;
    bool HasRelayNumbers() const;
    /// Two of four relays.
    bool HasTwoRelays() const;
    bool HasLan() const;
    bool HasSbus() const;
    bool HasSbusInput() const;
    bool HasIrInput() const;
};

/// An entry of the list of devices with a translator.
struct TranslatorDeviceRow {
    QString text; ///< "bus.address - version"
    qint16 deviceTag = 0;
};

struct TranslatorDevices {
    std::vector<TranslatorDeviceRow> rows;
    TranslatorDevice first; ///< the dialogs keep to the first device, whichever is chosen
};

/// The devices with a translator in the present status, by bus and address.
TranslatorDevices ListTranslatorDevices(const StatusStore& status);

/// Whether the device of that entry knows shift keys, by the end of its text.
bool KnowsShiftKeys(const QString& deviceText);
