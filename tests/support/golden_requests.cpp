#include "support/golden.h"

namespace Golden {

// All but the hello begin with netcommand and unnamed bytes, and have the version 210 at offset 8.

QByteArray Hello() {
    return Hex("00 00 00 00");
}

QByteArray PressTvPower() {
    return Hex("01 00 0000 03010000 D2000000") +    // send a command, no timeout yet, param 0x103
           Blanks("tv", 80) + Blanks("power", 20) + // remote, command
           Hex("00");                               // carrier, none stored yet
}

QByteArray LearnAtLimits() {
    return Hex("0D 00 3075 FE030080 D2000000") +             // learn RAW repeat, 30000 ms, param 0x800003FE
           Ascii("K\374che-") + Fill(73, 'x') + Ascii("!") + // remote in all 80 characters, so no NUL
           Blanks("\326ffnen \200", 20) +                    // command: "Öffnen €"
           Hex("FF");                                        // carrier 255 kHz
}

QByteArray SetMode() {
    return Hex("46 21 0000") +                         // set the mode, Mode
           Hex("0F07 0000 D2000000") +                 // DeviceTag: bus 7, address 15
           Blanks("tv", 80) + Blanks("power", 20) +    // HotRemote, HotCommand
           Blanks("player", 80) + Blanks("stop", 20) + // HotRemote2, HotCommand2
           Hex("FE7FFFFF 31 32") +                     // SendMask 0xFFFF7FFE, ExtMode, ExtMode2
           Hex("02 1A 2B 3C 4D 5E") +                  // mac
           Hex("51 52 53 54") +                        // Receivers, ReceiveTimeout, ReceiveTiming, CodeFlags
           Hex("55 56 57 58");                         // ToggleConfig, IOFlags, SerialFlags, ExtFlags
}

QByteArray LcdText() {
    return Hex("1D 00 02 00 4C000000 D2000000") +          // text for a display, always 2, "L"
           Hex("28 04") +                                  // 40 columns, 4 lines
           Ascii(" Guten Tag, K\374che") + Fill(183, ' '); // blank kept, no NUL, to the end of the field
}

QByteArray SerialText() {
    return Hex("3D 000000 04030281 D2000000") +     // serial text, param 0x81020304
           Hex("08 000000") +                       // 8 bytes of text
           Ascii("VOL +\374\r\n") + Fill(248, ' '); // text, no NUL
}

QByteArray StoreCcf() {
    return Hex("44 000000 00000000 D2000000") +           // store a CCF code
           Blanks(" tv ", 80) + Blanks(" power ", 20) +   // remote and command, their blanks kept
           Blanks("0000 006D 0001 0000 0010 0020", 5400); // code, 29 characters
}

QByteArray TranslatorMacro() {
    return Hex("14") + Fill(7, 0) + Hex("D2000000 E8030201") + // translator element, ElementIndex 0x010203E8
           Hex("3A 67 08") + // ElementFlags; ElementType 103: a macro of three steps; ElementParam
           Hex("95 EE02") +  // ElementRepeat, ElementPause 750 ms
           Hex("28 27") +    // RemoteIndex 40, GroupIndex 39
           Blanks("amp", 80) + Blanks("mute", 20) + // remote, command
           Hex("FEFF0000 FF7F0080") +               // ElementReceiveMask 65534, ElementSendMask 0x80007FFF
           Hex("FF 01 81 03");                      // MultiIndex 255, IncludeNames, ElementIO, ElementIOValue
}

QByteArray DatabaseGlobal() {
    QByteArray record =
        Hex("2E") + Fill(7, 0) + Hex("D2000000 00000000") + // database element
        Hex("6D 09 51C3") +                          // GlobalFlags, ElementKind: global record, port 50001
        Blanks("%r,%c\\r\\n", 100) +                 // default action format
        Blanks("ERROR %e", 20) + Blanks("OK", 20) +  // status formats
        Hex("81 02 83 04") +                         // modes, 0 and 2 send to the host
        Hex("11 12 13 14 21 22 23 E4") +             // minimum, maximum
        Hex("31 32 33 34") +                         // hysteresis
        Hex("06 07 08 09 05 0A 0B 01") +             // minimum LED, maximum LED
        Hex("FFFF0000 01800000 02400000 FDFFFFFF") + // minimum send mask 65535, 32769, 16386, -3
        Hex("F00F0000 0FF00000 33CC0000 04030281");  // maximum: 0xFF0, 0xF00F, 0xCC33, 0x81020304
    // Of the minimum, then of the maximum: the remotes of inputs 0 to 3, their commands.
    for (const char* kind : {"min-", "max-"})
        for (const auto& [name, width] : {std::pair("remote-", 80), std::pair("command-", 50)})
            for (const char* input : {"0", "1", "2", "3"})
                record += Blanks(Ascii(kind) + name + input, width);
    return record + Hex("0407A8C0 11111111"); // IP 192.168.7.4, always 17
}

QByteArray DatabaseRemote() {
    return Hex("2E") + Fill(7, 0) + Hex("D2000000 01000000") + // database element, number 1
           Hex("00 08") +                           // RelayByte of actions only, ElementKind: a remote
           Hex("0A 00") +                           // ElementFlags: UDP and RS232 port 2; no data length
           Fill(8, 0) + Hex("04030201 921F 0000") + // IP 1.2.3.4, port 8082
           Blanks("amp", 80) + Blanks("", 20) +     // remote, command of actions only
           Blanks("%r!", 256);                      // default action text; the NUL belongs to the data
}

QByteArray DatabaseBinaryAction() {
    return Hex("2E") + Fill(7, 0) + Hex("D2000000 02000000") + // database element, number 2
           Hex("CB 0D") + // RelayByte: relay 3, "I"; ElementKind: action group 3
           Hex("0B 05") + // ElementFlags: binary, default, RS232 port 1; data length
           Fill(8, 0) + Hex("010000E0 FEFF 0000") + // IP 224.0.0.1, port 65534
           Blanks("amp", 80) + Blanks("mute", 20) + // remote, command
           Hex("00 FE 00 20 00") + Fill(251, ' ');  // five bytes of data, blanks, no NUL added
}

} // namespace Golden
