#include "translator/translator_transfer.h"

#include "base/blanks.h"

#include <QPointer>

TranslatorTransfer::TranslatorTransfer(Session& session, KeyedTree& tree, QObject* parent)
    : QObject(parent)
    , session(session)
    , tree(tree) {
    using This = TranslatorTransfer;
    connect(&session, &Session::TranslatorElementTaken, this, &This::TakeElementTaken);
    connect(&session, &Session::Acknowledged, this, &This::TakeAcknowledgement);
    connect(&session, &Session::OverwriteAsked, this, &This::TakeOverwrite);
    connect(&session, &Session::SaveConfirmed, this, &This::TakeConfirmation);
    connect(&session, &Session::TranslatorFlashEnded, this, &This::TakeFlashEnd);
    connect(&session, &Session::TranslatorPageReceived, this, &This::TakePage);
    connect(&session, &Session::ErrorReported, this, &This::TakeError);
    // Nothing that was asked for over the last connection is answered over the next.
    connect(&session, &Session::LinkFailed, this, [this] { Fail(Outcome::LinkLost); });
    connect(&session, &Session::LinkUp, this, [this] { Fail(Outcome::LinkLost); });
}

TranslatorTransfer::~TranslatorTransfer() {
    GiveUp();
}

bool TranslatorTransfer::IsRunning() const {
    return state != State::Idle && state != State::Stored && state != State::Confirming;
}

void TranslatorTransfer::Store(const QString& setName, bool withNames) {
    if (WithoutBlanks(setName).isEmpty())
        return;
    name = setName;
    Begin(State::Storing, withNames);
}

void TranslatorTransfer::Flash(qint16 device, bool withNames) {
    deviceTag = device;
    Begin(State::Flashing, withNames);
}

void TranslatorTransfer::Begin(State sending, bool withNames) {
    GiveUp();
    includeNames = withNames;
    auto flat = FlattenTree(tree, includeNames);
    if (const auto* refusal = std::get_if<TranslatorRefusal>(&flat))
        return Refuse(*refusal);
    elements = std::get<std::vector<TranslatorRequest>>(std::move(flat));
    state = sending;
    if (state == State::Storing)
        session.SaveOwner = SaveOwnerKind::Translator;
    HasGone(SendElement(0));
}

bool TranslatorTransfer::HasGone(bool sent) {
    if (!sent)
        Fail(Outcome::LinkLost);
    return sent;
}

bool TranslatorTransfer::SendElement(int index) {
    current = index;
    session.TransferIndex = index;
    session.PendingOp = Pending::TranslatorElement;
    return session.SendTranslatorElement(elements[size_t(index)]);
}

void TranslatorTransfer::TakeElementTaken(qint32 next) {
    if (!IsSending() || next != current + 1)
        return;
    const int total = int(elements.size());
    if (HasGone(next < total ? SendElement(next) : SendRequest()))
        emit Progress(next, total);
}

/// The request that follows the last element.
bool TranslatorTransfer::SendRequest() {
    if (state == State::Flashing) {
        state = State::FlashAsked;
        return session.SendRemoteCommand(Netcommand::FlashTranslator, {}, {}, deviceTag);
    }
    state = State::StoreAsked;
    const bool sent =
        session.SendRemoteCommand(Netcommand::StoreTranslator, name, {}, qint32(session.SaveState));
    if (sent)
        session.SaveState = SaveStateKind::Unchanged;
    return sent;
}

void TranslatorTransfer::TakeAcknowledgement() {
    if (state == State::StoreAsked)
        End(State::Stored, Outcome::Stored);
}

void TranslatorTransfer::TakeError() {
    // The box "IR Error" tells it. To a store this is an answer.
    if (state == State::StoreAsked)
        End(State::Idle, Outcome::Failed);
    else
        Fail(Outcome::Failed);
}

