#include "practice/world.h"

using namespace Qt::StringLiterals;

const World::Remote* World::FindRemote(const QString& name) const {
    for (const Remote& remote : remotes) {
        if (remote.name == name)
            return &remote;
    }
    return nullptr;
}

std::optional<QString> World::FindCode(const QString& remote, const QString& command) const {
    const Remote* found = FindRemote(remote);
    const auto index = found ? found->commands.indexOf(command) : -1;
    if (index < 0)
        return {};
    const auto address = found - remotes.data() + 1;
    return u"RC5 %1 %2"_s.arg(address, 2, 16, QChar(u'0')).arg(index, 2, 16, QChar(u'0')).toUpper();
}

World World::LivingRoom() {
    const auto words = [](const char16_t* list) { return QString::fromUtf16(list).split(u' '); };
    World world;
    world.remotes = {
        {u"tv"_s,
         words(u"power 0 1 2 3 4 5 6 7 8 9 vol+ vol- mute ch+ ch- up down left right ok menu back source "
               u"info red green yellow blue play pause stop")},
        {u"amp"_s, words(u"power vol+ vol- mute tv cd radio bluray aux bass+ bass-")},
        {u"light"_s, words(u"on off dim+ dim- warm cold scene1 scene2 scene3 scene4")},
        {u"screen"_s, words(u"up down stop")},
        {u"player"_s, words(u"power play pause stop prev next eject menu up down left right ok")},
        {u"küche"_s, {u"radio an"_s, u"radio aus"_s}},
        {u"büro"_s, {u"lüfter an"_s, u"lüfter aus"_s}},
        {u"rollo süd"_s, {u"auf"_s, u"ab"_s, u"halt"_s}},
    };
    world.translatorSets = {u"Wohnzimmer"_s, u"Demo"_s};
    world.databaseSets = {u"Haus"_s};
    world.buses = LivingRoomBuses();
    world.analogInputs = {{{1, 128}, {1, 17}, {2, 2150}, {2, -550}}};
    world.pageFiles = {
        {u"index.htm"_s, 2314, u"04.03.2021"_s},
        {u"remote.htm"_s, 10877, u"04.03.2021"_s},
        {u"style.css"_s, 960, u"17.11.2020"_s},
    };
    return world;
}
