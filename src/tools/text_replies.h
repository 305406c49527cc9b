#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// The text protocol for the pages of a network controller: what goes out as a line, and what comes back as a
/// text frame.
namespace PageProtocol {

inline constexpr QStringView AskForFiles = u"AGET_HTML_FILELIST";

/// The line that has the named files written into the device.
QString FlashLine(const QStringList& names);

struct Reply {
    enum class Kind { Other, FileList, FlashFailed, FlashDone };

    Kind kind = Kind::Other;
    QString rest; ///< the list, the error text or the number of bytes written
};

/// What the text of a frame says. Its last character doesn't belong to it.
Reply Parse(QStringView text);

struct PageFile {
    QString name;
    QString length;
    QString date;

    bool operator==(const PageFile&) const = default;
};

/// The files of a list, in which every name, length and date is closed by a semicolon. What stands behind the
/// last name that is closed still counts, as far as it goes.
std::vector<PageFile> ParseFiles(QStringView list);

} // namespace PageProtocol
