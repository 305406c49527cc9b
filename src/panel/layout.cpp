#include "panel/layout.h"

#include "base/blanks.h"
#include "base/code_page.h"

#include <QFile>
#include <QStandardPaths>
#include <QStringTokenizer>

const QString MainSection = QStringLiteral("MAIN");

namespace {

constexpr qint64 LargestFile = 0x1000000; ///< 16 MiB

/// The lines of a text without their ends, which are LF or CR LF.
std::vector<QStringView> LinesOf(QStringView text) {
    std::vector<QStringView> lines;
    for (QStringView line : QStringTokenizer(text, u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        lines.push_back(line);
    }
    if (text.isEmpty() || text.endsWith(u'\n'))
        lines.pop_back();
    return lines;
}

} // namespace

QString FindLayoutFile(const QString& shippedFolder) {
#ifdef Q_OS_WIN
    const QString folder = qEnvironmentVariable("ProgramData");
    const QString common = folder.isEmpty() ? QString() : folder + QStringLiteral("/Vantrel/Remote.lyt");
#else
    const QString common =
        QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("Vantrel/Remote.lyt"));
#endif
    return common.isEmpty() ? shippedFolder + QStringLiteral("/Remote.lyt") : common;
}

void UnloadPanel(PanelModel& panel) {
    panel.cmdRem.clear();
    panel.cmdMode.clear();
    panel.lblRem.clear();
}

LayoutResult LoadRemote(PanelModel& panel, const QString& path, const QString& section) {
    const bool isMain = section == MainSection;
    panel.ButtonBackColor.reset();
    panel.ButtonForeColor.reset();
    panel.windowSize.reset();
    if (!isMain)
        UnloadPanel(panel);

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > LargestFile)
        return LayoutResult::NoFile;
    const QString text = DecodeFileText(file.read(file.size()));
    const auto lines = LinesOf(text);

    const QString head = u'[' + section + u']';
    size_t at = 0;
    while (at < lines.size() && WithoutBlanks(lines[at]) != head)
        ++at;
    // A header on the last line heads nothing.
    if (at + 1 >= lines.size())
        return LayoutResult::NoSection;

    panel.PanelLed = 0;
    panel.PanelRemote.clear();
    // The last line of the file can end a section, but holds no element.
    for (++at; at + 1 < lines.size(); ++at) {
        const QStringView line = WithoutBlanks(lines[at]);
        if (line == u"[END]")
            break;
        if (!line.isEmpty())
            ParseLayoutLine(panel, line, isMain);
    }
    return LayoutResult::Loaded;
}
