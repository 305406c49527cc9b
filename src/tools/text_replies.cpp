#include "tools/text_replies.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FileList = u"RESULT_HTML_FILELIST";
constexpr QStringView Flash = u"RESULT_HTML_FLASH";
constexpr qsizetype Separator = 1; ///< characters behind the keyword

/// What stands behind the first `count` characters; nothing if there are fewer.
QStringView Behind(QStringView text, qsizetype count) {
    return text.sliced(std::min(count, text.size()));
}

/// Takes the text up to the next semicolon off `rest`; all of it if there is none.
QString TakeField(QStringView& rest) {
    const auto end = rest.indexOf(u';');
    const QStringView field = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QStringView() : rest.sliced(end + 1);
    return field.toString();
}

} // namespace

QString PageProtocol::FlashLine(const QStringList& names) {
    QString line = u"AFLASH_HTML "_s;
    for (const QString& name : names)
        line += name + u';';
    return line;
}

PageProtocol::Reply PageProtocol::Parse(QStringView text) {
    text.chop(std::min<qsizetype>(1, text.size()));
    if (text.startsWith(FileList))
        return {Reply::Kind::FileList, Behind(text, FileList.size() + Separator).toString()};
    if (!text.startsWith(Flash))
        return {};
    const QStringView outcome = Behind(text, Flash.size() + Separator);
    if (outcome.startsWith(u'E'))
        return {Reply::Kind::FlashFailed, outcome.sliced(1).toString()};
    if (outcome.startsWith(u'O'))
        return {Reply::Kind::FlashDone, outcome.sliced(1).toString()};
    return {};
}

std::vector<PageProtocol::PageFile> PageProtocol::ParseFiles(QStringView list) {
    std::vector<PageFile> files;
    while (list.contains(u';')) {
        PageFile file;
        file.name = TakeField(list);
        file.length = TakeField(list);
        file.date = TakeField(list);
        files.push_back(file);
    }
    return files;
}
