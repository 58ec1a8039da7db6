#include "Commands.h"

#include <QHash>

namespace Commands {

namespace {
QHash<QString, Opener>& table() {
    static QHash<QString, Opener> t;
    return t;
}
}  // namespace

void Register(const QString& key, Opener open) {
    table().insert(key, std::move(open));
}

bool Has(const QString& key) {
    return table().contains(key);
}

bool Run(const QString& key, QWidget* parent) {
    auto it = table().constFind(key);
    if (it == table().constEnd()) return false;
    (*it)(parent);
    return true;
}

}  // namespace Commands
