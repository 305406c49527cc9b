#include "learn/learn_rules.h"

#include "base/firmware.h"
#include "base/number.h"

using namespace Qt::StringLiterals;

namespace {

// Receiver codes: carrier in bits 0 to 2, external receiver in bit 3; the second channel or an internal
// receiver has bit 4.
constexpr quint8 CarrierBits = 7;
constexpr quint8 External = 8;
constexpr quint8 Channel2 = 16;
constexpr quint8 Internal = 16;
constexpr quint8 CodeLearning = 6;

constexpr quint8 BOByDefault = 0x10;     ///< of BusElement::learnDefaults
constexpr quint8 NoSortByDefault = 0x80; ///< likewise
constexpr quint8 ToleranceBits = 7;      ///< of BusElement::toleranceIndex

// The firmware from which on ...
constexpr QStringView TimeoutChoice = u"4.04.12"; ///< ... a time-out can be chosen
constexpr QStringView Calibration = u"5.04.01";   ///< ... learning can calibrate
constexpr QStringView OwnReceivers = u"5.20.00";  ///< ... the device tells its receivers
constexpr QStringView LongPressing = u"6.04.44";  ///< ... long key presses can be learned

constexpr int FewCalibrations = 2;
constexpr int AllCalibrations = 4;

bool IsFrom(const BusElement& bus, QStringView version) {
    return VersionText(bus.version) >= version;
}

quint8 Receiver1(const BusElement& bus) {
    return bus.receivers & 15;
}
quint8 Receiver2(const BusElement& bus) {
    return bus.receivers >> 4;
}

class ReceiverList {
public:
    void Add(quint8 code, quint8 map) {
        QString label = prefix;
        switch (code & CarrierBits) {
        case 1: label += u"56 kHz"; break;
        case 2: label += u"38 kHz"; break;
        case 4: label += u"455 kHz"; break;
        case 5: label += u"455 kHz Plasma"; break;
        case CodeLearning: label += u"Codelearning Receiver"; break;
        default: break;
        }
        if ((code & External) != 0)
            label += u" [EXT]";
        if ((code & Internal) != 0)
            label += u" [INT]";
        list.push_back({label, map});
    }

    void AddExternal(quint8 channel) {
        for (const int code : {9, 10, 12, 13, 14})
            Add(quint8(code), quint8(code + channel));
    }

