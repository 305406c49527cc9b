#pragma once

#include "database/frmIRDBStatus.h"
#include "device/frmSetModusEx.h"
#include "panel/frmIP.h"
#include "tools/frmLog.h"
#include "translator/frmTranslatorWait.h"

#include <vector>

/// A device whose extended settings are nearly all on offer.
inline DeviceEntry CatalogExtendedDevice() {
    DeviceEntry entry;
    entry.Version = QStringLiteral("F6.04.43");
    entry.Mode = 0xDF;
    entry.ExtMode = 0x37;
    entry.Capabilities = 0x0020582E;
    entry.ExtCapabilities = 0xC87F6D00;
    entry.Receivers = 0xA4;
    entry.CodeFlags = 0x33;
    entry.SendMask = 0x0131;
    return entry;
}

/// One of every form but the main window, for those who walk them all: the gallery, and the test of the
/// languages.
inline std::vector<Form*> MakeAllForms(const FormServices& services, QWidget* parent) {
    return {
        new frmIP(services, parent),
        new frmIRDBStatus(services, parent),
        new frmLog(services, parent),
        new frmSetModusEx(services, CatalogExtendedDevice(), 0, {}, parent),
        new frmTranslatorWait(services, parent),
    };
}
