#pragma once

#include "link/replies.h"

class ClientLink;

/// How requests are answered. A handler gets a record without a fault and answers through the link, once or
/// several times, or not at all.

/// Result codes of this server, besides those that the client knows by number.
namespace PracticeResult {
constexpr ResultCode NotSent{6};    ///< the command isn't known or was refused
constexpr ResultCode NotOpen{7};    ///< learning can't begin
constexpr ResultCode Malformed{8};  ///< the request has a fault
constexpr ResultCode NotThere{9};   ///< what was asked for doesn't exist
constexpr ResultCode NotStored{10}; ///< a set or one of its elements was refused
} // namespace PracticeResult

// send_handlers.cpp
void SendIr(ClientLink& link, const CommandRequest& request);
void SendSerial(ClientLink& link, const SerialRequest& request);
void ShowText(ClientLink& link, const LcdRequest& request);
void TellIfKnown(ClientLink& link, const CommandRequest& request);
/// The text in use.
QString TextInUse(const SerialRequest& request);

// learn_handlers.cpp
void OpenForLearning(ClientLink& link, const CommandRequest& request);
void EndLearning(ClientLink& link, const CommandRequest& request);
void Learn(ClientLink& link, const CommandRequest& request);
void TellLearnState(ClientLink& link, const CommandRequest& request);
void StoreCode(ClientLink& link, const CodeRequest& request);

// list_handlers.cpp
void ListRemoteNames(ClientLink& link, const CommandRequest& request);
void ListCommandNames(ClientLink& link, const CommandRequest& request);
void ListTranslatorSets(ClientLink& link, const CommandRequest& request);
void ListDatabaseSets(ClientLink& link, const CommandRequest& request);
void ListBusElements(ClientLink& link, const CommandRequest& request);

// status_handlers.cpp
void BeginSession(ClientLink& link, const CommandRequest& request);
void SendStatusPage(ClientLink& link, const CommandRequest& request);
void SendAnalogInputs(ClientLink& link, const CommandRequest& request);

// mode_handlers.cpp
void SetDevice(ClientLink& link, const ModeRequest& request);

// page_file_handlers.cpp
/// Answers a line of the text protocol, given with its end.
void AnswerTextLine(ClientLink& link, const QByteArray& line);

// translator_handlers.cpp
void TakeTranslatorElement(ClientLink& link, QByteArrayView bytes);
void SendTranslatorPage(ClientLink& link, const CommandRequest& request);
void StoreTranslatorSet(ClientLink& link, const CommandRequest& request);
void FlashTranslatorSet(ClientLink& link, const CommandRequest& request);
/// Tells how a flash has ended: "F0", "F1" or "F2".
void TellFlash(ClientLink& link, const QString& outcome);

// database_handlers.cpp
void TakeDatabaseSettings(ClientLink& link, QByteArrayView bytes);
void TakeDatabaseElement(ClientLink& link, QByteArrayView bytes);
void SendDatabasePage(ClientLink& link, const CommandRequest& request);
void StoreDatabaseSet(ClientLink& link, const CommandRequest& request);
void FlashDatabaseSet(ClientLink& link, const CommandRequest& request);
