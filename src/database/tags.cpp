#include "database/tags.h"

#include "base/address_text.h"
#include "database/address_texts.h"

#include <algorithm>

namespace {

// A tag's target:  0 address, four times three digits   12 port, five digits   17 four flags
constexpr qsizetype PortAt = 12;
constexpr qsizetype FlagsAt = 17;

// An action tag:  0 "A"   1 relay   2 its function   3 eight groups   195 eight texts, each behind its marker
// A group:  0 target   21 length of its text and marker, three digits
constexpr qsizetype GroupsAt = 3;
constexpr qsizetype LengthWidth = 3;
constexpr qsizetype GroupWidth = ActionTarget::Width + LengthWidth;
constexpr qsizetype TextsAt = GroupsAt + ActionTag::Groups * GroupWidth;

constexpr QChar TextMarker = u'A';
constexpr QChar BinaryMarker = u'B';
constexpr QChar ValidMarker = u'A';

ActionTarget ParseTarget(QStringView text) {
    const auto flag = [text](qsizetype index) { return text[FlagsAt + index] == u'1'; };
    return {TextToIP(text.first(PortAt)),
            quint16(TextToPort(text.sliced(PortAt))),
            flag(0),
            flag(1),
            flag(2),
            flag(3)};
}

QString FormatTarget(const ActionTarget& target) {
    QString text = IPToText(target.ip) + PortToText(qint16(target.port));
    for (const bool flag : {target.isDefault, target.udp, target.aux, target.aux2})
        text += flag ? u'1' : u'0';
    return text;
}

int HexValue(QChar c) {
    if (c >= u'0' && c <= u'9')
        return c.unicode() - u'0';
    const QChar capital = c.toUpper();
    if (capital >= u'A' && capital <= u'F')
        return capital.unicode() - u'A' + 10;
    return -1;
}

/// The hexadecimal number at the start of `run`, at most FF.
quint8 HexByte(QStringView run) {
    int number = 0;
    for (const QChar c : run) {
        const int digit = HexValue(c);
        if (digit < 0)
            break;
        number = std::min(number * 16 + digit, 255);
    }
    return quint8(number);
}

} // namespace

std::optional<RemoteTag> RemoteTag::Parse(QStringView text) {
    if (text.size() < ActionTarget::Width)
        return {};
    return RemoteTag{ParseTarget(text), text.sliced(ActionTarget::Width).toString()};
}

QString RemoteTag::Format() const {
    return FormatTarget(target) + action;
}

std::optional<ActionTag> ActionTag::Parse(QStringView text) {
    if (text.size() < TextsAt || text[0] != ValidMarker)
        return {};
    ActionTag tag;
    tag.relay = NumberWithin(text.sliced(1, 1), 0, 3);
    tag.function = text[2];
    qsizetype at = TextsAt;
    for (int g = 0; g < Groups; ++g) {
        const QStringView fixed = text.sliced(GroupsAt + g * GroupWidth, GroupWidth);
        const qsizetype stated = NumberWithin(fixed.sliced(ActionTarget::Width), 0, TextMax + 1);
        const QStringView data = text.sliced(at, std::min(stated, text.size() - at));
        at += data.size();
        ActionGroup& group = tag.groups[size_t(g)];
        group.target = ParseTarget(fixed);
        group.binary = data.startsWith(BinaryMarker);
        group.text = data.sliced(std::min<qsizetype>(1, data.size())).toString();
    }
    return tag;
}

QString ActionTag::Format() const {
    QString text = ValidMarker + QString::number(std::clamp(relay, 0, 3)) + function;
    QString data;
    for (const ActionGroup& group : groups) {
        const QStringView kept =
            QStringView(group.text).first(std::min<qsizetype>(group.text.size(), TextMax));
        text +=
            FormatTarget(group.target) + QString::number(kept.size() + 1).rightJustified(LengthWidth, u'0');
        data += group.binary ? BinaryMarker : TextMarker;
        data += kept;
    }
    return text + data;
}

QByteArray HexToBinary(QStringView text) {
    QByteArray bytes;
    do {
        const auto blank = text.indexOf(u' ');
        const qsizetype length = blank < 0 ? text.size() : blank;
        bytes += char(HexByte(text.first(length)));
        text = text.sliced(length);
        while (text.startsWith(u' '))
            text = text.sliced(1);
    } while (!text.isEmpty());
    return bytes;
}

QString BinaryToHex(QByteArrayView bytes) {
    const QByteArray digits = bytes.toByteArray().toHex(' ').toUpper();
    return digits.isEmpty() ? QString() : QString::fromLatin1(digits) + u' ';
}
