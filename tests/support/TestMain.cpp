// Runs every registered test class. Arguments: an optional class name to run
// only that class, then the usual QtTest options (function names among them).
//
// Each test function runs on a fresh object of its class and on its own, so
// that an exception thrown inside one test fails that test and the others
// still run. `--child <name> ...` runs a registered child routine instead
// (tests that need a second process start the test executable again).
#include <QApplication>
#include <QMetaMethod>
#include <QTest>
#include <cstdio>
#include <memory>

#include "TestRegistry.h"

std::vector<std::pair<const char*, TestRegistry::Factory>>& TestRegistry::All() {
    static std::vector<std::pair<const char*, Factory>> all;
    return all;
}

std::map<QString, TestRegistry::ChildMain>& TestRegistry::Children() {
    static std::map<QString, ChildMain> all;
    return all;
}

namespace {

// The test functions of a class: its private slots without arguments, less
// the set-up and tear-down slots and the data functions.
QStringList TestFunctions(const QMetaObject* mo) {
    static const QStringList special = {"initTestCase", "cleanupTestCase", "init", "cleanup"};
    QStringList out;
    for (int i = mo->methodOffset(); i < mo->methodCount(); ++i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() != QMetaMethod::Slot || m.access() != QMetaMethod::Private ||
            m.parameterCount() != 0)
            continue;
        const QString name = QString::fromLatin1(m.name());
        if (special.contains(name) || name.endsWith(QLatin1String("_data"))) continue;
        out << name;
    }
    return out;
}

// Runs one QtTest invocation; an exception that escapes it counts as a failure.
int Exec(const TestRegistry::Factory& make, const QStringList& args) {
    std::unique_ptr<QObject> t(make());
    try {
        return QTest::qExec(t.get(), args);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "FAIL!  : exception: %s\n", e.what());
    } catch (...) {
        std::fprintf(stderr, "FAIL!  : unknown exception\n");
    }
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments();
    if (args.size() > 2 && args[1] == QLatin1String("--child")) {
        const auto it = TestRegistry::Children().find(args[2]);
        if (it == TestRegistry::Children().end()) return 2;
        return it->second(args.mid(3));
    }
    QString only;
    if (args.size() > 1 && !args[1].startsWith('-')) {
        only = args[1];
        args.removeAt(1);
    }
    // Function names given on the command line: run as asked, in one go.
    bool named = false;
    for (int i = 1; i < args.size(); ++i) {
        if (args[i].startsWith('-')) {
            if (args[i] == "-o" || args[i] == "-maxwarnings" || args[i] == "-eventdelay" ||
                args[i] == "-keydelay" || args[i] == "-mousedelay")
                ++i;
            continue;
        }
        named = true;
    }
    int failed = 0;
    for (auto& [name, make] : TestRegistry::All()) {
        if (!only.isEmpty() && only != QLatin1String(name)) continue;
        if (named) {
            failed += Exec(make, args) != 0;
            continue;
        }
        const std::unique_ptr<QObject> probe(make());
        for (const QString& fn : TestFunctions(probe->metaObject()))
            failed += Exec(make, QStringList(args) << fn) != 0;
    }
    return failed == 0 ? 0 : 1;
}
