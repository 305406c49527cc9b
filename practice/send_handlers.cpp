#include "practice/client_link.h"
#include "practice/describe.h"

#include "base/code_page.h"

using namespace Qt::StringLiterals;

namespace {

/// Tells the client what a device in the same room has received.
void Report(ClientLink& link, const ReceivedReply& received) {
    link.Reply(
        ReplyType::Received, Encode(received),
        u"received %1 %2 %3"_s.arg(Quoted(received.Remote), Quoted(received.Command), Quoted(received.Data)));
}

} // namespace

void SendIr(ClientLink& link, const CommandRequest& request) {
    if (link.GetFaults().refused.contains(request.remote + u'/' + request.command))
        return link.Result(
            PracticeResult::NotSent, 0,
            u"%1 of %2 could not be sent."_s.arg(Quoted(request.command), Quoted(request.remote)));
    if (!link.GetWorld().FindRemote(request.remote))
        return link.Result(PracticeResult::NotSent, 0,
                           u"There is no remote control %1."_s.arg(Quoted(request.remote)));
    const auto code = link.GetWorld().FindCode(request.remote, request.command);
    if (!code)
        return link.Result(PracticeResult::NotSent, 0,
                           u"The remote control %1 has no command %2."_s.arg(Quoted(request.remote),
                                                                             Quoted(request.command)));
    link.Say(u"sent over IR: %1 %2 as %3 (%4)"_s.arg(Quoted(request.remote), Quoted(request.command), *code,
                                                     DescribeSendParam(request.param)));
    link.Acknowledge();
    Report(link, {request.remote, request.command, *code});
}

void SendSerial(ClientLink& link, const SerialRequest& request) {
    link.Say(u"sent over RS232: %1 (%2)"_s.arg(Quoted(TextInUse(request)), DescribeSendParam(request.param)));
    link.Acknowledge();
}

void ShowText(ClientLink& link, const LcdRequest& request) {
    QStringView text = request.text;
    while (text.endsWith(u' '))
        text.chop(1);
    link.Say(u"shown on the LCD: "_s + Quoted(text));
}

void TellIfKnown(ClientLink& link, const CommandRequest& request) {
    const bool known = link.GetWorld().FindCode(request.remote, request.command).has_value();
    link.Result(known ? ResultCode::KnownCommand : ResultCode::UnknownCommand, qint16(request.param), {});
}

QString TextInUse(const SerialRequest& request) {
    return FromCodePage(QByteArrayView(request.text).first(request.length));
}
