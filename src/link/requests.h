#pragma once

#include "link/wire.h"

/// The records that the client sends. Every one but the hello opens with its netcommand and carries the
/// protocol version at offset 8; each is sent whole, in exactly `Size` bytes.

/// First byte of a request. The comment names the record if it isn't `CommandRequest`.
enum class Netcommand : quint8 {
    SendCommand = 1,
    OpenRemote = 2,
    LearnTiming = 3,
    LearnNormal = 4,
    CloseRemote = 5,
    RepeatCommand = 7,
    LearnRaw = 8,
    LearnRepeat = 9,
    LearnToggle = 10,
    LearnWithTiming = 12,
    LearnRawRepeat = 13,
    LearnState = 16,
    ListRemotes = 18,
    ListCommands = 19,
    TranslatorElement = 20, ///< TranslatorRequest
    ReadTranslator = 21,
    StoreTranslator = 22,
    FlashTranslator = 23,
    LcdText = 29, ///< LcdRequest
    Start = 36,
    NextStatus = 43,
    DatabaseElement = 46, ///< IRDBGlobalRecord or IRDBElementRecord
    FlashDatabase = 47,
    StoreDatabase = 48,
    ReadDatabase = 49,
    ListTranslators = 51,
    ListDatabases = 52,
    ListBuses = 53,
    CheckCommand = 56,
    ReadAnalog = 60,
    SerialText = 61, ///< SerialRequest
    StoreCcf = 68,   ///< CodeRequest
    DeviceStatus = 69,
    SetMode = 70,         ///< ModeRequest
    StoreSerialCode = 71, ///< CodeRequest
};

namespace Wire {

constexpr qint32 ProtocolVersion = 210;
constexpr int RemoteWidth = 80;
constexpr int CommandWidth = 20;
constexpr int HelloSize = 4;       ///< an i32 of value 0, the first thing on a connection
constexpr int SerialTextMax = 255; ///< the length of the text is one byte
constexpr int CodeWidth = 5400;    ///< of the code of a CodeRequest
constexpr int ActionDataWidth = 256;

} // namespace Wire

/// The general request.
struct CommandRequest {
    static constexpr const char* Name = "CommandRequest";
    static constexpr int Size = 113;

    Netcommand netcommand{};
    qint16 timeout = 0; ///< learn time-out in milliseconds
    qint32 param = 0;   ///< `SendParam` of a send; else what the netcommand has it mean
    QString remote;
    QString command;
    quint8 carrier = 0; ///< kHz

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Number("netcommand", 0, r.netcommand);
        fields.Number("timeout", 2, r.timeout);
        fields.Number("param", 4, r.param);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Text("remote", 12, Wire::RemoteWidth, Trimmed, r.remote);
        fields.Text("command", 92, Wire::CommandWidth, Trimmed, r.command);
        fields.Number("carrier", 112, r.carrier);
    }
};

/// Sets the parameters of a device. The fields bear the names of the device entry that they change.
struct ModeRequest {
    static constexpr const char* Name = "ModeRequest";
    static constexpr int Size = 232;

    quint8 Mode = 0;
    qint16 DeviceTag = 0; ///< bus number * 256 + address
    QString HotRemote;
    QString HotCommand;
    QString HotRemote2;
    QString HotCommand2;
    qint32 SendMask = 0;
    quint8 ExtMode = 0;
    quint8 ExtMode2 = 0;
    std::array<quint8, 6> mac{};
    std::array<quint8, 8> ExtParam{}; ///< `Receivers` to `ExtFlags`

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Constant("netcommand", 0, Netcommand::SetMode);
        fields.Number("Mode", 1, r.Mode);
        fields.Number("DeviceTag", 4, r.DeviceTag);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Text("HotRemote", 12, Wire::RemoteWidth, Trimmed, r.HotRemote);
        fields.Text("HotCommand", 92, Wire::CommandWidth, Trimmed, r.HotCommand);
        fields.Text("HotRemote2", 112, Wire::RemoteWidth, Trimmed, r.HotRemote2);
        fields.Text("HotCommand2", 192, Wire::CommandWidth, Trimmed, r.HotCommand2);
        fields.Number("SendMask", 212, r.SendMask);
        fields.Number("ExtMode", 216, r.ExtMode);
        fields.Number("ExtMode2", 217, r.ExtMode2);
        fields.Numbers("mac", 218, r.mac);
        fields.Numbers("ExtParam", 224, r.ExtParam);
    }
};

