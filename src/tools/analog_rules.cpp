#include "tools/analog_rules.h"

using namespace Qt::StringLiterals;

AnalogReading ReadingOf(const AnalogValues& values, const AnalogTemperatures& temperatures, int input,
                        const QLocale& locale) {
    const auto i = size_t(input);
    switch (values.Mode[i]) {
    case AnalogMode::NotEnabled: return {u"Not enabled"_s, false};
    case AnalogMode::Temperature:
        return {locale.toString(temperatures.Temperature[i] / 100.0, 'f', 2) + u" °C"_s, true};
    default: return {QString::number(values.Value[i]), true};
    }
}
