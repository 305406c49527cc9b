#include "practice/learner.h"

#include "practice/client_link.h"
#include "practice/describe.h"
#include "practice/learn_param.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Flags of the learn state. Bit 0 lets a device of old firmware learn commands.
constexpr quint8 TimingKnown = 0x01;
constexpr quint8 CarrierMeasured = 0x02;
constexpr quint8 CarrierFailed = 0x04;

constexpr int LongestLearn = 30000; // milliseconds
constexpr int CommonCarrier = 38;   // kHz

bool AddsTiming(Netcommand learn) {
    return learn == Netcommand::LearnTiming || learn == Netcommand::LearnWithTiming;
}

/// How the code of a learned command begins.
QString CodeKind(Netcommand learn) {
    switch (learn) {
    case Netcommand::LearnRaw: return u"RAW"_s;
    case Netcommand::LearnRepeat: return u"REPEAT"_s;
    case Netcommand::LearnToggle: return u"TOGGLE"_s;
    case Netcommand::LearnRawRepeat: return u"RAW REPEAT"_s;
    case Netcommand::LearnWithTiming: return u"TIMED"_s;
    default: return u"RC5"_s;
    }
}

} // namespace

Learner::Learner(ClientLink& link)
    : link(link) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { End(); });
}

void Learner::Open(const QString& remote) {
    BreakOff();
    World& world = link.GetWorld();
    const bool known = world.FindRemote(remote);
    if (!known)
        world.remotes.push_back({remote, {}, 0});
    open = remote;
    link.Say(u"opened: %1, %2"_s.arg(Quoted(remote), known ? "known"_L1 : "new"_L1));
    AnswerAll();
}

void Learner::Close() {
    BreakOff();
    if (!open.isEmpty())
        link.Say(u"closed: "_s + Quoted(open));
    open.clear();
    AnswerAll();
}

World::Remote* Learner::Target() const {
    return open.isEmpty() ? nullptr : link.GetWorld().FindRemote(open);
}

void Learner::Start(const CommandRequest& request) {
    learn = request;
    const Outcomes& outcomes = link.GetOutcomes();
    const int limit = learn.timeout > 0 ? learn.timeout : LongestLearn;
    ending = outcomes.learnTime < limit ? outcomes.learn : Outcomes::Learn::TimesOut;
    timer.start(ending == Outcomes::Learn::TimesOut ? limit : outcomes.learnTime);
}

void Learner::TellState() {
    if (Runs()) {
        ++waiting;
        link.Say(u"waits: the state is told when the learn is over"_s);
    } else {
        SendState();
    }
}

void Learner::BreakOff() {
    if (Runs())
        link.Say(u"broken off: the learn that ran"_s);
    timer.stop();
}

void Learner::End() {
    link.AnswerFor(learn.netcommand);
    if (World::Remote* target = Target()) {
        if (ending == Outcomes::Learn::Succeeds)
            Succeed(*target);
        else
            Fail();
    }
    // The end of a learn is told even if nobody has asked.
    if (waiting == 0)
        SendState();
    AnswerAll();
}

void Learner::Fail() {
    const QString text = ending == Outcomes::Learn::TimesOut
                             ? u"No code was received within %1 ms."_s.arg(timer.interval())
                             : u"The code that was received can't be learned."_s;
    link.Result(ResultCode::LearnFailed, 3, text);
}

void Learner::Succeed(World::Remote& target) {
    World& world = link.GetWorld();
    if (AddsTiming(learn.netcommand))
        ++target.timings;
    if (learn.netcommand == Netcommand::LearnTiming) {
        const QString data = world.MakeCode(u"TIMING"_s, target, {});
        LearnedDataReply timing{qint16(target.timings), 0x05, 2, 1, 45, {889, 1778}, {889, 1778}, data};
        link.Reply(ReplyType::LearnedData, Encode(timing), u"learned timing "_s + Quoted(data));
    } else {
        target.lastCode = world.MakeCode(CodeKind(learn.netcommand), target, learn.command);
        World::StoreCommand(target, learn.command, target.lastCode);
    }
    if (learn.carrier != 0)
        return;
    const int heard = ReadLearnParam(learn).ReceiverCarrier();
    if (link.GetOutcomes().carrierFails) {
        measured = CarrierFailed;
    } else if (heard <= 255) { // the state has one byte for it: 455 kHz can't be told
        measured = CarrierMeasured;
        measuredCarrier = quint8(heard > 0 ? heard : CommonCarrier);
    }
}

void Learner::AnswerAll() {
    link.AnswerFor(Netcommand::LearnState);
    for (; waiting > 0; --waiting)
        SendState();
}

void Learner::SendState() {
    LearnStateReply state;
    QString words = u"learn state: no remote control is open"_s;
    if (const World::Remote* target = Target()) {
        state.Flags = measured | (target->timings > 0 ? TimingKnown : 0);
        state.Carrier = measuredCarrier;
        state.Remote = target->name;
        state.TimingCount = qint16(std::min(target->timings, 0x7FFF));
        state.CommandCount = qint16(std::min<size_t>(target->commands.size(), 0x7FFF));
        state.Code = target->lastCode;
        words = u"learn state of %1: flags %2, carrier %3, timings %4, commands %5, code %6"_s
                    .arg(Quoted(state.Remote))
                    .arg(state.Flags)
                    .arg(state.Carrier)
                    .arg(state.TimingCount)
                    .arg(state.CommandCount)
                    .arg(Quoted(state.Code));
    }
    measured = 0;
    measuredCarrier = 0;
    link.Reply(ReplyType::LearnState, Encode(state), words);
}
