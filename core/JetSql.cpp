#include "JetSql.h"

#include "DateText.h"

namespace JetSql {

namespace {

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == '_' || c.unicode() >= 0x80;
}

// The word starting at i (letters, digits, underscore).
QString wordAt(const QString& s, int i) {
    int j = i;
    while (j < s.size() && isWordChar(s[j])) ++j;
    return s.mid(i, j - i);
}

}  // namespace

Result Translate(const QString& jet) {
    Result r;
    QString out;
    out.reserve(jet.size() + 16);
    QString limit;  // from "top N"
    const int n = int(jet.size());
    int i = 0;
    QString prevWord;  // last word outside literals, upper-case
    while (i < n) {
        const QChar c = jet[i];
        if (c == '\'') {
            // A literal, copied as it stands up to its closing quote ('' is a quote).
            int j = i + 1;
            while (j < n) {
                if (jet[j] == '\'') {
                    if (j + 1 < n && jet[j + 1] == '\'') {
                        j += 2;
                        continue;
                    }
                    break;
                }
                ++j;
            }
            if (j >= n) {
                r.error = QStringLiteral("字符串的语法错误 在查询表达式 '%1' 中。").arg(jet.mid(i));
                return r;
            }
            out += QStringView(jet).mid(i, j - i + 1);
            i = j + 1;
            continue;
        }
        if (c == '"') {
            // Jet also takes double-quoted text literals.
            int j = i + 1;
            while (j < n && jet[j] != '"') ++j;
            QString lit = jet.mid(i + 1, j - i - 1);
            lit.replace('\'', QLatin1String("''"));
            out += '\'' + lit + '\'';
            i = j + 1;
            continue;
        }
        if (c == '#') {
            const int j = int(jet.indexOf('#', i + 1));
            if (j > i) {
                out += '\'' + DateText::Normalize(jet.mid(i + 1, j - i - 1)) + '\'';
                i = j + 1;
                continue;
            }
        }
        if (c == '-' && i + 1 < n && jet[i + 1] == '-') {
            // Jet has no comments: "Quantity--2" subtracts a negative number.
            out += QLatin1String("- ");
            ++i;
            continue;
        }
        if (c == '[') {
            const int j = int(jet.indexOf(']', i + 1));
            if (j > i) {
                out += '"' + jet.mid(i + 1, j - i - 1) + '"';
                i = j + 1;
                continue;
            }
        }
        if (c == ';') {
            // Only blanks may follow the end of the statement.
            if (!jet.mid(i + 1).trimmed().isEmpty()) {
                r.error = QStringLiteral("在 SQL 语句结尾之后找到字符。");
                return r;
            }
            i = n;
            continue;
        }
        if (isWordChar(c) && (i == 0 || !isWordChar(jet[i - 1]))) {
            const QString word = wordAt(jet, i);
            const QString up = word.toUpper();
            int next = i + int(word.size());
            if (up == "TOP" && (prevWord == "SELECT" || prevWord == "DISTINCT")) {
                int k = next;
                while (k < n && jet[k].isSpace()) ++k;
                const QString count = wordAt(jet, k);
                bool ok = false;
                count.toInt(&ok);
                if (ok) {
                    limit = count;
                    i = k + int(count.size());
                    if (i < n && jet[i] == ' ') ++i;
                    prevWord = up;
                    continue;
                }
            }
            if (up == "MID" && next < n && jet[next] == '(') {
                out += QLatin1String("substr");
                i = next;
                prevWord = up;
                continue;
            }
            if (up == "TRUE" || up == "FALSE") {
                out += up == "TRUE" ? QLatin1String("-1") : QLatin1String("0");
                i = next;
                prevWord = up;
                continue;
            }
            out += word;
            i = next;
            prevWord = up;
            continue;
        }
        out += c;
        ++i;
    }
    if (!limit.isEmpty()) {
        while (!out.isEmpty() && out.back().isSpace()) out.chop(1);
        out += QLatin1String(" LIMIT ") + limit;
    }
    r.sql = out;
    return r;
}

}  // namespace JetSql
