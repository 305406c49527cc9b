#include "database/transfer.h"

#include "base/blanks.h"
#include "database/elements.h"

using namespace Qt::StringLiterals;

namespace {

/// Names and elements that are remembered: as many as a list can count elements.
constexpr size_t MostUnknown = 32767;

int ElementsOf(const DatabaseTree::Marked& node) {
    return node.isRemote ? 1 : ActionTag::Groups;
}

} // namespace

DatabaseTransfer::DatabaseTransfer(Session& session, KeyedTree& tree, QObject* parent)
    : QObject(parent)
    , session(session)
    , tree(tree) {
    connect(&session, &Session::DatabaseElementTaken, this, &DatabaseTransfer::TakeElementAnswer);
    connect(&session, &Session::DatabaseGlobalReceived, this, &DatabaseTransfer::TakeGlobal);
    connect(&session, &Session::DatabasePageReceived, this, &DatabaseTransfer::TakePage);
    connect(&session, &Session::Acknowledged, this, [this] {
        if (state == State::StoreOut)
            End(Outcome::Stored);
    });
    connect(&session, &Session::OverwriteAsked, this, [this] {
        if (state == State::StoreOut)
            End(Outcome::FileExists);
    });
    connect(&session, &Session::SaveConfirmed, this, [this](SaveOwnerKind owner) {
        if (owner == SaveOwnerKind::Database && job.finalState == State::StoreOut)
            Begin();
    });
    connect(&session, &Session::DatabaseStatusReceived, this, [this](const IRDBStatusRecord&, bool fits) {
        if (state == State::FlashOut && !fits)
            End(Outcome::FlashFailed);
    });
    connect(&session, &Session::DatabaseFlashEnded, this, [this](bool stored) {
        if (state == State::FlashOut)
            End(stored ? Outcome::Flashed : Outcome::FlashFailed);
    });
    connect(&session, &Session::ErrorReported, this, &DatabaseTransfer::TakeError);
    // Neither a lost connection nor a new one answers what was asked over the old one.
    connect(&session, &Session::LinkFailed, this, &DatabaseTransfer::LoseLink);
    connect(&session, &Session::LinkUp, this, &DatabaseTransfer::LoseLink);
}

DatabaseTransfer::~DatabaseTransfer() {
    GiveUp();
}

bool DatabaseTransfer::Save(const QString& name, const DatabaseSettings& settings) {
    if (WithoutBlanks(name).isEmpty())
        return false;
    job = MakeJob(State::StoreOut, settings);
    job.name = name;
    Begin();
    return true;
}

void DatabaseTransfer::Flash(int deviceTag, const DatabaseSettings& settings) {
    job = MakeJob(State::FlashOut, settings);
    job.deviceTag = deviceTag;
    Begin();
}

DatabaseTransfer::Job DatabaseTransfer::MakeJob(State finalState, const DatabaseSettings& settings) const {
    Job made;
    made.finalState = finalState;
    made.global = ToGlobalRecord(settings);
    made.nodes = DatabaseTree::MarkedNodes(tree);
    std::erase_if(made.nodes, [](const auto& each) { return !each.isRemote && !ActionTag::Parse(each.tag); });
    for (const auto& each : made.nodes)
        made.total += ElementsOf(each);
    return made;
}

void DatabaseTransfer::Begin() {
    if (state == State::Loading)
        LeaveHalfDone();
    GiveUp();
    if (job.finalState == State::StoreOut)
        session.SaveOwner = SaveOwnerKind::Database;
    node = 0;
    group = 0;
    elements = 0;
    emit Progress(0, job.total);
    Await(State::GlobalOut, 0, session.SendIRDBGlobal(job.global));
}

bool DatabaseTransfer::HasGone(bool sent) {
    if (!sent)
        End(Outcome::LinkLost);
    return sent;
}

/// The record with `index` as the number of its node has gone out, or hasn't.
void DatabaseTransfer::Await(State next, int index, bool sent) {
    if (!HasGone(sent))
        return;
    state = next;
    session.PendingOp = Pending::DatabaseElement;
    session.TransferIndex = index;
}

void DatabaseTransfer::TakeElementAnswer() {
    if (state != State::GlobalOut && state != State::ElementsOut)
        return;
    emit Progress(elements, job.total);
    SendNext();
}

void DatabaseTransfer::SendNext() {
    if (node == job.nodes.size())
        return SendFinal();
    const int number = job.nodes[node].number;
    Await(State::ElementsOut, number, session.SendIRDBElementRecord(NextElement()));
}

IRDBElementRecord DatabaseTransfer::NextElement() {
    const DatabaseTree::Marked& from = job.nodes[node];
    IRDBElementRecord element = from.isRemote ? DatabaseElement::OfRemote(from.remote, from.tag)
                                              : DatabaseElement::OfAction(from.remote, from.command,
                                                                          *ActionTag::Parse(from.tag), group);
    element.number = ++elements;
    if (++group >= ElementsOf(from)) {
        group = 0;
        ++node;
    }
    return element;
}

void DatabaseTransfer::SendFinal() {
    state = job.finalState;
    if (state == State::FlashOut)
        HasGone(session.SendRemoteCommand(Netcommand::FlashDatabase, {}, {}, job.deviceTag));
    else if (HasGone(session.SendRemoteCommand(Netcommand::StoreDatabase, job.name, {},
                                               qint32(session.SaveState))))
        session.SaveState = SaveStateKind::Unchanged;
}

