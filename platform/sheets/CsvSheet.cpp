// .csv sheets: comma-separated text, fields in double quotes where they hold
// commas, quotes or line breaks. The text is UTF-8 (with or without the byte
// order mark) or, when its bytes are not valid UTF-8, GB18030, as a sheet
// saved on a Chinese desktop is. Cells are the texts as written.
#include <QStringDecoder>

#include "SheetReaders.h"

namespace Sheets {
namespace {

QString decode(QByteArray bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes.mid(3));
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8(bytes);
    if (!utf8.hasError()) return text;
    QStringDecoder gb("GB18030", QStringConverter::Flag::Stateless);
    return gb.isValid() ? QString(gb(bytes)) : text;
}

}  // namespace

namespace CsvSheet {

std::unique_ptr<Sheet> Read(const QByteArray& bytes, Refusal& why) {
    // Binary data is no text, and markup (a web page or an XML file saved
    // under a spreadsheet's name) is no comma-separated sheet.
    if (bytes.isEmpty() || bytes.contains('\0') || bytes.trimmed().startsWith('<')) {
        why = Refusal::NotASheet;
        return nullptr;
    }
    const QString text = decode(bytes);
    auto table = std::make_unique<CellTable>();
    int row = 1;
    int col = 1;
    QString field;
    bool quoted = false;       // inside a quoted field
    bool lineHasText = false;  // the line so far holds anything
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c != QLatin1Char('"')) {
                field += c;
            } else if (i + 1 < n && text[i + 1] == QLatin1Char('"')) {
                field += c;
                ++i;
            } else {
                quoted = false;
            }
            continue;
        }
        if (c == QLatin1Char('"')) {
            quoted = true;
            lineHasText = true;
        } else if (c == QLatin1Char(',')) {
            table->Set(row, col++, field);
            field.clear();
            lineHasText = true;
        } else if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            if (c == QLatin1Char('\r') && i + 1 < n && text[i + 1] == QLatin1Char('\n')) ++i;
            table->Set(row, col, field);
            field.clear();
            ++row;
            col = 1;
            lineHasText = false;
        } else {
            field += c;
            lineHasText = true;
        }
    }
    if (lineHasText) table->Set(row, col, field);
    return table;
}

}  // namespace CsvSheet
}  // namespace Sheets
