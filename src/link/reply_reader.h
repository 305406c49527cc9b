#pragma once

#include "link/frame_reader.h"

class Session;

/// Decides what each reply means, by its type and by the flags of the session, updates the flags and lists,
/// asks for the next page of a list, and tells the rest of the program by the session's signals. It knows no
/// form.
///
/// Whatever the server sends, nothing is written outside a record or list: a reply longer than its record is
/// cut, counts are clamped to the page and to the list, a slot outside 0 to 256 drops the reply, a list whose
/// pages make no progress ends where it is. A page from before the one that is due is dropped, so no list is
/// asked for by two chains, or in a circle.
class ReplyReader {
public:
    explicit ReplyReader(Session& session)
        : session(session) {}

    /// Takes the next reply or text frame from the front of `input`, or all of it if that is no whole frame
    /// yet.
    void Read(QByteArrayView& input);

    /// A new connection starts between replies.
    void Reset();

    /// The first page of a list has been asked for; does nothing for other requests.
    void ExpectList(Netcommand request);

private:
    /// How far the list of one type has come.
    struct ListChain {
        int due = 0;           ///< index that the last request for a later page named; 0: none is out
        int firstPagesDue = 0; ///< requests for the first page that weren't answered
    };

    void TakeHeader();
    void Dispatch();
    void TakeResult();
    void TakeReceived();
    void TakeDatabaseStatus();
    void TakeNames(ReplyType type, Netcommand request);
    void TakeBuses();
    void TakeCommands();
    void TakeDatabasePage();
    void TakeLog();

    /// The record of the current reply's type, `size` bytes wide: the payload over what earlier replies left.
    QByteArrayView Overlay(int size);
    template <class Record> Record Take();
    template <class Element> ListPage<Element> TakePage();
    bool IsDue(const PageHead& head);
    int NextIndex(const PageHead& head);

    Session& session;
    FrameReader frames;
    bool isAcknowledgement = false; ///< the reply stands in the place of an element's acknowledgement
    std::array<QByteArray, Wire::ReplyTypeCount> records;
    std::array<ListChain, Wire::ReplyTypeCount> chains; ///< by type
};
