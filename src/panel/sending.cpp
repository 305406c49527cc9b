#include "panel/sending.h"

#include <algorithm>

namespace {

/// Unanswered questions that are remembered. A server that never answers leaves one behind with every page.
constexpr size_t MostChecks = 64;

/// The press and the first repeat are all that a hold has out unanswered. Acknowledgements beyond that were
/// not for it, and each would double the repeats with every round.
constexpr int RepeatsOut = 2;
constexpr int RepeatGap = 10; ///< milliseconds in which no more than RepeatsOut repeats go out

bool IsSerial(const QString& remote) {
    return remote == u"**rs232" || remote == u"**RS232" || remote == u"**Rs232";
}

void SetUp(QTimer& timer, const char* name, int interval) {
    timer.setObjectName(QLatin1StringView(name));
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(interval);
}

} // namespace

PanelSending::PanelSending(Session& session, const PanelModel& panel, QObject* parent)
    : QObject(parent)
    , session(session)
    , panel(panel)
    , Timer(this)
    , timIntercommand(this)
    , timRepeat(this) {
    SetUp(Timer, "Timer", HoldDelay);
    SetUp(timIntercommand, "timIntercommand", CommandGap);
    SetUp(timRepeat, "timRepeat", RepeatGap);
    connect(&Timer, &QTimer::timeout, this, &PanelSending::BeginRepeat);
    connect(&timIntercommand, &QTimer::timeout, this, &PanelSending::SendMulticommand);
    connect(&timRepeat, &QTimer::timeout, this, &PanelSending::SendRepeats);
    connect(&session, &Session::Acknowledged, this, &PanelSending::TakeAcknowledgement);
    connect(&session, &Session::HoldRefused, this, &PanelSending::EndHold);
    // An error may stand in the place of an answer, or tell of a button that was pressed meanwhile.
    connect(&session, &Session::ErrorReported, this, [this] {
        const auto next =
            std::find_if(checks.begin(), checks.end(), [](const Check& c) { return !c.isDoubtful; });
        if (next != checks.end())
            next->isDoubtful = true;
    });
    connect(&session, &Session::CommandChecked, this, &PanelSending::TakeCheck);
    // What the old connection left unanswered will not be answered by the new one.
    connect(&session, &Session::LinkUp, this, [this] {
        Stop();
        checks.clear();
    });
    connect(&session, &Session::LinkFailed, this, &PanelSending::Stop);
    Timer.start();
}

void PanelSending::Press(int index) {
    EndHold();
    const auto& button = panel.cmdRem[size_t(index - 1)];
    const QString& remote = panel.RemoteList[size_t(index)];
    const QString& command = panel.CommandList[size_t(index)];
    HeldParam = button.sendParam.value_or(panel.PanelSendParam);

    if (IsSerial(remote)) {
        session.SocketSendRS232(command, HeldParam);
        return;
    }
    if (command.contains(u';')) {
        MultiCommands = command;
        MultiRemote = remote;
        MultiParam = HeldParam;
        SendMulticommand();
        return;
    }
    MultiCommands.clear();
    MultiRemote.clear();
    if (!session.SendRemoteCommand(Netcommand::SendCommand, remote, command, HeldParam))
        return;
    HeldIndex = index;
    session.PendingOp = Pending::Panel;
    Timer.start();
}

void PanelSending::Release() {
    EndHold();
    session.PendingOp = Pending::Panel;
}

void PanelSending::EndHold() {
    Timer.stop();
    HeldIndex = -1;
    RepeatIndex = -1;
    repeatsDue = 0;
}

void PanelSending::Stop() {
    EndHold();
    timIntercommand.stop();
    MultiCommands.clear();
}

void PanelSending::BeginRepeat() {
    // The timer also runs once from the start.
    if (HeldIndex < 0)
        return;
    const auto slot = size_t(HeldIndex);
    if (session.SendRemoteCommand(Netcommand::SendCommand, panel.RemoteList[slot], panel.CommandList[slot],
                                  HeldParam))
        RepeatIndex = HeldIndex;
}

void PanelSending::TakeAcknowledgement() {
    if (RepeatIndex < 0) {
        timIntercommand.start();
        return;
    }
    repeatsDue = std::min(repeatsDue + 1, RepeatsOut);
    SendRepeats();
}

void PanelSending::SendRepeats() {
    if (!timRepeat.isActive() && repeatsDue > 0) {
        repeatsLeft = RepeatsOut;
        timRepeat.start();
    }
    for (; repeatsDue > 0 && repeatsLeft > 0; --repeatsLeft) {
        --repeatsDue;
        const auto slot = size_t(RepeatIndex);
        session.SendRemoteCommand(Netcommand::RepeatCommand, panel.RemoteList[slot], panel.CommandList[slot],
                                  HeldParam);
    }
}

void PanelSending::SendMulticommand() {
    if (MultiRemote.isEmpty() || MultiCommands.isEmpty())
        return;
    const auto end = MultiCommands.indexOf(u';');
    const QString command = end >= 0 ? MultiCommands.first(end) : MultiCommands;
    MultiCommands = end >= 0 ? MultiCommands.sliced(end + 1) : QString();
    session.SendRemoteCommand(Netcommand::SendCommand, MultiRemote, command, MultiParam);
}

void PanelSending::CheckPage() {
    for (Check& check : checks)
        check.ofThisPage = false;
    AskAbout(1);
}

void PanelSending::AskAbout(int slot) {
    // Nobody pressed anything, so a missing link is no news; the check runs anew when the link is back.
    if (!session.CanAsk())
        return;
    if (checks.size() == MostChecks)
        checks.pop_front();
    checks.push_back({slot, true});
    session.SendRemoteCommand(Netcommand::CheckCommand, panel.RemoteList[size_t(slot)],
                              panel.CommandList[size_t(slot)], slot);
}

void PanelSending::TakeCheck(int slot, bool known) {
    // Answers come in the order of the questions. One that was asked about an earlier page says nothing of
    // this one, and an answer to no question says nothing at all. A doubtful question gets what answers no
    // other.
    const auto find = [&](bool isDoubtful) {
        return std::find_if(checks.begin(), checks.end(), [slot, isDoubtful](const Check& c) {
            return c.slot == slot && c.isDoubtful == isDoubtful;
        });
    };
    auto asked = find(false);
    if (asked == checks.end())
        asked = find(true);
    if (asked == checks.end())
        return;
    const bool current = asked->ofThisPage;
    checks.erase(checks.begin(), asked + 1);
    if (!current)
        return;

    const bool isMade = slot <= int(panel.cmdRem.size());
    if (!known && isMade && slot > 0 && !panel.CommandList[size_t(slot)].contains(u';') &&
        !panel.RemoteList[size_t(slot)].startsWith(u"**"))
        emit ButtonUnknown(slot);
    if (slot < int(panel.cmdRem.size()))
        AskAbout(slot + 1);
}
