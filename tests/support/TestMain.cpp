// Runs every registered test class. Arguments: an optional class name to run
// only that class, then the usual QtTest options.
#include <QApplication>
#include <QTest>
#include <memory>

#include "TestRegistry.h"

std::vector<std::pair<const char*, TestRegistry::Factory>>& TestRegistry::All() {
    static std::vector<std::pair<const char*, Factory>> all;
    return all;
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args = app.arguments();
    QString only;
    if (args.size() > 1 && !args[1].startsWith('-')) {
        only = args[1];
        args.removeAt(1);
    }
    int failed = 0;
    for (auto& [name, make] : TestRegistry::All()) {
        if (!only.isEmpty() && only != QLatin1String(name)) continue;
        std::unique_ptr<QObject> t(make());
        failed += QTest::qExec(t.get(), args) != 0;
    }
    return failed == 0 ? 0 : 1;
}
