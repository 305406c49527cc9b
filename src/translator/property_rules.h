#pragma once

#include "translator/translator_device.h"
#include "translator/translator_tags.h"

#include <vector>

/// What the three property dialogs of the translator hold, and how their controls depend on each other. A
/// dialog fills one of these structs from a tag, calls the rule of a control when its value has changed and
/// shows the struct again; its fields without a rule it sets itself. OK packs the struct into a tag.
///
/// An index of a list is -1 where nothing is selected.

/// @name frmTransRcvProperties: commands, macros and toggles
/// @{
struct CommandProperties {
    QString remote;
    QString command;
    int type = TranslatorType::Command;
    qint32 receiveMask = FullMask;
    int pc = 0;   ///< ForwardEntry::pc
    int sbus = 0; ///< ForwardEntry::sbus
    int led = 0;  ///< index
    bool isAccelerated = false;
    int repeatAfter = -1; ///< index in "0" to "15"
    int repeatCount = -1; ///< index in "1" to "15"
    QString timeout;      ///< milliseconds, as typed
    int relay = -1;       ///< index: 0 none, on, off, toggle, trigger
    int relayNumber = 0;  ///< index
    bool isToggleMacro = false;
    bool isPowerOn = false;
    bool isPowerOff = false;

    // What can be used.
    bool showsSbus = true;
    bool showsRelays = true;
    bool canLed = false;
    bool canAccelerate = false;
    bool canRepeat = false; ///< the two lists and the time-out
    bool canRelay = false;
    bool canRelayNumber = false;
    int relayNumbers = 4; ///< entries of the list
    bool canToggleMacro = false;
    bool canPowerOn = false;
    bool canPowerOff = false;

    bool operator==(const CommandProperties&) const = default;
};
/// A LED or a relay action that its list doesn't hold counts as the first entry.
CommandProperties FillTransRcv(QStringView tag, const TranslatorDevice& device);
void SetAccelerated(CommandProperties& properties, const TranslatorDevice& device, bool on);
void SetRelay(CommandProperties& properties, int index);
void SetToggleMacro(CommandProperties& properties, bool on);
void SetPowerOn(CommandProperties& properties, bool on);
void SetPowerOff(CommandProperties& properties, bool on);
/// The new tag. A time-out beyond CommandTag::ParamMax is cut to it; what is no number counts as 0.
QString PackTransRcv(const CommandProperties& properties);
/// @}

/// @name frmTransSndProperties: send steps
/// @{
struct SendProperties {
    struct Input {
        QStringView caption;
        int number; ///< SendCondition::input
    };

    qint32 sendMask = FullMask;
    QString timeout; ///< milliseconds, as typed
    bool isConditional = false;
    int input = -1; ///< index in `inputs`
    int value = -1; ///< index: 0 off, 1 on

    // What can be used.
    std::vector<Input> inputs;
    bool canTimeout = false;
    bool canCondition = false;
    bool canChooseInput = false; ///< the input and its value
};
SendProperties FillTransSnd(QStringView tag, QStringView parentKey, const TranslatorDevice& device);
void SetConditional(SendProperties& properties, bool on);
void SetInput(SendProperties& properties, int index);
/// The new tag from its fourth field on. The time-out is cut to 0 to SendTag::PauseMax; where no input or
/// value is chosen, the first one counts.
QString PackTransSnd(const SendProperties& properties);
/// @}

/// @name frmTransRemProperties: remotes and the root
/// @{
struct ContainerProperties {
    bool isRoot = false; ///< without a name and the entry "(Standard)", but with the two boxes below
    QString name;
    qint32 receiveMask = FullMask;
    qint32 sendMask = FullMask;
    int pc = 0;   ///< ForwardEntry::pc
    int sbus = 0; ///< ForwardEntry::sbus
    bool translatesLan = false;
    bool translatesSbus = false;

    // What can be used.
    bool canLan = false;
    bool canSbus = false;
};
ContainerProperties FillTransRem(QStringView tag, const TranslatorDevice& device);
/// The new tag.
QString PackTransRem(const ContainerProperties& properties);
/// @}
