#include "practice/world.h"

#include <algorithm>

using namespace Qt::StringLiterals;

qint16 World::AnalogInput::Read() {
    constexpr int Quarter = 10; // readings from the middle to an end
    const int phase = readings++ % (4 * Quarter);
    int steps = phase;
    if (phase > 3 * Quarter)
        steps = phase - 4 * Quarter;
    else if (phase > Quarter)
        steps = 2 * Quarter - phase;
    const int now = value + swing * steps / Quarter;
    return qint16(mode == Temperature ? std::clamp(now, -0x8000, 0x7FFF) : std::clamp(now, 0, 0xFF));
}

World World::LivingRoom() {
    World world;
    world.remotes = LivingRoomRemotes();
    world.AddLivingRoomSets();
    world.buses = LivingRoomBuses();
    world.analogInputs = {{{1, 128, 110}, {1, 17}, {2, 2150, 300}, {2, -550, 900}}};
    world.pageFiles = {
        {u"index.htm"_s, 2314, u"04.03.2021"_s},
        {u"remote.htm"_s, 10877, u"04.03.2021"_s},
        {u"style.css"_s, 960, u"17.11.2020"_s},
    };
    return world;
}
