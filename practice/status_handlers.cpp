#include "practice/client_link.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray EncodeStatusPage(const std::vector<World::Bus>& buses, int first) {
    QByteArray payload(StatusHead::PageSize, '\0');
    StatusHead head{quint8(first), quint8(buses.size()), {}};
    const int count = std::min<int>(int(buses.size()) - first, StatusHead::Buses);
    for (int t = 0; t < count; ++t) {
        const World::Bus& bus = buses[first + t];
        head.LocalAddress[t] = bus.localAddress;
        for (const auto& [address, device] : bus.devices)
            payload.replace(StatusHead::EntryOffset(t, address), DeviceEntry::Size, Encode(device));
    }
    payload.replace(0, StatusHead::Size, Encode(head));
    return payload;
}

} // namespace

void BeginSession(ClientLink& link, const CommandRequest&) {
    link.Say(u"answered: nothing, as none is awaited"_s);
}

void SendStatusPage(ClientLink& link, const CommandRequest& request) {
    const auto& buses = link.GetWorld().buses;
    const int first = request.param;
    // A world without a bus still has its first page.
    if (first % StatusHead::Buses != 0 || (first > 0 && first >= int(buses.size())))
        return link.Result(PracticeResult::NotThere, 0,
                           u"No page of device status begins with bus %1."_s.arg(first));
    link.Reply(ReplyType::Status, EncodeStatusPage(buses, first),
               u"status of the buses from %1 on, %2 in all"_s.arg(first).arg(buses.size()));
}

void SendAnalogInputs(ClientLink& link, const CommandRequest&) {
    AnalogValues values;
    AnalogTemperatures temperatures;
    QStringList words;
    auto& inputs = link.GetWorld().analogInputs;
    for (size_t i = 0; i < inputs.size(); ++i) {
        const qint16 value = inputs[i].Read();
        values.Mode[i] = inputs[i].mode;
        if (inputs[i].mode == World::AnalogInput::Temperature)
            temperatures.Temperature[i] = value;
        else
            values.Value[i] = quint8(value);
        words.append(u"%1:%2"_s.arg(inputs[i].mode).arg(value));
    }
    // Both views share their bytes; each input is there in the one of its mode.
    QByteArray payload = Encode(values);
    const QByteArray other = Encode(temperatures);
    for (qsizetype i = 0; i < payload.size(); ++i)
        payload[i] = char(payload[i] | other[i]);
    link.Reply(ReplyType::Analog, payload, u"analog inputs "_s + words.join(u' '));
}
