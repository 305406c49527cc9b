#pragma once

#include "app/program.h"

#include "link/session_recorder.h"

#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

/// Plays `bytes` and returns when the session has read them.
inline void PlayTo(FakeServer& server, Session& session, const QByteArray& bytes) {
    bool read = false;
    const auto watch = QObject::connect(&session, &Session::LogReceived,
                                        [&read](const QString& text) { read = text == u"read"; });
    server.Play(bytes + Raw::Log("read"));
    QVERIFY(QTest::qWaitFor([&] { return read; }));
    QObject::disconnect(watch);
}

/// The whole program with its main window, a layout of its own and a server.
struct ProgramRig {
    /// `layout` is the text of the layout file; null for no file.
    explicit ProgramRig(const QString& layout, const QString& systemLanguage = QStringLiteral("German")) {
        options.start.host = FakeServer::Host();
        options.port = server.Port();
        options.folder = folder.path();
        options.systemLanguage = systemLanguage;
        options.layoutFile = folder.filePath(QStringLiteral("Remote.lyt"));
        if (!layout.isNull())
            WriteFile(QStringLiteral("Remote.lyt"), layout);
    }

    void WriteFile(const QString& name, const QString& text) const {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            qFatal("no temporary file");
    }

    /// Starts the program; does not wait for the connection.
    void Start() {
        program = std::make_unique<Program>(options);
        program->Start();
    }

    /// Starts it and waits until the panel is up and, with a page, its check has begun.
    void BringUp(bool hasPage = true) {
        Start();
        QVERIFY(QTest::qWaitFor([this] { return server.Log().startsWith(QStringLiteral("hello; 36 / 0")); }));
        const auto* timStart = Window().findChild<QTimer*>(QStringLiteral("timStart"));
        QVERIFY(QTest::qWaitFor([&] { return !timStart->isActive(); }));
        if (hasPage)
            QVERIFY(QTest::qWaitFor([this] { return server.Records() == 3; }));
        server.TakeLog();
        QVERIFY(QTest::qWaitForWindowActive(&Window()));
    }

    frmRemote& Window() const { return program->MainWindow(); }
    Session& Link() const { return program->Link(); }
    QMessageBox* CurrentBox() const { return program->MessageBoxes().Current(); }

    template <class Control> Control* Find(const char* name) const {
        return Window().findChild<Control*>(QLatin1StringView(name));
    }
    QPushButton* Button(const char* name) const { return Find<QPushButton>(name); }
    QAction* Action(const char* name) const { return Find<QAction>(name); }
    QString Text(const char* label) const { return Find<QLabel>(label)->text(); }

    void Play(const QByteArray& bytes) { PlayTo(server, Link(), bytes); }
    QString Sent() { return SentTo(server, Link()); }

    /// Answers the box on the screen by its OK button.
    void AnswerBox() const { QTest::mouseClick(CurrentBox()->button(QMessageBox::Ok), Qt::LeftButton); }

    QTemporaryDir folder;
    FakeServer server;
    Program::Options options;
    std::unique_ptr<Program> program;
};
