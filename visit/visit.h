#pragma once

#include "app/program.h"
#include "practice/practice_server.h"

#include <functional>

/// A walk through the program as a user would take it, with the practice server in the same process. It works
/// the real windows with real events, says in words what goes over the wire, and leaves a picture of each
/// stop.
class Visit : public QObject {
    Q_OBJECT

public:
    /// `folder` takes the pictures and is made if it isn't there.
    explicit Visit(const QString& folder);

    /// Walks. False if a stop didn't come to what it should; the reason has been printed.
    bool Run();

private:
    bool WalkPanel();
    void Say(const QString& line);
    bool Await(const QString& what, const std::function<bool()>& condition);
    void Picture(const QString& name, QWidget* window = nullptr);
    QAbstractButton* Button(const QString& caption) const;
    bool Press(const QString& caption, int milliseconds);
    bool OpenPage(int index);

    QString folder;
    PracticeServer server;
    std::unique_ptr<Program> program;
    int acknowledged = 0;
    int pictures = 0;
};
