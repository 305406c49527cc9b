#pragma once

// Room panel, lower half: the layout file and the sending. Includes base and link; no Qt Widgets.

#include <QString>

#include <array>
#include <optional>
#include <vector>

/// The software remote control as the layout file "Remote.lyt" describes it.
///
/// The file holds sections. Section "MAIN" fills the permanent part of the window and is read once; any other
/// section is a sub-page, which replaces the previous sub-page. All coordinates and sizes are twips, 1/1440
/// inch.
///
/// What isn't sound in the file does no harm: an element line with a missing or invalid mandatory value is
/// dropped; a number that must be whole and isn't one, or doesn't fit its type, counts as missing;
/// coordinates and sizes beyond 16 bits are cut to the end of their range; of each array only the first
/// LayoutLimit elements are made. The logging category "calvoris.layout" tells at level info what was dropped
/// and why.

/// Elements of one array, and slots of RemoteList and CommandList behind slot 0.
constexpr int LayoutLimit = 256;

/// A colour as 0x00BBGGRR; nothing where none is set.
using LayoutColor = std::optional<quint32>;

struct LayoutRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// What buttons and labels have in common.
struct LayoutElement {
    LayoutRect rect;
    QString caption;
    qint16 fontSize = 0; ///< points; 0 for the control's own
    bool bold = false;
    LayoutColor backColor;
    LayoutColor foreColor;
};

/// `cmdModeP` and `cmdMode`: picks a page.
struct PageButtonElement : LayoutElement {
    QString section;
};

/// `cmdRem`: sends a command. What it sends stands in RemoteList and CommandList.
struct CommandButtonElement : LayoutElement {
    /// Nothing: the button sends with PanelSendParam as it is when it is pressed.
    std::optional<qint32> sendParam;
};

/// `lblMain` and `lblRem`.
struct LabelElement : LayoutElement {};

/// `linLine(0)`, the one separator line.
struct LineElement {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    LayoutColor color;
};

/// What the layout does to a top menu, or to the entries of `mnuModus`.
struct MenuSwitch {
    bool hidden = false;
    bool disabled = false;
};

struct LayoutSize {
    int width = 0;
    int height = 0;
};

/// The panel: its elements, and the values that lines of the file set and later lines use. Element i of a
/// control array is `array[i - 1]`.
struct PanelModel {
    std::vector<PageButtonElement> cmdModeP;
    std::vector<PageButtonElement> cmdMode;
    std::vector<CommandButtonElement> cmdRem;
    std::vector<LabelElement> lblMain;
    std::vector<LabelElement> lblRem;
    std::optional<LineElement> linLine;

    /// What the buttons send, by the index of `cmdRem`. Slots keep their contents until a button takes them.
    std::array<QString, LayoutLimit + 1> RemoteList;
    std::array<QString, LayoutLimit + 1> CommandList;

    QString PanelTitle = QStringLiteral("Vantrel Client");
    MenuSwitch modus;
    MenuSwitch send;
    MenuSwitch remote;
    MenuSwitch about;
    LayoutColor background;               ///< of the window
    std::optional<LayoutSize> windowSize; ///< as the section that was read last wants it

    LayoutColor ButtonBackColor;
    LayoutColor ButtonForeColor;
    qint32 PanelSendMask = 65535;
    qint16 PanelBus = 255;
    quint32 PanelLed = 0;
    qint32 PanelSendParam = 0x40000000;
    QString PanelRemote;
    qint16 PanelOffsetX = 0;
    qint16 PanelOffsetY = 0;
};

/// The name of the section that fills the permanent part of the window.
extern const QString MainSection;

enum class LayoutResult {
    Loaded,
    NoFile,    ///< the file can't be read, or is larger than 16 MiB
    NoSection, ///< no such section, or its header is the last line of the file
};

/// Reads a section of the file at `path` into `panel`. Before anything else a sub-page removes the elements
/// of the last one, so that a page that can't be read leaves none. The file is read in code page 1252, or in
/// UTF-8 if it begins with the byte order mark.
LayoutResult LoadRemote(PanelModel& panel, const QString& path, const QString& section);

/// Interprets one line of a section, trimmed of blanks.
void ParseLayoutLine(PanelModel& panel, QStringView line, bool isMain);

/// Removes the elements of the sub-page, command buttons of MAIN included.
void UnloadPanel(PanelModel& panel);

/// Where the layout file is looked for: "Vantrel/Remote.lyt" in the first folder of application data that
/// holds it, the user's own first; if none does, "Remote.lyt" in `shippedFolder`, which needn't hold it. On
/// Windows the folder is the common one.
QString FindLayoutFile(const QString& shippedFolder);
