#pragma once

#include "link/requests.h"

#include <vector>

/// The records that the server sends: a header of 8 bytes, then the record that its type names. `Size` is the
/// width of the record without the header. A reply may be shorter: what it doesn't reach keeps what the last
/// reply of its type left there.

enum class ReplyType : qint16 {
    Result = 1,
    LearnedData = 2,
    Received = 4,
    LearnState = 5,
    Remotes = 6,
    Commands = 7,
    TranslatorElements = 8,
    ServerInfo = 9,
    ServerVersion = 13,
    DatabaseElements = 15,
    TranslatorSets = 16,
    DatabaseSets = 17,
    Buses = 18,
    DatabaseStatus = 20,
    Analog = 21,
    Log = 23,
    Status = 24,
};

namespace Wire {

constexpr int ReplyHeaderSize = 8;
constexpr int ReplyTypeCount = 25;    ///< types in use are below this number
constexpr int LargestPayload = 31756; ///< of the records below; the header's length allows 32,759
constexpr int TextFrameMax = 99999;   ///< five decimal digits, the header of 8 bytes included

} // namespace Wire

/// Header of a reply, behind which `length` - 8 bytes of payload follow. Its first four bytes aren't read;
/// the first two must not be asterisks, as those open a text frame.
struct ReplyHeader {
    static constexpr const char* Name = "ReplyHeader";
    static constexpr int Size = Wire::ReplyHeaderSize;

    qint16 length = Size;
    ReplyType type{};

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Number("length", 4, r.length);
        fields.Number("type", 6, r.type);
    }
};

/// Result codes that mean more than an error to be shown.
enum class ResultCode : qint16 {
    LearnFailed = 4, ///< with `Detail` 3
    UnknownCommand = 28,
    FileExists = 35,
    KnownCommand = 38,
};

struct ResultReply {
    static constexpr const char* Name = "ResultReply";
    static constexpr int Size = 264;

    ResultCode Code{};
    qint16 Detail = 0;
    QString Text; ///< the server's message, fit for the user

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Number("Code", 2, r.Code);
        fields.Number("Detail", 4, r.Detail);
        fields.Text("Text", 8, 256, Wire::TextForm::Zeroed, r.Text);
    }
};

/// What the box of an error says.
inline QString ErrorText(const ResultReply& result) {
    return QStringLiteral("Result: [%1 - %2] ").arg(int(result.Code)).arg(result.Detail) + result.Text;
}

/// The server's decoded form of a learned code. The client takes it off the wire and shows nothing of it.
struct LearnedDataReply {
    static constexpr const char* Name = "LearnedDataReply";
    static constexpr int Size = 208;

    qint16 Address = 0;
    quint8 Mode = 0; ///< bit 0 start bit, 1 repeat start, 2 RC5 data, 3 RC6 data, 4 RAW data
    quint8 TimeCount = 0;
    quint8 RepeatCount = 0;
    quint8 RepeatPause = 0;
    std::array<qint16, 6> PauseLen{};
    std::array<qint16, 6> PulseLen{};
    QString Data;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Number("Address", 0, r.Address);
        fields.Number("Mode", 4, r.Mode);
        fields.Number("TimeCount", 5, r.TimeCount);
        fields.Number("RepeatCount", 6, r.RepeatCount);
        fields.Number("RepeatPause", 7, r.RepeatPause);
        fields.Numbers("PauseLen", 8, r.PauseLen);
        fields.Numbers("PulseLen", 20, r.PulseLen);
        fields.Text("Data", 32, 176, Wire::TextForm::Zeroed, r.Data);
    }
};

/// A received IR code, or the result of a flash: `Data` then is "F" and "0" failed, "1" translator stored,
/// "2" database stored.
struct ReceivedReply {
    static constexpr const char* Name = "ReceivedReply";
    static constexpr int Size = 304;

    QString Remote;
    QString Command;
    QString Data;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Text("Remote", 4, Wire::RemoteWidth, Zeroed, r.Remote);
        fields.Text("Command", 84, Wire::CommandWidth, Zeroed, r.Command);
        fields.Text("Data", 104, 200, Zeroed, r.Data);
    }
};

struct LearnStateReply {
    static constexpr const char* Name = "LearnStateReply";
    static constexpr int Size = 264;

    // Bits of Flags
    static constexpr quint8 Learned = 1;
    static constexpr quint8 Measured = 2; ///< `Carrier` was measured
    static constexpr quint8 MeasuringFailed = 4;

    quint8 Flags = 0;
    quint8 Carrier = 0; ///< kHz
    QString Remote;     ///< empty: no learn target is set
    qint16 TimingCount = 0;
    qint16 CommandCount = 0;
    QString Code;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Number("Flags", 2, r.Flags);
        fields.Number("Carrier", 3, r.Carrier);
        fields.Text("Remote", 4, Wire::RemoteWidth, Zeroed, r.Remote);
        fields.Number("TimingCount", 84, r.TimingCount);
        fields.Number("CommandCount", 86, r.CommandCount);
        fields.Text("Code", 88, 176, Zeroed, r.Code);
    }
};

