#include "practice/client_link.h"
#include "practice/describe.h"

#include "base/code_page.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 TakesPageFiles = 0x80000000; // of a device's capabilities

/// Every text frame has one character behind its text that the client drops.
void SendFrame(ClientLink& link, const QString& text) {
    link.Frame(text.left(ClientLink::LongestFrame - 1) + u'\n');
}

/// The client doesn't say which device it means: any that can take pages will do.
bool HasPageDevice(const World& world) {
    for (const World::Bus& bus : world.buses)
        for (const auto& [address, device] : bus.devices)
            if (device.Capabilities & TakesPageFiles)
                return true;
    return false;
}

void ListPageFiles(ClientLink& link) {
    QString text = u"RESULT_HTML_FILELIST "_s;
    for (const World::PageFile& file : link.GetWorld().pageFiles)
        text += u"%1;%2;%3;"_s.arg(file.name).arg(file.length).arg(file.date);
    SendFrame(link, text);
}

void FlashPageFiles(ClientLink& link, const QStringList& names) {
    if (!HasPageDevice(link.GetWorld()))
        return SendFrame(link, u"RESULT_HTML_FLASH ENo device takes page files."_s);
    if (link.GetOutcomes().pageFlashFails)
        return SendFrame(link, u"RESULT_HTML_FLASH EThe device could not be written."_s);
    int bytes = 0;
    for (const QString& name : names) {
        const auto& files = link.GetWorld().pageFiles;
        const auto file =
            std::find_if(files.begin(), files.end(), [&](const auto& f) { return f.name == name; });
        if (file == files.end())
            return SendFrame(link, u"RESULT_HTML_FLASH EThere is no file %1."_s.arg(Quoted(name)));
        bytes += file->length;
    }
    link.Say(u"flashed: %1 page files"_s.arg(names.size()));
    SendFrame(link, u"RESULT_HTML_FLASH O%1"_s.arg(bytes));
}

} // namespace

void AnswerTextLine(ClientLink& link, const QByteArray& line) {
    const QString text = FromCodePage(line);
    if (!text.endsWith(u"\r\n"))
        return link.Malformed(
            {u"text line %1: a carriage return and a line feed must end it"_s.arg(Quoted(text))});
    const QString words = text.chopped(2);
    const QLatin1StringView flash("AFLASH_HTML ");
    if (words == "AGET_HTML_FILELIST"_L1) {
        link.Say(u"asked: list the page files"_s);
        ListPageFiles(link);
    } else if (words.startsWith(flash)) {
        QStringList names = words.sliced(flash.size()).split(u';');
        if (!names.takeLast().isEmpty())
            return link.Malformed(
                {u"text line %1: each file name must be ended by \";\""_s.arg(Quoted(words))});
        link.Say(u"asked: flash the page files (%1)"_s.arg(names.join(u", ")));
        FlashPageFiles(link, names);
    } else {
        link.Malformed({u"text line %1: its first word is not known"_s.arg(Quoted(words))});
    }
}
