#include "translator/property_rules.h"

#include "base/number.h"
#include "base/tag_fields.h"
#include "translator/translator_tree.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// The two numbers of `CommandTag::repeat`.
constexpr int RepeatAfterUnit = 0x10;
constexpr int RepeatCountMask = 0x0F;

/// The two numbers of a relay's word.
constexpr int RelayUnit = 0x10;
constexpr int RelayMask = 7;
constexpr int RelayNumberUnit = 0x80;
constexpr int RelayNumberMask = 3;

// Entries of lists that hold fewer than their bits can say.
constexpr int LedEntries = 12;
constexpr int RelayEntries = 5;

// What a command gets that is made accelerated.
constexpr int NewTimeout = 750;
constexpr int NewRepeatAfter = 3;
constexpr int NewRepeatCount = 2;

bool IsCommand(const CommandProperties& properties) {
    return properties.type >= TranslatorType::Command &&
           properties.type <= TranslatorType::AcceleratedTwoSteps;
}

/// The number that was typed, between 0 and `most`.
int TypedNumber(const QString& text, int most) {
    return qBound(0, int(RoundToI16(LeadingNumber(text))), most);
}

/// What a relay may do follows from the device and from the repetition, which it excludes.
void UpdateRelay(CommandProperties& properties, const TranslatorDevice& device) {
    if (properties.isAccelerated) {
        properties.canRelay = false;
        properties.canRelayNumber = false;
    } else if (device.HasRelays()) {
        properties.canRelay = true;
        properties.canRelayNumber = device.HasRelayNumbers();
        if (device.HasTwoRelays())
            properties.relayNumbers = 2;
        if (!properties.canRelayNumber)
            properties.relayNumber = 0;
    }
}

/// The param of a macro that its three boxes say; 0 if none is ticked.
int MacroParamOf(const CommandProperties& properties) {
    if (properties.isToggleMacro)
        return MacroParam::Toggle;
    if (properties.isPowerOn)
        return MacroParam::PowerOn;
    return properties.isPowerOff ? MacroParam::PowerOff : 0;
}

} // namespace

CommandProperties FillTransRcv(QStringView tagText, const TranslatorDevice& device) {
    const CommandTag tag = ParseCommandTag(tagText);
    CommandProperties properties;
    UpdateRelay(properties, device);
    properties.remote = tag.remote;
    properties.command = tag.command;
    properties.type = tag.type;
    properties.receiveMask = tag.receiveMask & FullMask;
    properties.pc = tag.flags & TranslatorFlags::Pc;
    if (device.IsFerolo())
        properties.showsRelays = properties.showsSbus = false;
    else
        properties.sbus = tag.flags & TranslatorFlags::Sbus;
    if (device.HasLedSelection()) {
        const int led = (tag.flags & TranslatorFlags::Led) / TranslatorFlags::LedUnit;
        properties.canLed = true;
        properties.led = led < LedEntries ? led : 0;
    }
    if (IsCommand(properties)) {
        properties.canAccelerate = tag.param == 0;
    } else if (tag.type >= TranslatorType::Macro) {
        properties.canToggleMacro = properties.canPowerOn = properties.canPowerOff = true;
        if (tag.param == MacroParam::Toggle)
            SetToggleMacro(properties, true);
        else if (tag.param == MacroParam::PowerOn)
            SetPowerOn(properties, true);
        else if (tag.param == MacroParam::PowerOff)
            SetPowerOff(properties, true);
    }
    if (tag.repeat != 0 && IsCommand(properties)) {
        properties.repeatAfter = (tag.repeat / RepeatAfterUnit) & RepeatCountMask;
        properties.repeatCount = (tag.repeat & RepeatCountMask) - 1;
        properties.timeout = QString::number(tag.param);
        SetAccelerated(properties, device, true);
    }
    if (device.HasRelays() && tag.type == TranslatorType::Command && !properties.isAccelerated) {
        if (properties.canRelayNumber)
            properties.relayNumber =
                qMin((tag.param / RelayNumberUnit) & RelayNumberMask, properties.relayNumbers - 1);
        const int relay = (tag.param / RelayUnit) & RelayMask;
        SetRelay(properties, relay < RelayEntries ? relay : 0);
    }
    return properties;
}

void SetAccelerated(CommandProperties& properties, const TranslatorDevice& device, bool on) {
    properties.isAccelerated = on;
    properties.canRepeat = on;
    if (on) {
        if (properties.timeout.isEmpty())
            properties.timeout = QString::number(NewTimeout);
        if (properties.repeatAfter < 0)
            properties.repeatAfter = NewRepeatAfter;
        if (properties.repeatCount < 0)
            properties.repeatCount = NewRepeatCount;
        properties.type = TranslatorType::Accelerated;
    } else {
        properties.timeout.clear();
        properties.repeatAfter = properties.repeatCount = -1;
        properties.type = TranslatorType::Command;
    }
    UpdateRelay(properties, device);
}