void TranslatorTransfer::TakeOverwrite() {
    // A late acknowledgement of a chain that was given up may have passed for the server's consent.
    if (state == State::StoreAsked || state == State::Stored)
        End(State::Confirming, Outcome::FileExists);
}

void TranslatorTransfer::TakeConfirmation(SaveOwnerKind owner) {
    if (state == State::Confirming && owner == SaveOwnerKind::Translator)
        Begin(State::Storing, includeNames);
}

void TranslatorTransfer::TakeFlashEnd(bool stored) {
    if (state == State::FlashAsked)
        End(State::Idle, stored ? Outcome::Flashed : Outcome::Failed);
}

void TranslatorTransfer::Load(const QString& setName) {
    if (WithoutBlanks(setName).isEmpty())
        return;
    // Replies don't name their requests: the page that comes first may be one of an earlier load. Each is
    // taken, and the last one stays.
    const int earlier = pagesAwaited;
    GiveUp();
    state = State::Loading;
    pagesAwaited = earlier + 1;
    if (HasGone(session.SendRemoteCommand(Netcommand::ReadTranslator, setName, {}, 0)))
        session.SaveState = SaveStateKind::Unchanged;
}

void TranslatorTransfer::TakePage(const ListPage<TranslatorRequest>& page) {
    const PageHead& head = page.head;
    if (head.Offset == 0 && pagesAwaited > 0) {
        --pagesAwaited;
        elements.clear();
        isCollecting = true;
    } else if (!isCollecting || head.Offset != int(elements.size())) {
        return;
    }
    elements.insert(elements.end(), page.elements.begin(), page.elements.end());
    const int count = int(elements.size());
    const int total = std::max<int>(head.Total, count);
    if (total > TranslatorLimits::Elements)
        return Refuse({TranslatorRefusal::TooManyElements, total, TranslatorLimits::Elements});
    if (head.More == 0)
        return Fill();
    if (page.elements.empty())
        return Refuse({TranslatorRefusal::PagesMissing, 0, 0, count});
    if (HasGone(session.SendRemoteCommand(Netcommand::ReadTranslator, {}, {}, count)))
        emit Progress(count, total);
}

void TranslatorTransfer::Fill() {
    const auto built = BuildNodes(elements, tree);
    if (const auto* refusal = std::get_if<TranslatorRefusal>(&built))
        return Refuse(*refusal);
    const auto& nodes = std::get<TranslatorNodes>(built);
    FillTree(tree, nodes);
    const int count = int(elements.size());
    const QPointer<TranslatorTransfer> alive(this);
    Rest(pagesAwaited > 0 ? State::Loading : State::Idle);
    emit Progress(count, count);
    if (alive && nodes.includeNames)
        emit IncludeNamesLoaded(*nodes.includeNames);
    if (alive)
        emit Ended(Outcome::Loaded);
}

void TranslatorTransfer::GiveUp() {
    // The acknowledgement of the element that is out must not take another reply's place.
    if (IsSending() && session.PendingOp == Pending::TranslatorElement)
        session.PendingOp = Pending::None;
    Rest(State::Idle);
    pagesAwaited = 0;
}

void TranslatorTransfer::Fail(Outcome outcome) {
    if (!IsRunning())
        return;
    GiveUp();
    emit Ended(outcome);
}

void TranslatorTransfer::Refuse(const TranslatorRefusal& refusal) {
    // The server has a set of that name, which the tree isn't: a store must ask before it replaces it.
    if (state == State::Loading)
        session.SaveState = SaveStateKind::Named;
    const QPointer<TranslatorTransfer> alive(this);
    Rest(pagesAwaited > 0 ? State::Loading : State::Idle);
    emit Refused(refusal);
    if (alive)
        emit Ended(Outcome::Refused);
}

void TranslatorTransfer::Rest(State next) {
    state = next;
    elements.clear();
    isCollecting = false;
}

/// Who listens may start the next chain, or destroy the object.
void TranslatorTransfer::End(State next, Outcome outcome) {
    Rest(next);
    emit Ended(outcome);
}
