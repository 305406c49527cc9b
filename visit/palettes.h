#pragma once

#include <QPalette>

/// The colours of a dark desktop.
inline QPalette DarkPalette() {
    QPalette colors(QColor(53, 53, 53), QColor(42, 42, 46));
    colors.setColor(QPalette::Base, QColor(30, 30, 33));
    colors.setColor(QPalette::Text, QColor(230, 230, 230));
    colors.setColor(QPalette::WindowText, QColor(230, 230, 230));
    colors.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    colors.setColor(QPalette::Highlight, QColor(70, 130, 210));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    return colors;
}
