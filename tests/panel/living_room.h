#pragma once

#include <QString>

/// Two pages of a layout, and a layout with them, for tests that need a whole window.
inline const QString LayoutPages =
    QStringLiteral("[TV]\n"
                   "[POS]1500,1500[SIZE]900,300[TEXT]a & <i>b</i>[REMOTE]tv[COMMAND]vol+\n"
                   "[POS]0,1500[SIZE]900,300[TEXT]Mute[REMOTE]tv[COMMAND]mute\n"
                   "[BCOLOR]65535\n"
                   "[POS]0,3000[SIZE]900,300[TEXT]Row[REMOTE]tv[COMMAND]a;b\n"
                   "[MOD]0,2250[SIZE]900,300[TEXT]More[PANEL]HIFI\n"
                   "[MOD]1500,2250[SIZE]900,300[TEXT]Nowhere[PANEL]Gone\n"
                   "[LBL]3000,1500[SIZE]900,300[TEXT]Page\n"
                   "[END]\n"
                   "[HIFI]\n"
                   "[POS]0,1500[SIZE]900,300[TEXT]On[REMOTE]amp[COMMAND]on\n"
                   "[FRM]7500,4500\n"
                   "[END]\n");
inline const QString LivingRoom = QStringLiteral("[MAIN]\n"
                                                 "[TITLE]Wohnzimmer[FRM]9000,6000[BACKGROUND]16711680\n"
                                                 "[SEP]0,0[END]1500,0[LCOLOR]255\n"
                                                 "[MOD]1500,0[SIZE]900,300[TEXT]Video & <b>TV</b>[PANEL]TV\n"
                                                 "[MOD]0,0[SIZE]900,300[PANEL]HIFI\n"
                                                 "[LBL]3000,0[SIZE]900,300[TEXT]R&D <b>x</b>[LCOLOR]65535\n"
                                                 "[END]\n") +
                                  LayoutPages;
