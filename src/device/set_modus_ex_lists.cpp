#include "device/set_modus_ex_lists.h"

#include "device/set_modus_state.h"
#include "link/capabilities.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace ModusEx {

namespace {

std::vector<int> CountTo(int count) {
    std::vector<int> codes(static_cast<size_t>(count));
    std::iota(codes.begin(), codes.end(), 0);
    return codes;
}

QString ReceiverText(int code, bool isPlain) {
    using namespace Receiver;
    const QString suffix = IsExternal(code) ? u" [EXT]"_s : isPlain ? QString() : u" [INT]"_s;
    switch (code & 7) {
    case Khz56: return u"56 kHz Receiver"_s + suffix;
    case Khz38: return u"38 kHz Receiver"_s + suffix;
    case Khz455: return u"455 kHz Receiver"_s + suffix;
    case Plasma: return u"455 kHz Plasma shielded Receiver"_s + suffix;
    case Universal: return u"Universal Codelearning Receiver"_s + suffix;
    default: return u"Off"_s;
    }
}

void AddEntries(State& state, List list, std::initializer_list<int> codes) {
    for (const int code : codes)
        state.AddEntry(list, code);
}

void AddPlain(State& state, List list) {
    using namespace Receiver;
    AddEntries(state, list, {Khz38, Khz56, Khz455, Plasma, Universal});
}

void AddExternal(State& state, List list) {
    using namespace Receiver;
    AddEntries(
        state, list,
        {External + Khz38, External + Khz56, External + Khz455, External + Plasma, External + Universal});
}

} // namespace

std::vector<int> DesignedCodes(List list) {
    switch (list) {
    case List::Tolerance:
    case List::Idle:
    case List::Filter: return CountTo(8);
    case List::Cycle:
    case List::ToggleCount:
    case List::Databits:
    case List::Stopbits:
    case List::Time: return CountTo(2);
    case List::IO: return CountTo(BusPort::Relay + 1);
    case List::IRInput: return CountTo(1);
    case List::Baudrate:
    case List::AuxBaudrate: return CountTo(6);
    case List::Parity: return CountTo(3);
    case List::SBUS: return CountTo(FastestBus + 1);
    case List::Date: return {SetModusList::Dates.begin(), SetModusList::Dates.end()};
    case List::Aktiv:
    case List::Inaktiv: return CountTo(BrightnessOff);
    default: return {};
    }
}

QString AddedText(const State& state, List list, int code) {
    static const std::array irInputs = {u"IR Input"_s,
                                        u"State Input"_s,
                                        u"State Input w. Pullup"_s,
                                        u"State Input inverted"_s,
                                        u"State Input invert. Pullup"_s,
                                        u"RS232 Output"_s,
                                        u"RS232 Input"_s};
    switch (list) {
    case List::Receiver1:
    case List::Receiver2: return ReceiverText(code, state.hasPlainReceivers);
    case List::IRInput: return irInputs[size_t(code)];
    default: return u"OFF"_s;
    }
}

void FillReceiver1(State& state, quint32 capabilities, int code) {
    using namespace Receiver;
    state.hasPlainReceivers = (state.extCapabilities & ExtCapability::InternalReceivers) == 0;
    if (state.hasPlainReceivers) {
        AddPlain(state, List::Receiver1);
    } else {
        state.AddEntry(List::Receiver1, Khz38);
        if ((capabilities & Capability::SecondReceiver) == 0)
            state.AddEntry(List::Receiver1, Khz455);
        state.AddEntry(List::Receiver1, Universal);
    }
    if ((capabilities & Capability::ExternalReceivers) != 0 ||
        (state.extCapabilities & ExtCapability::ExternalFirst) != 0)
        AddExternal(state, List::Receiver1);
    state.SelectCode(List::Receiver1, code);
}

void FillReceiver2(State& state, quint32 capabilities, quint32 extCapabilities2, int code) {
    using namespace Receiver;
    state.hasExternalSecond = (extCapabilities2 & ExtCapability2::ExternalSecond) != 0;
    if (state.hasExternalSecond)
        state.AddEntry(List::Receiver2, Off);
    else if ((state.extCapabilities & ExtCapability::InternalReceivers) != 0)
        state.AddEntry(List::Receiver2,
                       (state.extCapabilities & ExtCapability::PlasmaSecond) != 0 ? Plasma : Khz455);
    else
        AddPlain(state, List::Receiver2);
    if ((capabilities & Capability::ExternalReceivers) != 0 || state.hasExternalSecond)
        AddExternal(state, List::Receiver2);
    state.SelectCode(List::Receiver2, code);
}

} // namespace ModusEx