/// A text for the display of a device.
struct LcdRequest {
    static constexpr const char* Name = "LcdRequest";
    static constexpr int Size = 214;

    QString text; ///< at most 200 characters

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Constant("netcommand", 0, Netcommand::LcdText);
        fields.Constant("kind", 2, quint8(2));
        fields.Constant("letter", 4, qint32('L'));
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Constant("columns", 12, quint8(40));
        fields.Constant("lines", 13, quint8(4));
        fields.Text("text", 14, 200, Wire::TextForm::Plain, r.text);
    }
};

/// A text for the serial port of a device.
struct SerialRequest {
    static constexpr const char* Name = "SerialRequest";
    static constexpr int Size = 272;

    qint32 param = 0;  ///< `SendParam`
    quint8 length = 0; ///< characters of `text` in use
    QByteArray text;   ///< in code page 1252

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Constant("netcommand", 0, Netcommand::SerialText);
        fields.Number("param", 4, r.param);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Number("length", 12, r.length);
        fields.Raw("text", 16, 256, ' ', r.text);
    }
};

/// A command that was typed and not learned: a CCF code or an RS232 text.
struct CodeRequest {
    static constexpr const char* Name = "CodeRequest";
    static constexpr int Size = 5512;

    Netcommand netcommand = Netcommand::StoreCcf; ///< or StoreSerialCode
    QString remote;
    QString command;
    QString code; ///< at most 5,399 characters, so that its NUL fits

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Number("netcommand", 0, r.netcommand);
        fields.Constant("reserved", 4, qint32(0));
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Text("remote", 12, Wire::RemoteWidth, PlainNul, r.remote);
        fields.Text("command", 92, Wire::CommandWidth, PlainNul, r.command);
        fields.Text("code", 112, Wire::CodeWidth, PlainNul, r.code);
    }
};

/// One element of a translator set. The same bytes come back in `TranslatorListReply`.
struct TranslatorRequest {
    static constexpr const char* Name = "TranslatorRequest";
    static constexpr int Size = 136;

    qint32 ElementIndex = 0; ///< position in the set, from 0
    quint8 ElementFlags = 0;
    quint8 ElementType = 0;
    quint8 ElementParam = 0;
    quint8 ElementRepeat = 0;
    qint16 ElementPause = 0; ///< milliseconds
    quint8 RemoteIndex = 0;  ///< number of the enclosing remote, 0 for none
    quint8 GroupIndex = 0;   ///< number of the enclosing group, 0 for none
    QString remote;
    QString command;
    qint32 ElementReceiveMask = 0;
    qint32 ElementSendMask = 0;
    quint8 MultiIndex = 0; ///< number of the enclosing shift key, 0 for none
    quint8 IncludeNames = 0;
    quint8 ElementIO = 0; ///< flag * 128 + input
    quint8 ElementIOValue = 0;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Constant("netcommand", 0, Netcommand::TranslatorElement);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Number("ElementIndex", 12, r.ElementIndex);
        fields.Number("ElementFlags", 16, r.ElementFlags);
        fields.Number("ElementType", 17, r.ElementType);
        fields.Number("ElementParam", 18, r.ElementParam);
        fields.Number("ElementRepeat", 19, r.ElementRepeat);
        fields.Number("ElementPause", 20, r.ElementPause);
        fields.Number("RemoteIndex", 22, r.RemoteIndex);
        fields.Number("GroupIndex", 23, r.GroupIndex);
        fields.Text("remote", 24, Wire::RemoteWidth, Trimmed, r.remote);
        fields.Text("command", 104, Wire::CommandWidth, Trimmed, r.command);
        fields.Number("ElementReceiveMask", 124, r.ElementReceiveMask);
        fields.Number("ElementSendMask", 128, r.ElementSendMask);
        fields.Number("MultiIndex", 132, r.MultiIndex);
        fields.Number("IncludeNames", 133, r.IncludeNames);
        fields.Number("ElementIO", 134, r.ElementIO);
        fields.Number("ElementIOValue", 135, r.ElementIOValue);
    }
};

/// The settings of a database as a whole, its first element.
struct IRDBGlobalRecord {
    static constexpr const char* Name = "IRDBGlobalRecord";
    static constexpr int Size = 1264;
    static constexpr quint8 Kind = 9;

