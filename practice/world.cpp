#include "practice/world.h"

using namespace Qt::StringLiterals;

World World::LivingRoom() {
    World world;
    world.remotes = LivingRoomRemotes();
    world.AddLivingRoomSets();
    world.buses = LivingRoomBuses();
    world.analogInputs = {{{1, 128}, {1, 17}, {2, 2150}, {2, -550}}};
    world.pageFiles = {
        {u"index.htm"_s, 2314, u"04.03.2021"_s},
        {u"remote.htm"_s, 10877, u"04.03.2021"_s},
        {u"style.css"_s, 960, u"17.11.2020"_s},
    };
    return world;
}
