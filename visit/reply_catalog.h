#pragma once

#include "link/replies.h"

#include <utility>
#include <vector>

/// A reply, or a text frame if it has no type.
struct CatalogReply {
    ReplyType type{};
    QByteArray payload;

    /// The bytes of the wire.
    QByteArray Bytes() const {
        if (type == ReplyType())
            return "**" + QByteArray::number(payload.size() + Wire::ReplyHeaderSize).rightJustified(5, '0') +
                   '!' + payload;
        return EncodeReply(type, payload);
    }
};

/// A page with the one element that ends its list.
template <class Element> QByteArray CatalogPage(const Element& element) {
    return EncodePage(ListPage<Element>{{0, 1, 1, 0}, {element}});
}

/// A status of one bus: a device with translator, database and pages, and one with extended settings.
inline QByteArray CatalogStatus() {
    DeviceEntry all;
    all.Version = QStringLiteral("G5.19.07");
    all.Capabilities = 0xFFFFFFFF;
    DeviceEntry extended;
    extended.Version = QStringLiteral("F6.04.43");
    extended.ExtCapabilities = 0xC87F6D00;
    QByteArray page(StatusHead::PageSize, '\0');
    page.replace(0, StatusHead::Size, Encode(StatusHead{0, 1, {}}));
    page.replace(StatusHead::EntryOffset(0, 0), DeviceEntry::Size, Encode(all));
    page.replace(StatusHead::EntryOffset(0, 3), DeviceEntry::Size, Encode(extended));
    return page;
}

/// Whole and well-formed replies of every type, for those who send them all. Every text could be taken for
/// rich text.
inline std::vector<CatalogReply> CatalogReplies() {
    const QString text = QStringLiteral("<b>x</b>&y");
    const auto result = [&](int code, qint16 detail) {
        return CatalogReply{ReplyType::Result, Encode(ResultReply{ResultCode(code), detail, text})};
    };
    const auto received = [&](const QString& data) {
        return CatalogReply{ReplyType::Received, Encode(ReceivedReply{text, text, data})};
    };
    const QByteArray names = CatalogPage(NameElement{text});
    IRDBElementRecord remote;
    remote.number = 1;
    remote.ElementKind = IRDBElementRecord::Remote;
    remote.remote = text;
    IRDBElementRecord action = remote;
    action.number = 2;
    action.ElementKind = IRDBElementRecord::FirstAction;
    action.command = text;
    action.action = "say";
    action.dataLength = 3;
    return {
        {ReplyType::Received, {}},
        result(6, 0),
        result(int(ResultCode::LearnFailed), 3),
        result(int(ResultCode::FileExists), 0),
        result(int(ResultCode::UnknownCommand), 1),
        result(int(ResultCode::KnownCommand), 1),
        received(text),
        received(QStringLiteral("F0")),
        received(QStringLiteral("F1")),
        received(QStringLiteral("F2")),
        {ReplyType::LearnedData, QByteArray(LearnedDataReply::Size, '\1')},
        {ReplyType::LearnState, Encode(LearnStateReply{LearnStateReply::Learned, 38, text, 1, 1, text})},
        {ReplyType::Remotes, names},
        {ReplyType::TranslatorSets, names},
        {ReplyType::DatabaseSets, names},
        {ReplyType::Commands, CatalogPage(CommandElement{text})},
        {ReplyType::Buses, CatalogPage(BusElement{-1, -1, text, QStringLiteral("6.0"), -1, 1, 1, 1, 1})},
        {ReplyType::TranslatorElements, CatalogPage(TranslatorRequest())},
        {ReplyType::DatabaseElements, Encode(PageHead{0, 1, 3, 1}) + Encode(IRDBGlobalRecord())},
        {ReplyType::DatabaseElements,
         EncodePage(ListPage<IRDBElementRecord>{{0, 2, 2, 0}, {remote, action}})},
        {ReplyType::ServerInfo, QByteArray(8, '\1')},
        {ReplyType::ServerVersion, Encode(ServerInfoReply{text})},
        {ReplyType::DatabaseStatus,
         Encode(IRDBStatusRecord{QStringLiteral("100"), QStringLiteral("64K"), text, text, text})},
        {ReplyType::Analog, QByteArray(AnalogValues::Size, '\2')},
        {ReplyType::Log, "    <b>A line</b>\n" + QByteArray(7, '\0')},
        {ReplyType::Status, CatalogStatus()},
        {{}, "RESULT_HTML_FILELIST <b>a</b>;12;01.01.2020;."},
        {{}, "RESULT_HTML_FLASH E<b>x</b>."},
        {{}, "RESULT_HTML_FLASH O12."},
    };
}
