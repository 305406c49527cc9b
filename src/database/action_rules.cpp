#include "database/action_rules.h"

#include "base/address_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView EzPort = u"7042";

template <class Values> void TakeFlags(const ActionTarget& target, Values& values) {
    values.isDefault = target.isDefault;
    values.udp = target.udp;
    values.aux = target.aux;
    values.aux2 = target.aux2;
}

template <class Values> ActionTarget TargetOf(const Values& values) {
    return {values.address.IpNumber(),
            values.address.PortNumber(),
            values.isDefault,
            values.udp,
            values.aux,
            values.aux2};
}

ActionDialog::Page PageOf(const ActionGroup& group, bool mayBeEz) {
    ActionDialog::Page page;
    page.address.Show(group.target.ip, group.target.port);
    TakeFlags(group.target, page);
    page.binary = group.binary;
    page.text = group.text;
    if (mayBeEz && page.binary) {
        if (const auto fields = UnpackEZCode(page.text)) {
            page.ez = true;
            ActionDialog::EzClicked(page);
            page.fields = *fields;
        }
    }
    return page;
}

bool IsHexDigit(QChar c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
}

} // namespace

ActionDialog::Values ActionDialog::FromTag(const QString& tag) {
    Values values;
    const auto parsed = ActionTag::Parse(tag);
    if (!parsed)
        return values;
    values.relay = parsed->relay;
    values.function = int(std::max<qsizetype>(0, RelayFunctions.indexOf(parsed->function)));
    for (int g = 0; g < Pages; ++g)
        values.pages[size_t(g)] = PageOf(parsed->groups[size_t(g)], g < EzPages);
    return values;
}

QString ActionDialog::ActionResult(Values& values) {
    ActionTag tag;
    tag.relay = values.relay;
    tag.function = RelayFunctions[std::clamp<qsizetype>(values.function, 0, RelayFunctions.size() - 1)];
    bool isSet = tag.function != ActionTag::NoFunction;
    for (size_t g = 0; g < values.pages.size(); ++g) {
        Page& page = values.pages[g];
        page.address.Limit();
        if (page.ez)
            page.text = PackEZCode(page.fields).value_or(page.text);
        const ActionTarget target = TargetOf(page);
        isSet = isSet || target.ip != 0 || target.port != 0 || !target.isDefault || !page.text.isEmpty();
        tag.groups[g] = {target, page.binary, page.text};
    }
    QString text = tag.Format();
    if (!isSet)
        text[0] = u'0';
    return text;
}

ActionDialog::Cuts ActionDialog::CutsOf(const DatabaseDevice::Controls& device) {
    Cuts cuts;
    if (!device.aux && !device.binary) {
        cuts.hasTabs = false;
        cuts.pages = 1;
        cuts.hasTarget[0] = false;
        cuts.hasDefault[0] = false;
    }
    if (!device.lan)
        cuts.pages = std::min(cuts.pages, 3);
    if (device.binary && !device.aux) {
        cuts.pages = std::min(cuts.pages, 2);
        cuts.hasTarget = {false, false};
        cuts.hasDefault = {true, false};
    }
    cuts.lastRelay = device.relay;
    return cuts;
}

ActionDialog::PageControls ActionDialog::ControlsOf(const Page& values, const Cuts& cuts, int page) {
    const bool isCut = size_t(page) < cuts.hasTarget.size();
    const bool hasTarget = !isCut || cuts.hasTarget[size_t(page)];
    PageControls controls;
    controls.ip = hasTarget;
    controls.port = hasTarget && !values.ez;
    controls.isDefault = (!isCut || cuts.hasDefault[size_t(page)]) && !values.ez;
    controls.udp = controls.port && !values.isDefault;
    controls.aux = controls.udp;
    controls.binary = !values.ez;
    controls.ez = hasTarget && page < EzPages;
    controls.showsEz = values.ez;
    controls.shortFields = !values.fields.isLong;
    controls.longFields = values.fields.isLong;
    return controls;
}

void ActionDialog::DefaultClicked(Page& page) {
    if (page.isDefault) {
        page.udp = false;
        page.aux = false;
    }
}

void ActionDialog::BinaryClicked(Page& page) {
    page.text.clear();
}

void ActionDialog::EzClicked(Page& page) {
    if (!page.ez)
        return;
    if (!page.binary) {
        page.binary = true;
        BinaryClicked(page);
    }
    page.address.port = EzPort.toString();
    page.isDefault = false;
    page.aux = false;
    page.udp = true;
}

int ActionDialog::TextLimit(const Page& page) {
    return page.binary ? std::max(TextMax, int(page.text.size())) : TextMax;
}

bool ActionDialog::IsBinaryText(QStringView text) {
    int run = 0;
    for (const QChar c : text) {
        if (c != u' ' && !IsHexDigit(c))
            return false;
        run = c == u' ' ? 0 : run + 1;
        if (run > 2)
            return false;
    }
    return HexToBinary(text).size() <= TextMax;
}

RemoteDialog::Values RemoteDialog::FromTag(const QString& tag) {
    Values values;
    const auto parsed = RemoteTag::Parse(tag);
    if (!parsed)
        return values;
    const QString ip = IPToText(parsed->target.ip);
    for (size_t i = 0; i < values.address.ip.size(); ++i)
        if (const QString number = ip.mid(qsizetype(i) * 3, 3); number != u"000")
            values.address.ip[i] = number;
    if (parsed->target.port != 0)
        values.address.port = PortToText(qint16(parsed->target.port));
    TakeFlags(parsed->target, values);
    values.action = parsed->action;
    return values;
}

QString RemoteDialog::ToTag(Values& values) {
    values.address.Limit();
    return RemoteTag{TargetOf(values), values.action}.Format();
}

void RemoteDialog::DefaultClicked(Values& values) {
    if (values.isDefault) {
        values.udp = false;
        values.aux = false;
    }
}

int RemoteDialog::ActionLimit(const Values& values) {
    return std::max(RemoteTag::ActionMax, int(values.action.size()));
}
