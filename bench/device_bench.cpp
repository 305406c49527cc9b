#include "ratio.h"

#include "device/frmDeviceMode.h"
#include "device/frmSetModus.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

DeviceEntry RichDevice() {
    DeviceEntry entry;
    entry.Version = u"S5.19.07"_s;
    entry.SendMask = 0xFFFF;
    entry.Mode = 0xFF;
    entry.ExtMode = 0xFF;
    entry.Capabilities = 0xFFFFFFFF;
    entry.HotRemote = u"tv"_s;
    entry.HotCommand = u"power"_s;
    return entry;
}

std::vector<DeviceBus> Buses(int count) {
    std::vector<DeviceBus> buses;
    for (int number = 0; number < count; ++number) {
        DeviceBus& bus = buses.emplace_back();
        bus.number = number;
        for (int address = 0; address < StatusHead::Addresses; ++address)
            bus.devices.push_back({address, RichDevice()});
    }
    return buses;
}

/// What the forms need; no server is there.
struct Services {
    Session session;
    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
};

/// Seconds until the form that `make` makes is on the screen.
template <class Make> double TimeToOpen(Make&& make) {
    std::unique_ptr<Form> form;
    return TimeOf([&] {
        form.reset(make());
        form->setAttribute(Qt::WA_DeleteOnClose, false);
        form->ShowModeless();
        QApplication::processEvents();
    });
}

/// The tree of 64 buses with 1,024 devices, against that of one bus with 16.
void OpenDeviceTree(benchmark::State& state) {
    Services rig;
    const auto all = Buses(StatusStore::MostBuses);
    const auto few = Buses(1);
    const auto open = [&](const std::vector<DeviceBus>& buses) {
        return TimeToOpen([&] { return new frmDeviceMode(rig.services, buses, nullptr); });
    };
    CompareInTurns(
        state, [&] { return open(all); }, [&] { return open(few); });
    state.counters["of_100_ms"] = state.counters["ours_us"] / 100'000;
}

/// The basic settings, against a form with nothing on it.
void OpenSetModus(benchmark::State& state) {
    Services rig;
    const DeviceEntry entry = RichDevice();
    CompareInTurns(
        state,
        [&] {
            return TimeToOpen([&] {
                return new frmSetModus(rig.services, entry, DeviceOrigin::Single, 0, u"0"_s, nullptr);
            });
        },
        [&] { return TimeToOpen([&] { return new Form(rig.services, u"frmEmpty"_s, {}, nullptr); }); });
    state.counters["of_50_ms"] = state.counters["ours_us"] / 50'000;
}

} // namespace

BENCHMARK(OpenDeviceTree)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenSetModus)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
