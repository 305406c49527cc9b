#pragma once

#include "practice/world.h"

class QCommandLineParser;

/// Adds the options that make the world larger.
void AddWorldOptions(QCommandLineParser& parser);

/// Makes the world what the command line asks for. False if a value makes no sense; `error` then names the
/// option.
bool ReadWorldOptions(const QCommandLineParser& parser, World& world, QString& error);
