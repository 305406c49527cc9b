#include "practice/client_link.h"
#include "practice/database_memory.h"
#include "practice/list_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 HoldsDatabase = 0x02000000; // of a device's capabilities

} // namespace

void TakeDatabaseSettings(ClientLink& link, QByteArrayView bytes) {
    SetTransfer& transfer = link.database;
    transfer.Begin(bytes.toByteArray());
    if (!link.GetOutcomes().refusedDatabaseElements.contains(0))
        return link.Acknowledge();
    transfer.fault = u"The settings of the database were refused."_s;
    link.Result(PracticeResult::NotStored, 0, transfer.fault);
}

void TakeDatabaseElement(ClientLink& link, QByteArrayView bytes) {
    const int number = Decode<IRDBElementRecord>(bytes).number;
    SetTransfer& transfer = link.database;
    transfer.Take(link, bytes, number, int(transfer.set.elements.size()) + 1,
                  link.GetOutcomes().refusedDatabaseElements.contains(number));
}

void SendDatabasePage(ClientLink& link, const CommandRequest& request) {
    const RecordSet* set = link.database.Read(link, link.GetWorld().databaseSets, request);
    if (!set)
        return;
    // The settings are entry 0 of the list and have a page of their own.
    const int first = request.param;
    const int most = first == 0 ? 1 : ElementsPerPage<IRDBElementRecord>;
    const PageHead head = MakePageHead(set->elements.size() + 1, first, most);
    const QByteArray records = first == 0 ? set->settings : set->elements.mid(first - 1, head.Count).join();
    link.Reply(ReplyType::DatabaseElements, Encode(head) + records, DescribePage(head));
}

void StoreDatabaseSet(ClientLink& link, const CommandRequest& request) {
    link.database.Store(link, link.GetWorld().databaseSets, request);
}

void FlashDatabaseSet(ClientLink& link, const CommandRequest& request) {
    const RecordSet* set = link.database.Whole(link);
    if (!set)
        return;
    const auto [bus, address, entry] = link.GetWorld().FindDevice(request.param);
    const QString place = u"device %1.%2"_s.arg(bus).arg(address);
    DatabaseMemory memory = MeasureDatabase(*set);
    memory.words = link.GetOutcomes().databaseWords.value_or(memory.words);
    memory.large = entry && entry->Version.startsWith(u'G');
    link.Reply(ReplyType::DatabaseStatus, Encode(memory.Status()),
               u"memory of the database: "_s + memory.Words());
    if (!memory.Fits()) {
        // The client has its answer: a result would be taken for that of a translator.
        return link.Say(u"not flashed: the memory of %1 is too small"_s.arg(place));
    }
    const bool able = entry && entry->Capabilities & HoldsDatabase;
    if (!able)
        link.Say(u"not flashed: %1 has no database"_s.arg(place));
    const bool flashed = able && !link.GetOutcomes().databaseFlashFails;
    if (flashed)
        link.Say(u"flashed: %1 database elements into %2"_s.arg(set->elements.size()).arg(place));
    TellFlash(link, flashed ? u"F2"_s : u"F0"_s);
}
