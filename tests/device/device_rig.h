#pragma once

#include "forms/form.h"

#include "link/session_recorder.h"

/// What a form needs, with a session that is connected to a server that keeps all bytes.
struct DeviceRig : LinkedSession {
    /// The next record that the server got; empty if none came.
    QByteArray TakeRecord() {
        const bool hasCome = QTest::qWaitFor([this] { return server.Records() > 0; });
        QByteArray record = hasCome ? server.Record(0) : QByteArray();
        server.TakeLog();
        return record;
    }

    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
};

template <class Control> Control* ChildOf(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QLatin1StringView(name));
    if (control == nullptr)
        qFatal("no control %s", name);
    return control;
}

inline DeviceEntry MakeEntry(const char* version, quint32 capabilities = 0) {
    DeviceEntry entry;
    entry.Version = QLatin1StringView(version);
    entry.Capabilities = capabilities;
    entry.HotCommand2 = QByteArray(Wire::CommandWidth, '\0');
    return entry;
}

/// Gives the device commands of power on and off. `powerOff` is the remote of the latter, or LanMark.
inline void SetPower(DeviceEntry& entry, const QString& powerOff) {
    entry.HotRemote = QStringLiteral("tv");
    entry.HotCommand = QStringLiteral("on");
    entry.HotRemote2 = powerOff;
    entry.HotCommand2 = QByteArray("off\0\x9A\xFF", 6).leftJustified(Wire::CommandWidth, '\0');
}
const QString LanMark = QStringLiteral("@@@~~~LAN~~~@@@"); ///< the command's first bytes are a MAC address

/// Remote and command of power on, of power off, and the MAC address.
inline QString PowerOf(const ModeRequest& r) {
    const QByteArray mac(reinterpret_cast<const char*>(r.mac.data()), qsizetype(r.mac.size()));
    const QStringList parts = {r.HotRemote, r.HotCommand, r.HotRemote2, r.HotCommand2,
                               QString::fromLatin1(mac.toHex())};
    return parts.join(u'|');
}
