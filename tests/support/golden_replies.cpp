#include "support/golden.h"

namespace Golden {

QByteArray BareHeader() {
    return Hex("00000000 0800 0400"); // not read, Length with the header, Type
}

QByteArray Result() {
    return Hex("0000 0400 0201 0000") +  // Code 4, Detail 258
           Nuls("Zeit\374berlauf", 256); // Text
}

QByteArray LearnedData() {
    return Hex("3412 0000 15 06 03 2D") + // Address 0x1234, Mode, TimeCount, RepeatCount, RepeatPause
           Hex("01 10 02 20 03 30 04 40 05 50 FF FF") + // PauseLen 0x1001 to 0x5005, -1
           Hex("11 01 12 02 13 03 14 04 15 05 00 80") + // PulseLen 0x111 to 0x515, -32768
           Nuls("0110", 176);                           // Data
}

QByteArray Received() {
    return Fill(4, 0) + Nuls("tv", 80) + Nuls("power", 20) + // Remote, Command
           Nuls("bus 1, LED 2", 200);                        // Data
}

QByteArray LearnState() {
    return Hex("0000 03 26") +                  // Flags: learned, carrier measured; Carrier 38 kHz
           Nuls("amp", 80) + Hex("0201 0403") + // Remote, TimingCount 258, CommandCount 772
           Nuls("1A2B", 176);                   // Code
}

// Pages begin with Offset, Count, Total and More.

QByteArray NamesPage() {
    return Hex("2800 0200 2C01 0100") +   // from 40 on 2 of 300
           Fill(8, 0) + Nuls("amp", 80) + // name
           // A name in all 80 characters, so no NUL.
           Fill(8, 0) + Ascii("K\374che ") + Fill(73, 'n') + Ascii("!");
}

QByteArray CommandsPage() {
    return Hex("C800 0300 CB00 0000") + // from 200 on 3 of 203, the last ones
           Nuls("power", 20) + Ascii("a command of 20 chr.") + Nuls("mute", 20); // one name without a NUL
}

QByteArray BusesPage() {
    return Hex("0300 0200 0600 0900") +                  // from 3 on 2 of 6
           Hex("01020304 05060788") +                    // capability words A and B
           Nuls("K\374chenbus", 60) + Nuls("V2.10", 8) + // name, version
           Hex("090A0B0C 00000000") +                    // capability word C
           Hex("E1 E2 E3 E4") +       // learn defaults, tolerance index, receivers, time-out
           Hex("21222324 25262728") + // the same of the second bus,
           Ascii("Bus ") + Fill(55, 'b') + Ascii("!V3.11.07") + // whose texts have no NUL
           Hex("292A2BAC 00000000 D1 D2 D3 D4");
}

QByteArray TranslatorPage() {
    return Hex("0500 0100 E903 0200") + TranslatorMacro();
}

QByteArray DatabaseElementPage() {
    return Hex("0100 0200 0300 0000") + DatabaseRemote() + DatabaseBinaryAction();
}

QByteArray ServerVersion() {
    return Fill(8, 0) + Ascii("V6.12.03"); // version without a NUL
}

QByteArray DatabaseStatus() {
    return Nuls("30123", 32) + Nuls("128K", 8) +             // flash usage in 16-bit words, flash size
           Nuls("12", 8) + Nuls("345", 8) + Nuls("6789", 8); // remotes, commands, action codes
}

QByteArray AnalogPlain() {
    return Hex("00 01 03 04 05 06 07 08 09") + // Mode of inputs 0 to 7
           Hex("80 FF 21 22 23 24 25 26") +    // values
           Fill(9, 0);                         // used by temperatures only
}

QByteArray AnalogDegrees() {
    return Hex("00 02 02 02 02 00 01 03 04 00") + // Mode of inputs 0 to 7, a byte of plain values
           Hex("6608 0CFE FF7F 0080") +           // 21.50, -5.00, 327.67, -327.68 degrees
           Hex("0100 0200 0300 FFFF");            // 0.01, 0.02, 0.03, -0.01 degrees
}

QByteArray Device() {
    return Hex("01020384 11 12 13") + Fill(5, 0) +      // SendMask 0x84030201, Mode, ExtMode, ExtMode2
           Hex("212223A4 313233B4 414243C4 00000000") + // Capabilities, ExtCapabilities, ExtCapabilities2
           Hex("51 52 53 54") +                         // Receivers, ReceiveTimeout, ReceiveTiming, CodeFlags
           Hex("55 56 57 58") +                         // ToggleConfig, IOFlags, SerialFlags, ExtFlags
           Nuls("LV6.12.03", 10) +                      // Version: kind "L"
           Nuls("tv", 80) + Nuls("power", 20) +         // HotRemote, HotCommand
           Nuls("@@@~~~LAN~~~@@@", 80) +                // HotRemote2: a MAC address follows
           Nuls(Hex("02 00 2B 3C 00 5E"), 20) +         // HotCommand2: 02-00-2B-3C-00-5E
           Fill(2, 0);
}

QByteArray StatusPage() {
    return Hex("0000 08 10") +              // FirstBus, BusTotal
           Hex("0F 0E 0D 0C 0B 0A 09 07") + // LocalAddress of the eight buses
           Fill(37 * 248, 0) + Device() +   // bus 2, address 5
           Fill(89 * 248, 0) + Device();    // bus 7, address 15
}

} // namespace Golden
