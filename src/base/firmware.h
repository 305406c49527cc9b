#pragma once

#include <QStringView>

/// The firmware version of a device or bus, which stands behind a letter for its kind. Versions compare as
/// text, character by character: "10.00.00" comes before "5.20.01".
inline QStringView VersionText(QStringView version) {
    return version.sliced(qMin(version.size(), qsizetype(1)));
}
