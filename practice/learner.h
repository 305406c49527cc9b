#pragma once

#include "practice/outcomes.h"
#include "practice/world.h"

#include <QTimer>

class ClientLink;

/// The learning of one connection: the remote that is open, and the learn that runs. A learn takes its time;
/// who asks for the state meanwhile is answered when it is over.
class Learner {
public:
    /// `link` must outlive the learner.
    explicit Learner(ClientLink& link);

    /// Opens the remote of that name, and makes it if there is none. A learn that runs is broken off.
    void Open(const QString& remote);
    void Close();

    /// The remote that is open; null if none is.
    World::Remote* Target() const;

    bool Runs() const { return timer.isActive(); }
    /// Starts a learn that nothing stands against.
    void Start(const CommandRequest& learn);

    /// Answers with the state, as soon as no learn runs.
    void TellState();

private:
    void BreakOff();
    void End();
    void Fail();
    void Succeed(World::Remote& target);
    void AnswerAll();
    void SendState();

    ClientLink& link;
    QString open;         ///< name of the open remote; empty: none
    CommandRequest learn; ///< that runs or ran last
    Outcomes::Learn ending{};
    QTimer timer;
    int waiting = 0;            ///< requests for the state that wait
    quint8 measured = 0;        ///< flags of the carrier for the next state, which alone tells them
    quint8 measuredCarrier = 0; ///< kHz
};
