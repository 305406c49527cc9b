#include "link/reply_reader.h"

#include "base/code_page.h"
#include "base/number.h"
#include "link/session.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int LastSlot = 256;

/// Sets the elements of `page` into `list`, which a page at offset 0 starts anew. What would lie outside the
/// list is dropped.
template <class List, class Page, class Value> void Store(List& list, const Page& page, Value value) {
    if (page.head.Offset == 0) {
        list.clear();
        list.resize(std::max<qint16>(0, page.head.Total));
    }
    for (qsizetype i = 0, at = page.head.Offset; i < page.head.Count; ++i, ++at)
        if (at >= 0 && at < qsizetype(list.size()))
            list[at] = value(page.elements[i]);
}

template <class Element> QString NameOf(const Element& element) {
    return element.name;
}

} // namespace

void ReplyReader::Reset() {
    frames.Reset();
    isAcknowledgement = false;
    chains.fill({});
}

void ReplyReader::ExpectList(Netcommand request) {
    ReplyType type{};
    switch (request) {
    case Netcommand::ListRemotes: type = ReplyType::Remotes; break;
    case Netcommand::ListCommands: type = ReplyType::Commands; break;
    case Netcommand::ListTranslators: type = ReplyType::TranslatorSets; break;
    case Netcommand::ListDatabases: type = ReplyType::DatabaseSets; break;
    case Netcommand::ListBuses: type = ReplyType::Buses; break;
    default: return;
    }
    ++chains[size_t(type)].firstPagesDue;
}

/// Whether a page of the present type is to be taken.
bool ReplyReader::IsDue(const PageHead& head) {
    ListChain& chain = chains[size_t(frames.Type())];
    if (head.Offset == 0 && chain.firstPagesDue > 0) {
        --chain.firstPagesDue;
        return true;
    }
    return chain.due == 0 || head.Offset >= chain.due;
}

/// The index that the next request is to name; 0 if the list is complete, or if the page brings it no
/// further.
int ReplyReader::NextIndex(const PageHead& head) {
    const int next = head.Offset + head.Count;
    const bool more = head.More != 0 && head.Offset >= 0 && head.Count > 0 && next < head.Total;
    return chains[size_t(frames.Type())].due = more ? next : 0;
}

void ReplyReader::Read(QByteArrayView& input) {
    switch (frames.Next(input)) {
    case FrameReader::State::NeedsMore:
    case FrameReader::State::Broken: break;
    case FrameReader::State::Header:
        TakeHeader();
        // A bare header is complete without any further byte.
        Read(input);
        break;
    case FrameReader::State::Reply:
        if (!std::exchange(isAcknowledgement, false))
            Dispatch();
        break;
    case FrameReader::State::Text: emit session.TextReceived(FromCodePage(frames.Payload())); break;
    }
}

/// What a header means by itself, before its payload is there.
void ReplyReader::TakeHeader() {
    if (frames.Type() == ReplyType::Log)
        return;
    switch (session.PendingOp) {
    case Pending::TranslatorElement:
        isAcknowledgement = true;
        session.PendingOp = Pending::None;
        emit session.TranslatorElementTaken(session.TransferIndex + 1);
        break;
    case Pending::DatabaseElement:
        isAcknowledgement = true;
        session.PendingOp = Pending::None;
        emit session.DatabaseElementTaken(session.TransferIndex + 1);
        break;
    case Pending::Learn:
    case Pending::LearnTiming:
        session.PendingOp = Pending::None;
        emit session.LearnWaitEnded();
        break;
    case Pending::None:
    case Pending::Panel:
    case Pending::Status:
    case Pending::OpenRemote: break;
    }
}

QByteArrayView ReplyReader::Overlay(int size) {
    QByteArray& record = records[size_t(frames.Type())];
    if (record.isEmpty())
        record.fill('\0', size);
    const QByteArrayView payload = frames.Payload();
    std::copy_n(payload.begin(), std::min<qsizetype>(payload.size(), size), record.begin());
    return record;
}

template <class Record> Record ReplyReader::Take() {
    return Decode<Record>(Overlay(Record::Size));
}

template <class Element> ListPage<Element> ReplyReader::TakePage() {
    return DecodePage<Element>(Overlay(ListPage<Element>::Size));
}

void ReplyReader::Dispatch() {
    if (frames.Payload().isEmpty()) {
        emit session.Acknowledged();
        return;
    }
    switch (frames.Type()) {
    case ReplyType::Result: TakeResult(); break;
    case ReplyType::Received: TakeReceived(); break;
    case ReplyType::LearnState: emit session.LearnStateReceived(Take<LearnStateReply>()); break;
    case ReplyType::Remotes: TakeNames(frames.Type(), Netcommand::ListRemotes); break;
    case ReplyType::TranslatorSets: TakeNames(frames.Type(), Netcommand::ListTranslators); break;
    case ReplyType::DatabaseSets: TakeNames(frames.Type(), Netcommand::ListDatabases); break;
    case ReplyType::Buses: TakeBuses(); break;
    case ReplyType::Commands: TakeCommands(); break;
    case ReplyType::TranslatorElements:
        emit session.TranslatorPageReceived(TakePage<TranslatorRequest>());
        break;
    case ReplyType::DatabaseElements: TakeDatabasePage(); break;
    case ReplyType::LearnedData:
    case ReplyType::ServerInfo: break; // nothing in the program shows them
    case ReplyType::ServerVersion: emit session.ServerVersionReceived(Take<ServerInfoReply>().version); break;
    case ReplyType::DatabaseStatus: TakeDatabaseStatus(); break;
    case ReplyType::Analog: {
        const QByteArrayView record = Overlay(AnalogValues::Size);
        emit session.AnalogReceived(Decode<AnalogValues>(record), Decode<AnalogTemperatures>(record));
        break;
    }
    case ReplyType::Log: TakeLog(); break;
    case ReplyType::Status: emit session.StatusReceived(Overlay(StatusHead::PageSize)); break;
    }
}

