#include "practice/client_link.h"
#include "practice/describe.h"
#include "practice/learn_param.h"

#include "base/blanks.h"

using namespace Qt::StringLiterals;

namespace {

/// Why a learn can't begin; empty if it can.
QString Obstacle(ClientLink& link, const CommandRequest& request) {
    const World::Remote* target = link.GetLearner().Target();
    const int bus = ReadLearnParam(request).bus;
    if (!target)
        return u"No remote control is open."_s;
    if (link.GetLearner().Runs())
        return u"Another learn is still running."_s;
    if (bus >= int(link.GetWorld().buses.size()))
        return u"There is no bus %1."_s.arg(bus);
    if (request.netcommand == Netcommand::LearnNormal && target->timings == 0)
        return u"The remote control %1 needs a timing first."_s.arg(Quoted(target->name));
    if (request.netcommand != Netcommand::LearnTiming && request.command.isEmpty())
        return u"The command needs a name."_s;
    return {};
}

/// Tells what the device of the bus would make of the form of the parameters.
void SayMismatch(ClientLink& link, const CommandRequest& request) {
    const LearnParam learn = ReadLearnParam(request);
    const QString& version = link.GetWorld().buses[learn.bus].element.version;
    const bool newDevice = version.mid(1) >= u"5.20.00"_s;
    if (learn.newForm != newDevice)
        link.Say(u"odd: the firmware %1 of bus %2 expects the %3 form"_s.arg(version).arg(learn.bus).arg(
            newDevice ? "new"_L1 : "old"_L1));
    if (learn.longPresses && version.mid(1) < u"6.04.44"_s)
        link.Say(u"odd: the firmware %1 of bus %2 can't learn long presses"_s.arg(version).arg(learn.bus));
}

} // namespace

void OpenForLearning(ClientLink& link, const CommandRequest& request) {
    if (request.remote.isEmpty())
        return link.Result(PracticeResult::NotOpen, 0, u"The remote control needs a name."_s);
    link.GetLearner().Open(request.remote);
}

void EndLearning(ClientLink& link, const CommandRequest&) {
    link.GetLearner().Close();
}

void Learn(ClientLink& link, const CommandRequest& request) {
    const QString obstacle = Obstacle(link, request);
    if (!obstacle.isEmpty())
        return link.Result(PracticeResult::NotOpen, 0, obstacle);
    SayMismatch(link, request);
    link.GetLearner().Start(request);
}

void TellLearnState(ClientLink& link, const CommandRequest&) {
    link.GetLearner().TellState();
}

void StoreCode(ClientLink& link, const CodeRequest& request) {
    const QString kind = request.netcommand == Netcommand::StoreCcf ? u"CCF"_s : u"RS232"_s;
    // These names come untrimmed, but every send names a command trimmed.
    const QString remote = WithoutBlanks(request.remote).toString();
    const QString command = WithoutBlanks(request.command).toString();
    World::Remote* target = link.GetLearner().Target();
    if (!target)
        return link.Say(u"not stored: no remote control is open"_s);
    if (remote != target->name)
        return link.Say(
            u"not stored: %1 is not the open remote control %2"_s.arg(Quoted(remote), Quoted(target->name)));
    if (command.isEmpty())
        return link.Say(u"not stored: the command has no name"_s);
    target->lastCode = kind + u' ' + request.code;
    World::StoreCommand(*target, command, target->lastCode);
    link.Say(u"stored: the %1 code %2 of %3"_s.arg(kind, Quoted(command), Quoted(remote)));
}
