#pragma once

#include "link/replies.h"

#include <QLocale>

/// The modes of an analog input.
namespace AnalogMode {
constexpr quint8 NotEnabled = 0;
constexpr quint8 Temperature = 2; ///< hundredths of a degree; any other mode is a plain value
} // namespace AnalogMode

/// What is shown of an analog input.
struct AnalogReading {
    QString text;
    bool isEnabled = false;
};

/// `input` is 0 to 7. `locale` gives the decimal separator of temperatures.
AnalogReading ReadingOf(const AnalogValues& values, const AnalogTemperatures& temperatures, int input,
                        const QLocale& locale);
