#pragma once

#include "link/session.h"

/// The device status: a snapshot of every device on every bus, fetched page by page when somebody needs it
/// and kept until the next one. The only copy of device data in the program; who reads it must not write into
/// it.
///
/// The arrival of the last page opens what the status was asked for, by the signals below.
class StatusStore : public QObject {
    Q_OBJECT

public:
    static constexpr int Pages = 8;
    static constexpr int MostBuses = Pages * StatusHead::Buses;

    /// @name Bits of `Capabilities` that decide which device can open a dialog
    /// @{
    static constexpr quint32 HasTranslator = 0x00000200;
    static constexpr quint32 HasDatabase = 0x02000000;
    static constexpr quint32 HasPages = 0x80000000; ///< it serves web pages of its own
    /// @}

    explicit StatusStore(Session& session, QObject* parent = nullptr);

    /// @name What the arrival of the last page is to open; the device view if none is set
    /// An error leaves them as they are, and the next status opens it. A new connection clears them.
    /// @{
    bool OpenHTML = false;
    bool OpenDatabase = false;
    bool OpenTranslator = false;
    /// @}

    /// Asks the server for a new status. False if the request didn't go out.
    bool Request();

    /// Buses of the last status over all pages, at most MostBuses.
    int BusTotal() const { return busTotal; }

    /// Pages of the present status; what stands beyond them is from an earlier one.
    int PageCount() const { return (busTotal + StatusHead::Buses - 1) / StatusHead::Buses; }

    /// Buses of page `page`, 0 to 8; `PageBuses`.
    int BusesOn(int page) const;

    /// Address of the local device of a bus.
    int LocalAddress(int page, int bus) const;

    bool IsOccupied(int page, int bus, int address) const;
    DeviceEntry Device(int page, int bus, int address) const;
    quint32 Capabilities(int page, int bus, int address) const;

    /// Slots of the present status that aren't empty.
    int DeviceCount() const;

    /// Whether any device of the present status has one of the bits.
    bool HasDevice(quint32 capability) const;

signals:
    /// The status is complete, and this is what it was for. `found`: there is a device for it.
    void HtmlWanted();
    void DatabaseWanted(bool found);
    void TranslatorWanted(bool found);
    void DevicesWanted();
    /// The server has more than MostBuses buses; the others are not in the store.
    void BusesLeftOut();

private:
    void ProcessDeviceStatus(QByteArrayView page);
    void Complete();
    const char* Entry(int page, int bus, int address) const;

    Session& session;
    std::array<QByteArray, Pages> StatusPages; ///< byte 3 of a stored page holds its `PageBuses`
    int busTotal = 0;
    int expectedBus = 0; ///< first bus of the page that is due; a status begins with 0
};
