#include "support/golden.h"

namespace Golden {

QByteArray BareHeader() {
    return Join({
        Fill(4, 0),   // not read
        Hex("08 00"), // Length, header included
        Hex("04 00"), // Type
    });
}

QByteArray Result() {
    return Join({
        Fill(2, 0),                                   // not read
        Hex("04 00"),                                 // Code 4
        Hex("02 01"),                                 // Detail 258
        Fill(2, 0),                                   // not read
        Ascii("Zeit") + Hex("FC") + Ascii("berlauf"), // Text: "Zeitüberlauf"
        Fill(244, 0),                                 //   filled up
    });
}

QByteArray LearnedData() {
    return Join({
        Hex("34 12"),                               // Address 0x1234
        Fill(2, 0),                                 // not read
        Hex("15"),                                  // Mode
        Hex("06"),                                  // TimeCount
        Hex("03"),                                  // RepeatCount
        Hex("2D"),                                  // RepeatPause
        Hex("01 10 02 20 03 30 04 40 05 50 FF FF"), // PauseLen 0x1001 to 0x5005, -1
        Hex("11 01 12 02 13 03 14 04 15 05 00 80"), // PulseLen 0x111 to 0x515, -32768
        Ascii("0110") + Fill(172, 0),               // Data
    });
}

QByteArray Received() {
    return Join({
        Fill(4, 0),                           // not read
        Ascii("tv") + Fill(78, 0),            // Remote
        Ascii("power") + Fill(15, 0),         // Command
        Ascii("bus 1, LED 2") + Fill(188, 0), // Data
    });
}

QByteArray LearnState() {
    return Join({
        Fill(2, 0),                   // not read
        Hex("03"),                    // Flags: learned, carrier measured
        Hex("26"),                    // Carrier 38 kHz
        Ascii("amp") + Fill(77, 0),   // Remote
        Hex("02 01"),                 // TimingCount 258
        Hex("04 03"),                 // CommandCount 772
        Ascii("1A2B") + Fill(172, 0), // Code
    });
}

QByteArray NamesPage() {
    return Join({
        Hex("28 00"),                           // Offset 40
        Hex("02 00"),                           // Count
        Hex("2C 01"),                           // Total 300
        Hex("01 00"),                           // More
        Fill(8, 0),                             // not read
        Ascii("amp") + Fill(77, 0),             // name
        Fill(8, 0),                             // not read
        Ascii("K") + Hex("FC") + Ascii("che "), // name: "Küche ",
        Fill(73, 'n') + Ascii("!"),             //   in all 80 characters, so no NUL
    });
}

QByteArray CommandsPage() {
    return Join({
        Hex("C8 00"),                  // Offset 200
        Hex("03 00"),                  // Count
        Hex("CB 00"),                  // Total 203
        Hex("00 00"),                  // More: no
        Ascii("power") + Fill(15, 0),  // name
        Ascii("a command of 20 chr."), // name without a NUL
        Ascii("mute") + Fill(16, 0),   // name
    });
}

QByteArray BusesPage() {
    return Join({
        Hex("03 00"), // Offset 3
        Hex("02 00"), // Count
        Hex("06 00"), // Total
        Hex("09 00"), // More

        Hex("01 02 03 04"),                        // capability word A 0x04030201
        Hex("05 06 07 88"),                        // capability word B 0x88070605
        Ascii("K") + Hex("FC") + Ascii("chenbus"), // name: "Küchenbus"
        Fill(51, 0),                               //   filled up
        Ascii("V2.10") + Fill(3, 0),               // version
        Hex("09 0A 0B 0C"),                        // capability word C 0x0C0B0A09
        Fill(4, 0),                                // not read
        Hex("E1"),                                 // learn defaults
        Hex("E2"),                                 // tolerance index
        Hex("E3"),                                 // receivers
        Hex("E4"),                                 // time-out

        Hex("21 22 23 24"),                         // capability word A 0x24232221
        Hex("25 26 27 28"),                         // capability word B 0x28272625
        Ascii("Bus ") + Fill(55, 'b') + Ascii("!"), // name without a NUL
        Ascii("V3.11.07"),                          // version without a NUL
        Hex("29 2A 2B AC"),                         // capability word C 0xAC2B2A29
        Fill(4, 0),                                 // not read
        Hex("D1"),                                  // learn defaults
        Hex("D2"),                                  // tolerance index
        Hex("D3"),                                  // receivers
        Hex("D4"),                                  // time-out
    });
}

QByteArray TranslatorPage() {
    return Join({
        Hex("05 00"), // Offset 5
        Hex("01 00"), // Count
        Hex("E9 03"), // Total 1001
        Hex("02 00"), // More
        TranslatorMacro(),
    });
}

QByteArray DatabaseElementPage() {
    return Join({
        Hex("01 00"), // Offset
        Hex("02 00"), // Count
        Hex("03 00"), // Total
        Hex("00 00"), // More: no
        DatabaseRemote(),
        DatabaseBinaryAction(),
    });
}

QByteArray ServerVersion() {
    return Join({
        Fill(4, 0),        // not used
        Fill(4, 0),        // not used
        Ascii("V6.12.03"), // version without a NUL
    });
}

QByteArray DatabaseStatus() {
    return Join({
        Ascii("30123") + Fill(27, 0), // flash usage in 16-bit words
        Ascii("128K") + Fill(4, 0),   // flash size
        Ascii("12") + Fill(6, 0),     // remotes
        Ascii("345") + Fill(5, 0),    // commands
        Ascii("6789") + Fill(4, 0),   // action codes
    });
}

QByteArray AnalogPlain() {
    return Join({
        Hex("00"),                      // not read
        Hex("01 03 04 05 06 07 08 09"), // Mode of inputs 0 to 7
        Hex("80 FF 21 22 23 24 25 26"), // values
        Fill(9, 0),                     // used by temperatures only
    });
}

QByteArray AnalogDegrees() {
    return Join({
        Hex("00"),                      // not read
        Hex("02 02 02 02 00 01 03 04"), // Mode of inputs 0 to 7
        Hex("00"),                      // used by plain values only
        Hex("66 08 0C FE FF 7F 00 80"), // 21.50, -5.00, 327.67, -327.68 degrees
        Hex("01 00 02 00 03 00 FF FF"), // 0.01, 0.02, 0.03, -0.01 degrees
    });
}

QByteArray Device() {
    return Join({
        Hex("01 02 03 84"),                     // SendMask 0x84030201
        Hex("11"),                              // Mode
        Hex("12"),                              // ExtMode
        Hex("13"),                              // ExtMode2
        Fill(5, 0),                             // not read
        Hex("21 22 23 A4"),                     // Capabilities 0xA4232221
        Hex("31 32 33 B4"),                     // ExtCapabilities 0xB4333231
        Hex("41 42 43 C4"),                     // ExtCapabilities2 0xC4434241
        Fill(4, 0),                             // not read
        Hex("51"),                              // Receivers
        Hex("52"),                              // ReceiveTimeout
        Hex("53"),                              // ReceiveTiming
        Hex("54"),                              // CodeFlags
        Hex("55"),                              // ToggleConfig
        Hex("56"),                              // IOFlags
        Hex("57"),                              // SerialFlags
        Hex("58"),                              // ExtFlags
        Ascii("LV6.12.03") + Hex("00"),         // Version: kind "L"
        Ascii("tv") + Fill(78, 0),              // HotRemote
        Ascii("power") + Fill(15, 0),           // HotCommand
        Ascii("@@@~~~LAN~~~@@@") + Fill(65, 0), // HotRemote2: a MAC address follows
        Hex("02 00 2B 3C 00 5E") + Fill(14, 0), // HotCommand2: 02-00-2B-3C-00-5E
        Fill(2, 0),                             // not read
    });
}

QByteArray StatusPage() {
    return Join({
        Fill(2, 0),                     // not read
        Hex("08"),                      // FirstBus
        Hex("10"),                      // BusTotal
        Hex("0F 0E 0D 0C 0B 0A 09 07"), // LocalAddress of the eight buses
        Fill(37 * 248, 0),              // bus 0 whole, bus 1 whole, bus 2 up to address 4
        Device(),                       // bus 2, address 5
        Fill(89 * 248, 0),              // up to bus 7, address 14
        Device(),                       // bus 7, address 15
    });
}

} // namespace Golden
