#pragma once

#include "database/frmDeviceDB.h"
#include "database/frmIRDBAction.h"
#include "database/frmIRDBStatus.h"
#include "database/frmRemProperties.h"
#include "device/frmDeviceMode.h"
#include "device/frmSetModus.h"
#include "device/frmSetModusEx.h"
#include "device/frmStartupText.h"
#include "learn/frmCCF.h"
#include "learn/frmProgramm.h"
#include "link/capabilities.h"
#include "panel/frmIP.h"
#include "tools/frmAbout.h"
#include "tools/frmAnalogIO.h"
#include "tools/frmHTML.h"
#include "tools/frmLog.h"
#include "tools/frmSendFree.h"
#include "translator/frmTransRcvProperties.h"
#include "translator/frmTransRemProperties.h"
#include "translator/frmTransSndProperties.h"
#include "translator/frmTranslator.h"
#include "translator/frmTranslatorWait.h"

#include <functional>
#include <vector>

/// Two buses with devices of several kinds.
inline std::vector<DeviceBus> CatalogBuses() {
    DeviceEntry usb;
    usb.Version = QStringLiteral("V5.19.07");
    usb.Mode = 0xFF;
    usb.ExtMode = 0x0F;
    usb.SendMask = 0xF00F;
    usb.Capabilities = 0x00205802;
    DeviceEntry lcd;
    lcd.Version = QStringLiteral("L3.01.01");
    DeviceEntry lan = usb;
    lan.Version = QStringLiteral("G6.05.10");
    return {{0, 0, {{0, usb}, {3, lcd}}}, {1, 5, {{5, lan}}}};
}

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

/// A command whose first action is an EZ message and whose second is a text.
inline QString CatalogActionTag() {
    ActionTag tag;
    tag.function = u'T';
    tag.groups[0] = {{0x0A00005A, 7042, false, true, false, false},
                     true,
                     QStringLiteral("0A AC 02 AB 02 00 01 00 02 00 03 00 FF 00 00 00 01 00")};
    tag.groups[1] = {{}, false, QStringLiteral("%r,%c\\r\\n")};
    return tag.Format();
}

/// A device with all that a translator can have but inputs.
inline TranslatorDevice CatalogTranslatorDevice() {
    return {QStringLiteral("G"), QStringLiteral("6.05.10"), 0x09000002, 0};
}

/// Makers of one of every form but the main window, for those who walk them all. `services` and `status` must
/// outlive them; the forms are the caller's.
inline std::vector<std::function<Form*()>> FormMakers(const FormServices& services, const StatusStore& status,
                                                      QWidget* parent) {
    const auto& s = services;
    const QString title = QStringLiteral("Vantrel Client");
    return {
        [=, &s] { return new frmAbout(s, title, parent); },
        [=, &s] { return new frmAnalogIO(s, parent); },
        [=, &s] { return new frmCCF(s, frmCCF::Face::Ccf, {}, {}, parent); },
        [=, &s, &status] { return new frmDeviceDB(s, ListDevices(status, Capability::Database), parent); },
        [=, &s] { return new frmDeviceMode(s, CatalogBuses(), parent); },
        [=, &s, &status] { return new frmHTML(s, status, parent); },
        [=, &s] { return new frmIP(s, parent); },
        [=, &s] { return new frmIRDBAction(s, CatalogActionTag(), {}, parent); },
        [=, &s] { return new frmIRDBStatus(s, parent); },
        [=, &s] { return new frmLog(s, parent); },
        [=, &s] { return new frmProgramm(s, parent); },
        [=, &s] {
            return new frmRemProperties(s, QStringLiteral("192168000090070001001say %c"), true, parent);
        },
        [=, &s] { return new frmSendFree(s, parent); },
        [=, &s] {
            return new frmSetModus(s, CatalogBuses()[0].devices[0].entry, DeviceOrigin::Tree, 0, {}, parent);
        },
        [=, &s] { return new frmSetModusEx(s, CatalogExtendedDevice(), 0, {}, parent); },
        [=, &s] { return new frmStartupText(s, parent); },
        [=, &s] {
            return new frmTransRcvProperties(s, QStringLiteral("tv\\vol+\\2\\65535\\0\\51\\750"),
                                             CatalogTranslatorDevice(), parent);
        },
        [=, &s] {
            return new frmTransRemProperties(s, QStringLiteral("REM\\player\\65535\\255\\10"),
                                             CatalogTranslatorDevice(), parent);
        },
        [=, &s] {
            return new frmTransSndProperties(s, QStringLiteral("screen\\down\\6\\65535\\100"),
                                             QStringLiteral("MACCON\\1@2"), CatalogTranslatorDevice(),
                                             parent);
        },
        [=, &s, &status] { return new frmTranslator(s, ListTranslatorDevices(status), {}, parent); },
        [=, &s] { return new frmTranslatorWait(s, parent); },
    };
}

/// One of each, without a status.
inline std::vector<Form*> MakeAllForms(const FormServices& services, QWidget* parent) {
    const StatusStore status(services.session);
    std::vector<Form*> forms;
    for (const auto& make : FormMakers(services, status, parent))
        forms.push_back(make());
    return forms;
}
