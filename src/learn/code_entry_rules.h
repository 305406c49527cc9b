#pragma once

#include "link/requests.h"

/// What becomes of a code that is typed in place of learning it.
namespace CodeEntry {

/// The code as it goes out: a line end, of whichever kind, becomes a carriage return and a line feed.
QString ToWireText(QStringView typed);

/// The bytes that it takes. What exceeds Wire::CodeWidth is cut off by the record.
int LengthOf(QStringView typed);

} // namespace CodeEntry
