#include "practice/world.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <class List> auto FindNamed(List& list, const QString& name) {
    return std::find_if(list.begin(), list.end(), [&name](const auto& entry) { return entry.name == name; });
}

std::vector<World::Command> Commands(const QStringList& names) {
    std::vector<World::Command> commands;
    for (const QString& name : names)
        commands.push_back({name});
    return commands;
}

} // namespace

const World::Remote* World::FindRemote(const QString& name) const {
    const auto found = FindNamed(remotes, name);
    return found == remotes.end() ? nullptr : &*found;
}

World::Remote* World::FindRemote(const QString& name) {
    const auto found = FindNamed(remotes, name);
    return found == remotes.end() ? nullptr : &*found;
}

void World::StoreCommand(Remote& remote, const QString& name, const QString& code) {
    const auto found = FindNamed(remote.commands, name);
    if (found == remote.commands.end())
        remote.commands.push_back({name, code});
    else
        found->code = code;
}

QString World::MakeCode(const QString& kind, const Remote& remote, const QString& command) const {
    const auto address = &remote - remotes.data() + 1;
    const auto index = FindNamed(remote.commands, command) - remote.commands.begin();
    const QString numbers = u"%1 %2"_s.arg(address, 2, 16, QChar(u'0')).arg(index, 2, 16, QChar(u'0'));
    return kind + u' ' + numbers.toUpper();
}

std::optional<QString> World::FindCode(const QString& remote, const QString& command) const {
    const Remote* found = FindRemote(remote);
    if (!found)
        return {};
    const auto known = FindNamed(found->commands, command);
    if (known == found->commands.end())
        return {};
    return known->code.isEmpty() ? MakeCode(u"RC5"_s, *found, command) : known->code;
}

void World::AddLargeRemote(int commands) {
    Remote large{u"alle Befehle"_s, {}};
    large.commands.reserve(commands);
    for (int i = 1; i <= commands; ++i)
        large.commands.push_back({u"Befehl %1"_s.arg(i, 4, 10, QChar(u'0'))});
    remotes.push_back(std::move(large));
}

void World::AddRemotesUpTo(int count) {
    while (int(remotes.size()) < count)
        remotes.push_back(
            {u"Gerät %1"_s.arg(remotes.size() + 1, 3, 10, QChar(u'0')), Commands({u"ein"_s, u"aus"_s})});
}

std::vector<World::Remote> LivingRoomRemotes() {
    const auto words = [](const char16_t* list) { return Commands(QString::fromUtf16(list).split(u' ')); };
    return {
        {u"tv"_s,
         words(u"power 0 1 2 3 4 5 6 7 8 9 vol+ vol- mute ch+ ch- up down left right ok menu back source "
               u"info red green yellow blue play pause stop")},
        {u"amp"_s, words(u"power vol+ vol- mute tv cd radio bluray aux bass+ bass-")},
        {u"light"_s, words(u"on off dim+ dim- warm cold scene1 scene2 scene3 scene4")},
        {u"screen"_s, words(u"up down stop")},
        {u"player"_s, words(u"power play pause stop prev next eject menu up down left right ok")},
        {u"küche"_s, Commands({u"radio an"_s, u"radio aus"_s})},
        {u"büro"_s, Commands({u"lüfter an"_s, u"lüfter aus"_s})},
        {u"rollo süd"_s, Commands({u"auf"_s, u"ab"_s, u"halt"_s})},
    };
}
