#pragma once

#include "link/connection.h"
#include "link/reply_reader.h"

#include <QStringList>
#include <QTimer>

/// What the next reply header means.
enum class Pending : qint16 {
    None = 0,
    Panel = 1,
    Learn = 2,
    Status = 3,
    OpenRemote = 4,
    LearnTiming = 5,
    TranslatorElement = 6, ///< the next header acknowledges the element just sent
    DatabaseElement = 7,   ///< likewise
};

/// Bits of `ListOwner`: who gets a finished list.
namespace ListTarget {
constexpr int TranslatorRemotes = 1; ///< also: commands of the chosen remote
constexpr int TranslatorTargets = 2; ///< also: commands of the target remote
constexpr int TranslatorLoad = 3;    ///< exactly this: both of them, and the stored sets follow
constexpr int Learn = 4;
constexpr int FreeSend = 8;
constexpr int Database = 16;
constexpr int DatabaseCommands = 32;
} // namespace ListTarget

/// Who asked for the save that an overwrite question is about.
enum class SaveOwnerKind : qint16 { None = 0, Translator = 6, Database = 7 };

/// What goes out with a store request.
enum class SaveStateKind : qint32 {
    Unchanged = 0, ///< the set was last loaded under that name
    Named = 1,     ///< the user typed or chose a name, or refused the overwrite
    Confirmed = 2, ///< the user lets the stored file be replaced
};

/// The session with the device server: the connection, the values that go out with every request, the flags
/// that say what a reply means, the finished lists, and the senders. Dialogs get it by reference; replies
/// reach them by its signals.
///
/// A sender returns at once: true if the record went out. If it didn't, SendFailed has been emitted, or
/// LinkFailed is about to be. The answer arrives later as a signal, and nothing in it names its request.
class Session : public QObject {
    Q_OBJECT

public:
    explicit Session(QObject* parent = nullptr);

    /// @name The connection
    /// @{
    QString RemoteHost;
    quint16 RemotePort = 21000;

    /// Drops the connection that stands and connects to RemoteHost. LinkUp or LinkFailed follows. Framing and
    /// the meaning of the next reply start anew.
    void Connect();
    /// Drops the connection without a word, and what has arrived with it.
    void Disconnect();
    bool IsUp() const { return link.IsUp(); }
    /// Whether to send what nobody pressed a button for: a connection stands, and the server takes what is
    /// sent. If not, a box would tell of it again and again.
    bool CanAsk() const { return link.IsUp() && !link.IsBehind(); }
    /// @}

    /// @name Values that go out with every CommandRequest
    /// @{
    qint16 timeout = 0; ///< learn time-out in milliseconds, 1 to 30000; 0 until set
    quint8 carrier = 0; ///< kHz
    /// @}

    /// @name What a reply means
    /// There is one slot of each kind: a later request overwrites the flags of an earlier one.
    /// @{
    Pending PendingOp = Pending::None;
    int ListOwner = 0;        ///< bits of ListTarget
    qint32 TransferIndex = 0; ///< element just sent
    SaveOwnerKind SaveOwner = SaveOwnerKind::None;
    SaveStateKind SaveState = SaveStateKind::Unchanged;
    bool LateLearnError = false; ///< a learn failed; its wait shows LateLearnResult
    ResultReply LateLearnResult;
    bool ErrorBoxOpen = false;    ///< the "IR Error" box is on the screen
    bool FlashIsDatabase = false; ///< the flash that runs is one of a database
    QString FreeSendRemote;       ///< remote of the free send, for the later pages of its command list
    /// @}

    /// @name The lists that replies have filled
    /// @{
    QStringList NameList;
    std::vector<BusElement> BusList;
    int ListCount = 0; ///< elements of the last finished NameList or BusList
    QStringList CommandList1;
    QStringList CommandList2;
    QStringList CommandList3;
    /// @}

    /// @name Senders
    /// Texts are converted to code page 1252 and cut at the width of their field.
    /// @{
    bool SendHello(qint32 value = 0);
    bool SendRemoteCommand(Netcommand netcommand, const QString& remote, const QString& command,
                           qint32 param);
    /// Asks for the analog inputs, which the carrier of 15 does; it stays.
    bool SendReadAnalog();
    bool SendModeCommand(const ModeRequest& request);
    /// At most Wire::SerialTextMax characters; a longer text isn't sent and emits SendFailed(TextTooLong).
    bool SocketSendRS232(const QString& text, qint32 param);
    bool SocketSendLCDInit(const QString& text);
    bool SendCode(const CodeRequest& request);
    bool SendTranslatorElement(const TranslatorRequest& element);
    bool SendIRDBGlobal(const IRDBGlobalRecord& record);
    bool SendIRDBElementRecord(const IRDBElementRecord& record);
    /// A line of the text protocol; carriage return and line feed are appended.
    bool SendTextLine(const QString& line);
    /// @}

    /// The user's answer to OverwriteAsked.
    void AnswerOverwrite(const ResultReply& result, bool confirmed);

    enum class SendFault { NoLink, ServerStuck, TextTooLong };

signals:
    void LinkUp();
    void LinkFailed(LinkFault fault, const QString& description);
    void SendFailed(Session::SendFault fault);

    /// A bare header that belongs to no transfer.
    void Acknowledged();
    /// A held button must not repeat any longer: the server reported an error.
    void HoldRefused();
    /// Answer to the check of a button; `slot` is 0 to 256.
    void CommandChecked(int slot, bool known);
    /// A request failed; `result.Text` is to be shown as plain text.
    void ErrorReported(const ResultReply& result);
    /// The stored file exists; the answer goes to AnswerOverwrite.
    void OverwriteAsked(const ResultReply& result);
    /// The overwrite was confirmed: the save of SaveOwner is to run again.
    void SaveConfirmed(SaveOwnerKind owner);

    void CodeReceived(const ReceivedReply& received);
    void LogReceived(const QString& text);
    void TranslatorFlashEnded(bool stored);
    void DatabaseFlashEnded(bool stored);
    /// `fits`: the device's memory is large enough.
    void DatabaseStatusReceived(const IRDBStatusRecord& status, bool fits);

    void LearnWaitEnded();
    void LearnStateReceived(const LearnStateReply& state);
    void ServerVersionReceived(const QString& version);

    /// NameList is complete. `type` is Remotes, TranslatorSets or DatabaseSets; ListOwner says who gets
    /// remotes.
    void NamesReady(ReplyType type);
    void BusesReady();
    /// The command list of this one bit of ListTarget is complete.
    void CommandsReady(int target);

    void TranslatorElementTaken(qint32 next);
    void DatabaseElementTaken(qint32 next);
    void TranslatorPageReceived(const ListPage<TranslatorRequest>& page);
    void DatabaseGlobalReceived(const PageHead& head, const IRDBGlobalRecord& global);
    void DatabasePageReceived(const ListPage<IRDBElementRecord>& page);

    /// One page of device status, StatusHead::PageSize bytes, valid during the call.
    void StatusReceived(QByteArrayView page);
    void AnalogReceived(const AnalogValues& values, const AnalogTemperatures& temperatures);
    /// A text frame has arrived.
    void TextReceived(const QString& text);

private:
    void Pass();
    bool Send(QByteArrayView bytes);

    Connection link;
    ReplyReader reader;
    QTimer passTimer;      ///< a pass is due
    QByteArrayView unread; ///< of the chunk that the link handed out
    int epoch = 0;         ///< counts the connections, so that a pass notices a new one
};