struct ServerInfoReply {
    static constexpr const char* Name = "ServerInfoReply";
    static constexpr int Size = 16; ///< 8 in type 9, which has no version text

    QString version;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Text("version", 8, 8, Wire::TextForm::Zeroed, r.version);
    }
};

/// Memory use of a device's database.
struct IRDBStatusRecord {
    static constexpr const char* Name = "IRDBStatusRecord";
    static constexpr int Size = 64;

    QString usage; ///< decimal number of 16-bit words
    QString size;  ///< begins "64K" or "128K"
    QString remotes;
    QString commands;
    QString actions;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Text("usage", 0, 32, Zeroed, r.usage);
        fields.Text("size", 32, 8, Zeroed, r.size);
        fields.Text("remotes", 40, 8, Zeroed, r.remotes);
        fields.Text("commands", 48, 8, Zeroed, r.commands);
        fields.Text("actions", 56, 8, Zeroed, r.actions);
    }
};

/// `AnalogReply` read as byte values. Inputs 0 to 7, of which four are shown.
struct AnalogValues {
    static constexpr const char* Name = "AnalogValues";
    static constexpr int Size = 26;

    std::array<quint8, 8> Mode{}; ///< 0 not enabled, 2 fixed point temperature, else plain value
    std::array<quint8, 8> Value{};

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Numbers("Mode", 1, r.Mode);
        fields.Numbers("Value", 9, r.Value);
    }
};

/// The same bytes read as temperatures.
struct AnalogTemperatures {
    static constexpr const char* Name = "AnalogTemperatures";
    static constexpr int Size = 26;

    std::array<quint8, 8> Mode{};
    std::array<qint16, 8> Temperature{}; ///< hundredths of a degree

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Numbers("Mode", 1, r.Mode);
        fields.Numbers("Temperature", 10, r.Temperature);
    }
};

/// One device of the status.
struct DeviceEntry {
    static constexpr const char* Name = "DeviceEntry";
    static constexpr int Size = 248;

    quint32 SendMask = 0;
    quint8 Mode = 0;
    quint8 ExtMode = 0;
    quint8 ExtMode2 = 0;
    quint32 Capabilities = 0;
    quint32 ExtCapabilities = 0;
    quint32 ExtCapabilities2 = 0;
    quint8 Receivers = 0;
    quint8 ReceiveTimeout = 0;
    quint8 ReceiveTiming = 0;
    quint8 CodeFlags = 0;
    quint8 ToggleConfig = 0;
    quint8 IOFlags = 0;
    quint8 SerialFlags = 0;
    quint8 ExtFlags = 0;
    QString Version; ///< kind letter, then the firmware version; empty: no device here
    QString HotRemote;
    QString HotCommand;
    QString HotRemote2;     ///< or the marker that HotCommand2 holds a MAC address
    QByteArray HotCommand2; ///< text, or six bytes of a MAC address

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Number("SendMask", 0, r.SendMask);
        fields.Number("Mode", 4, r.Mode);
        fields.Number("ExtMode", 5, r.ExtMode);
        fields.Number("ExtMode2", 6, r.ExtMode2);
        fields.Number("Capabilities", 12, r.Capabilities);
        fields.Number("ExtCapabilities", 16, r.ExtCapabilities);
        fields.Number("ExtCapabilities2", 20, r.ExtCapabilities2);
        fields.Number("Receivers", 28, r.Receivers);
        fields.Number("ReceiveTimeout", 29, r.ReceiveTimeout);
        fields.Number("ReceiveTiming", 30, r.ReceiveTiming);
        fields.Number("CodeFlags", 31, r.CodeFlags);
        fields.Number("ToggleConfig", 32, r.ToggleConfig);
        fields.Number("IOFlags", 33, r.IOFlags);
        fields.Number("SerialFlags", 34, r.SerialFlags);
        fields.Number("ExtFlags", 35, r.ExtFlags);
        fields.Text("Version", 36, 10, Zeroed, r.Version);
        fields.Text("HotRemote", 46, Wire::RemoteWidth, Zeroed, r.HotRemote);
        fields.Text("HotCommand", 126, Wire::CommandWidth, Zeroed, r.HotCommand);
        fields.Text("HotRemote2", 146, Wire::RemoteWidth, Zeroed, r.HotRemote2);
        fields.Raw("HotCommand2", 226, Wire::CommandWidth, '\0', r.HotCommand2);
    }
};

/// The head of a page of device status. 128 device entries follow: bus t of the page (0 to 7), address a (0
/// to 15) is entry t * 16 + a. A page is kept as bytes; entries are decoded one by one.
struct StatusHead {
    static constexpr const char* Name = "StatusReply";
    static constexpr int Size = 12;
    static constexpr int Buses = 8;
    static constexpr int Addresses = 16;
    static constexpr int PageSize = Size + Buses * Addresses * DeviceEntry::Size;

