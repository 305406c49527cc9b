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
