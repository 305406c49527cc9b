#pragma once

#include "link/session.h"
#include "translator/translator_elements.h"

/// Stores the tree at the server, flashes it into a device, or fills it from a stored set: chains of one
/// request and one reply, with no timer behind them.
///
/// One chain runs at a time; to start one gives up what runs, so that a server that stays silent blocks
/// nothing. What goes out is the tree as it was at the start. A stored set is put into the tree once all of
/// it has arrived and is sound, so a load that fails changes nothing. A reply that no step waits for has no
/// effect. A chain ends with the object or with the connection.
class TranslatorTransfer : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        Stored,
        Flashed,
        Loaded,     ///< the tree is filled
        FileExists, ///< the user is asked; if the file may be replaced, the store starts again by itself
        Failed,     ///< the server or the device reports an error, which the user has been told
        LinkLost,   ///< or nothing could be sent
        Refused,    ///< Refused has been emitted
    };
    Q_ENUM(Outcome)

    /// `session` and `tree` must outlive the transfer.
    TranslatorTransfer(Session& session, KeyedTree& tree, QObject* parent);
    ~TranslatorTransfer() override;

    /// @name Starting a chain
    /// Store and Load do nothing if `setName` is blank. `withNames` is the value of chkNames.
    /// @{
    void Store(const QString& setName, bool withNames);
    void Flash(qint16 device, bool withNames);
    void Load(const QString& setName);
    /// @}

    bool IsRunning() const;
    /// Ends what runs without a word. What the server still says to it has no effect.
    void GiveUp();

signals:
    /// `element` elements of `total` have been taken by the server, or have arrived.
    void Progress(int element, int total);
    /// A set is beyond a limit or not sound; nothing was sent or changed. Ended(Refused) follows.
    void Refused(const TranslatorRefusal& refusal);
    /// The set that was loaded stores its names, or doesn't. Ended(Loaded) follows.
    void IncludeNamesLoaded(bool includeNames);
    /// The chain is over. May be emitted from inside Store, Flash and Load.
    void Ended(TranslatorTransfer::Outcome outcome);

private:
    enum class State {
        Idle,
        Storing,    ///< an element is out
        StoreAsked, ///< the store request is out
        Stored,     ///< done; the server may still ask about an existing file
        Confirming, ///< the user is asked about an existing file
        Flashing,   ///< an element is out
        FlashAsked, ///< the flash request is out
        Loading,    ///< a page is awaited
    };

    bool IsSending() const { return state == State::Storing || state == State::Flashing; }
    void Begin(State sending, bool withNames);
    bool SendElement(int index);
    bool SendRequest();
    /// Ends the chain if a request didn't go out.
    bool HasGone(bool sent);
    void TakeElementTaken(qint32 next);
    void TakeAcknowledgement();
    void TakeError();
    void TakeOverwrite();
    void TakeConfirmation(SaveOwnerKind owner);
    void TakeFlashEnd(bool stored);
    void TakePage(const ListPage<TranslatorRequest>& page);
    void Fill();
    void Rest(State next);
    void Fail(Outcome outcome);
    void Refuse(const TranslatorRefusal& refusal);
    void End(State next, Outcome outcome);

    Session& session;
    KeyedTree& tree;
    State state = State::Idle;
    QString name;
    bool includeNames = false;
    qint16 deviceTag = 0;
    int current = 0;                         ///< the element that is out
    std::vector<TranslatorRequest> elements; ///< that go out, or that have arrived
    int pagesAwaited = 0;                    ///< first pages of loads that the server has not sent
    bool isCollecting = false;               ///< a first page has arrived, and more is to follow
};
