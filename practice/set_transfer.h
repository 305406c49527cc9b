#pragma once

#include "practice/set_shelf.h"

#include "link/requests.h"

class ClientLink;

/// The sets of one kind on one connection: the one that is sent element by element, and the one that is read
/// page by page.
class SetTransfer {
public:
    RecordSet set;
    QString fault; ///< why the set that was sent can't be used; empty if nothing is wrong
    QString read;  ///< name of the set that is read; requests for further pages don't name it

    /// Starts a new set.
    void Begin(const QByteArray& settings);

    /// Takes an element and answers it. Number `expected` is due; any other one, and a refused one, spoils
    /// the set.
    void Take(ClientLink& link, QByteArrayView element, int number, int expected, bool refused);

    /// The set that was sent. Null if there is none that is whole, which is answered then.
    const RecordSet* Whole(ClientLink& link) const;

    /// Stores the set that was sent and answers.
    void Store(ClientLink& link, SetShelf& shelf, const CommandRequest& request);

    /// The set of which a page is asked for. Null if there is none, which is answered then.
    const RecordSet* Read(ClientLink& link, const SetShelf& shelf, const CommandRequest& request);
};
