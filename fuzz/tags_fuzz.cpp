// The tags of both trees, parsed and formatted, and the dialogs' rules that take them apart and put them
// together: what OK has stored once is what the next OK stores.

#include "base/tag_fields.h"
#include "database/action_rules.h"
#include "fuzz/check.h"
#include "translator/property_rules.h"

namespace {

/// What is parsed, formatted and parsed again is the same.
template <class Parse, class Format> void TryTag(const QString& text, Parse parse, Format format) {
    const auto tag = parse(text);
    Check(parse(format(tag)) == tag);
}

void TryRemote(const QString& text) {
    const auto tag = RemoteTag::Parse(text);
    Check(!tag || RemoteTag::Parse(tag->Format()) == tag);
    CheckSettles(text, [](const QString& given) {
        RemoteDialog::Values values = RemoteDialog::FromTag(given);
        return RemoteDialog::ToTag(values);
    });
}

void TryAction(const QString& text) {
    const auto tag = ActionTag::Parse(text);
    if (!tag)
        return;
    Check(tag->relay >= 0 && tag->relay <= 3);
    Check(ActionTag::Parse(tag->Format()) == tag);
    for (const ActionGroup& group : tag->groups)
        Check(group.text.size() <= ActionTag::TextMax);
    CheckSettles(text, [](const QString& given) {
        ActionDialog::Values values = ActionDialog::FromTag(given);
        const QString result = ActionDialog::ActionResult(values);
        return result.startsWith(u'A') ? result : QString();
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    Input input(data, size);
    const TranslatorDevice device{input.ConsumeBool() ? QStringLiteral("Y") : QStringLiteral("I"),
                                  QStringLiteral("5.20.01"), input.ConsumeIntegral<quint32>(),
                                  input.ConsumeIntegral<quint32>()};
    const int kind = input.Below(8);
    const QString text = input.RestText();
    const auto format = [](const auto& tag) { return FormatTag(tag); };
    const QString head = QStringLiteral("tv\\on\\6\\");
    switch (kind) {
    case 0: TryRemote(text); break;
    case 1: TryAction(text); break;
    case 2: TryTag(text, ParseContainerTag, format); break;
    case 3: TryTag(text, ParseGroupTag, format); break;
    case 4:
        TryTag(text, ParseSendTag, format);
        TryTag(text, ParseCondition, FormatCondition);
        break;
    case 5:
        TryTag(text, ParseCommandTag, format);
        CheckSettles(text, [&](const QString& tag) { return PackTransRcv(FillTransRcv(tag, device)); });
        break;
    case 6:
        CheckSettles(text, [&](const QString& tag) { return PackTransRem(FillTransRem(tag, device)); });
        break;
    default:
        CheckSettles(
            text, [&](const QString& tag) { return head + PackTransSnd(FillTransSnd(tag, u"MAC", device)); });
    }
    return 0;
}