bool DatabaseTransfer::Load(const QString& name) {
    if (WithoutBlanks(name).isEmpty())
        return false;
    strayPages = strayPages || state == State::Loading;
    GiveUp();
    if (!HasGone(session.SendRemoteCommand(Netcommand::ReadDatabase, name, {}, 0)))
        return true;
    session.SaveState = SaveStateKind::Unchanged;
    DatabaseTree::ClearTags(tree);
    state = State::Loading;
    ++globalsDue;
    nextIndex = 0;
    wasRefused = false;
    loaded = {};
    ForgetUnknown();
    return true;
}

void DatabaseTransfer::TakeGlobal(const PageHead& head, const IRDBGlobalRecord& global) {
    if (globalsDue == 0)
        return;
    --globalsDue;
    if (state != State::Loading || head.Offset != 0)
        return;
    // Of two loads in a row the answer to the first has begun to fill the tree, and this is the second.
    if (nextIndex != 0) {
        DatabaseTree::ClearTags(tree);
        ForgetUnknown();
    }
    loaded = global;
    emit SettingsLoaded(global);
    CheckRemotes();
    // A server may count the settings as an element or not.
    GoOnWith(head, head.More != 0 && head.Count >= 0);
}

void DatabaseTransfer::TakePage(const ListPage<IRDBElementRecord>& page) {
    if (state != State::Loading || (strayPages && page.head.Offset != nextIndex))
        return;
    const bool more = page.head.More != 0;
    const int end = page.head.Offset + page.head.Count;
    // A page that came before comes once more; the one that is due is still to come.
    if (more && page.head.Count > 0 && end <= nextIndex)
        return;
    Place(page.elements);
    // One that says more and brings the load no further is its last one, but not the end of the file.
    if (more && end <= nextIndex)
        LeaveHalfDone();
    GoOnWith(page.head, more && end > nextIndex);
}

void DatabaseTransfer::GoOnWith(const PageHead& head, bool more) {
    const int next = head.Offset + head.Count;
    emit Progress(next, head.Total);
    if (!more)
        return End(Outcome::Loaded);
    nextIndex = next;
    HasGone(session.SendRemoteCommand(Netcommand::ReadDatabase, {}, {}, next));
}

void DatabaseTransfer::Place(const std::vector<IRDBElementRecord>& batch) {
    const auto applied = DatabaseElement::Apply(tree, batch);
    for (size_t i = 0; i < applied.size(); ++i) {
        if (applied[i] != DatabaseElement::Applied::UnknownName)
            continue;
        const IRDBElementRecord& element = batch[i];
        AddUnknown(WithoutBlanks(element.remote).toString(), WithoutBlanks(element.command).toString());
        if (homeless.size() < MostUnknown)
            homeless.push_back(element);
    }
}

/// The remotes that the analog inputs send.
void DatabaseTransfer::CheckRemotes() {
    for (const auto& names : {loaded.minimumRemote, loaded.maximumRemote})
        for (const QString& name : names) {
            const QString remote = WithoutBlanks(name).toString();
            if (!remote.isEmpty() && DatabaseTree::FindRemote(tree, remote) == nullptr)
                AddUnknown(remote, {});
        }
}

void DatabaseTransfer::PlaceAgain() {
    const auto again = std::exchange(homeless, {});
    ForgetUnknown();
    CheckRemotes();
    Place(again);
}

void DatabaseTransfer::ForgetUnknown() {
    unknown.clear();
    unknownKeys.clear();
    homeless.clear();
}

void DatabaseTransfer::AddUnknown(const QString& remote, const QString& command) {
    const QString name = command.isEmpty() ? remote : remote + u" / "_s + command;
    if (size_t(unknown.size()) == MostUnknown || unknownKeys.contains(name))
        return;
    unknownKeys.insert(name);
    unknown += name;
}

void DatabaseTransfer::TakeError() {
    if (state == State::StoreOut || state == State::FlashOut)
        return End(Outcome::Refused);
    // The error may be somebody else's, and then the page is still to come.
    if (state == State::Loading && !std::exchange(wasRefused, true))
        emit Ended(Outcome::Refused);
}

void DatabaseTransfer::LoseLink() {
    globalsDue = 0;
    strayPages = false;
    if (state != State::Idle)
        End(Outcome::LinkLost);
}

/// What the tree holds isn't what the file holds, or nobody knows: a save asks before it replaces the file.
void DatabaseTransfer::LeaveHalfDone() {
    const bool isHalfDone = state == State::Loading || state == State::StoreOut;
    if (isHalfDone && session.SaveState == SaveStateKind::Unchanged)
        session.SaveState = SaveStateKind::Named;
}

/// Leaves nothing behind that would take the next reply for an acknowledgement.
void DatabaseTransfer::GiveUp() {
    const bool awaitsElement = state == State::GlobalOut || state == State::ElementsOut;
    if (awaitsElement && session.PendingOp == Pending::DatabaseElement)
        session.PendingOp = Pending::None;
    state = State::Idle;
}

void DatabaseTransfer::End(Outcome outcome) {
    const bool wasLoading = state == State::Loading;
    if (outcome == Outcome::LinkLost)
        LeaveHalfDone();
    GiveUp();
    if (wasLoading && !unknown.isEmpty())
        emit NamesUnknown(unknown);
    emit Ended(outcome);
}
