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

/// Makes a form, which belongs to `parent`.
using FormMaker = std::function<Form*(const FormServices& services, QWidget* parent)>;

/// Makes the form whose constructor takes `arguments` between the services and the parent.
template <class F, class... Arguments> FormMaker MakerOf(const Arguments&... arguments) {
    return [arguments...](const FormServices& services, QWidget* parent) {
        return new F(services, arguments..., parent);
    };
}

/// One maker for every form but the main window, for those who walk them all.
inline std::vector<FormMaker> FormMakers() {
    const auto text = [](const char* characters) { return QString::fromLatin1(characters); };
    const auto fromStatus = [](const FormServices& services, QWidget* parent) {
        return new frmHTML(services, StatusStore(services.session), parent);
    };
    const TranslatorDevice translator = CatalogTranslatorDevice();
    return {
        MakerOf<frmAbout>(text("Vantrel Client")),
        MakerOf<frmAnalogIO>(),
        MakerOf<frmCCF>(frmCCF::Face::Ccf, QString(), QString()),
        MakerOf<frmDeviceDB>(std::vector<ListedDevice>()),
        MakerOf<frmDeviceMode>(CatalogBuses()),
        fromStatus,
        MakerOf<frmIP>(),
        MakerOf<frmIRDBAction>(CatalogActionTag(), DatabaseDevice::Controls()),
        MakerOf<frmIRDBStatus>(),
        MakerOf<frmLog>(),
        MakerOf<frmProgramm>(),
        MakerOf<frmRemProperties>(text("192168000090070001001say %c"), true),
        MakerOf<frmSendFree>(),
        MakerOf<frmSetModus>(CatalogBuses()[0].devices[0].entry, DeviceOrigin::Tree, 0, QString()),
        MakerOf<frmSetModusEx>(CatalogExtendedDevice(), 0, QString()),
        MakerOf<frmStartupText>(),
        MakerOf<frmTransRcvProperties>(text("1\\2\\2\\65535\\0\\51\\750"), translator),
        MakerOf<frmTransRemProperties>(text("REM\\1\\65535\\255\\10"), translator),
        MakerOf<frmTransSndProperties>(text("1\\2\\6\\65535\\100"), text("MACCON\\1@2"), translator),
        MakerOf<frmTranslator>(TranslatorDevices(), QString()),
        MakerOf<frmTranslatorWait>(),
    };
}