    QString prefix;
    std::vector<Receiver> list;
};

void AddChannel2(ReceiverList& list, const BusElement& bus) {
    list.prefix = u"2: "_s;
    const quint8 code = Receiver2(bus);
    if ((bus.capabilitiesB & LearnCapability::InternalReceivers) == 0) {
        if (code != 0 && (code & External) == 0)
            list.Add(code, code + Channel2);
    } else if ((bus.capabilitiesB & LearnCapability::PlasmaOnChannel2) != 0) {
        list.Add(21, 21);
    } else {
        list.Add(20, 20);
    }
    if ((bus.capabilitiesC & LearnCapability::ExternalOnChannel2) != 0 ||
        (bus.capabilitiesA & LearnCapability::ExternalReceivers) != 0)
        list.AddExternal(Channel2);
}

int LastWithCode(const std::vector<Receiver>& receivers, quint8 code) {
    for (size_t i = receivers.size(); i-- > 0;)
        if ((receivers[i].map & 15) == code)
            return int(i);
    return -1;
}

/// What firmware below 5.20.00 is told apart from the newer one by.
void RefuseNewOptions(LearnControls& controls) {
    controls.timingVisible = true;
    controls.enabled.toggle = controls.enabled.bo = controls.enabled.noSort = false;
    controls.enabled.tolerance = false;
    controls.toggle = controls.bo = controls.noSort = false;
    controls.tolerance = -1;
    controls.deviceTimeout = u"Default"_s;
    if (controls.modes.empty() || controls.modes.front().netcommand != Netcommand::LearnNormal) {
        controls.modes.insert(controls.modes.begin(), {u"Learn normal"_s, Netcommand::LearnNormal});
        if (controls.mode >= 0)
            ++controls.mode;
    }
}

void TakeDeviceDefaults(LearnControls& controls, const BusElement& bus) {
    controls.timingVisible = false;
    if (!controls.modes.empty() && controls.modes.front().netcommand == Netcommand::LearnNormal) {
        controls.modes.erase(controls.modes.begin());
        --controls.mode;
    }
    if (controls.mode < 0)
        controls.mode = 0;
    controls.deviceTimeout = QString::number(bus.timeout) + u" ms"_s;
    controls.bo = (bus.learnDefaults & BOByDefault) != 0;
    controls.noSort = (bus.learnDefaults & NoSortByDefault) != 0;
    controls.tolerance = bus.toleranceIndex & ToleranceBits;
}

void EnableByVersion(LearnControls& controls, const BusElement& bus) {
    LearnControls::Enabled& enabled = controls.enabled;
    if (IsFrom(bus, Calibration))
        enabled.calibration = true;
    if (IsFrom(bus, OwnReceivers)) {
        controls.calibrations = AllCalibrations;
        enabled.toggle = enabled.bo = enabled.noSort = enabled.tolerance = true;
        enabled.receiver = enabled.waitTime = enabled.timeoutCode = true;
    } else if (IsFrom(bus, Calibration)) {
        controls.calibrations = FewCalibrations;
        if (controls.calibration >= FewCalibrations)
            controls.calibration = -1;
    }
    if (IsFrom(bus, TimeoutChoice))
        enabled.timeoutCode = true;
    enabled.longPresses = IsFrom(bus, LongPressing);
    if (!enabled.longPresses)
        controls.longPresses = false;
    if (controls.calibration < 0)
        controls.calibration = 0;
}

quint16 TimeoutBits(const LearnControls& controls) {
    return controls.timeoutCode <= 0 ? 0 : quint16(controls.timeoutCode + 7);
}

quint16 ReceiverBits(const LearnControls& controls) {
    const bool isSelected = controls.receiver >= 0 && size_t(controls.receiver) < controls.receivers.size();
    return isSelected ? controls.receivers[size_t(controls.receiver)].map : 0;
}

quint16 CalibrationIndex(const LearnControls& controls) {
    return quint16(qMax(0, controls.calibration));
}

quint16 ToleranceIndex(const LearnControls& controls) {
    return quint16(qMax(0, controls.tolerance));
}

/// The learn parameters share one number:
///
///     31        30 ... 16   15 ... 8   7          6 ... 0
///     ----------------------------------------------------
///     option    V           bus        new form   address
quint32 Param(int bus, quint8 address, quint16 V) {
    Q_ASSERT(bus >= 0 && bus <= 255);
    return quint32(V) << 16 | quint32(bus) << 8 | address;
}
constexpr quint32 NewForm = 0x80;
constexpr quint32 Option = 0x8000'0000;

/// Firmware below 5.20.00, for commands and timings alike.
///
///     7 6        5             3 2 1 0
///     -----------------------------------
///     receiver   calibration   time-out
quint32 OldParam(const LearnControls& controls, int bus, quint8 address) {
    return Param(bus, address,
                 quint16(ReceiverBits(controls) | CalibrationIndex(controls) * 32 | TimeoutBits(controls)));
}

} // namespace

