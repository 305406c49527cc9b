#include "device/device_names.h"
#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"
#include "device/set_modus_ex_record.h"
#include "device/set_modus_ex_rules.h"
#include "link/capabilities.h"

namespace ModusEx {

namespace {

/// A network device on which waking is the only choice. A power-on command that it has goes back as it came.
constexpr char16_t WakeOnly = u'W';

constexpr quint32 OwnLinks = Capability::SerialPort | Capability::UsbWakeup | Capability::AuxSpeed;

/// Goes through the groups of controls in an order that matters: what is selected in one enables and clears
/// controls of others.
class Filler {
public:
    explicit Filler(const DeviceEntry& entry)
        : entry(entry)
        , bytes(entry) {
        state.extCapabilities = entry.ExtCapabilities;
    }

    State Fill() {
        FillReceivers();
        FillModes();
        FillReception();
        FillCodes();
        SelectBusPort();
        FillBus();
        FillPower();
        SelectOtherBusPort();
        DisableMissingBus();
        SelectIrPorts();
        FillSerial();
        FillRest();
        if (IsKind(entry, {DeviceKind::DisplayBoard, DeviceKind::Display}))
            FillDisplay();
        return state;
    }

private:
    bool Has(quint32 capability) const { return (entry.Capabilities & capability) != 0; }
    bool HasExt(quint32 capability) const { return (entry.ExtCapabilities & capability) != 0; }

    void Read(Box box) { state.SetOn(box, bytes.Get(FieldOf(box)) != 0); }
    void Read(List list) { state.SelectCode(list, bytes.Get(FieldOf(list))); }
    template <class Control> void Offer(Control control) {
        state.Enable(control, true);
        Read(control);
    }

    void FillReceivers() {
        FillReceiver1(state, entry.Capabilities, bytes.Get(FieldOf(List::Receiver1)));
        if (Has(Capability::SecondReceiver)) {
            state.Enable(List::Receiver2, true);
            FillReceiver2(state, entry.Capabilities, entry.ExtCapabilities2,
                          bytes.Get(FieldOf(List::Receiver2)));
            Offer(Box::RCV2);
        }
        Read(Box::RCV1);
    }

    void FillModes() {
        for (const Box box : {Box::Mode0, Box::Mode1, Box::Mode2, Box::Mode3, Box::Mode4, Box::Mode5,
                              Box::Mode7, Box::Repeat, Box::Sort})
            Read(box);
        if (Has(Capability::Leds))
            for (const Box box : {Box::Ext0, Box::Ext1, Box::Ext5, Box::Ext6})
                Offer(box);
        // The receivers have enabled it.
        Read(Box::Ext4);
    }

    void FillReception() {
        for (const List list : {List::Tolerance, List::Filter, List::Idle})
            Read(list);
        state.SetContent(Text::Timeout, QString::number(bytes.Get(ReceiveTimeoutMs)));
        Read(Box::LongRepeat);
    }

    void FillCodes() {
        for (const Box box :
             {Box::RCMM, Box::ForceRCMM, Box::RCMMToggle, Box::RStep56, Box::RC5, Box::RC6, Box::RC6Toggle})
            Read(box);
        RcmmClicked(state);
        if (const int position = bytes.Get(TogglePosition); position > 0) {
            state.SetContent(Text::Toggle, QString::number(position - 1));
            Read(List::ToggleCount);
        }
        if (HasExt(ExtCapability::Cycle))
            Offer(List::Cycle);
        else
            state.Select(List::Cycle, 0);
    }

    /// As bus or state input.
    void SelectBusPort() {
        if (HasExt(ExtCapability::BusPortUses)) {
            state.Enable(List::IO, true);
            const bool isInput = bytes.Get(BusSpeedSet) == 0;
            const int input = bytes.Get(SharedSpeed);
            isBusFree = !isInput || input == 0;
            // An inversion without an input selects the last of the plain inputs, and the bus counts as free.
            state.Select(List::IO, isInput ? input + 3 * bytes.Get(InvertedInput) : BusPort::SerialBus);
        } else if (Has(Capability::SendMask)) {
            state.Select(List::IO, BusPort::SerialBus);
        }
        if (HasExt(ExtCapability::BusPortRelay) && bytes.Get(Rs232OutputOrRelay) != 0)
            isBusFree = false;
    }

