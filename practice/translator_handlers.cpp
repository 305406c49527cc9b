#include "practice/client_link.h"
#include "practice/describe.h"
#include "practice/list_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 HoldsTranslator = 0x00000200; // of a device's capabilities

} // namespace

void TakeTranslatorElement(ClientLink& link, QByteArrayView bytes) {
    const int index = Decode<TranslatorRequest>(bytes).ElementIndex;
    SetTransfer& transfer = link.translator;
    if (index == 0)
        transfer.Begin({});
    transfer.Take(link, bytes, index, int(transfer.set.elements.size()),
                  link.GetOutcomes().refusedTranslatorElements.contains(index));
}

void SendTranslatorPage(ClientLink& link, const CommandRequest& request) {
    const RecordSet* set = link.translator.Read(link, link.GetWorld().translatorSets, request);
    if (!set)
        return;
    const PageHead head =
        MakePageHead(set->elements.size(), request.param, ElementsPerPage<TranslatorRequest>);
    link.Reply(ReplyType::TranslatorElements,
               Encode(head) + set->elements.mid(head.Offset, head.Count).join(), DescribePage(head));
}

void StoreTranslatorSet(ClientLink& link, const CommandRequest& request) {
    link.translator.Store(link, link.GetWorld().translatorSets, request);
}

void FlashTranslatorSet(ClientLink& link, const CommandRequest& request) {
    const RecordSet* set = link.translator.Whole(link);
    if (!set)
        return;
    const auto [bus, address, entry] = link.GetWorld().FindDevice(request.param);
    const bool able = entry && entry->Capabilities & HoldsTranslator;
    const QString place = u"device %1.%2"_s.arg(bus).arg(address);
    if (!able)
        link.Say(u"not flashed: %1 has no translator"_s.arg(place));
    const bool flashed = able && !link.GetOutcomes().translatorFlashFails;
    if (flashed)
        link.Say(u"flashed: %1 translator elements into %2"_s.arg(set->elements.size()).arg(place));
    TellFlash(link, flashed ? u"F1"_s : u"F0"_s);
}

void TellFlash(ClientLink& link, const QString& outcome) {
    link.Reply(ReplyType::Received, Encode(ReceivedReply{{}, {}, outcome}),
               u"result of the flash "_s + outcome);
}
