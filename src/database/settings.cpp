#include "database/settings.h"

#include "base/blanks.h"

#include <algorithm>
#include <limits>

namespace {

// GlobalFlags.
//
//   7    6      5       4       3     2    1     0
//   -  binary  line  receive  relay  LAN  AUX  active
//                    inverted
struct FlagRow {
    bool DatabaseSettings::*box;
    quint8 bit;
    bool isInverted = false;
};
constexpr FlagRow FlagRows[] = {
    {&DatabaseSettings::active, 0x01},        {&DatabaseSettings::aux, 0x02},
    {&DatabaseSettings::lan, 0x04},           {&DatabaseSettings::relay, 0x08},
    {&DatabaseSettings::receive, 0x10, true}, {&DatabaseSettings::line, 0x20},
    {&DatabaseSettings::binary, 0x40},
};

// A mode byte:  7 the input sends to the host   6 to 0 list index
constexpr quint8 SendsToHost = 0x80;

constexpr qint32 ByteMax = 255;
constexpr qint32 MaskMin = std::numeric_limits<qint32>::min();
constexpr qint32 MaskMax = std::numeric_limits<qint32>::max();

/// `index` if the list has it, else its first entry.
int EntryOf(int index, int entries) {
    return index >= 0 && index < entries ? index : 0;
}

quint8 ByteOf(const QString& text) {
    return quint8(NumberWithin(text, 0, ByteMax));
}

/// The fields of one side in the record.
struct SideFields {
    quint8& led;
    qint32& mask;
    QString& remote;
    QString& command;
};

SideFields MinimumOf(IRDBGlobalRecord& r, size_t i) {
    return {r.minimumLed[i], r.minimumMask[i], r.minimumRemote[i], r.minimumCommand[i]};
}

SideFields MaximumOf(IRDBGlobalRecord& r, size_t i) {
    return {r.maximumLed[i], r.maximumMask[i], r.maximumRemote[i], r.maximumCommand[i]};
}

void Fill(SideFields fields, const AnalogSide& side) {
    fields.led = quint8(EntryOf(side.led, AnalogSide::Leds));
    fields.mask = NumberWithin(side.mask, MaskMin, MaskMax);
    if (!side.remote.isEmpty() && !side.command.isEmpty()) {
        fields.remote = side.remote;
        fields.command = side.command;
    }
}

void Take(const SideFields& fields, AnalogSide& side) {
    side.led = EntryOf(fields.led, AnalogSide::Leds);
    side.mask = QString::number(fields.mask);
    side.remote = WithoutBlanks(fields.remote).toString();
    side.command = WithoutBlanks(fields.command).toString();
}

} // namespace

void DatabaseSettings::Limit() {
    target.LimitPort();
    for (AnalogSettings& input : analog) {
        for (QString* text : {&input.minimum, &input.maximum, &input.hysteresis})
            LimitText(*text, 0, ByteMax);
        for (AnalogSide* side : {&input.min, &input.max})
            LimitText(side->mask, MaskMin, MaskMax);
    }
}

IRDBGlobalRecord ToGlobalRecord(const DatabaseSettings& settings) {
    IRDBGlobalRecord record;
    for (const FlagRow& row : FlagRows)
        if (settings.*row.box != row.isInverted)
            record.GlobalFlags |= row.bit;
    record.actionFormat = settings.actionFormat;
    record.okFormat = settings.okFormat;
    record.errorFormat = settings.errorFormat;
    record.ip = settings.target.IpNumber();
    record.port = qint16(settings.target.PortNumber());
    for (size_t i = 0; i < settings.analog.size(); ++i) {
        const AnalogSettings& input = settings.analog[i];
        record.mode[i] = quint8(EntryOf(input.mode, AnalogSettings::Modes));
        if (record.mode[i] != 0 && input.sendsToHost)
            record.mode[i] |= SendsToHost;
        record.minimum[i] = ByteOf(input.minimum);
        record.maximum[i] = ByteOf(input.maximum);
        record.hysteresis[i] = ByteOf(input.hysteresis);
        Fill(MinimumOf(record, i), input.min);
        Fill(MaximumOf(record, i), input.max);
    }
    return record;
}

void TakeGlobalRecord(const IRDBGlobalRecord& record, DatabaseSettings& settings) {
    for (const FlagRow& row : FlagRows)
        settings.*row.box = ((record.GlobalFlags & row.bit) != 0) != row.isInverted;
    settings.actionFormat = record.actionFormat;
    settings.okFormat = record.okFormat;
    settings.errorFormat = record.errorFormat;
    settings.target.Show(record.ip, quint16(record.port));
    IRDBGlobalRecord fields = record;
    for (size_t i = 0; i < settings.analog.size(); ++i) {
        AnalogSettings& input = settings.analog[i];
        input.mode = EntryOf(record.mode[i] & ~SendsToHost, AnalogSettings::Modes);
        input.sendsToHost = (record.mode[i] & SendsToHost) != 0;
        input.minimum = QString::number(record.minimum[i]);
        input.maximum = QString::number(record.maximum[i]);
        input.hysteresis = QString::number(record.hysteresis[i]);
        Take(MinimumOf(fields, i), input.min);
        Take(MaximumOf(fields, i), input.max);
    }
}