void ReplyReader::TakeResult() {
    const auto result = Take<ResultReply>();
    const bool learnFailed = result.Code == ResultCode::LearnFailed && result.Detail == 3;
    if (result.Code == ResultCode::UnknownCommand || result.Code == ResultCode::KnownCommand) {
        if (result.Detail >= 0 && result.Detail <= LastSlot)
            emit session.CommandChecked(result.Detail, result.Code == ResultCode::KnownCommand);
    } else if (result.Code == ResultCode::FileExists) {
        emit session.OverwriteAsked(result);
    } else {
        if (learnFailed) {
            session.LateLearnError = true;
            session.LateLearnResult = result;
        } else {
            emit session.ErrorReported(result);
        }
        emit session.HoldRefused();
    }
}

void ReplyReader::TakeReceived() {
    const auto received = Take<ReceivedReply>();
    if (!received.Data.startsWith(u'F')) {
        emit session.CodeReceived(received);
        return;
    }
    const QChar outcome = received.Data.size() > 1 ? received.Data[1] : QChar();
    if (outcome < u'0' || outcome > u'2')
        return;
    const bool ofDatabase = std::exchange(session.FlashIsDatabase, false);
    if (outcome == u'2' || (outcome == u'0' && ofDatabase))
        emit session.DatabaseFlashEnded(outcome == u'2');
    else
        emit session.TranslatorFlashEnded(outcome == u'1');
}

void ReplyReader::TakeDatabaseStatus() {
    const auto status = Take<IRDBStatusRecord>();
    const double bytes = LeadingNumber(status.usage) * 2; // the server counts 16-bit words
    const bool tooLarge = (status.size.startsWith(u"64K") && bytes > 65535) ||
                          (status.size.startsWith(u"128K") && bytes > 131070);
    if (!tooLarge)
        session.FlashIsDatabase = true;
    emit session.DatabaseStatusReceived(status, !tooLarge);
}

void ReplyReader::TakeNames(ReplyType type, Netcommand request) {
    const auto page = TakePage<NameElement>();
    if (!IsDue(page.head))
        return;
    Store(session.NameList, page, NameOf<NameElement>);
    if (const int next = NextIndex(page.head)) {
        session.SendRemoteCommand(request, {}, {}, next);
        return;
    }
    session.ListCount = int(session.NameList.size());
    emit session.NamesReady(type);
    if (type == ReplyType::Remotes && session.ListOwner == ListTarget::TranslatorLoad)
        session.SendRemoteCommand(Netcommand::ListTranslators, {}, {}, 0);
}

void ReplyReader::TakeBuses() {
    const auto page = TakePage<BusElement>();
    if (!IsDue(page.head))
        return;
    Store(session.BusList, page, [](const BusElement& bus) { return bus; });
    if (const int next = NextIndex(page.head)) {
        session.SendRemoteCommand(Netcommand::ListBuses, {}, {}, next);
        return;
    }
    session.ListCount = int(session.BusList.size());
    emit session.BusesReady();
}

void ReplyReader::TakeCommands() {
    using namespace ListTarget;
    const auto page = TakePage<CommandElement>();
    if (!IsDue(page.head))
        return;
    const int owner = session.ListOwner;
    const int next = NextIndex(page.head);
    const struct {
        int bits;
        QStringList& list;
    } targets[] = {
        {TranslatorRemotes, session.CommandList1},
        {TranslatorTargets, session.CommandList2},
        {FreeSend, session.CommandList3},
        {Database | DatabaseCommands, session.CommandList1},
    };
    for (const auto& [bits, list] : targets)
        if (owner & bits)
            Store(list, page, NameOf<CommandElement>);
    if (next != 0) {
        // One request, however many lists it fills: two would be answered twice, and so on with every page.
        const QString remote = owner & FreeSend ? session.FreeSendRemote : QString();
        session.SendRemoteCommand(Netcommand::ListCommands, remote, {}, next);
        return;
    }
    for (const auto& target : targets)
        if (owner & target.bits)
            emit session.CommandsReady(owner & target.bits);
}

void ReplyReader::TakeDatabasePage() {
    const QByteArrayView record = Overlay(ListPage<IRDBElementRecord>::Size);
    constexpr int GlobalPage = PageHead::Size + IRDBGlobalRecord::Size;
    if (frames.Payload().size() == GlobalPage) {
        const auto global = Decode<IRDBGlobalRecord>(record.sliced(PageHead::Size));
        if (global.ElementKind == IRDBGlobalRecord::Kind) {
            emit session.DatabaseGlobalReceived(Decode<PageHead>(record), global);
            return;
        }
    }
    emit session.DatabasePageReceived(DecodePage<IRDBElementRecord>(record));
}

void ReplyReader::TakeLog() {
    // The text lies between a head of 4 bytes and a tail that is never shown.
    constexpr qsizetype Head = 4;
    constexpr qsizetype Tail = 7;
    const auto payload = frames.Payload();
    if (payload.size() <= Head + Tail)
        return;
    QString text = FromCodePage(payload.sliced(Head).chopped(Tail));
    if (const auto end = text.indexOf(QChar(0)); end >= 0)
        text.truncate(end);
    emit session.LogReceived(text.replace(u'\n', QStringLiteral("\r\n")));
}
