#include "ratio.h"

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

/// From the constructor to the form painted. It is gone again before the next turn.
template <class Make> double TimeToOpen(Make&& make) {
    Form* form = nullptr;
    const double time = TimeOf([&] {
        form = make();
        form->ShowModal();
        form->grab();
    });
    delete form;
    QCoreApplication::processEvents();
    return time;
}

/// The extended settings, in English, against an empty form.
void OpenExtendedSettings(benchmark::State& state) {
    Session session;
    Language english;
    if (!english.OpenTranslationFile(QStringLiteral(DATA_FOLDER), u"English"_s))
        qFatal("no language file");
    Boxes boxes(english);
    const FormServices services{session, english, boxes};
    const DeviceEntry device = RichDevice();
    CompareInTurns(
        state,
        [&] { return TimeToOpen([&] { return new frmSetModusEx(services, device, 0, {}, nullptr); }); },
        [&] { return TimeToOpen([&] { return new Form(services, u"frmEmpty"_s, u"Empty"_s, nullptr); }); });
    state.counters["of_50_ms"] = state.counters["ours_us"] / 50000;
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
