#pragma once

#include "practice/set_shelf.h"

#include "link/replies.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// What the practice server pretends to have: learned remotes, stored sets, buses with their devices, analog
/// inputs and page files.
struct World {
    struct Command {
        QString name;
        QString code = {}; ///< as a receiver would show it; empty: the server makes one
    };
    struct Remote {
        QString name;
        std::vector<Command> commands;
        int timings = 1;
        QString lastCode = {}; ///< what was learned last
    };
    struct Bus {
        BusElement element;
        quint8 localAddress = 0;
        std::map<int, DeviceEntry> devices; ///< by address, 0 to 15
    };
    struct AnalogInput {
        static constexpr quint8 Temperature = 2;

        quint8 mode = 0;  ///< 0 not enabled, Temperature, else plain value
        qint16 value = 0; ///< hundredths of a degree, or a byte
        qint16 swing = 0; ///< how far it moves to both sides of `value`
        int readings = 0;

        /// What the input shows now. It moves on with each reading and never leaves its range.
        qint16 Read();
    };
    struct PageFile {
        QString name;
        int length = 0; ///< bytes
        QString date;
    };

    std::vector<Remote> remotes;
    SetShelf translatorSets{QStringLiteral(".translator"), 0, TranslatorRequest::Size};
    SetShelf databaseSets{QStringLiteral(".database"), IRDBGlobalRecord::Size, IRDBElementRecord::Size};
    std::vector<Bus> buses; ///< at most 64
    std::array<AnalogInput, 8> analogInputs;
    std::vector<PageFile> pageFiles;

    /// The remote of that name; null if there is none.
    const Remote* FindRemote(const QString& name) const;
    Remote* FindRemote(const QString& name);

    /// Gives a remote a command of that name, or the one that it has this code.
    static void StoreCommand(Remote& remote, const QString& name, const QString& code);

    /// A code such as "RC5 03 1F" for the command of that name, which the remote of this world may not have
    /// yet.
    QString MakeCode(const QString& kind, const Remote& remote, const QString& command) const;

    /// The code of a command as a receiver would show it; nothing if it isn't known. Never begins with "F",
    /// which would mark the result of a flash.
    std::optional<QString> FindCode(const QString& remote, const QString& command) const;

    /// The device that a `DeviceTag` names; `entry` is null if there is none.
    struct DevicePlace {
        int bus = 0;
        int address = 0;
        DeviceEntry* entry = nullptr;
    };

    /// A tag is bus * 256 + address. A device that is alone in the world goes by its plain address as well.
    DevicePlace FindDevice(int tag);

    /// Adds a remote with so many commands.
    void AddLargeRemote(int commands);
    /// Adds remotes until there are so many.
    void AddRemotesUpTo(int count);

    /// Stores sets of both kinds, with more than a page each.
    void AddLivingRoomSets();

    /// A living room with what its panel needs, and one bus more than a page of the status holds.
    static World LivingRoom();
};

/// What the living room's devices have learned.
std::vector<World::Remote> LivingRoomRemotes();

/// Buses and devices of the living room: every kind of device, with old and new firmware.
std::vector<World::Bus> LivingRoomBuses();
