#include "practice/request_table.h"

#include "practice/describe.h"
#include "practice/handlers.h"
#include "practice/learn_param.h"

using namespace Qt::StringLiterals;
using Answer = RequestRow::Answer;
using Remote = CommandUse::Remote;
using Param = CommandUse::Param;

namespace {

QStringList CheckUse(const RequestRow& row, const CommandRequest& request) {
    QStringList faults;
    const auto add = [&](const char* field, int offset, const QString& fault) {
        faults.append(
            u"CommandRequest of netcommand %1: field \"%2\" (offset %3): %4"_s.arg(int(row.netcommand))
                .arg(QLatin1StringView(field))
                .arg(offset)
                .arg(fault));
    };
    if (row.use.remote == Remote::None && !request.remote.isEmpty())
        add("remote", 12, Quoted(request.remote) + u" stands where nothing is due"_s);
    if (row.use.remote == Remote::FlagByte && request.remote.size() > 1)
        add("remote", 12, Quoted(request.remote) + u" is more than one character"_s);
    if (!row.use.command && !request.command.isEmpty())
        add("command", 92, Quoted(request.command) + u" stands where nothing is due"_s);

    const auto limit = [&](qint32 most) {
        if (request.param < 0 || request.param > most)
            add("param", 4, u"%1 is not in 0 to %2"_s.arg(request.param).arg(most));
    };
    switch (row.use.param) {
    case Param::Zero: limit(0); break;
    case Param::Index: limit(0x7FFF); break;
    case Param::Slot: limit(256); break;
    case Param::SaveState: limit(2); break;
    case Param::DeviceTag: limit(0xFFFF); break;
    case Param::Send:
    case Param::Learn: break;
    }
    return faults;
}

QString DescribeParam(Param use, qint32 param) {
    switch (use) {
    case Param::Zero: return {};
    case Param::Send: return u", "_s + DescribeSendParam(param);
    case Param::Index: return u", from entry %1"_s.arg(param);
    case Param::Slot: return u", slot %1"_s.arg(param);
    case Param::SaveState: return u", save state %1"_s.arg(param);
    case Param::Learn: break; // the whole request tells them
    case Param::DeviceTag: return u", bus %1, address %2"_s.arg(param / 256).arg(param % 256);
    }
    return {};
}

template <class Record> QStringList Check(const RequestRow& row, QByteArrayView bytes) {
    return CheckRecord<Record>(bytes, row.use.remote == Remote::FlagByte);
}

template <> QStringList Check<CommandRequest>(const RequestRow& row, QByteArrayView bytes) {
    return CheckRecord<CommandRequest>(bytes, row.use.remote == Remote::FlagByte) +
           CheckUse(row, Decode<CommandRequest>(bytes));
}

template <class Record> QString Describe(const RequestRow& row, QByteArrayView bytes) {
    RecordDescriber describer;
    const auto record = Decode<Record>(bytes);
    Record::Layout(describer, record);
    return u"%1 (%2)"_s.arg(QLatin1StringView(row.purpose), describer.Words());
}

template <> QString Describe<CommandRequest>(const RequestRow& row, QByteArrayView bytes) {
    const auto request = Decode<CommandRequest>(bytes);
    QString words = QLatin1StringView(row.purpose);
    if (row.use.remote == Remote::Name)
        words += u' ' + Quoted(request.remote);
    if (row.use.command)
        words += u' ' + Quoted(request.command);
    words += u" (timeout %1, carrier %2"_s.arg(request.timeout).arg(request.carrier);
    if (row.use.param == Param::Learn)
        return words + u", "_s + ReadLearnParam(request).Words() + u')';
    return words + DescribeParam(row.use.param, request.param) + u')';
}

template <> QString Describe<SerialRequest>(const RequestRow& row, QByteArrayView bytes) {
    const auto request = Decode<SerialRequest>(bytes);
    return u"%1 %2 (%3)"_s.arg(QLatin1StringView(row.purpose), Quoted(TextInUse(request)),
                               DescribeSendParam(request.param));
}

template <class Record, auto Handler>
constexpr RequestRow Row(Netcommand netcommand, const char* purpose, CommandUse use = {},
                         Answer answer = Answer::Result) {
    const auto handle = [](ClientLink& link, QByteArrayView bytes) {
        if constexpr (std::is_invocable_v<decltype(Handler), ClientLink&, QByteArrayView>)
            Handler(link, bytes);
        else
            Handler(link, Decode<Record>(bytes));
    };
    return {netcommand, purpose, answer, use, Record::Size, Check<Record>, Describe<Record>, handle};
}

constexpr CommandUse Bare = {};
constexpr CommandUse Names = {Remote::Name, true, Param::Send};
constexpr CommandUse Learning = {Remote::FlagByte, true, Param::Learn};
constexpr CommandUse Page = {Remote::None, false, Param::Index};
constexpr CommandUse PageOfName = {Remote::Name, false, Param::Index};
constexpr CommandUse Store = {Remote::Name, false, Param::SaveState};
constexpr CommandUse Flash = {Remote::None, false, Param::DeviceTag};

using General = CommandRequest;
using enum Netcommand;

constexpr std::array rows = {
    Row<General, SendIr>(SendCommand, "send", Names),
    Row<General, OpenForLearning>(OpenRemote, "open the remote", {Remote::Name, false, Param::Zero}),
    Row<General, Learn>(LearnTiming, "learn the timing", {Remote::FlagByte, false, Param::Learn}),
    Row<General, Learn>(LearnNormal, "learn", Learning),
    Row<General, EndLearning>(CloseRemote, "end learning", Bare),
    Row<General, SendIr>(RepeatCommand, "repeat", Names),
    Row<General, Learn>(LearnRaw, "learn in RAW mode", Learning),
    Row<General, Learn>(LearnRepeat, "learn a repeat code", Learning),
    Row<General, Learn>(LearnToggle, "learn a toggle command", Learning),
    Row<General, Learn>(LearnWithTiming, "learn with its timing", Learning),
    Row<General, Learn>(LearnRawRepeat, "learn a RAW repeat", Learning),
    Row<General, TellLearnState>(LearnState, "tell the state of learning", Bare),
    Row<General, ListRemoteNames>(ListRemotes, "list the remotes", Page),
    Row<General, ListCommandNames>(ListCommands, "list the commands of", PageOfName),
    Row<TranslatorRequest, TakeTranslatorElement>(TranslatorElement, "take an element of a translator set",
                                                  {}, Answer::NextHeader),
    Row<General, SendTranslatorPage>(ReadTranslator, "read the translator set", PageOfName),
    Row<General, StoreTranslatorSet>(StoreTranslator, "store the translator set", Store),
    Row<General, FlashTranslatorSet>(FlashTranslator, "flash the translator set", Flash),
    Row<LcdRequest, ShowText>(LcdText, "show on the LCD"),
    Row<General, BeginSession>(Start, "start", Bare),
    Row<General, SendStatusPage>(NextStatus, "tell the next page of device status", Page),
    Row<IRDBGlobalRecord, TakeDatabaseSettings>(DatabaseElement, "take the settings of a database", {},
                                                Answer::NextHeader),
    Row<IRDBElementRecord, TakeDatabaseElement>(DatabaseElement, "take an element of a database", {},
                                                Answer::NextHeader),
    Row<General, FlashDatabaseSet>(FlashDatabase, "flash the database", Flash),
    Row<General, StoreDatabaseSet>(StoreDatabase, "store the database", Store),
    Row<General, SendDatabasePage>(ReadDatabase, "read the database", PageOfName),
    Row<General, ListTranslatorSets>(ListTranslators, "list the translator sets", Page),
    Row<General, ListDatabaseSets>(ListDatabases, "list the databases", Page),
    Row<General, ListBusElements>(ListBuses, "list the buses", Page),
    Row<General, TellIfKnown>(CheckCommand, "check", {Remote::Name, true, Param::Slot}),
    Row<General, SendAnalogInputs>(ReadAnalog, "read the analog inputs", Bare),
    Row<SerialRequest, SendSerial>(SerialText, "send over RS232"),
    Row<CodeRequest, StoreCode>(StoreCcf, "store a CCF code"),
    Row<General, SendStatusPage>(DeviceStatus, "tell the device status", Bare),
    Row<ModeRequest, SetDevice>(SetMode, "set the parameters of a device"),
    Row<CodeRequest, StoreCode>(StoreSerialCode, "store an RS232 text"),
};

constexpr int KindOffset = 17;

} // namespace

int BytesToTell(char first) {
    return Netcommand(quint8(first)) == Netcommand::DatabaseElement ? KindOffset + 1 : 1;
}

const RequestRow* FindRow(QByteArrayView start) {
    const auto netcommand = Netcommand(quint8(start[0]));
    for (const RequestRow& row : rows) {
        if (row.netcommand != netcommand)
            continue;
        // Both kinds of database element have the same netcommand.
        const bool settings = row.size == IRDBGlobalRecord::Size;
        if (netcommand == Netcommand::DatabaseElement &&
            settings != (quint8(start[KindOffset]) == IRDBGlobalRecord::Kind))
            continue;
        return &row;
    }
    return nullptr;
}