std::vector<Receiver> ReceiversOf(const BusElement& bus) {
    if (!IsFrom(bus, OwnReceivers))
        return {{u"Default"_s, 0}, {u"38 kHz"_s, 64}, {u"455 kHz"_s, 128}, {u"Both"_s, 192}};

    ReceiverList list;
    const bool twoChannels = (bus.capabilitiesA & LearnCapability::TwoChannels) != 0;
    if (twoChannels)
        list.prefix = u"1: "_s;
    if ((bus.capabilitiesB & LearnCapability::InternalReceivers) != 0) {
        list.Add(18, 2);
        if (!twoChannels)
            list.Add(20, 4);
        list.Add(22, CodeLearning);
    } else if ((Receiver1(bus) & External) == 0) {
        list.Add(Receiver1(bus), Receiver1(bus));
    }
    if ((bus.capabilitiesA & LearnCapability::ExternalReceivers) != 0)
        list.AddExternal(0);
    if (twoChannels) {
        if ((bus.capabilitiesB & LearnCapability::ExternalOnChannel1) != 0)
            list.AddExternal(0);
        AddChannel2(list, bus);
    }
    return list.list;
}

int DefaultReceiver(const BusElement& bus, const std::vector<Receiver>& receivers) {
    if (!IsFrom(bus, OwnReceivers))
        return 0;
    int found = LastWithCode(receivers, Receiver1(bus));
    if (found < 0 && (bus.capabilitiesA & LearnCapability::TwoChannels) != 0)
        found = LastWithCode(receivers, Receiver2(bus));
    return found;
}

bool DefaultsToBO(const BusElement& bus, quint8 map) {
    if ((bus.capabilitiesA & LearnCapability::TwoChannels) != 0) {
        const auto is455 = [](quint8 receiver) {
            return (receiver & CarrierBits) == 4 || (receiver & CarrierBits) == 5;
        };
        const bool first = is455(Receiver1(bus));
        const quint8 channelAndCarrier = map & (Channel2 | CarrierBits);
        if (channelAndCarrier == CodeLearning && (first || is455(Receiver2(bus))))
            return false;
        if (channelAndCarrier == (Channel2 | CodeLearning) && first)
            return false;
    }
    return (bus.learnDefaults & BOByDefault) != 0;
}

void KnowBuses(LearnControls& controls) {
    controls.busesKnown = true;
    controls.enabled.remote = true;
}

void ChooseBus(LearnControls& controls, const BusElement& bus) {
    controls.enabled.addressMode = (bus.capabilitiesA & LearnCapability::AddressMode) != 0;
    if (!controls.enabled.addressMode)
        ChooseAddressMode(controls, 2);

    if (!IsFrom(bus, LongPressing)) {
        controls.enabled.longPresses = false;
        controls.longPresses = false;
    }
    if (IsFrom(bus, OwnReceivers)) {
        TakeDeviceDefaults(controls, bus);
    } else {
        RefuseNewOptions(controls);
        const bool canCalibrate = IsFrom(bus, Calibration);
        controls.enabled.receiver = canCalibrate && (bus.capabilitiesA & LearnCapability::TwoChannels) != 0;
        controls.enabled.calibration = canCalibrate;
        if (!canCalibrate)
            controls.calibration = 0;
    }
    controls.receivers = ReceiversOf(bus);
    controls.receiver = -1;
    if (const int found = DefaultReceiver(bus, controls.receivers); found >= 0)
        ChooseReceiver(controls, bus, found);
}

void ChooseReceiver(LearnControls& controls, const BusElement& bus, int receiver) {
    controls.receiver = receiver;
    if (IsFrom(bus, OwnReceivers))
        controls.bo = DefaultsToBO(bus, quint8(ReceiverBits(controls)));
}

void ChooseAddressMode(LearnControls& controls, int mode) {
    controls.addressMode = mode;
    controls.enabled.address = mode == 1;
}

bool EnableLearn(LearnControls& controls, const BusElement& bus) {
    if (!controls.busesKnown || controls.enabled.remote)
        return false;
    EnableByVersion(controls, bus);
    if (controls.mode < 0 || size_t(controls.mode) >= controls.modes.size()) {
        controls.enabled.command = false;
        return false;
    }
    const LearnMode& mode = controls.modes[size_t(controls.mode)];
    const bool needsTiming = mode.netcommand == Netcommand::LearnNormal;
    controls.enabled.timing = needsTiming;
    controls.enabled.command = !needsTiming || controls.learned;
    controls.arrows[1] = !controls.enabled.command;
    controls.arrows[2] = controls.enabled.command;
    if (!controls.enabled.command)
        controls.defaultButton = LearnDefault::Timing;
    if (!needsTiming && mode.text.contains(u"RAW")) {
        controls.calibration = 0;
        controls.enabled.calibration = false;
    }
    return controls.enabled.command;
}

