#include "base/number.h"
#include "link/send_param.h"
#include "panel/layout.h"
#include "panel/layout_line.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(layoutLog, "calvoris.layout", QtWarningMsg)

namespace {

/// One line with what its keys give.
struct Line {
    QStringView text;

    QString Value(QStringView key) const { return GetLayoutValue(text, key); }

    template <class T> std::optional<T> Integer(QStringView key) const {
        const QString value = Value(key);
        const auto number = WholeInteger<T>(value);
        if (!number && !value.isEmpty())
            Note(key, "no whole number, or out of range");
        return number;
    }

    /// Nothing without the key. Else a colour, or no colour for -1 and all else that is none.
    std::optional<LayoutColor> Color(QStringView key) const {
        const auto number = Integer<qint32>(key);
        if (!number)
            return {};
        return *number >= 0 && *number <= 0xFFFFFF ? LayoutColor(*number) : LayoutColor();
    }

    /// The pair behind a key that an element must have.
    std::optional<LayoutPair> Pair(QStringView key) const {
        const auto pair = ReadLayoutPair(Value(key));
        if (!pair)
            Note(key, "no comma");
        return pair;
    }

    void Note(QStringView key, const char* reason) const {
        qCInfo(layoutLog).noquote() << text << "-" << key << ":" << reason;
    }
};

void WorkOutSendParam(PanelModel& panel) {
    const quint32 bus = SendParam::BusBitsOf(panel.PanelBus);
    panel.PanelSendParam =
        qint32(bus | panel.PanelLed | quint32(panel.PanelSendMask) | SendParam::UseMaskAndBus);
}

void SetPanelLed(PanelModel& panel, qint32 number) {
    const quint32 bits = SendParam::LedBits(number);
    panel.PanelLed = bits & SendParam::UseLedExtended ? bits : panel.PanelLed | bits;

    constexpr quint32 AllLedBits =
        SendParam::UseLedExtended | SendParam::LedExtendedBits | SendParam::LedLowBits;
    panel.PanelSendParam = qint32((quint32(panel.PanelSendParam) & ~AllLedBits) | panel.PanelLed |
                                  quint32(panel.PanelSendMask) | SendParam::UseMaskAndBus);
}

void ReadMenuSwitch(const Line& line, QStringView key, MenuSwitch& menu) {
    const QString value = line.Value(key);
    if (value.isEmpty())
        return;
    if (LeadingNumber(value) == 2)
        menu.hidden = true;
    else
        menu.disabled = true;
}

/// Switches count on every line, whatever element the line makes, and in this order.
void ReadSwitches(PanelModel& panel, const Line& line, bool isMain) {
    if (const auto color = line.Color(u"BCOLOR"))
        panel.ButtonBackColor = *color;
    if (const auto color = line.Color(u"FCOLOR"))
        panel.ButtonForeColor = *color;
    if (isMain) {
        ReadMenuSwitch(line, u"NOMODUS", panel.modus);
        ReadMenuSwitch(line, u"NOSEND", panel.send);
        ReadMenuSwitch(line, u"NOREMOTE", panel.remote);
        ReadMenuSwitch(line, u"NOABOUT", panel.about);
    }
    if (const auto color = line.Color(u"BACKGROUND"))
        panel.background = *color;
    if (const auto mask = line.Integer<qint32>(u"SENDMASK")) {
        panel.PanelSendMask = *mask;
        WorkOutSendParam(panel);
    }
    for (const QStringView key : {u"BUS", u"SDEVICE"})
        if (const auto bus = line.Integer<qint16>(key)) {
            panel.PanelBus = *bus;
            WorkOutSendParam(panel);
        }
    if (const QString remote = line.Value(u"SREMOTE"); !remote.isEmpty())
        panel.PanelRemote = remote;
    if (const auto number = line.Integer<qint32>(u"SLED"))
        SetPanelLed(panel, *number);
    if (isMain)
        if (const QString title = line.Value(u"TITLE"); !title.isEmpty())
            panel.PanelTitle = title;
}

void ReadFont(const Line& line, LayoutElement& element) {
    element.fontSize = line.Integer<qint16>(u"FONT").value_or(0);
    element.bold = line.Value(u"BOLD") == u"1";
}

/// The rectangle at `pos`, shifted by the offsets of the separator line if it is `shifted`.
LayoutRect ReadRect(const PanelModel& panel, LayoutPair pos, LayoutPair size, bool shifted) {
    if (shifted) {
        pos.first += panel.PanelOffsetX;
        pos.second += panel.PanelOffsetY;
    }
    return {RoundToI16(pos.first), RoundToI16(pos.second), RoundToI16(size.first), RoundToI16(size.second)};
}

/// False if the array is full, and then nothing is added.
template <class Element> bool Add(std::vector<Element>& elements, const Element& element, const Line& line) {
    if (elements.size() >= LayoutLimit) {
        line.Note(u"TEXT", "too many elements of this kind");
        return false;
    }
    elements.push_back(element);
    return true;
}

void MakeSeparator(PanelModel& panel, const Line& line, LayoutPair start) {
    const auto end = line.Pair(u"END");
    if (!end)
        return;
    LayoutColor color = line.Color(u"LCOLOR").value_or(LayoutColor());
    if (!color && panel.linLine)
        color = panel.linLine->color;
    panel.linLine = LineElement{RoundToI16(start.first), RoundToI16(start.second), RoundToI16(end->first),
                                RoundToI16(end->second), color};
    panel.PanelOffsetX = RoundToI16(start.first);
    panel.PanelOffsetY = RoundToI16(start.second);
}

void MakePageButton(PanelModel& panel, const Line& line, LayoutPair pos, bool isMain) {
    const auto size = line.Pair(u"SIZE");
    PageButtonElement button;
    button.section = line.Value(u"PANEL");
    if (!size || button.section.isEmpty()) {
        line.Note(u"MOD", "a page button needs SIZE and PANEL");
        return;
    }
    button.rect = ReadRect(panel, pos, *size, !isMain);
    button.caption = line.Value(u"TEXT");
    if (button.caption.isEmpty())
        button.caption = button.section;
    ReadFont(line, button);
    if (isMain) {
        button.backColor = panel.ButtonBackColor;
        button.foreColor = panel.ButtonForeColor;
    }
    Add(isMain ? panel.cmdModeP : panel.cmdMode, button, line);
}

/// The `SendParam` of a button's own keys; nothing if it has none of them.
std::optional<qint32> ReadSendParam(const Line& line) {
    std::optional<quint32> param;
    if (const auto led = line.Integer<qint32>(u"LED"))
        param = SendParam::LedBits(*led);
    if (const auto bus = line.Integer<qint16>(u"CBUS"))
        param = param.value_or(0) |
                (*bus == SendParam::AllBusesNumber ? SendParam::AllBuses
                                                   : (quint32(*bus) & 255) << SendParam::BusShift);
    if (const auto mask = line.Integer<qint32>(u"CSENDMASK"))
        param = param.value_or(0) | quint32(*mask) | SendParam::UseMaskAndBus;
    if (!param)
        return {};
    return qint32(*param);
}

void MakeCommandButton(PanelModel& panel, const Line& line, LayoutPair pos) {
    const auto size = line.Pair(u"SIZE");
    CommandButtonElement button;
    button.caption = line.Value(u"TEXT");
    const QString command = line.Value(u"COMMAND");
    QString remote = line.Value(u"REMOTE");
    if (remote.isEmpty())
        remote = panel.PanelRemote;
    if (!size || button.caption.isEmpty() || command.isEmpty() || remote.isEmpty()) {
        line.Note(u"POS", "a button needs SIZE, TEXT, COMMAND, and REMOTE or SREMOTE");
        return;
    }
    button.rect = ReadRect(panel, pos, *size, true);
    button.sendParam = ReadSendParam(line);
    button.backColor = panel.ButtonBackColor;
    button.foreColor = panel.ButtonForeColor;
    ReadFont(line, button);
    if (Add(panel.cmdRem, button, line)) {
        panel.RemoteList[panel.cmdRem.size()] = remote;
        panel.CommandList[panel.cmdRem.size()] = command;
    }
}

void MakeLabel(PanelModel& panel, const Line& line, LayoutPair pos, bool isMain) {
    const auto size = line.Pair(u"SIZE");
    LabelElement label;
    label.caption = line.Value(u"TEXT");
    if (!size || label.caption.isEmpty()) {
        line.Note(u"LBL", "a label needs SIZE and TEXT");
        return;
    }
    label.rect = ReadRect(panel, pos, *size, !isMain);
    ReadFont(line, label);
    if (label.fontSize == 0)
        label.fontSize = 10;
    label.backColor = panel.background;
    label.foreColor = line.Color(u"LCOLOR").value_or(LayoutColor(0));
    Add(isMain ? panel.lblMain : panel.lblRem, label, line);
}

void ReadWindowSize(PanelModel& panel, const Line& line) {
    constexpr int TwipsPerPixel = 15;
    constexpr int MenuAndStatusBar = 80; // pixels
    if (const auto size = ReadLayoutPair(line.Value(u"FRM")))
        panel.windowSize = LayoutSize{RoundToI16(size->first), RoundToI16(size->second)};
    if (const auto size = ReadLayoutPair(line.Value(u"FRMPIX")))
        panel.windowSize = LayoutSize{
            (RoundToI16(size->first) + panel.PanelOffsetX) * TwipsPerPixel,
            (RoundToI16(size->second) + panel.PanelOffsetY + MenuAndStatusBar) * TwipsPerPixel,
        };
}

} // namespace

void ParseLayoutLine(PanelModel& panel, QStringView text, bool isMain) {
    const Line line{text};
    ReadSwitches(panel, line, isMain);
    const auto heads = [&line](QStringView key) { return ReadLayoutPair(line.Value(key)); };
    if (const auto start = heads(u"SEP"))
        MakeSeparator(panel, line, *start);
    else if (const auto page = heads(u"MOD"))
        MakePageButton(panel, line, *page, isMain);
    else if (const auto button = heads(u"POS"))
        MakeCommandButton(panel, line, *button);
    else if (const auto label = heads(u"LBL"))
        MakeLabel(panel, line, *label, isMain);
    else
        ReadWindowSize(panel, line);
}