    void FillBus() {
        if (!Has(Capability::SendMask)) {
            for (const Box box : {Box::Mode2, Box::Mode4, Box::Mode7})
                state.SetOn(box, false);
        } else {
            if (isBusFree) {
                state.EnableMask(true);
                for (const Box box : {Box::Mode2, Box::Mode4, Box::Mode7})
                    state.Enable(box, true);
            }
            state.SetMask(quint16(entry.SendMask));
            if (HasBusSend()) {
                if (isBusFree)
                    state.Enable(Box::SBUSSend, true);
                Read(Box::SBUSSend);
            }
        }
        if (isBusFree && Has(Capability::SerialBusSpeed)) {
            if (HasBusSpeed())
                state.Enable(List::SBUS, true);
            state.Select(List::SBUS, bytes.Get(BusSpeedSet) != 0 ? bytes.Get(SharedSpeed) + 1 : 0);
        } else {
            state.Select(List::SBUS, 0);
            state.areBusDefaultsDue = true;
        }
    }

    bool HasBusSend() const { return Has(Capability::SendMask) && HasExt(ExtCapability::BusSend); }
    /// A device that the bus alone links to the host would lose its link by another speed: none is offered.
    bool HasBusSpeed() const { return Has(Capability::SerialBusSpeed) && Has(OwnLinks); }

    void FillPower() {
        const bool isWakeOnly = IsKind(entry, {WakeOnly});
        if (!Has(Capability::NoPowerOn) || Has(Capability::PowerOn | Capability::PowerOnToo)) {
            OfferText(Text::Hotremote, entry.HotRemote);
            OfferText(Text::Hotcommand, entry.HotCommand);
        }
        if (isWakeOnly)
            for (const Text text : {Text::Hotremote, Text::Hotcommand})
                state.Enable(text, false);
        if (!Has(Capability::UsbWakeup))
            state.SetOn(Box::USBWakeup, false);
        else if (HasExt(ExtCapability::FreeUsbWakeup))
            Offer(Box::USBWakeup);
        else
            state.SetOn(Box::USBWakeup, true);

        if (isWakeOnly || IsKind(entry, {DeviceKind::Network, DeviceKind::NetworkToo})) {
            OfferText(Text::MAC, MacText(entry));
        } else if (Has(Capability::PowerOff)) {
            OfferText(Text::Hotremote2, entry.HotRemote2);
            OfferText(Text::Hotcommand2,
                      Wire::GetText({entry.HotCommand2.constData(), size_t(entry.HotCommand2.size())}));
        }
    }

    void OfferText(Text text, const QString& content) {
        state.Enable(text, true);
        state.SetContent(text, content);
    }

    /// As relay or RS232; and takes from the list what the device doesn't have.
    void SelectOtherBusPort() {
        const bool isOutput = bytes.Get(Rs232OutputOrRelay) != 0;
        if (HasExt(ExtCapability::BusPortRelay)) {
            state.Enable(List::IO, true);
            for (int code = BusPort::Rs232Output; code >= BusPort::StateInput; --code)
                state.RemoveEntry(List::IO, code);
            state.SelectCode(List::IO, isOutput ? BusPort::Relay : BusPort::SerialBus);
            return;
        }
        state.RemoveEntry(List::IO, BusPort::Relay);
        if (!HasExt(ExtCapability::BusPortSerial)) {
            state.RemoveEntry(List::IO, BusPort::Rs232Output);
            state.RemoveEntry(List::IO, BusPort::Rs232Input);
            return;
        }
        state.Enable(List::IO, true);
        if (isOutput)
            state.SelectCode(List::IO, BusPort::Rs232Output);
        if (bytes.Get(Rs232Input) != 0)
            state.SelectCode(List::IO, BusPort::Rs232Input);
        if (BusPort::IsRs232(state.Code(List::IO)))
            OfferAuxSpeed(AuxInShared);
    }

    /// The click rule of the connector enables all of the bus, also what this device doesn't have of it. What
    /// has nothing to send is disabled again; a mask or a speed that is set goes out.
    void DisableMissingBus() {
        if (!Has(Capability::SendMask)) {
            if (state.Mask() == 0)
                state.EnableMask(false);
            for (const Box box : {Box::Mode2, Box::Mode4, Box::Mode7})
                state.Enable(box, false);
        }
        if (!HasBusSend())
            state.Enable(Box::SBUSSend, false);
        if (!HasBusSpeed() && state.Index(List::SBUS) <= 0)
            state.Enable(List::SBUS, false);
    }

