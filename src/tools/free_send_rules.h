#pragma once

// Room tools, lower half: what the side tools make of texts and numbers. Includes base and link; no Qt
// Widgets.

#include "link/send_param.h"

#include <QStringView>

/// What a single command sent by hand is made of.
namespace FreeSend {

constexpr int Buses = 16;   ///< to choose from, besides all
constexpr int Devices = 16; ///< of a bus, to choose from, besides all
constexpr int Outputs = 16;
constexpr int AllDevices = SendParam::MaskBits;

/// The send mask of one device of a bus; 0 to 15.
constexpr int MaskOf(int device) {
    return 1 << device;
}

/// `led` is an LED number, `bus` a bus number or SendParam::AllBusesNumber, `mask` a send mask.
constexpr qint32 ParamOf(int led, int bus, int mask) {
    return qint32(quint32(mask) | SendParam::BusBitsOf(bus) | SendParam::LedBits(led) |
                  SendParam::UseMaskAndBus);
}

inline bool CanSend(QStringView remote, QStringView command) {
    return !remote.isEmpty() && !command.isEmpty();
}

} // namespace FreeSend
