#include "Convert.h"

#include <cfloat>
#include <charconv>
#include <cmath>

#include "RuntimeError.h"

namespace Convert {

namespace {

bool isSpace(QChar c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Parses a &H (hex) or &O (octal) number at text[i]; returns false if it is none.
bool parseRadix(const QString& s, int& i, double& out) {
    if (i + 1 >= s.size() || s[i] != '&') return false;
    const QChar k = s[i + 1].toUpper();
    int base = 0;
    if (k == 'H')
        base = 16;
    else if (k == 'O')
        base = 8;
    else
        return false;
    int j = i + 2;
    double v = 0;
    int digits = 0;
    while (j < s.size()) {
        const int d = QString(s[j]).toInt(nullptr, 16);
        const bool hexDigit = s[j].isDigit() || (s[j].toUpper() >= 'A' && s[j].toUpper() <= 'F');
        if (!hexDigit || d >= base) break;
        v = v * base + d;
        ++digits;
        ++j;
    }
    if (digits == 0) return false;
    i = j;
    out = v;
    return true;
}

// The strict reading: the whole text (blanks around it allowed) must be one
// number. Thousands commas are allowed between the digits of the whole part.
bool parseStrict(const QString& text, double& out) {
    const QString s = text.trimmed();
    if (s.isEmpty()) return false;
    int i = 0;
    double radix = 0;
    if (parseRadix(s, i, radix)) {
        if (i != s.size()) return false;
        out = radix;
        return true;
    }
    std::string num;
    if (s[i] == '+' || s[i] == '-') {
        if (s[i] == '-') num += '-';
        ++i;
    }
    int digits = 0;
    bool lastWasDigit = false;
    while (i < s.size() && (s[i].isDigit() || s[i] == ',')) {
        if (s[i] == ',') {
            if (!lastWasDigit) return false;  // no leading or doubled comma
            lastWasDigit = false;
        } else {
            if (s[i].unicode() > '9') return false;  // other scripts' digits
            num += char(s[i].unicode());
            ++digits;
            lastWasDigit = true;
        }
        ++i;
    }
    if (digits > 0 && !lastWasDigit) return false;  // trailing comma
    if (i < s.size() && s[i] == '.') {
        num += '.';
        ++i;
        while (i < s.size() && s[i].isDigit() && s[i].unicode() <= '9') {
            num += char(s[i].unicode());
            ++digits;
            ++i;
        }
    }
    if (digits == 0) return false;
    if (i < s.size() && (s[i].toUpper() == 'E' || s[i].toUpper() == 'D')) {
        std::string exp = "e";
        ++i;
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) exp += char(s[i++].unicode());
        int ed = 0;
        while (i < s.size() && s[i].isDigit() && s[i].unicode() <= '9') {
            exp += char(s[i++].unicode());
            ++ed;
        }
        if (ed == 0) return false;
        num += exp;
    }
    if (i != s.size()) return false;
    out = std::strtod(num.c_str(), nullptr);
    return std::isfinite(out);
}

// Digits d1 d2 ... with the decimal point after d1, moved by exp places,
// written without an exponent.
std::string placePoint(const std::string& sign, std::string digits, int exp) {
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    const int point = 1 + exp;
    std::string out;
    if (point <= 0) {
        out = "0." + std::string(size_t(-point), '0') + digits;
    } else if (point >= int(digits.size())) {
        out = digits + std::string(size_t(point - int(digits.size())), '0');
    } else {
        out = digits.substr(0, size_t(point)) + "." + digits.substr(size_t(point));
    }
    return sign + out;
}

// Splits "-d.ddde+x" into sign, digits and exponent.
std::string splitScientific(const std::string& sci, std::string& sign, int& exp) {
    const size_t e = sci.find('e');
    exp = std::stoi(sci.substr(e + 1));
    const bool negative = !sci.empty() && sci[0] == '-';
    sign.assign(negative ? 1 : 0, '-');
    std::string digits;
    for (size_t i = negative ? 1 : 0; i < e; ++i)
        if (sci[i] != '.') digits += sci[i];
    return digits;
}

// The shortest digits that read back as the same value, written without an
// exponent: 123456792.0f gives "123456790", 0.1f gives "0.1".
template <typename T>
QString shortestText(T value) {
    if (value == 0) return QStringLiteral("0");  // also -0
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
    std::string sign;
    int exp = 0;
    const std::string digits = splitScientific(std::string(buf, res.ptr), sign, exp);
    return QString::fromLatin1(placePoint(sign, digits, exp));
}

}  // namespace

bool IsNumeric(const QString& text) {
    double v;
    return parseStrict(text, v);
}

bool IsNumeric(const QVariant& value) {
    if (value.isNull()) return false;
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
        case QMetaType::Double:
        case QMetaType::Float:
        case QMetaType::Bool:
            return true;
        default:
            return IsNumeric(value.toString());
    }
}

