#include "practice/set_transfer.h"

#include "practice/client_link.h"
#include "practice/describe.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int SaveAsked = 1;             // save state of a name that the user has typed or chosen
constexpr int MostElements = 0x7FFF - 1; // the numbers of a page say no more

} // namespace

void SetTransfer::Begin(const QByteArray& settings) {
    set = {settings, {}};
    fault.clear();
}

void SetTransfer::Take(ClientLink& link, QByteArrayView element, int number, int expected, bool refused) {
    if (refused) {
        fault = u"Element %1 of the set was refused."_s.arg(number);
        return link.Result(PracticeResult::NotStored, 0, fault);
    }
    // What follows a fault is taken, so that the client comes to its end, and dropped.
    if (!fault.isEmpty())
        return link.Acknowledge();
    if (number != expected || set.elements.size() >= MostElements) {
        fault = u"Element %1 of the set came where element %2 was due."_s.arg(number).arg(expected);
        return link.Malformed({fault});
    }
    set.elements.append(element.toByteArray());
    link.Acknowledge();
}

const RecordSet* SetTransfer::Whole(ClientLink& link) const {
    if (fault.isEmpty() && !(set.settings.isEmpty() && set.elements.isEmpty()))
        return &set;
    link.Result(PracticeResult::NotStored, 0, fault.isEmpty() ? u"No set was sent."_s : fault);
    return nullptr;
}

void SetTransfer::Store(ClientLink& link, SetShelf& shelf, const CommandRequest& request) {
    const QString& name = request.remote;
    const RecordSet* whole = Whole(link);
    if (!whole)
        return;
    if (name.isEmpty())
        return link.Result(PracticeResult::NotStored, 0, u"The set needs a name."_s);
    if (request.param == SaveAsked && shelf.Find(name))
        return link.Result(ResultCode::FileExists, 0, u"There is a set %1 already."_s.arg(Quoted(name)));
    if (!shelf.Store(name, *whole))
        return link.Result(PracticeResult::NotStored, 0,
                           u"The file of the set %1 can't be written."_s.arg(Quoted(name)));
    link.Say(u"stored: %1, %2 elements"_s.arg(Quoted(name)).arg(whole->elements.size()));
    link.Acknowledge();
}

const RecordSet* SetTransfer::Read(ClientLink& link, const SetShelf& shelf, const CommandRequest& request) {
    if (!request.remote.isEmpty())
        read = request.remote;
    const RecordSet* found = shelf.Find(read);
    if (!found)
        link.Result(PracticeResult::NotThere, 0, u"There is no set %1."_s.arg(Quoted(read)));
    return found;
}
