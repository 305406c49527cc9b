#pragma once

#include "link/replies.h"

#include <tuple>

/// The records of the wire, requests first. The last byte of an input of fuzz_records says which it is.
using RecordKinds =
    std::tuple<CommandRequest, ModeRequest, LcdRequest, SerialRequest, CodeRequest, TranslatorRequest,
               IRDBGlobalRecord, IRDBElementRecord, ReplyHeader, ResultReply, LearnedDataReply, ReceivedReply,
               LearnStateReply, ServerInfoReply, IRDBStatusRecord, AnalogValues, AnalogTemperatures,
               DeviceEntry, StatusHead, PageHead, NameElement, CommandElement, BusElement>;