double CDbl(const QString& text) {
    double v;
    if (!parseStrict(text, v)) throw RuntimeError(RuntimeError::typeMismatch());
    return v;
}

float ToSingle(double value) {
    if (std::isnan(value)) return float(value);
    if (std::fabs(value) > double(FLT_MAX)) throw RuntimeError(RuntimeError::overflow());
    return float(value);
}

float CSng(const QString& text) {
    return ToSingle(CDbl(text));
}

double RoundHalfEven(double value) {
    return std::nearbyint(value);
}

int16_t CInt(double value) {
    const double r = RoundHalfEven(value);
    if (!(r >= -32768.0 && r <= 32767.0)) throw RuntimeError(RuntimeError::overflow());
    return int16_t(r);
}

int16_t CInt(const QString& text) {
    return CInt(CDbl(text));
}

int32_t CLng(double value) {
    const double r = RoundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw RuntimeError(RuntimeError::overflow());
    return int32_t(r);
}

int32_t CLng(const QString& text) {
    return CLng(CDbl(text));
}

double Val(const QString& text) {
    // Blanks, tabs and line feeds are passed over wherever they stand.
    QString s;
    s.reserve(text.size());
    for (QChar c : text)
        if (!isSpace(c)) s += c;
    int i = 0;
    double radix = 0;
    if (parseRadix(s, i, radix)) return radix;
    std::string num;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
        if (s[i] == '-') num += '-';
        ++i;
    }
    int digits = 0;
    while (i < s.size() && s[i].unicode() >= '0' && s[i].unicode() <= '9') {
        num += char(s[i++].unicode());
        ++digits;
    }
    if (i < s.size() && s[i] == '.') {
        num += '.';
        ++i;
        while (i < s.size() && s[i].unicode() >= '0' && s[i].unicode() <= '9') {
            num += char(s[i++].unicode());
            ++digits;
        }
    }
    if (digits == 0) return 0;
    if (i < s.size() && (s[i].toUpper() == 'E' || s[i].toUpper() == 'D')) {
        std::string exp = "e";
        int j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exp += char(s[j++].unicode());
        int ed = 0;
        while (j < s.size() && s[j].unicode() >= '0' && s[j].unicode() <= '9') {
            exp += char(s[j++].unicode());
            ++ed;
        }
        if (ed > 0) num += exp;
    }
    const double v = std::strtod(num.c_str(), nullptr);
    if (!std::isfinite(v)) throw RuntimeError(RuntimeError::overflow());
    return v;
}

QString FloatText(float value) {
    return shortestText(value);
}
QString DblText(double value) {
    // As the classic run-time writes a double: rounded to 15 significant
    // digits, so that 99.9 - 84 reads "15.9" and not the binary remainder.
    if (value == 0 || !std::isfinite(value)) return shortestText(value);
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
    std::string sign;
    int exp = 0;
    const std::string digits = splitScientific(std::string(buf, res.ptr), sign, exp);
    const std::string text = placePoint(sign, digits, exp);
    return text == "-0" ? QStringLiteral("0") : QString::fromLatin1(text);
}

QString VarText(const QVariant& value) {
    if (value.isNull() || !value.isValid()) return QString();
    switch (value.typeId()) {
        case QMetaType::Double:
            return DblText(value.toDouble());
        case QMetaType::Float:
            return FloatText(value.toFloat());
        case QMetaType::Bool:
            return value.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
            return QString::number(value.toLongLong());
        default:
            return value.toString();
    }
}

double VarDbl(const QVariant& value) {
    if (value.isNull() || !value.isValid()) return 0;
    switch (value.typeId()) {
        case QMetaType::Double:
        case QMetaType::Float:
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
            return value.toDouble();
        case QMetaType::Bool:
            return value.toBool() ? -1 : 0;
        default:
            return CDbl(value.toString());
    }
}

QString Formatted(double value, const QString& format) {
    if (format.isEmpty()) return DblText(value);
    if (format == QLatin1String("d")) return DblText(RoundHalfEven(value));
    const int dot = format.indexOf('.');
    const int decimals = dot < 0 ? 0 : int(format.size() - dot - 1);
    return QString::number(value, 'f', decimals);
}

}  // namespace Convert
