#include "opening.h"

#include "device/frmDeviceMode.h"
#include "device/frmSetModus.h"
#include "device/frmSetModusEx.h"

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

/// A device that has nearly everything that the extended settings can set.
DeviceEntry ExtendedDevice() {
    DeviceEntry entry;
    entry.Version = u"F6.04.43"_s;
    entry.Mode = 0xFF;
    entry.ExtMode = 0xFF;
    entry.Capabilities = 0x0020582E;
    entry.ExtCapabilities = 0xC87F6D00;
    entry.Receivers = 0xA4;
    entry.CodeFlags = 0xFF;
    entry.SendMask = 0xFFFF;
    return entry;
}

/// The tree of 64 buses with 1,024 devices, against that of one bus with 16.
void OpenDeviceTree(benchmark::State& state) {
    EnglishServices english;
    const auto all = Buses(StatusStore::MostBuses);
    const auto few = Buses(1);
    const auto open = [&](const std::vector<DeviceBus>& buses) {
        return TimeToOpen([&] { return new frmDeviceMode(english.services, buses, nullptr); });
    };
    CompareInTurns(
        state, [&] { return open(all); }, [&] { return open(few); });
    state.counters["of_100_ms"] = state.counters["ours_us"] / 100'000;
}

void OpenSetModus(benchmark::State& state) {
    CompareOpening(state, [device = RichDevice()](const FormServices& services) {
        return new frmSetModus(services, device, DeviceOrigin::Single, 0, u"0"_s, nullptr);
    });
}

void OpenExtendedSettings(benchmark::State& state) {
    CompareOpening(state, [device = ExtendedDevice()](const FormServices& services) {
        return new frmSetModusEx(services, device, 0, {}, nullptr);
    });
}

} // namespace

BENCHMARK(OpenDeviceTree)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenSetModus)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenExtendedSettings)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
