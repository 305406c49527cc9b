#include "practice/client_link.h"
#include "practice/describe.h"
#include "practice/list_page.h"

using namespace Qt::StringLiterals;

namespace {

/// Sends the page of `all` that begins with entry `first`. `element` makes an element of an entry.
template <class Element, class Entries, class Make>
void SendPage(ClientLink& link, ReplyType type, const Entries& all, int first, Make element) {
    ListPage<Element> page{MakePageHead(qsizetype(all.size()), first, ElementsPerPage<Element>), {}};
    for (int i = first; i < first + page.head.Count; ++i)
        page.elements.push_back(element(all[i]));
    link.Reply(type, EncodePage(page), DescribePage(page.head));
}

void SendNames(ClientLink& link, ReplyType type, const QStringList& names, int first) {
    SendPage<NameElement>(link, type, names, first, [](const QString& name) { return NameElement{name}; });
}

} // namespace

void ListRemoteNames(ClientLink& link, const CommandRequest& request) {
    SendPage<NameElement>(link, ReplyType::Remotes, link.GetWorld().remotes, request.param,
                          [](const World::Remote& remote) { return NameElement{remote.name}; });
}

void ListCommandNames(ClientLink& link, const CommandRequest& request) {
    if (!request.remote.isEmpty())
        link.listedRemote = request.remote;
    const World::Remote* remote = link.GetWorld().FindRemote(link.listedRemote);
    if (!remote)
        return link.Result(PracticeResult::NotThere, 0,
                           u"There is no remote control %1."_s.arg(Quoted(link.listedRemote)));
    SendPage<CommandElement>(link, ReplyType::Commands, remote->commands, request.param,
                             [](const World::Command& command) { return CommandElement{command.name}; });
}

void ListTranslatorSets(ClientLink& link, const CommandRequest& request) {
    SendNames(link, ReplyType::TranslatorSets, link.GetWorld().translatorSets.Names(), request.param);
}

void ListDatabaseSets(ClientLink& link, const CommandRequest& request) {
    SendNames(link, ReplyType::DatabaseSets, link.GetWorld().databaseSets.Names(), request.param);
}

void ListBusElements(ClientLink& link, const CommandRequest& request) {
    SendPage<BusElement>(link, ReplyType::Buses, link.GetWorld().buses, request.param,
                         [](const World::Bus& bus) { return bus.element; });
}
