#include "practice/world.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 AllDevices = 0xFFFF;

// Kinds of translator elements.
constexpr quint8 Group = 0;
constexpr quint8 Command = 1;
constexpr quint8 Accelerated = 3; // with two steps
constexpr quint8 Root = 4;
constexpr quint8 Remote = 5;
constexpr quint8 Step = 6;
constexpr quint8 Multi = 7;
constexpr quint8 ToggleOfTwo = 72;
constexpr quint8 MacroOfThree = 103;

/// Puts a translator set together, in the order of its tree.
class TranslatorSet {
public:
    explicit TranslatorSet(const QString& name) {
        constexpr quint8 Flags = 10; // original codes go to the PC and translated ones to the bus
        TranslatorRequest element = Here(Root);
        element.ElementFlags = Flags;
        Add(element, name, {});
    }

    /// The container of what follows.
    struct Place {
        quint8 remote = 0;
        quint8 group = 0;
        quint8 multi = 0;
    };
    Place place = {};

    void AddRemote(const QString& name) { Add(Here(Remote), name, {}); }
    void AddReceived(quint8 type, const QString& remote, const QString& command, quint8 repeat = 0,
                     quint8 param = 0) {
        TranslatorRequest element = Here(type);
        element.ElementRepeat = repeat;
        element.ElementParam = param;
        element.ElementReceiveMask = AllDevices;
        element.IncludeNames = type != Group && type != Multi;
        Add(element, remote, command);
    }
    void AddStep(const QString& remote, const QString& command, qint16 pause = 0) {
        TranslatorRequest element = Here(Step);
        element.ElementPause = pause;
        element.ElementSendMask = AllDevices;
        Add(element, remote, command);
    }

    const RecordSet& Set() const { return set; }

private:
    TranslatorRequest Here(quint8 type) const {
        TranslatorRequest element;
        element.ElementType = type;
        element.RemoteIndex = place.remote;
        element.GroupIndex = place.group;
        element.MultiIndex = place.multi;
        return element;
    }

    void Add(TranslatorRequest element, const QString& remote, const QString& command) {
        element.ElementIndex = qint32(set.elements.size());
        element.remote = remote;
        element.command = command;
        if (element.ElementType == Root || element.ElementType == Remote)
            element.ElementReceiveMask = element.ElementSendMask = AllDevices;
        set.elements.append(Encode(element));
    }

    RecordSet set;
};

RecordSet LargeTranslatorSet(const QString& name) {
    TranslatorSet set(name);
    set.place = {.remote = 1};
    set.AddRemote(u"tv"_s);
    set.place.group = 1;
    set.AddReceived(Group, u"tv"_s, u"menu"_s);
    for (const QString& end : {u"+"_s, u"-"_s}) {
        set.AddReceived(Command, u"tv"_s, u"ch"_s + end);
        set.AddStep(u"light"_s, u"dim"_s + end);
    }
    set.place.group = 0;
    for (int digit = 0; digit <= 9; ++digit) {
        set.AddReceived(Command, u"tv"_s, QString::number(digit));
        set.AddStep(u"light"_s, u"scene%1"_s.arg(digit % 4 + 1));
    }
    set.AddReceived(Accelerated, u"tv"_s, u"vol+"_s, 0x12, 47);
    set.AddStep(u"amp"_s, u"vol+"_s);
    set.AddStep(u"amp"_s, u"bass+"_s);
    set.place = {.remote = 2};
    set.AddRemote(u"player"_s);
    set.AddReceived(MacroOfThree, u"player"_s, u"play"_s);
    set.AddStep(u"light"_s, u"off"_s, 100);
    set.AddStep(u"screen"_s, u"down"_s, 750);
    set.AddStep(u"amp"_s, u"bluray"_s, 100);
    set.place.multi = 1;
    set.AddReceived(Multi, u"player"_s, u"menu"_s);
    set.AddReceived(Command, u"player"_s, u"up"_s);
    set.AddStep(u"screen"_s, u"up"_s);
    set.place = {};
    set.AddReceived(ToggleOfTwo, u"amp"_s, u"mute"_s);
    set.AddStep(u"tv"_s, u"mute"_s, 100);
    set.AddStep(u"player"_s, u"pause"_s, 100);
    return set.Set();
}

RecordSet SmallTranslatorSet(const QString& name) {
    TranslatorSet set(name);
    set.AddReceived(Command, u"tv"_s, u"red"_s);
    set.AddStep(u"light"_s, u"on"_s);
    return set.Set();
}

// Flags of database elements.
constexpr quint8 RemoteUsesDefault = 0x01;
constexpr quint8 ActionUsesDefault = 0x02;

void AddElement(RecordSet& set, IRDBElementRecord element) {
    element.number = qint32(set.elements.size() + 1);
    set.elements.append(Encode(element));
}

void AddRemoteProperties(RecordSet& set, const QString& remote, const QByteArray& action) {
    IRDBElementRecord element;
    element.ElementKind = IRDBElementRecord::Remote;
    element.ElementFlags = RemoteUsesDefault;
    element.remote = remote;
    element.action = action + '\0';
    AddElement(set, element);
}

void AddActions(RecordSet& set, const QString& remote, const QString& command, char relay,
                const QByteArrayList& texts) {
    using Element = IRDBElementRecord;
    for (quint8 kind = Element::FirstAction; kind <= Element::LastAction; ++kind) {
        IRDBElementRecord element;
        element.RelayByte = quint8(relay);
        element.ElementKind = kind;
        element.ElementFlags = ActionUsesDefault;
        element.action = texts.value(kind - Element::FirstAction);
        element.dataLength = quint8(element.action.size());
        element.remote = remote;
        element.command = command;
        AddElement(set, element);
    }
}

RecordSet HouseDatabase() {
    constexpr quint8 Active = 0x01;
    IRDBGlobalRecord settings;
    settings.GlobalFlags = Active;
    settings.actionFormat = u"%r,%c\\r\\n"_s;
    settings.errorFormat = u"ERROR %e"_s;
    settings.okFormat = u"OK"_s;
    settings.minimumMask.fill(AllDevices);
    settings.maximumMask.fill(AllDevices);
    settings.mode[0] = 3;
    settings.minimum[0] = 20;
    settings.maximum[0] = 200;
    settings.hysteresis[0] = 5;
    settings.minimumRemote[0] = settings.maximumRemote[0] = u"light"_s;
    settings.minimumCommand[0] = u"on"_s;
    settings.maximumCommand[0] = u"off"_s;
    RecordSet set{Encode(settings), {}};
    AddRemoteProperties(set, u"amp"_s, "%r: %c");
    AddRemoteProperties(set, u"screen"_s, {});
    AddActions(set, u"amp"_s, u"power"_s, 'T', {"AMP", "amp is switched"});
    AddActions(set, u"screen"_s, u"up"_s, ' ', {"SCREEN UP"});
    AddActions(set, u"screen"_s, u"down"_s, ' ', {"SCREEN DOWN"});
    return set;
}

} // namespace

void World::AddLivingRoomSets() {
    translatorSets.Store(u"Wohnzimmer"_s, LargeTranslatorSet(u"Wohnzimmer"_s));
    translatorSets.Store(u"Demo"_s, SmallTranslatorSet(u"Demo"_s));
    databaseSets.Store(u"Haus"_s, HouseDatabase());
}