void OpenedRemote(LearnControls& controls, bool learned) {
    controls.arrows[0] = false;
    controls.enabled.timing = controls.enabled.frequency = controls.enabled.mode = true;
    controls.enabled.remote = false;
    controls.learned = learned;
}

void ClosedRemote(LearnControls& controls) {
    controls.arrows = {true, false, false};
    controls.enabled.remote = true;
    controls.defaultButton = LearnDefault::OpenRemote;
}

qint16 WaitTime(const QString& seconds) {
    const double milliseconds = LeadingNumber(seconds) * 1000;
    return milliseconds <= 0 || milliseconds > LongestWait ? LongestWait : qint16(milliseconds);
}

std::optional<quint8> CarrierOf(const QString& text) {
    const double kHz = LeadingNumber(text);
    if (kHz < 0 || kHz > 255)
        return std::nullopt;
    return quint8(RoundToI16(kHz));
}

quint8 LearnAddress(int addressMode, const QString& address) {
    switch (addressMode) {
    case 0: return '*';
    case 1: {
        const qint16 number = RoundToI16(LeadingNumber(address));
        return number < 0 || number > 15 ? 0 : quint8(number);
    }
    default: return 'L';
    }
}

/// The 16 bits of V for a command, from firmware 5.20.00:
///
///     14 13       12   10 ... 6   5 4           3 2 1 0
///     ---------------------------------------------------
///     tolerance   1    receiver   calibration   time-out
///
/// The highest bit of the tolerance is the option bit of the whole.
qint32 LearnParam(const LearnControls& controls, int bus, quint8 address) {
    if (!controls.enabled.bo)
        return qint32(OldParam(controls, bus, address));
    const quint16 tolerance = ToleranceIndex(controls);
    const auto V = quint16(CalibrationIndex(controls) * 16 | TimeoutBits(controls) |
                           ReceiverBits(controls) * 64 | 0x1000 | (tolerance & 3) * 0x2000);
    return qint32(Param(bus, address, V) | NewForm | ((tolerance & 4) != 0 ? Option : 0));
}

/// The 16 bits of V for a timing, from firmware 5.20.00:
///
///     14    13 12 11    10 ... 6   5 4           3 2 1 0
///     ----------------------------------------------------
///     B&O   tolerance   receiver   calibration   time-out
///
/// The option bit of the whole: no sort.
qint32 TimingParam(const LearnControls& controls, int bus, quint8 address) {
    if (!controls.enabled.bo)
        return qint32(OldParam(controls, bus, address));
    const auto V =
        quint16(CalibrationIndex(controls) * 16 | TimeoutBits(controls) | ReceiverBits(controls) * 64 |
                ToleranceIndex(controls) * 2048 | (controls.bo ? 16384 : 0));
    return qint32(Param(bus, address, V) | NewForm | (controls.noSort ? Option : 0));
}

///     5              4        3     2   1         0
///     -----------------------------------------------
///     long presses   toggle   B&O   1   no sort   1
quint8 LearnFlags(const LearnControls& controls) {
    quint8 flags = 0;
    const auto set = [&flags](int bit, bool value) { flags = quint8(flags | (value ? 1 << bit : 0)); };
    if (controls.enabled.bo) {
        set(0, true);
        set(1, controls.noSort);
        set(2, true);
        set(3, controls.bo);
        set(4, controls.toggle);
    }
    if (controls.enabled.longPresses)
        set(5, controls.longPresses);
    return flags;
}
