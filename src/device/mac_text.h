#pragma once

#include "link/replies.h"

/// What stands in `HotRemote2` of a device whose `HotCommand2` holds the six bytes of a MAC address.
inline constexpr QStringView LanMarker = u"@@@~~~LAN~~~@@@";

/// The MAC address in `HotCommand2` as text, "00-1A-..."; empty without the marker.
QString MacText(const DeviceEntry& device);
