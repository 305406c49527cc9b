#include "app/reply_boxes.h"

#include "tools/text_replies.h"

using namespace Qt::StringLiterals;

ReplyBoxes::ReplyBoxes(const FormServices& services, QWidget* mainWindow)
    : QObject(mainWindow)
    , services(services)
    , mainWindow(mainWindow) {
    const Session* session = &services.session;
    connect(session, &Session::ErrorReported, this, &ReplyBoxes::ShowError);
    connect(session, &Session::OverwriteAsked, this, &ReplyBoxes::AskOverwrite);
    connect(session, &Session::TranslatorFlashEnded, this, &ReplyBoxes::ShowTranslatorFlash);
    connect(session, &Session::TextReceived, this, &ReplyBoxes::ProcessTextReply);
    connect(session, &Session::SendFailed, this, &ReplyBoxes::ShowSendFault);
    connect(session, &Session::DatabaseStatusReceived, this,
            [this](const IRDBStatusRecord& status, bool fits) {
                DatabaseStatus().SetFigures(status);
                if (!fits)
                    DatabaseStatus().ShowOutcome(u"IRDB Flash failed - Not enough memory"_s);
            });
    connect(session, &Session::DatabaseFlashEnded, this, [this](bool stored) {
        DatabaseStatus().ShowOutcome(stored ? u"IRDB Flash OK"_s : u"IRDB Flash failed"_s);
    });
    connect(session, &Session::LogReceived, this,
            [this](const QString& text) { log.Load(this->services, this->mainWindow).Append(text); });
}

frmIRDBStatus& ReplyBoxes::DatabaseStatus() {
    return databaseStatus.Load(services, mainWindow);
}

void ReplyBoxes::ShowError(const ResultReply& result) {
    services.session.ErrorBoxOpen = true;
    ++errorBoxes;
    services.boxes.Show({QMessageBox::Warning, ErrorText(result), u"IR Error"_s},
                        [this](bool) { services.session.ErrorBoxOpen = --errorBoxes > 0; });
}

void ReplyBoxes::AskOverwrite(const ResultReply& result) {
    const Language& language = services.language;
    const Box question{
        QMessageBox::Question,
        language.GetLanguageText(u"frmRemote.Overwrite1"_s, u"Datei existiert bereits. Überschreiben?"_s),
        language.GetLanguageText(u"frmRemote.Overwrite2"_s, u"Datei überschreiben ..."_s), true};
    services.boxes.Show(question, [this, result](bool ok) { services.session.AnswerOverwrite(result, ok); });
}

void ReplyBoxes::ShowTranslatorFlash(bool stored) {
    const QString title = u"Vantrel Translator"_s;
    if (stored)
        services.boxes.Show({QMessageBox::Information, u"Translator Flash OK"_s, title});
    else
        services.boxes.Show({QMessageBox::Warning, u"Translator Flash failed."_s, title});
}

/// Lists of page files are for the dialog that shows them.
void ReplyBoxes::ProcessTextReply(const QString& text) {
    using Kind = PageProtocol::Reply::Kind;
    const PageProtocol::Reply reply = PageProtocol::Parse(text);
    const QString title = u"HTML Flash"_s;
    if (reply.kind == Kind::FlashFailed)
        services.boxes.Show({QMessageBox::Warning, u"Error flashing HTML Pages\n"_s + reply.rest, title});
    else if (reply.kind == Kind::FlashDone)
        services.boxes.Show({QMessageBox::NoIcon, u"HTML Flash OK: "_s + reply.rest + u" Bytes"_s, title});
}

void ReplyBoxes::ShowSendFault(Session::SendFault fault) {
    // One box tells it; the next sends of the same action need not tell it again.
    if (std::exchange(faultBoxUp, true))
        return;
    QString text;
    // Behind an open dialog the menu can't be reached, and closing the dialog would lose what isn't stored.
    const bool offersLink = fault == Session::SendFault::NoLink;
    switch (fault) {
    case Session::SendFault::NoLink:
        text = services.language.GetLanguageText(u"frmRemote.NoLink"_s,
                                                 u"Keine Verbindung zum Geräteserver. Neu verbinden?"_s);
        break;
    case Session::SendFault::ServerStuck:
        text = services.language.GetLanguageText(u"frmRemote.ServerStuck"_s,
                                                 u"Der Geräteserver nimmt keine Daten mehr an."_s);
        break;
    case Session::SendFault::TextTooLong:
        text = services.language.GetLanguageText(
            u"frmRemote.TextTooLong"_s,
            u"Der RS232 Text ist länger als 255 Zeichen und wurde nicht gesendet."_s);
        break;
    }
    services.boxes.Show({QMessageBox::Warning, text, {}, offersLink}, [this, offersLink](bool ok) {
        faultBoxUp = false;
        if (ok && offersLink && !services.session.IsUp())
            services.session.Connect();
    });
}
