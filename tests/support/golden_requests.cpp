#include "support/golden.h"

namespace Golden {

QByteArray Hello() {
    return Hex("00 00 00 00");
}

QByteArray PressTvPower() {
    return Join({
        Hex("01"),                                  // netcommand: send a command
        Hex("00"),                                  // unnamed
        Hex("00 00"),                               // timeout, none stored yet
        Hex("03 01 00 00"),                         // param 0x103
        Hex("D2 00 00 00"),                         // version 210
        Ascii("tv") + Hex("00") + Fill(77, ' '),    // remote
        Ascii("power") + Hex("00") + Fill(14, ' '), // command
        Hex("00"),                                  // carrier, none stored yet
    });
}

QByteArray LearnAtLimits() {
    return Join({
        Hex("0D"),                               // netcommand: learn RAW repeat
        Hex("00"),                               // unnamed
        Hex("30 75"),                            // timeout 30000 ms
        Hex("FE 03 00 80"),                      // param 0x800003FE
        Hex("D2 00 00 00"),                      // version 210
        Ascii("K") + Hex("FC") + Ascii("che-"),  // remote: "Küche-",
        Fill(73, 'x') + Ascii("!"),              //   in all 80 characters, so no NUL
        Hex("D6") + Ascii("ffnen ") + Hex("80"), // command: "Öffnen €"
        Hex("00") + Fill(11, ' '),               //   filled up
        Hex("FF"),                               // carrier 255 kHz
    });
}

QByteArray SetMode() {
    return Join({
        Hex("46"),                                   // netcommand: set the mode
        Hex("21"),                                   // Mode
        Hex("00 00"),                                // unnamed
        Hex("0F 07"),                                // DeviceTag: bus 7, address 15
        Hex("00 00"),                                // unnamed
        Hex("D2 00 00 00"),                          // version 210
        Ascii("tv") + Hex("00") + Fill(77, ' '),     // HotRemote
        Ascii("power") + Hex("00") + Fill(14, ' '),  // HotCommand
        Ascii("player") + Hex("00") + Fill(73, ' '), // HotRemote2
        Ascii("stop") + Hex("00") + Fill(15, ' '),   // HotCommand2
        Hex("FE 7F FF FF"),                          // SendMask 0xFFFF7FFE
        Hex("31"),                                   // ExtMode
        Hex("32"),                                   // ExtMode2
        Hex("02 1A 2B 3C 4D 5E"),                    // mac
        Hex("51 52 53 54"),                          // Receivers, ReceiveTimeout, ReceiveTiming, CodeFlags
        Hex("55 56 57 58"),                          // ToggleConfig, IOFlags, SerialFlags, ExtFlags
    });
}

QByteArray LcdText() {
    return Join({
        Hex("1D"),                          // netcommand: text for a display
        Hex("00"),                          // unnamed
        Hex("02"),                          // always 2
        Hex("00"),                          // unnamed
        Hex("4C 00 00 00"),                 // "L"
        Hex("D2 00 00 00"),                 // version 210
        Hex("28"),                          // 40 columns
        Hex("04"),                          // 4 lines
        Ascii(" Guten Tag, K") + Hex("FC"), // text: " Guten Tag, Küche", blank kept, no NUL
        Ascii("che") + Fill(183, ' '),      //   to the end of the field
    });
}

QByteArray SerialText() {
    return Join({
        Hex("3D"),                        // netcommand: serial text
        Hex("00 00 00"),                  // unnamed
        Hex("04 03 02 81"),               // param 0x81020304
        Hex("D2 00 00 00"),               // version 210
        Hex("08"),                        // 8 bytes of text
        Hex("00 00 00"),                  // unnamed
        Ascii("VOL +") + Hex("FC 0D 0A"), // text, no NUL
        Fill(248, ' '),                   //   filled up
    });
}

QByteArray StoreCcf() {
    return Join({
        Hex("44"),                                    // netcommand: store a CCF code
        Hex("00 00 00"),                              // unnamed
        Hex("00 00 00 00"),                           // unnamed
        Hex("D2 00 00 00"),                           // version 210
        Ascii(" tv ") + Hex("00") + Fill(75, ' '),    // remote, its blanks kept
        Ascii(" power ") + Hex("00") + Fill(12, ' '), // command, its blanks kept
        Ascii("0000 006D 0001 0000 0010 0020"),       // code, 29 characters
        Hex("00") + Fill(5370, ' '),                  //   filled up
    });
}

QByteArray TranslatorMacro() {
    return Join({
        Hex("14"),                                 // netcommand: translator element
        Fill(7, 0),                                // unnamed
        Hex("D2 00 00 00"),                        // version 210
        Hex("E8 03 02 01"),                        // ElementIndex 0x010203E8
        Hex("3A"),                                 // ElementFlags
        Hex("67"),                                 // ElementType 103: a macro of three steps
        Hex("08"),                                 // ElementParam
        Hex("95"),                                 // ElementRepeat
        Hex("EE 02"),                              // ElementPause 750 ms
        Hex("28"),                                 // RemoteIndex 40
        Hex("27"),                                 // GroupIndex 39
        Ascii("amp") + Hex("00") + Fill(76, ' '),  // remote
        Ascii("mute") + Hex("00") + Fill(15, ' '), // command
        Hex("FE FF 00 00"),                        // ElementReceiveMask 65534
        Hex("FF 7F 00 80"),                        // ElementSendMask 0x80007FFF
        Hex("FF"),                                 // MultiIndex 255
        Hex("01"),                                 // IncludeNames
        Hex("81"),                                 // ElementIO: flag, input 1
        Hex("03"),                                 // ElementIOValue
    });
}

QByteArray DatabaseGlobal() {
    return Join({
        Hex("2E"),                                          // netcommand: database element
        Fill(7, 0),                                         // unnamed
        Hex("D2 00 00 00"),                                 // version 210
        Fill(4, 0),                                         // unnamed
        Hex("6D"),                                          // GlobalFlags
        Hex("09"),                                          // ElementKind: global record
        Hex("51 C3"),                                       // port 50001
        Ascii("%r,%c\\r\\n") + Hex("00") + Fill(90, ' '),   // default action format
        Ascii("ERROR %e") + Hex("00") + Fill(11, ' '),      // status error format
        Ascii("OK") + Hex("00") + Fill(17, ' '),            // status OK format
        Hex("81 02 83 04"),                                 // modes, 0 and 2 send to the host
        Hex("11 12 13 14"),                                 // minimum
        Hex("21 22 23 E4"),                                 // maximum
        Hex("31 32 33 34"),                                 // hysteresis
        Hex("06 07 08 09"),                                 // minimum LED
        Hex("05 0A 0B 01"),                                 // maximum LED
        Hex("FF FF 00 00") + Hex("01 80 00 00"),            // minimum send mask 65535, 32769,
        Hex("02 40 00 00") + Hex("FD FF FF FF"),            //   16386, -3
        Hex("F0 0F 00 00") + Hex("0F F0 00 00"),            // maximum send mask 0xFF0, 0xF00F,
        Hex("33 CC 00 00") + Hex("04 03 02 81"),            //   0xCC33, 0x81020304
        Ascii("min-remote-0") + Hex("00") + Fill(67, ' '),  // minimum remote of input 0
        Ascii("min-remote-1") + Hex("00") + Fill(67, ' '),  // minimum remote of input 1
        Ascii("min-remote-2") + Hex("00") + Fill(67, ' '),  // minimum remote of input 2
        Ascii("min-remote-3") + Hex("00") + Fill(67, ' '),  // minimum remote of input 3
        Ascii("min-command-0") + Hex("00") + Fill(36, ' '), // minimum command of input 0
        Ascii("min-command-1") + Hex("00") + Fill(36, ' '), // minimum command of input 1
        Ascii("min-command-2") + Hex("00") + Fill(36, ' '), // minimum command of input 2
        Ascii("min-command-3") + Hex("00") + Fill(36, ' '), // minimum command of input 3
        Ascii("max-remote-0") + Hex("00") + Fill(67, ' '),  // maximum remote of input 0
        Ascii("max-remote-1") + Hex("00") + Fill(67, ' '),  // maximum remote of input 1
        Ascii("max-remote-2") + Hex("00") + Fill(67, ' '),  // maximum remote of input 2
        Ascii("max-remote-3") + Hex("00") + Fill(67, ' '),  // maximum remote of input 3
        Ascii("max-command-0") + Hex("00") + Fill(36, ' '), // maximum command of input 0
        Ascii("max-command-1") + Hex("00") + Fill(36, ' '), // maximum command of input 1
        Ascii("max-command-2") + Hex("00") + Fill(36, ' '), // maximum command of input 2
        Ascii("max-command-3") + Hex("00") + Fill(36, ' '), // maximum command of input 3
        Hex("04 07 A8 C0"),                                 // IP 192.168.7.4
        Hex("11 11 11 11"),                                 // always 17
    });
}

QByteArray DatabaseRemote() {
    return Join({
        Hex("2E"),                                 // netcommand: database element
        Fill(7, 0),                                // unnamed
        Hex("D2 00 00 00"),                        // version 210
        Hex("01 00 00 00"),                        // number 1
        Hex("00"),                                 // RelayByte, actions only
        Hex("08"),                                 // ElementKind: a remote
        Hex("0A"),                                 // ElementFlags: UDP and RS232 port 2
        Hex("00"),                                 // data length, actions only
        Fill(8, 0),                                // unnamed
        Hex("04 03 02 01"),                        // IP 1.2.3.4
        Hex("92 1F"),                              // port 8082
        Fill(2, 0),                                // unnamed
        Ascii("amp") + Hex("00") + Fill(76, ' '),  // remote
        Hex("00") + Fill(19, ' '),                 // command, actions only
        Ascii("%r!") + Hex("00") + Fill(252, ' '), // default action text; the NUL belongs to the data
    });
}

QByteArray DatabaseBinaryAction() {
    return Join({
        Hex("2E"),                                 // netcommand: database element
        Fill(7, 0),                                // unnamed
        Hex("D2 00 00 00"),                        // version 210
        Hex("02 00 00 00"),                        // number 2
        Hex("CB"),                                 // RelayByte: relay 3, "I"
        Hex("0D"),                                 // ElementKind: action group 3
        Hex("0B"),                                 // ElementFlags: binary, default, RS232 port 1
        Hex("05"),                                 // data length
        Fill(8, 0),                                // unnamed
        Hex("01 00 00 E0"),                        // IP 224.0.0.1
        Hex("FE FF"),                              // port 65534
        Fill(2, 0),                                // unnamed
        Ascii("amp") + Hex("00") + Fill(76, ' '),  // remote
        Ascii("mute") + Hex("00") + Fill(15, ' '), // command
        Hex("00 FE 00 20 00") + Fill(251, ' '),    // five bytes of data, blanks, no NUL added
    });
}

} // namespace Golden
