#pragma once

// Room translator, lower half: the tree of rules, its tags and elements, what may be edited, the transfer.
// Includes base, link and language; no Qt Widgets.

#include <QString>

#include <array>
#include <optional>

/// The tags of the nodes of a translator tree, one struct for each form that a tag can have. A tag is a text
/// of fields (base/tag_fields.h); `Parse...` reads one, `Format...` writes one. A field that is missing or no
/// number reads as 0 or as empty.

/// What field 3 of a tag and the type of an element say. Macros and toggles count their steps in it.
namespace TranslatorType {
constexpr int Group = 0;
constexpr int Command = 1;
constexpr int Accelerated = 2;
constexpr int AcceleratedTwoSteps = 3; ///< on the wire only
constexpr int Root = 4;
constexpr int Remote = 5;
constexpr int Send = 6;
constexpr int Multi = 7;
constexpr int Toggle = 70; ///< and the number of steps, up to 99
constexpr int Macro = 100; ///< and the number of steps, up to 255
} // namespace TranslatorType

/// A mask with all sixteen bits on, the default of every mask.
constexpr qint32 FullMask = 65535;

/// The flags of roots, remotes, commands, macros and toggles:
///
///      7   6   5   4   3   2   1   0
///    +---------------+-------+-------+
///    |  LED (index)  | SBUS  |  PC   |   command, macro, toggle
///    +-------+---+---+-------+-------+
///    |   -   | B | L | SBUS  |  PC   |   root: L and B keep what came over LAN, over SBUS untranslated
///    +-------+---+---+-------+-------+
namespace TranslatorFlags {
constexpr int Pc = 0x03;
constexpr int Sbus = 0x0C;
constexpr int Led = 0xF0;
constexpr int LedUnit = 0x10;
constexpr int KeepLan = 0x10;
constexpr int KeepSbus = 0x20;
} // namespace TranslatorFlags

/// An entry of the two lists of what is forwarded, with its bits in the flags.
struct ForwardEntry {
    QStringView caption;
    int pc;
    int sbus;
};

/// In the order of the lists.
constexpr std::array<ForwardEntry, 4> ForwardEntries = {{
    {u"(Standard)", 0, 0},
    {u"Übersetzt", 2, 8},
    {u"Original", 1, 4},
    {u"Aus", 3, 12},
}};

/// Root and remote.
struct ContainerTag {
    bool isRoot = false;
    QString name;
    qint32 receiveMask = FullMask;
    qint32 sendMask = FullMask;
    int flags = 0; ///< TranslatorFlags; 10, all translated, on a new root

    bool operator==(const ContainerTag&) const = default;
};
ContainerTag ParseContainerTag(QStringView tag);
QString FormatTag(const ContainerTag& tag);

/// Group and shift key.
struct GroupTag {
    QString remote;
    QString command;
    int type = TranslatorType::Group; ///< or Multi
    qint32 receiveMask = FullMask;
    int flags = 0;

    bool operator==(const GroupTag&) const = default;
};
GroupTag ParseGroupTag(QStringView tag);
QString FormatTag(const GroupTag& tag);

/// Command, accelerated command, macro and toggle.
///
/// `repeat` other than 0 makes a command accelerated: bits 4-7 after how many it repeats, bits 0-3 how often.
/// `param` is then its time-out in milliseconds. Otherwise `param` is, on a command, the word of a relay:
///
///      8   7   6   5   4   3   2   1   0
///    +-------+-----------+---------------+
///    | relay |  action   |       0       |
///    +-------+-----------+---------------+
///
/// and on a macro one of MacroParam.
struct CommandTag {
    /// On the wire `param` travels in one byte, in units of ParamUnit.
    static constexpr int ParamUnit = 16;
    static constexpr int ParamMax = 4087;

    QString remote;
    QString command;
    int type = TranslatorType::Command;
    qint32 receiveMask = FullMask;
    int flags = 0; ///< TranslatorFlags
    int repeat = 0;
    int param = 0;

    bool operator==(const CommandTag&) const = default;
};
CommandTag ParseCommandTag(QStringView tag);
QString FormatTag(const CommandTag& tag);

namespace MacroParam {
constexpr int Toggle = 96;
constexpr int PowerOn = 112;
constexpr int PowerOff = 128;
} // namespace MacroParam

/// The condition of a send step: an input that must have a value.
struct SendCondition {
    bool isOn = false;
    int input = 0; ///< 0 to 9: 0 SBUS input, 1 IR input
    int value = 0; ///< 0 to 9: 0 off, 1 on

    bool operator==(const SendCondition&) const = default;
};
/// Nothing if `text` isn't "IO" and three digits. Digits that are missing are 0.
std::optional<SendCondition> ParseCondition(QStringView text);
/// "0" for no condition.
QString FormatCondition(const std::optional<SendCondition>& condition);

/// Send step.
struct SendTag {
    /// Pause that a step of a macro or toggle starts with, and the longest one that the user can give, in
    /// milliseconds.
    static constexpr int DefaultPause = 100;
    static constexpr int PauseMax = 4000;

    QString remote;
    QString command;
    qint32 sendMask = FullMask;
    std::optional<int> pause; ///< milliseconds; steps of a command have none at first
    QString condition;        ///< as FormatCondition gives it; empty: nobody has set one yet

    bool operator==(const SendTag&) const = default;
};
SendTag ParseSendTag(QStringView tag);
QString FormatTag(const SendTag& tag);
