#pragma once
#include <QString>

// Makes a text ready to stand between single quotes in a statement: every
// single quote is doubled.
inline QString ReplaceQuote(const QString& text) {
    if (!text.contains('\'')) return text;
    QString t = text;
    t.replace('\'', QLatin1String("''"));
    return t;
}
