#pragma once

#include "database/database_tree.h"
#include "database/settings.h"
#include "link/session.h"

#include <QSet>

/// Moves a database between the dialog and the server: saves it under a name, flashes it into a device, loads
/// a named one into the tree. Each is a chain of one request and one reply. One runs at a time; the start of
/// one gives up the one before, whatever it was waiting for. There is no time-out: with a silent server a
/// chain waits, and everything else works. A chain ends with the object.
///
/// A save or flash sends what was there when it began.
class DatabaseTransfer : public QObject {
    Q_OBJECT

public:
    enum class State {
        Idle,
        GlobalOut,   ///< the settings await their acknowledgement
        ElementsOut, ///< an element does
        StoreOut,    ///< the command that stores the elements awaits its answer
        FlashOut,    ///< the command that flashes them does
        Loading,     ///< the next page of a load is due
    };
    Q_ENUM(State)

    enum class Outcome {
        Stored,
        FileExists, ///< the user is being asked; once confirmed, the same save starts again by itself
        Flashed,
        FlashFailed,
        Loaded,
        Refused,  ///< the server reported an error; should a page of a load come all the same, it is taken
        LinkLost, ///< or a request didn't go out
    };
    Q_ENUM(Outcome)

    /// `session` and `tree` must outlive the object.
    DatabaseTransfer(Session& session, KeyedTree& tree, QObject* parent = nullptr);
    ~DatabaseTransfer() override;

    /// Nothing happens, and these say false, if `name` is blank.
    bool Save(const QString& name, const DatabaseSettings& settings);
    /// Takes the tags from all nodes, then fetches.
    bool Load(const QString& name);
    /// `deviceTag`: bus number * 256 + address.
    void Flash(int deviceTag, const DatabaseSettings& settings);

    State Current() const { return state; }
    /// Elements that the last load named and the tree doesn't have: "remote" or "remote / command", each
    /// once.
    const QStringList& Unknown() const { return unknown; }
    /// To be called when the tree has grown since a load: gives the elements that had no place another
    /// chance. Unknown() holds what is still left.
    void PlaceAgain();

signals:
    /// `element` of `total` elements have been taken; the settings don't count in a save, they do in a load.
    void Progress(int element, int total);
    /// The settings of the database that is being loaded.
    void SettingsLoaded(const IRDBGlobalRecord& global);
    /// At the end of a load, once, if there are any; see Unknown.
    void NamesUnknown(const QStringList& names);
    /// The form may destroy the object in a slot of this signal.
    void Ended(DatabaseTransfer::Outcome outcome);

private:
    /// What a save or flash sends.
    struct Job {
        State finalState = State::Idle; ///< StoreOut or FlashOut: what follows the last element
        QString name;
        int deviceTag = 0;
        IRDBGlobalRecord global;
        std::vector<DatabaseTree::Marked> nodes;
        int total = 0; ///< elements of all nodes
    };

    Job MakeJob(State finalState, const DatabaseSettings& settings) const;
    void Begin();
    void SendNext();
    void SendFinal();
    IRDBElementRecord NextElement();
    /// Ends the chain if a request didn't go out.
    bool HasGone(bool sent);
    void Await(State next, int index, bool sent);
    void LeaveHalfDone();
    void GiveUp();

    void TakeElementAnswer();
    void TakeGlobal(const PageHead& head, const IRDBGlobalRecord& global);
    void TakePage(const ListPage<IRDBElementRecord>& page);
    void GoOnWith(const PageHead& head, bool more);
    void Place(const std::vector<IRDBElementRecord>& batch);
    void CheckRemotes();
    void AddUnknown(const QString& remote, const QString& command);
    void ForgetUnknown();
    void TakeError();
    void LoseLink();
    void End(Outcome outcome);

    Session& session;
    KeyedTree& tree;
    State state = State::Idle;

    Job job;         ///< of the last save or flash; a save may be confirmed after its end
    size_t node = 0; ///< the next one of the job's nodes
    int group = 0;   ///< its next action group
    int elements = 0;

    int nextIndex = 0;       ///< index of the element with which the page that is due begins
    int globalsDue = 0;      ///< loads of this connection whose first page hasn't come
    bool strayPages = false; ///< a load was given up, so pages may come that nobody waits for
    bool wasRefused = false; ///< told for this load
    IRDBGlobalRecord loaded; ///< the settings of the last load
    QStringList unknown;
    QSet<QString> unknownKeys;
    std::vector<IRDBElementRecord> homeless; ///< elements of unknown names
};
