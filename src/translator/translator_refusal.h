#pragma once

#include "language/language.h"

#include <optional>

/// What a set holds at most.
namespace TranslatorLimits {
constexpr int Elements = 1001;
constexpr int Remotes = 40;
constexpr int Groups = 40;
constexpr int Multis = 255;
constexpr int MacroSteps = 155; ///< the type of an element is a byte, and counts the steps from 100
constexpr int ToggleSteps = 29; ///< from 70, below the macros
} // namespace TranslatorLimits

/// Why a set can't be stored, flashed or loaded. Nothing has been sent or changed then.
struct TranslatorRefusal {
    enum Reason {
        TooManyElements,
        TooManyRemotes,
        TooManyGroups,
        TooManyMultis,
        TooManySteps,   ///< in the macro or toggle `name`
        TimeoutTooLong, ///< of the command `name`; `count` milliseconds

        // Of a stored set: `element` is the number of the element that is at fault, from 1.
        UnknownType,     ///< `count` is its type
        NoContainer,     ///< its remote, group, shift key or command doesn't stand before it
        Twice,           ///< `name` stands at the same place already
        BackslashInName, ///< `name` would fall apart in a tag
        EmptySet,
        PagesMissing, ///< the server says that more follows, and sends nothing
    };

    Reason reason;
    int count = 0;
    int limit = 0;
    int element = 0;
    QString name{};
};

/// What to tell the user.
QString RefusalText(const Language& language, const TranslatorRefusal& refusal);