void SetRelay(CommandProperties& properties, int index) {
    properties.relay = index;
    // A macro can't be accelerated, whatever its relay.
    properties.canAccelerate = index <= 0 && IsCommand(properties);
}

void SetToggleMacro(CommandProperties& properties, bool on) {
    properties.isToggleMacro = on;
    properties.canPowerOn = properties.canPowerOff = !on;
    if (on)
        properties.isPowerOn = properties.isPowerOff = false;
}

void SetPowerOn(CommandProperties& properties, bool on) {
    properties.isPowerOn = on;
    if (on)
        properties.isPowerOff = properties.isToggleMacro = false;
    properties.canToggleMacro = !on && !properties.isPowerOff;
}

void SetPowerOff(CommandProperties& properties, bool on) {
    properties.isPowerOff = on;
    if (on)
        properties.isPowerOn = properties.isToggleMacro = false;
    properties.canToggleMacro = !on && !properties.isPowerOn;
}

QString PackTransRcv(const CommandProperties& properties) {
    CommandTag tag{properties.remote, properties.command, properties.type, properties.receiveMask,
                   properties.pc | properties.sbus};
    if (properties.canLed)
        tag.flags |= properties.led * TranslatorFlags::LedUnit;
    if (properties.isAccelerated) {
        tag.repeat = properties.repeatAfter * RepeatAfterUnit | (properties.repeatCount + 1);
        tag.param = TypedNumber(properties.timeout, CommandTag::ParamMax);
    } else if (properties.relay > 0) {
        tag.param = properties.relayNumber * RelayNumberUnit + properties.relay * RelayUnit;
    } else {
        tag.param = MacroParamOf(properties);
    }
    return FormatTag(tag);
}

SendProperties FillTransSnd(QStringView tagText, QStringView parentKey, const TranslatorDevice& device) {
    const SendTag tag = ParseSendTag(tagText);
    SendProperties properties;
    if (device.HasSbusInput())
        properties.inputs.push_back({u"SBUS Input", 0});
    if (device.HasIrInput())
        properties.inputs.push_back({u"IR Input", 1});
    properties.canCondition = !properties.inputs.empty();
    properties.sendMask = tag.sendMask & FullMask;
    if (KindOf(parentKey) == TranslatorKind::Macro) {
        properties.canTimeout = true;
        properties.timeout = tag.pause ? QString::number(*tag.pause) : QString();
    }
    const auto condition = ParseCondition(tag.condition);
    if (!condition || !condition->isOn)
        return properties;
    SetConditional(properties, true);
    properties.value = qMin(condition->value, 1);
    if (properties.inputs.empty())
        return properties;
    properties.input = 0;
    for (size_t i = 0; i < properties.inputs.size(); ++i)
        if (properties.inputs[i].number == condition->input)
            properties.input = int(i);
    return properties;
}

void SetConditional(SendProperties& properties, bool on) {
    properties.isConditional = on;
    properties.canChooseInput = on;
    if (!on)
        properties.input = properties.value = -1;
    else if (properties.inputs.size() == 1)
        SetInput(properties, 0);
}

void SetInput(SendProperties& properties, int index) {
    properties.input = index;
    if (index >= 0 && properties.value < 0)
        properties.value = 0;
}

QString PackTransSnd(const SendProperties& properties) {
    std::optional<SendCondition> condition;
    if (properties.canCondition && properties.isConditional && !properties.inputs.empty()) {
        const auto input = size_t(qMax(0, properties.input));
        condition = {true, properties.inputs[input].number, qMax(0, properties.value)};
    }
    const int timeout = properties.canTimeout ? TypedNumber(properties.timeout, SendTag::PauseMax) : 0;
    return QStringList{QString::number(properties.sendMask), QString::number(timeout),
                       FormatCondition(condition)}
        .join(TagSeparator);
}

ContainerProperties FillTransRem(QStringView tagText, const TranslatorDevice& device) {
    const ContainerTag tag = ParseContainerTag(tagText);
    return {
        .isRoot = tag.isRoot,
        .name = tag.name,
        .receiveMask = tag.receiveMask & FullMask,
        .sendMask = tag.sendMask & FullMask,
        .pc = tag.flags & TranslatorFlags::Pc,
        .sbus = tag.flags & TranslatorFlags::Sbus,
        .translatesLan = device.HasLan() && (tag.flags & TranslatorFlags::KeepLan) == 0,
        .translatesSbus = device.HasSbus() && (tag.flags & TranslatorFlags::KeepSbus) == 0,
        .canLan = device.HasLan(),
        .canSbus = device.HasSbus(),
    };
}

QString PackTransRem(const ContainerProperties& properties) {
    int flags = properties.pc | properties.sbus;
    if (properties.canLan && !properties.translatesLan)
        flags |= TranslatorFlags::KeepLan;
    if (properties.canSbus && !properties.translatesSbus)
        flags |= TranslatorFlags::KeepSbus;
    return FormatTag(
        ContainerTag{properties.isRoot, properties.name, properties.receiveMask, properties.sendMask, flags});
}
