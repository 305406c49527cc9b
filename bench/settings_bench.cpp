#include "opening.h"

#include "device/frmSetModusEx.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// A device that has nearly everything that can be set.
DeviceEntry RichDevice() {
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

/// The extended settings.
void OpenExtendedSettings(benchmark::State& state) {
    const DeviceEntry device = RichDevice();
    CompareOpening(state, [&device](const FormServices& services) {
        return new frmSetModusEx(services, device, 0, {}, nullptr);
    });
}

} // namespace

BENCHMARK(OpenExtendedSettings)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
