#pragma once

#include "link/session.h"

/// Where a device is.
struct DevicePlace {
    int bus = 0;     ///< 0 to 63
    int address = 0; ///< 0 to 15

    bool operator==(const DevicePlace&) const = default;

    /// By this number the server is told of it: bus * 256 + address.
    constexpr qint16 DeviceTag() const { return qint16(bus * 256 + address); }
    /// "10.3"
    QString Text() const;
};

/// A bus of the status and the devices on it.
struct DeviceBus {
    struct Device {
        int address = 0; ///< 0 to 15
        DeviceEntry entry;
    };

    int number = 0;
    int localAddress = 0;        ///< address of its local device
    std::vector<Device> devices; ///< in the order of their addresses
};

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

    /// The buses of the present status by their numbers: those that each page that is there had.
    std::vector<DeviceBus> Buses() const;

    /// Whether any device of the present status has one of the bits of Capability.
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

    Session& session;
    std::array<QByteArray, Pages> StatusPages; ///< byte 3 of a stored page holds its `PageBuses`
    int busTotal = 0;
    int expectedBus = 0; ///< first bus of the page that is due; a status begins with 0
};
