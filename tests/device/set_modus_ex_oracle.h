#pragma once

#include "link/replies.h"

#include <QStringList>

#include <random>
#include <vector>

/// What the extended settings of a device that nobody changed must send, worked out without the rules of the
/// program: all that the device reported, but for a list of exceptions.
namespace Oracle {

/// The codes that the lists of receivers have for a device; for the second list also if it is disabled.
std::vector<int> CodesOfReceiver1(const DeviceEntry& entry);
std::vector<int> CodesOfReceiver2(const DeviceEntry& entry);
/// Whether the device's receivers are on the lists. If not, the dialog must send nothing.
bool HasKnownReceivers(const DeviceEntry& entry);

ModeRequest Expected(const DeviceEntry& entry, qint16 target);

/// How often each exception has been the reason for a difference, with its words, since the program started.
std::vector<std::pair<const char*, int>> Uses();

/// An entry with random settings, and these capabilities.
DeviceEntry RandomEntry(std::mt19937& random, quint32 capabilities, quint32 extCapabilities,
                        quint32 extCapabilities2);
/// Everything random: few capabilities, many, or about half of them.
DeviceEntry RandomEntry(std::mt19937& random);

} // namespace Oracle
