// The stream of the server through the reader of replies, into the session, its lists and the device status,
// with any flags that a dialog can have left.

#include "device/device_tree.h"
#include "fuzz/check.h"
#include "link/capabilities.h"
#include "link/device_list.h"

namespace {

/// A session without a connection, which lives through all runs as its making takes long.
class Client {
public:
    Client() {
        using S = Session;
        On(&S::CommandChecked, [](int slot, bool) { return slot >= 0 && slot <= 256; });
        On(&S::OverwriteAsked, [this](const ResultReply& result) {
            session.AnswerOverwrite(result, confirms);
            return true;
        });
        On(&S::SaveConfirmed, [this](SaveOwnerKind owner) { return confirms && owner == session.SaveOwner; });
        On(&S::NamesReady, [this](ReplyType) { return session.ListCount == session.NameList.size(); });
        On(&S::BusesReady, [this] { return session.ListCount == int(session.BusList.size()); });
        On(&S::CommandsReady, [this](int bits) { return bits != 0 && (session.ListOwner & bits) == bits; });
        const auto isTaken = [this](qint32 next) {
            return next == session.TransferIndex + 1 && session.PendingOp == Pending::None;
        };
        On(&S::TranslatorElementTaken, isTaken);
        On(&S::DatabaseElementTaken, isTaken);
        const auto isPage = [](const auto& page) {
            constexpr int most = ElementsPerPage<std::decay_t<decltype(page.elements.front())>>;
            return page.head.Count == int(page.elements.size()) && page.head.Count <= most;
        };
        On(&S::TranslatorPageReceived, isPage);
        On(&S::DatabasePageReceived, isPage);
        On(&S::StatusReceived, [](QByteArrayView page) { return page.size() == StatusHead::PageSize; });
        On(&S::LogReceived, [](const QString& text) { return !text.contains(QChar(0)); });
    }

    void SetFlags(Input& input) {
        static constexpr std::array owners = {SaveOwnerKind::None, SaveOwnerKind::Translator,
                                              SaveOwnerKind::Database};
        session.PendingOp = Pending(input.Below(int(Pending::DatabaseElement) + 1));
        session.ListOwner = input.Below(64);
        session.TransferIndex = input.Below(0x8000);
        session.SaveOwner = owners[size_t(input.Below(3))];
        session.FlashIsDatabase = input.ConsumeBool();
        confirms = input.ConsumeBool();
    }

    Session session;

private:
    template <class... Arguments, class Holds> void On(void (Session::*signal)(Arguments...), Holds holds) {
        QObject::connect(&session, signal, [holds](Arguments... arguments) { Check(holds(arguments...)); });
    }

    bool confirms = false; ///< the user's answer
};

void CheckStatus(const StatusStore& status) {
    Check(status.BusTotal() >= 0 && status.BusTotal() <= StatusStore::MostBuses);
    Check(status.Buses().size() <= size_t(StatusStore::MostBuses));
    for (const quint32 bit : {Capability::Translator, Capability::Pages})
        Check(status.HasDevice(bit) == !ListDevices(status, bit).empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    static Client client;
    client.session.NameList = client.session.CommandList1 = client.session.CommandList2 =
        client.session.CommandList3 = {};
    client.session.BusList.clear();
    Input input(data, size);
    client.SetFlags(input);
    StatusStore status(client.session);
    QObject::connect(&status, &StatusStore::DevicesWanted, [&status] { CheckStatus(status); });
    ReplyReader reader(client.session);
    // In as many parts as the flags change.
    for (int parts = input.Below(4); parts >= 0; --parts) {
        const QByteArray stream = parts > 0 ? input.Bytes(size_t(input.Below(0x1000))) : input.Rest();
        for (QByteArrayView left = stream; !left.isEmpty();)
            reader.Read(left);
        client.SetFlags(input);
    }
    return 0;
}
