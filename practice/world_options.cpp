#include "practice/world_options.h"

#include "practice/option_values.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestList = 32767; // the numbers of a page can't say more

} // namespace

void AddWorldOptions(QCommandLineParser& parser) {
    parser.addOptions({
        {u"remotes"_s, u"Have <n> remotes at least."_s, u"n"_s, u"0"_s},
        {u"commands"_s, u"Have a remote of <n> commands."_s, u"n"_s, u"0"_s},
        {u"folder"_s, u"Keep translator sets and databases as files in <path>."_s, u"path"_s},
    });
}

bool ReadWorldOptions(const QCommandLineParser& parser, World& world, QString& error) {
    error.clear();
    OptionValues values(parser, error);
    const int remotes = values.Number(u"remotes"_s, LongestList);
    const int commands = values.Number(u"commands"_s, LongestList);
    if (!error.isEmpty())
        return false;
    if (parser.isSet(u"folder"_s)) {
        const QString folder = parser.value(u"folder"_s);
        QString fault;
        if (!world.translatorSets.UseFolder(folder, fault) || !world.databaseSets.UseFolder(folder, fault)) {
            error = u"--folder: "_s + fault;
            return false;
        }
    }
    if (commands > 0)
        world.AddLargeRemote(commands);
    world.AddRemotesUpTo(remotes);
    return true;
}
