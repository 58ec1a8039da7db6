#include "clsNewGUID.h"

#include <QUuid>

QString clsNewGUID::GUID(bool blReplace) const {
    QString g = QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
    if (blReplace) g.remove('{').remove('}').remove('-');
    return g;
}
