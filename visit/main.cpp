#include "visit/gallery.h"
#include "visit/visit.h"

#include <QApplication>
#include <QCommandLineParser>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Walks through the client's windows and leaves pictures."_s);
    parser.addHelpOption();
    parser.addOption(
        {u"gallery"_s, u"Only a picture of every form, in each language and on each palette."_s});
    parser.addPositionalArgument(u"folder"_s, u"Takes the pictures."_s);
    parser.process(application);
    const QString folder = parser.positionalArguments().value(0, u"visit-pictures"_s);

    if (parser.isSet(u"gallery"_s))
        return MakeGallery(folder) ? 0 : 1;
    Visit visit(folder);
    return visit.Run() ? 0 : 1;
}
