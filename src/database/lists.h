#pragma once

#include "database/database_tree.h"
#include "link/session.h"

/// Fills the tree when the dialog opens: asks for all remotes, then for each remote's commands, then for the
/// stored databases, one request per reply. The chain ends with the object.
///
/// A remote whose commands the server refuses to list stays without any. With a silent server the chain
/// waits, and everything else works.
class DatabaseLists : public QObject {
    Q_OBJECT

public:
    enum class State { Idle, Remotes, Commands, Sets };
    Q_ENUM(State)

    /// `session` and `tree` must outlive the object.
    DatabaseLists(Session& session, KeyedTree& tree, QObject* parent = nullptr);

    /// Makes the dialog the owner of lists and asks for the remotes. Their arrival empties the tree.
    void Start();

    State Current() const { return state; }

    /// To be called when a transfer has ended. The acknowledgement of an element takes whatever reply comes
    /// next, so a transfer that began while the chain ran may have swallowed an answer; the chain finds out
    /// and asks again.
    void Recover();

signals:
    /// The commands of `done` of `total` remotes have come.
    void Progress(int done, int total);
    /// The tree holds the remotes; `names` are all of them as listed, for the lists of the analog inputs.
    void RemotesListed(const QStringList& names);
    /// The names of the stored databases. The chain has ended.
    void SetsListed(const QStringList& names);

private:
    void TakeNames(ReplyType type);
    void TakeRemotes();
    void TakeCommands(int target);
    void TakeSets();
    void Probe(bool mayBeLost);
    void EndProbe();
    void Advance();
    void Ask();
    void Stop();

    Session& session;
    KeyedTree& tree;
    State state = State::Idle;
    QStringList remotes;
    int remoteIndex = 0; ///< the remote whose commands are being fetched

    // An error names no request. Replies come in the order of the requests, so the answer to a request behind
    // it tells whether the chain's own request was answered.
    bool isProbing = false;
    bool isAnswered = false; ///< since the probe went out
    bool mayBeLost = false;  ///< without an answer, ask again; else go on without
};
