#include "translator/translator_tags.h"

#include "base/number.h"
#include "base/tag_fields.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString RootWord = u"CON"_s;
const QString RemoteWord = u"REM"_s;

int Digit(QStringView text, qsizetype at) {
    const QChar c = at < text.size() ? text[at] : QChar(u'0');
    return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : 0;
}

QString Join(const QStringList& fields) {
    return fields.join(TagSeparator);
}

} // namespace

ContainerTag ParseContainerTag(QStringView tag) {
    return {TagField(tag, 1) == RootWord, TagField(tag, 2), TagNumber(tag, 3), TagNumber(tag, 4),
            TagNumber(tag, 5)};
}

QString FormatTag(const ContainerTag& tag) {
    return Join({tag.isRoot ? RootWord : RemoteWord, tag.name, QString::number(tag.receiveMask),
                 QString::number(tag.sendMask), QString::number(tag.flags)});
}

GroupTag ParseGroupTag(QStringView tag) {
    return {TagField(tag, 1), TagField(tag, 2), TagNumber(tag, 3), TagNumber(tag, 4), TagNumber(tag, 5)};
}

QString FormatTag(const GroupTag& tag) {
    return Join({tag.remote, tag.command, QString::number(tag.type), QString::number(tag.receiveMask),
                 QString::number(tag.flags)});
}

CommandTag ParseCommandTag(QStringView tag) {
    return {TagField(tag, 1),  TagField(tag, 2),  TagNumber(tag, 3), TagNumber(tag, 4),
            TagNumber(tag, 5), TagNumber(tag, 6), TagNumber(tag, 7)};
}

QString FormatTag(const CommandTag& tag) {
    return Join({tag.remote, tag.command, QString::number(tag.type), QString::number(tag.receiveMask),
                 QString::number(tag.flags), QString::number(tag.repeat), QString::number(tag.param)});
}

std::optional<SendCondition> ParseCondition(QStringView text) {
    if (!text.startsWith(u"IO"))
        return {};
    return SendCondition{Digit(text, 2) != 0, Digit(text, 3), Digit(text, 4)};
}

QString FormatCondition(const std::optional<SendCondition>& condition) {
    if (!condition)
        return u"0"_s;
    // One digit each: what doesn't fit its place would be read as its neighbour's.
    return u"IO%1%2%3"_s.arg(int(condition->isOn))
        .arg(qBound(0, condition->input, 9))
        .arg(qBound(0, condition->value, 9));
}

SendTag ParseSendTag(QStringView tag) {
    SendTag send{TagField(tag, 1), TagField(tag, 2), TagNumber(tag, 4), {}, TagField(tag, 6)};
    // A tag without a pause may hold the condition in its place.
    const QString pause = TagField(tag, 5);
    if (!ParseCondition(pause)) {
        if (!pause.isEmpty())
            send.pause = TagNumber(tag, 5);
    } else if (!ParseCondition(send.condition)) {
        send.condition = pause;
    }
    return send;
}

QString FormatTag(const SendTag& tag) {
    QStringList fields = {tag.remote, tag.command, QString::number(TranslatorType::Send),
                          QString::number(tag.sendMask)};
    if (tag.pause || !tag.condition.isEmpty())
        fields += tag.pause ? QString::number(*tag.pause) : QString();
    if (!tag.condition.isEmpty())
        fields += tag.condition;
    return Join(fields);
}
