#pragma once

#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <memory>

/// A room's tests are several suites, each a class of test slots, in one binary. `SUITE(Class)` at the end of
/// the file that defines one adds it to the binary; `main` runs them all.
class Suites {
public:
    using Maker = std::function<std::unique_ptr<QObject>()>;

    static bool Add(Maker maker);
    static int Run(int argc, char** argv);
};

#define SUITE(Class)                                                                                         \
    [[maybe_unused]] static const bool Class##Added = Suites::Add([] { return std::make_unique<Class>(); })

/// For `init` of a suite. The platform without a screen says at every window and menu what it can't do; all
/// else is a fault.
inline void FailOnWarnings() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}
