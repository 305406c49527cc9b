#pragma once

#include "app/program_rig.h"
#include "practice/practice_server.h"

/// The whole program, which meets a practice server.
struct PracticeRig : ProgramRig {
    explicit PracticeRig(const QString& layout)
        : ProgramRig(layout) {
        if (!practice.Listen())
            qFatal("no port on the loopback");
        options.port = practice.Port();
    }

    PracticeServer practice;
};
