#pragma once

#include "device/set_modus_rules.h"

#include <functional>
#include <map>
#include <random>

/// A device whose settings are opened.
struct ModusCase {
    DeviceEntry entry;
    DeviceOrigin origin = DeviceOrigin::Tree;

    QString Words() const;
};

/// Calls `take` for every kind of device with every firmware that a rule asks for, and the one just before
/// it, with every capability alone and in the groups that matter, on both ways, `rounds` times, each with
/// settings of its own. The same cases in every run.
void ForEachModusCase(int rounds, const std::function<void(const ModusCase&)>& take);

/// What the record must hold if nothing was changed: each bit of the entry that the dialog has a control for,
/// with exceptions that are listed one by one. Counts in `used` how often each of them made a difference.
ModeRequest UnchangedRequest(const ModusCase& device, std::map<QString, int>& used);

/// How many exceptions there are.
int ModusExceptions();