    quint8 FirstBus = 0; ///< number of the first bus of the page, a multiple of 8
    quint8 BusTotal = 0; ///< buses over all pages
    std::array<quint8, Buses> LocalAddress{};

    static constexpr int EntryOffset(int bus, int address) {
        return Size + (bus * Addresses + address) * DeviceEntry::Size;
    }

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Number("FirstBus", 2, r.FirstBus);
        fields.Number("BusTotal", 3, r.BusTotal);
        fields.Numbers("LocalAddress", 4, r.LocalAddress);
    }
};
static_assert(StatusHead::PageSize == Wire::LargestPayload);

/// The first 8 bytes of every paged list. Elements follow.
struct PageHead {
    static constexpr const char* Name = "PageHead";
    static constexpr int Size = 8;

    qint16 Offset = 0; ///< index of the first element of this page in the whole list
    qint16 Count = 0;  ///< elements in this page
    qint16 Total = 0;  ///< elements in the whole list
    qint16 More = 0;   ///< not 0: more pages follow

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Number("Offset", 0, r.Offset);
        fields.Number("Count", 2, r.Count);
        fields.Number("Total", 4, r.Total);
        fields.Number("More", 6, r.More);
    }
};

/// Element of the lists of remotes, translator sets and database sets.
struct NameElement {
    static constexpr const char* Name = "NameListReply";
    static constexpr int Size = 88;
    static constexpr int PerPage = 40;

    QString name;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Text("name", 8, 80, Wire::TextForm::Zeroed, r.name);
    }
};

/// Element of the list of a remote's commands.
struct CommandElement {
    static constexpr const char* Name = "CommandListReply";
    static constexpr int Size = Wire::CommandWidth;
    static constexpr int PerPage = 200;

    QString name;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Text("name", 0, Size, Wire::TextForm::Zeroed, r.name);
    }
};

/// Element of the list of buses.
struct BusElement {
    static constexpr const char* Name = "BusListReply";
    static constexpr int Size = 88;
    static constexpr int PerPage = 40;

    qint32 capabilitiesA = 0;
    qint32 capabilitiesB = 0;
    QString name;
    QString version; ///< firmware
    qint32 capabilitiesC = 0;
    quint8 learnDefaults = 0;
    quint8 toleranceIndex = 0;
    quint8 receivers = 0; ///< of channels 1 and 2
    quint8 timeout = 0;   ///< default IR time-out in milliseconds

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Number("capabilitiesA", 0, r.capabilitiesA);
        fields.Number("capabilitiesB", 4, r.capabilitiesB);
        fields.Text("name", 8, 60, Zeroed, r.name);
        fields.Text("version", 68, 8, Zeroed, r.version);
        fields.Number("capabilitiesC", 76, r.capabilitiesC);
        fields.Number("learnDefaults", 84, r.learnDefaults);
        fields.Number("toleranceIndex", 85, r.toleranceIndex);
        fields.Number("receivers", 86, r.receivers);
        fields.Number("timeout", 87, r.timeout);
    }
};

/// How many elements a page of a list holds at most.
template <class Element> constexpr int ElementsPerPage = Element::PerPage;
template <> inline constexpr int ElementsPerPage<TranslatorRequest> = 30;
template <> inline constexpr int ElementsPerPage<IRDBElementRecord> = 12;

/// One page of a list.
template <class Element> struct ListPage {
    /// Bytes of the largest page.
    static constexpr int Size = PageHead::Size + ElementsPerPage<Element> * Element::Size;

    PageHead head;
    std::vector<Element> elements; ///< `head.Count` of them, at most what a page holds
};

/// Takes a page from `Size` bytes. A count beyond what a page holds, or below 0, is clamped in `head` as
/// well.
template <class Element> ListPage<Element> DecodePage(QByteArrayView bytes) {
    Q_ASSERT(bytes.size() >= ListPage<Element>::Size);
    ListPage<Element> page{Decode<PageHead>(bytes), {}};
    page.head.Count = qint16(qBound(0, int(page.head.Count), ElementsPerPage<Element>));
    page.elements.reserve(page.head.Count);
    for (int i = 0; i < page.head.Count; ++i)
        page.elements.push_back(Decode<Element>(bytes.sliced(PageHead::Size + i * Element::Size)));
    return page;
}

/// The payload of a page, just as long as its elements need.
template <class Element> QByteArray EncodePage(const ListPage<Element>& page) {
    QByteArray payload = Encode(page.head);
    for (const Element& element : page.elements)
        payload += Encode(element);
    return payload;
}

/// Header and payload of a reply. `payload` holds at most 32,759 bytes.
inline QByteArray EncodeReply(ReplyType type, QByteArrayView payload = {}) {
    Q_ASSERT(payload.size() <= 32767 - Wire::ReplyHeaderSize);
    return Encode(ReplyHeader{qint16(payload.size() + Wire::ReplyHeaderSize), type}) + payload.toByteArray();
}
