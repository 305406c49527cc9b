#pragma once

#include "database/frmIRDBStatus.h"
#include "learn/frmProgramm.h"
#include "learn/frmCCF.h"
#include "panel/frmIP.h"
#include "tools/frmLog.h"
#include "tools/frmSendFree.h"
#include "translator/frmTranslatorWait.h"

#include <vector>

/// One of every form but the main window, for those who walk them all: the gallery, and the test of the
/// languages.
inline std::vector<Form*> MakeAllForms(const FormServices& services, QWidget* parent) {
    return {
        new frmCCF(services, frmCCF::Face::Ccf, {}, {}, parent),
        new frmIP(services, parent),
        new frmIRDBStatus(services, parent),
        new frmLog(services, parent),
        new frmProgramm(services, parent),
        new frmSendFree(services, parent),
        new frmTranslatorWait(services, parent),
    };
}