    void SelectIrPorts() {
        state.Select(List::IRInput, 0);
        if (HasExt(ExtCapability::IrInputState)) {
            state.Enable(List::IRInput, true);
            for (int code = IrInput::State; code <= IrInput::LastState; ++code)
                state.AddEntry(List::IRInput, code);
            if (const int input = bytes.Get(IrInputState); input > 0)
                state.SelectCode(List::IRInput, input);
        }
        if (!HasExt(ExtCapability::IrPortSerial))
            return;
        Offer(Box::IROutRS232);
        state.Enable(List::IRInput, true);
        state.AddEntry(List::IRInput, IrInput::Rs232Output);
        if (bytes.Get(Rs232OutputOrRelay) != 0)
            state.SelectCode(List::IRInput, IrInput::Rs232Output);
        if (HasExt(ExtCapability::IrInputSerial)) {
            state.AddEntry(List::IRInput, IrInput::Rs232Input);
            if (bytes.Get(Rs232Input) != 0)
                state.SelectCode(List::IRInput, IrInput::Rs232Input);
        }
        if (IsIrPortSerial(state))
            OfferAuxSpeed(AuxInShared);
    }

    void OfferAuxSpeed(const SpeedPlace& place) {
        state.Enable(List::AuxBaudrate, true);
        state.Select(List::AuxBaudrate, place.In(bytes));
        EnableSerialFormat(state, entry.ExtCapabilities);
    }

    void FillSerial() {
        if ((entry.ExtCapabilities2 & ExtCapability2::AuxSpeed) != 0 && HasExt(ExtCapability::AuxSpeed))
            OfferAuxSpeed(AuxInShared);
        if (Has(Capability::SerialPort)) {
            const bool isPortSpeedAux = Has(Capability::AuxSpeed);
            if (isPortSpeedAux) {
                OfferAuxSpeed(AuxInPort);
            } else {
                state.Enable(List::Baudrate, true);
                state.Select(List::Baudrate, PortSpeed.In(bytes));
            }
            if (isPortSpeedAux || HasExt(ExtCapability::RtsCts))
                Offer(Box::RTS);
        }
        for (const List list : {List::Databits, List::Stopbits, List::Parity})
            if (state.IsEnabled(list))
                Read(list);
        if ((state.IsEnabled(List::AuxBaudrate) || state.IsEnabled(List::Baudrate)) &&
            HasExt(ExtCapability::Udp))
            Offer(Box::UDP);
    }

    void FillRest() {
        Read(Box::StateInternal);
        Read(Box::StateExternal);
        if (HasExt(ExtCapability::FreeRC5))
            Offer(Box::RC5free);
        if (HasExt(ExtCapability::EmulateOutputs))
            Offer(Box::EmulateExternal);
        if (IsFrom(entry, u"6.04.43"))
            Offer(Box::XLong);
    }

    void FillDisplay() {
        using namespace DisplayBits;
        for (const List list : {List::Date, List::Time, List::Aktiv, List::Inaktiv})
            state.Enable(list, true);
        state.Select(List::Date, DateIndex(Date.Of(entry.SendMask)));
        state.Select(List::Time, Time.Of(entry.SendMask));
        state.Select(List::Inaktiv, Inactive.Of(entry.SendMask));
        state.Select(List::Aktiv, Active.Of(entry.SendMask));
        if (!IsKind(entry, {DeviceKind::Display}))
            return;
        for (const List list : {List::Inaktiv, List::Aktiv}) {
            state.AddEntry(list, BrightnessOff);
            if ((list == List::Inaktiv ? InactiveOff : ActiveOff).Of(entry.SendMask) != 0)
                state.SelectCode(list, BrightnessOff);
        }
    }

    const DeviceEntry& entry;
    const Bytes bytes;
    State state;
    bool isBusFree = true; ///< the bus connector is in no other use
};

} // namespace

State FillSetModusEx(const DeviceEntry& entry) {
    return Filler(entry).Fill();
}

} // namespace ModusEx
