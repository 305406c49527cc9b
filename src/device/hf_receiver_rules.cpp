#include "device/hf_receiver_rules.h"

#include "link/capabilities.h"

#include <utility>

namespace {

void OfferPlasma(SetModusState& state) {
    state.chkPlasma.isEnabled = true;
    state.isPlasmaOffered = true;
}

} // namespace

bool IsExtOn(const DeviceEntry& entry, int index) {
    return Bit(index).Of(entry.ExtMode) != 0;
}

void OfferExt(SetModusState& state, const DeviceEntry& entry, int index) {
    SetExt(state, index, IsExtOn(entry, index));
    state.chkExt[size_t(index)].isEnabled = true;
}

void SetExt(SetModusState& state, int index, bool isOn) {
    if (std::exchange(state.chkExt[size_t(index)].isOn, isOn) == isOn || index != ExtModeBits::Hf)
        return;
    CheckState& codes = state.chkExt[ExtModeBits::Codes455];
    if (!isOn) {
        codes.isEnabled = false;
        state.chkPlasma.isEnabled = false;
        SetPlasma(state, false);
        return;
    }
    if (!state.chkPlasma.isOn)
        codes.isEnabled = true;
    if (state.isPlasmaOffered)
        state.chkPlasma.isEnabled = true;
}

void SetPlasma(SetModusState& state, bool isOn) {
    if (std::exchange(state.chkPlasma.isOn, isOn) == isOn)
        return;
    CheckState& codes = state.chkExt[ExtModeBits::Codes455];
    if (isOn) {
        SetExt(state, ExtModeBits::Codes455, true);
        codes.isEnabled = false;
        SetExt(state, ExtModeBits::Hf, true);
    } else if (state.chkExt[ExtModeBits::Hf].isOn) {
        codes.isEnabled = true;
    }
}

void FillHfReceiver(SetModusState& state, const DeviceEntry& entry) {
    using namespace ExtModeBits;
    CheckState& hf = state.chkExt[Hf];
    CheckState& codes = state.chkExt[Codes455];
    state.plasmaCapabilities = entry.Capabilities;
    OfferExt(state, entry, Hf);
    if (hf.isOn)
        OfferPlasma(state);
    SetExt(state, Codes455, IsExtOn(entry, Codes455));
    if (hf.isOn)
        codes.isEnabled = true;
    if ((entry.Capabilities & Capability::SecondReceiver) != 0) {
        if (!hf.isOn && !codes.isOn)
            SetPlasma(state, true);
    } else if (IsExtOn(entry, Standard) || IsExtOn(entry, Hf)) {
        SetExt(state, Hf, true);
        OfferPlasma(state);
        OfferExt(state, entry, Codes455);
        if (IsExtOn(entry, Standard))
            SetPlasma(state, true);
    }
}

quint32 EncodePlasma(const SetModusState& state, quint32 ext) {
    using namespace ExtModeBits;
    constexpr quint32 standard = Bit(Standard).Mask();
    constexpr quint32 hf = Bit(Hf).Mask();
    constexpr quint32 codes = Bit(Codes455).Mask();
    const bool isPlasma = state.chkPlasma.isOn;
    const bool isHf = state.chkExt[Hf].isOn;
    if ((state.plasmaCapabilities & Capability::SecondReceiver) != 0) {
        if (isPlasma)
            ext &= ~(hf | codes);
        else if (!isHf)
            ext |= codes;
    } else if (!isHf) {
        ext &= ~codes;
    } else if (isPlasma) {
        ext = (ext & ~hf) | standard | codes;
    }
    return ext;
}
