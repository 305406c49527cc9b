#include "support/suite.h"

#include <algorithm>
#include <vector>

#ifdef QT_WIDGETS_LIB
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

namespace {

std::vector<Suites::Maker>& Makers() {
    static std::vector<Suites::Maker> makers;
    return makers;
}

} // namespace

bool Suites::Add(Maker maker) {
    Makers().push_back(std::move(maker));
    return true;
}

int Suites::Run(int argc, char** argv) {
    int failures = 0;
    for (const Maker& maker : Makers())
        failures += QTest::qExec(maker().get(), argc, argv);
    return std::min(failures, 100);
}

int main(int argc, char** argv) {
    Application application(argc, argv);
    return Suites::Run(argc, argv);
}
