#include "ExternalTools.h"

#include <QProcess>
#include <QStandardPaths>

namespace ExternalTools {

const QStringList& Calculators() {
    static const QStringList list = {"gnome-calculator", "kcalc",       "mate-calc", "galculator",
                                     "qalculate-gtk",    "speedcrunch", "xcalc"};
    return list;
}

const QStringList& Editors() {
    static const QStringList list = {"gnome-text-editor", "gedit", "kate", "kwrite",
                                     "mousepad",          "pluma", "xed",  "featherpad",
                                     "leafpad",           "xedit"};
    return list;
}

bool StartFirst(const QStringList& programs) {
    for (const QString& p : programs) {
        const QString path = QStandardPaths::findExecutable(p);
        if (path.isEmpty()) continue;
        return QProcess::startDetached(path, {});
    }
    return false;
}

}  // namespace ExternalTools
