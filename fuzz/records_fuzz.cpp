// Every record of the wire: its bytes settle when they are decoded and encoded, nothing is written beside
// them, and what the practice server's checker lets pass is what the encoder writes.

#include "fuzz/record_kinds.h"

#include "database/settings.h"
#include "fuzz/check.h"
#include "practice/request_table.h"

namespace {

/// Encodes into a block of its own, of exactly the record's size.
template <class Record> QByteArray Again(const QByteArray& bytes) {
    const std::vector<char> in(bytes.begin(), bytes.end());
    std::vector<char> out(Record::Size, '\0');
    RecordEncoder encoder(out);
    const auto record = Decode<Record>(in);
    Record::Layout(encoder, record);
    return {out.data(), qsizetype(out.size())};
}

QByteArray AsStored(const QByteArray& global) {
    DatabaseSettings settings;
    TakeGlobalRecord(Decode<IRDBGlobalRecord>(global), settings);
    settings.Limit();
    return Encode(ToGlobalRecord(settings));
}

template <class Record, class... Others> constexpr bool IsOneOf = (std::is_same_v<Record, Others> || ...);

template <class Record> void Try(const QByteArray& given) {
    const QByteArray bytes = given.leftJustified(Record::Size, '\0', true);
    const QByteArray once = Again<Record>(bytes);
    Check(Again<Record>(once) == once);
    if (CheckRecord<Record>(bytes).isEmpty())
        // A text that fills its field may end in one blank, which the encoder drops.
        Check(std::equal(bytes.begin(), bytes.end(), once.begin(),
                         [](char is, char due) { return is == due || (is == ' ' && due == '\0'); }));
    // These can say something of themselves that isn't so; all others are good once they are encoded.
    if constexpr (!IsOneOf<Record, CommandRequest, SerialRequest, CodeRequest, IRDBElementRecord,
                           DeviceEntry>)
        Check(CheckRecord<Record>(once).isEmpty());
    if constexpr (IsOneOf<Record, IRDBGlobalRecord>)
        Check(AsStored(AsStored(once)) == AsStored(once));
}

template <class... Records> auto Tries(const std::tuple<Records...>*) {
    return std::array{Try<Records>...};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    static const auto tries = Tries(static_cast<RecordKinds*>(nullptr));
    Input input(data, size);
    const auto kind = input.ConsumeIntegral<quint8>() % tries.size();
    const QByteArray bytes = input.Rest();
    tries[kind](bytes);
    if (bytes.isEmpty() || bytes.size() < BytesToTell(bytes[0]))
        return 0;
    const RequestRow* row = FindRow(bytes);
    if (row != nullptr && bytes.size() >= row->size && row->check(*row, bytes.first(row->size)).isEmpty())
        Check(!row->describe(*row, bytes.first(row->size)).isEmpty());
    return 0;
}
