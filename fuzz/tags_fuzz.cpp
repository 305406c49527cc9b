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
    const QString formatted = format(tag);
    Check(parse(formatted) == tag);
    Check(format(parse(formatted)) == formatted);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    Input input(data, size);
    const TranslatorDevice device{input.ConsumeBool() ? QStringLiteral("Y") : QStringLiteral("I"),
                                  QStringLiteral("5.20.01"), input.ConsumeIntegral<quint32>(),
                                  input.ConsumeIntegral<quint32>()};
    const QString text = input.RestText();

    if (const auto tag = RemoteTag::Parse(text)) {
        Check(RemoteTag::Parse(tag->Format()) == tag);
        CheckSettles(text, [](const QString& given) {
            RemoteDialog::Values values = RemoteDialog::FromTag(given);
            return RemoteDialog::ToTag(values);
        });
    }
    if (const auto tag = ActionTag::Parse(text)) {
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

    const auto format = [](const auto& tag) { return FormatTag(tag); };
    TryTag(text, ParseContainerTag, format);
    TryTag(text, ParseGroupTag, format);
    TryTag(text, ParseCommandTag, format);
    TryTag(text, ParseSendTag, format);
    TryTag(text, ParseCondition, FormatCondition);
    CheckSettles(text, [&](const QString& tag) { return PackTransRem(FillTransRem(tag, device)); });
    CheckSettles(text, [&](const QString& tag) { return PackTransRcv(FillTransRcv(tag, device)); });
    const QString head = QStringLiteral("tv\\on\\6\\");
    CheckSettles(text,
                 [&](const QString& tag) { return head + PackTransSnd(FillTransSnd(tag, u"MAC", device)); });
    return 0;
}
