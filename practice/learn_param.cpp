#include "practice/learn_param.h"

using namespace Qt::StringLiterals;

namespace {

struct Bits {
    int first;
    int count;

    int Of(quint32 number) const { return int(number >> first & ((1u << count) - 1)); }
};

// Of `param`.
constexpr Bits Address = {0, 7};
constexpr Bits NewForm = {7, 1};
constexpr Bits Bus = {8, 8};
constexpr Bits Timeout = {16, 4};
constexpr Bits OldZero = {20, 1};
constexpr Bits OldCalibrate = {21, 1};
constexpr Bits OldReceiver = {22, 2};
constexpr Bits OldRest = {24, 8};
constexpr Bits NewCalibrate = {20, 2};
constexpr Bits NewReceiver = {22, 5};
constexpr Bits CommandZero = {27, 1};
constexpr Bits CommandOne = {28, 1};
constexpr Bits CommandTolerance = {29, 3};
constexpr Bits TimingTolerance = {27, 3};
constexpr Bits TimingBo = {30, 1};
constexpr Bits TimingNoSort = {31, 1};

// Of the flag byte.
constexpr quint8 NoSortFlag = 0x02;
constexpr quint8 BoFlag = 0x08;
constexpr quint8 ToggleFlag = 0x10;
constexpr quint8 LongFlag = 0x20;
constexpr quint8 NewFormFlags = 0x05;
constexpr quint8 KnownFlags = NoSortFlag | BoFlag | ToggleFlag | LongFlag | NewFormFlags;

// Of a receiver in the new form.
constexpr int ReceiverKind = 7;
constexpr int ReceiverExternal = 8;
constexpr int ReceiverSecondChannel = 16;

constexpr std::array calibrateWords = {"none"_L1, "every 10"_L1, "every 30"_L1, "every 75"_L1};
constexpr std::array receiverWords = {"default"_L1, "56 kHz"_L1,         "38 kHz"_L1,        "kind 3"_L1,
                                      "455 kHz"_L1, "455 kHz plasma"_L1, "code learning"_L1, "kind 7"_L1};
constexpr std::array oldReceiverWords = {"default"_L1, "38 kHz"_L1, "455 kHz"_L1, "both"_L1};
constexpr std::array timeouts = {5, 15, 30, 60, 90, 120, 150, 250}; // milliseconds, from code 8 on
constexpr int FirstTimeout = 8;
constexpr std::array tolerances = {64, 96, 120, 160, 320, 480, 680, 960}; // microseconds

QString AddressWords(int address) {
    if (address == LearnParam::AllDevices)
        return u"all devices"_s;
    return address == LearnParam::LocalDevice ? u"local device"_s : u"address %1"_s.arg(address);
}

QString ReceiverWords(const LearnParam& learn) {
    if (!learn.newForm)
        return oldReceiverWords[learn.receiver];
    QString words = receiverWords[learn.receiver & ReceiverKind];
    if (learn.receiver & ReceiverExternal)
        words += u" external"_s;
    if (learn.receiver & ReceiverSecondChannel)
        words += u" on channel 2"_s;
    return words + u" (%1)"_s.arg(learn.receiver);
}

QString TimeoutWords(int code) {
    if (code < FirstTimeout)
        return u"default"_s;
    return u"%1 ms"_s.arg(timeouts[code - FirstTimeout]);
}

void ReadFlags(LearnParam& learn, quint8 flags) {
    learn.noSort = flags & NoSortFlag;
    learn.bo = flags & BoFlag;
    learn.toggleBit = flags & ToggleFlag;
    learn.longPresses = flags & LongFlag;
    const int expected = learn.newForm ? NewFormFlags : 0;
    if ((flags & NewFormFlags) != expected)
        learn.odd.append(
            u"bits 0 and 2 of the flags hold %1 and not %2"_s.arg(flags & NewFormFlags).arg(expected));
    if (!learn.newForm && flags & (NoSortFlag | BoFlag | ToggleFlag))
        learn.odd.append(u"flags of the new form in the old one"_s);
    if (flags & ~KnownFlags)
        learn.odd.append(u"bits 6 and 7 of the flags aren't 0"_s);
}

} // namespace

LearnParam ReadLearnParam(const CommandRequest& request) {
    const auto param = quint32(request.param);
    const auto flags = quint8(request.remote.isEmpty() ? 0 : request.remote[0].unicode());
    const bool timing = request.netcommand == Netcommand::LearnTiming;
    LearnParam learn;
    learn.newForm = NewForm.Of(param);
    learn.bus = Bus.Of(param);
    learn.address = Address.Of(param);
    learn.timeout = Timeout.Of(param);
    learn.calibrate = (learn.newForm ? NewCalibrate : OldCalibrate).Of(param);
    learn.receiver = (learn.newForm ? NewReceiver : OldReceiver).Of(param);
    if (learn.address > 15 && learn.address != LearnParam::AllDevices &&
        learn.address != LearnParam::LocalDevice)
        learn.odd.append(u"the address is none"_s);
    if (learn.timeout > 0 && learn.timeout < FirstTimeout)
        learn.odd.append(u"the time-out code is %1"_s.arg(learn.timeout));
    if (!learn.newForm) {
        if (OldZero.Of(param) || OldRest.Of(param))
            learn.odd.append(u"bits 20 or 24 to 31 aren't 0"_s);
    } else if (timing) {
        learn.tolerance = TimingTolerance.Of(param);
        learn.bo = TimingBo.Of(param);
        learn.noSort = TimingNoSort.Of(param);
    } else {
        learn.tolerance = CommandTolerance.Of(param);
        if (CommandZero.Of(param) || !CommandOne.Of(param))
            learn.odd.append(u"bits 27 and 28 aren't 0 and 1"_s);
    }
    if (!timing) {
        ReadFlags(learn, flags);
    } else {
        learn.toggleBit = flags == 1;
        if (flags > 1)
            learn.odd.append(u"the flag of the toggle bit is %1"_s.arg(flags));
    }
    return learn;
}

int LearnParam::ReceiverCarrier() const {
    constexpr std::array kinds = {0, 56, 38, 0, 455, 455, 0, 0};
    constexpr std::array oldKinds = {0, 38, 455, 0};
    return newForm ? kinds[receiver & ReceiverKind] : oldKinds[receiver];
}

QString LearnParam::Words() const {
    QStringList words = {u"%1 form"_s.arg(newForm ? "new"_L1 : "old"_L1),
                         u"bus %1"_s.arg(bus),
                         AddressWords(address),
                         u"receiver "_s + ReceiverWords(*this),
                         u"calibration "_s + calibrateWords[calibrate],
                         u"IR time-out "_s + TimeoutWords(timeout)};
    if (newForm)
        words.append(u"tolerance %1 µs"_s.arg(tolerances[tolerance]));
    const auto add = [&words](bool set, const QString& text) {
        if (set)
            words.append(text);
    };
    add(noSort, u"no sort"_s);
    add(bo, u"B&O"_s);
    add(toggleBit, u"toggle bit mapped out"_s);
    add(longPresses, u"long presses"_s);
    if (!odd.isEmpty())
        words.append(u"odd: "_s + odd.join(u"; "));
    return words.join(u", ");
}
