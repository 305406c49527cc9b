#include "database/lists.h"

#include "base/blanks.h"

DatabaseLists::DatabaseLists(Session& session, KeyedTree& tree, QObject* parent)
    : QObject(parent)
    , session(session)
    , tree(tree) {
    connect(&session, &Session::NamesReady, this, &DatabaseLists::TakeNames);
    connect(&session, &Session::CommandsReady, this, &DatabaseLists::TakeCommands);
    connect(&session, &Session::ErrorReported, this, [this] { Probe(false); });
    // What was asked over a connection that is gone won't be answered.
    connect(&session, &Session::LinkFailed, this, &DatabaseLists::Stop);
    connect(&session, &Session::LinkUp, this, &DatabaseLists::Stop);
}

void DatabaseLists::Start() {
    Stop();
    session.ListOwner = ListTarget::Database;
    remotes.clear();
    state = State::Remotes;
    Ask();
}

void DatabaseLists::Stop() {
    state = State::Idle;
    isProbing = false;
}

void DatabaseLists::Ask() {
    const bool asksCommands = state == State::Commands;
    const Netcommand list = state == State::Remotes ? Netcommand::ListRemotes
                            : asksCommands          ? Netcommand::ListCommands
                                                    : Netcommand::ListDatabases;
    if (!session.SendRemoteCommand(list, asksCommands ? remotes[remoteIndex] : QString(), {}, 0))
        Stop();
}

/// The present request has been answered, or won't be.
void DatabaseLists::Advance() {
    remoteIndex = state == State::Remotes ? 0 : remoteIndex + 1;
    // A request without a name would be one for the next page of some other list.
    while (remoteIndex < remotes.size() && remotes[remoteIndex].isEmpty())
        ++remoteIndex;
    state = remoteIndex < remotes.size() ? State::Commands : State::Sets;
    emit Progress(remoteIndex, int(remotes.size()));
    Ask();
}

void DatabaseLists::TakeNames(ReplyType type) {
    if (type == ReplyType::Remotes && (session.ListOwner & ListTarget::Database) != 0)
        TakeRemotes();
    else if (type == ReplyType::DatabaseSets)
        TakeSets();
}

void DatabaseLists::TakeRemotes() {
    if (state != State::Remotes)
        return;
    remotes = WithoutBlanks(session.NameList);
    tree.Clear();
    for (const QString& remote : std::as_const(remotes))
        DatabaseTree::AddRemote(tree, remote);
    isAnswered = true;
    emit RemotesListed(remotes);
    if (!isProbing)
        Advance();
}

void DatabaseLists::TakeCommands(int target) {
    const bool isOurs = (target & (ListTarget::Database | ListTarget::DatabaseCommands)) != 0;
    if (!isOurs || state != State::Commands)
        return;
    for (const QString& command : WithoutBlanks(session.CommandList1))
        DatabaseTree::AddCommand(tree, remotes[remoteIndex], command);
    isAnswered = true;
    if (!isProbing)
        Advance();
}

void DatabaseLists::TakeSets() {
    if (isProbing)
        return EndProbe();
    if (state == State::Sets)
        state = State::Idle;
    emit SetsListed(WithoutBlanks(session.NameList));
}

void DatabaseLists::Recover() {
    if (state == State::Sets)
        Ask();
    else
        Probe(true);
}

void DatabaseLists::Probe(bool lost) {
    if (isProbing || (state != State::Remotes && state != State::Commands))
        return;
    mayBeLost = lost;
    isAnswered = false;
    isProbing = session.SendRemoteCommand(Netcommand::ListDatabases, {}, {}, 0);
}

void DatabaseLists::EndProbe() {
    isProbing = false;
    if (!isAnswered && mayBeLost)
        Ask();
    else
        Advance();
}