    quint8 GlobalFlags = 0;
    quint8 ElementKind = Kind;
    qint16 port = 0; ///< the 16 bits of the port number
    QString actionFormat;
    QString errorFormat;
    QString okFormat;
    std::array<quint8, 4> mode{}; ///< list index; bit 7: send to host
    std::array<quint8, 4> minimum{};
    std::array<quint8, 4> maximum{};
    std::array<quint8, 4> hysteresis{};
    std::array<quint8, 4> minimumLed{};
    std::array<quint8, 4> maximumLed{};
    std::array<qint32, 4> minimumMask{};
    std::array<qint32, 4> maximumMask{};
    std::array<QString, 4> minimumRemote;
    std::array<QString, 4> minimumCommand;
    std::array<QString, 4> maximumRemote;
    std::array<QString, 4> maximumCommand;
    qint32 ip = 0; ///< highest byte: first number of the address

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Constant("netcommand", 0, Netcommand::DatabaseElement);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Number("GlobalFlags", 16, r.GlobalFlags);
        fields.Number("ElementKind", 17, r.ElementKind);
        fields.Number("port", 18, r.port);
        fields.Text("actionFormat", 20, 100, Trimmed, r.actionFormat);
        fields.Text("errorFormat", 120, 20, Trimmed, r.errorFormat);
        fields.Text("okFormat", 140, 20, Trimmed, r.okFormat);
        fields.Numbers("mode", 160, r.mode);
        fields.Numbers("minimum", 164, r.minimum);
        fields.Numbers("maximum", 168, r.maximum);
        fields.Numbers("hysteresis", 172, r.hysteresis);
        fields.Numbers("minimumLed", 176, r.minimumLed);
        fields.Numbers("maximumLed", 180, r.maximumLed);
        fields.Numbers("minimumMask", 184, r.minimumMask);
        fields.Numbers("maximumMask", 200, r.maximumMask);
        fields.Texts("minimumRemote", 216, 80, Trimmed, r.minimumRemote);
        fields.Texts("minimumCommand", 536, 50, Trimmed, r.minimumCommand);
        fields.Texts("maximumRemote", 736, 80, Trimmed, r.maximumRemote);
        fields.Texts("maximumCommand", 1056, 50, Trimmed, r.maximumCommand);
        fields.Number("ip", 1256, r.ip);
        fields.Constant("tail", 1260, qint32(0x11111111));
    }
};

/// Every other element of a database. The same bytes come back in `DatabaseListReply`.
struct IRDBElementRecord {
    static constexpr const char* Name = "IRDBElementRecord";
    static constexpr int Size = 392;
    /// @name Kinds of element: a remote, or an action group of a command; group g is FirstAction + g, g from
    /// 0 to 7
    /// @{
    static constexpr quint8 Remote = 8;
    static constexpr quint8 FirstAction = 10;
    static constexpr quint8 LastAction = 17;
    /// @}

    qint32 number = 0; ///< 1 for the first element of a transfer, counting up
    quint8 RelayByte = 0;
    quint8 ElementKind = 0;
    quint8 ElementFlags = 0;
    quint8 dataLength = 0; ///< bytes of `action` in use
    qint32 ip = 0;         ///< highest byte: first number of the address
    qint16 port = 0;       ///< the 16 bits of the port number
    QString remote;
    QString command;
    QByteArray action; ///< text in code page 1252, or binary data

    bool IsRemote() const { return ElementKind == Remote; }
    bool IsAction() const { return ElementKind >= FirstAction && ElementKind <= LastAction; }

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        using enum Wire::TextForm;
        fields.Constant("netcommand", 0, Netcommand::DatabaseElement);
        fields.Constant("version", 8, Wire::ProtocolVersion);
        fields.Number("number", 12, r.number);
        fields.Number("RelayByte", 16, r.RelayByte);
        fields.Number("ElementKind", 17, r.ElementKind);
        fields.Number("ElementFlags", 18, r.ElementFlags);
        fields.Number("dataLength", 19, r.dataLength);
        fields.Number("ip", 28, r.ip);
        fields.Number("port", 32, r.port);
        fields.Text("remote", 36, Wire::RemoteWidth, Trimmed, r.remote);
        fields.Text("command", 116, Wire::CommandWidth, Trimmed, r.command);
        fields.Raw("action", 136, Wire::ActionDataWidth, ' ', r.action);
    }
};
