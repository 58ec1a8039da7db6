// .xlsx workbooks (Office Open XML): a zip of XML parts, opened with libzip
// and read with Qt's XML stream reader. Only what the first sheet's cell
// texts need is read: the workbook (which sheet is first, the 1904 date
// system), its relations, the shared strings, the number formats of the
// cell styles, and the sheet itself.
#include <zip.h>

#include <QFile>
#include <QHash>
#include <QXmlStreamReader>

#include "SheetReaders.h"

namespace Sheets {
namespace {

class Package {
public:
    explicit Package(zip_t* zip) : zip_(zip) {}
    ~Package() { zip_discard(zip_); }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    bool Has(const QString& name) const {
        return zip_name_locate(zip_, name.toUtf8().constData(), ZIP_FL_NOCASE) >= 0;
    }
    // The part's bytes; false when it cannot be read whole.
    bool Read(const QString& name, QByteArray& out) const {
        const zip_int64_t index = zip_name_locate(zip_, name.toUtf8().constData(), ZIP_FL_NOCASE);
        zip_stat_t st;
        if (index < 0 || zip_stat_index(zip_, zip_uint64_t(index), 0, &st) != 0 ||
            !(st.valid & ZIP_STAT_SIZE) || st.size > zip_uint64_t(1) << 30)
            return false;
        zip_file_t* f = zip_fopen_index(zip_, zip_uint64_t(index), 0);
        if (!f) return false;
        out.resize(qsizetype(st.size));
        const zip_int64_t got = zip_fread(f, out.data(), st.size);
        zip_fclose(f);
        return got == zip_int64_t(st.size);
    }

private:
    zip_t* zip_;
};

// A part named by a relation: relative to the folder of the part that names
// it, or from the package's root when it begins with a slash.
QString partPath(const QString& folder, const QString& target) {
    if (target.startsWith(QLatin1Char('/'))) return target.mid(1);
    QStringList parts = folder.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& p : target.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (p == QLatin1String(".."))
            parts.removeLast();
        else if (p != QLatin1String("."))
            parts << p;
    }
    return parts.join(QLatin1Char('/'));
}

// The text of a string item (<si> or <is>): its <t> runs, without the
// phonetic guides (<rPh>) that East Asian workbooks put beside them.
QString stringItem(QXmlStreamReader& x) {
    QString text;
    const QString end = x.name().toString();
    int phonetic = 0;
    while (!x.atEnd()) {
        x.readNext();
        if (x.isStartElement()) {
            if (x.name() == QLatin1String("rPh"))
                ++phonetic;
            else if (x.name() == QLatin1String("t") && phonetic == 0)
                text += x.readElementText();
        } else if (x.isEndElement()) {
            if (x.name() == QLatin1String("rPh"))
                --phonetic;
            else if (x.name() == end)
                break;
        }
    }
    return text;
}

// "B12" to row 12, column 2; false when it is not a cell reference.
bool cellRef(QStringView ref, int& row, int& col) {
    qsizetype i = 0;
    int c = 0;
    for (; i < ref.size() && ref[i].isLetter(); ++i) {
        c = c * 26 + (ref[i].toUpper().unicode() - 'A' + 1);
        if (c > kMaxCols) return false;
    }
    bool ok = false;
    const int r = ref.mid(i).toInt(&ok);
    if (i == 0 || !ok || r < 1) return false;
    row = r;
    col = c;
    return true;
}

class Reader {
public:
    explicit Reader(const Package& zip) : zip_(zip) {}

    Refusal Read(CellTable& table) {
        // A zip without a workbook (a word processor's document, an archive).
        QByteArray workbook;
        if (!zip_.Has(QStringLiteral("xl/workbook.xml"))) return Refusal::NotASheet;
        if (!zip_.Read(QStringLiteral("xl/workbook.xml"), workbook)) return Refusal::Damaged;
        const QString firstSheetId = readWorkbook(workbook);
        if (firstSheetId.isNull()) return Refusal::Damaged;

        QString sheetPath = QStringLiteral("xl/worksheets/sheet1.xml");
        QString stringsPath = QStringLiteral("xl/sharedStrings.xml");
        QString stylesPath = QStringLiteral("xl/styles.xml");
        QByteArray rels;
        if (zip_.Read(QStringLiteral("xl/_rels/workbook.xml.rels"), rels)) {
            QXmlStreamReader x(rels);
            while (!x.atEnd()) {
                x.readNext();
                if (!x.isStartElement() || x.name() != QLatin1String("Relationship")) continue;
                const auto a = x.attributes();
                const QString target =
                    partPath(QStringLiteral("xl"), a.value(QLatin1String("Target")).toString());
                const QStringView type = a.value(QLatin1String("Type"));
                if (a.value(QLatin1String("Id")) == firstSheetId)
                    sheetPath = target;
                else if (type.endsWith(QLatin1String("/sharedStrings")))
                    stringsPath = target;
                else if (type.endsWith(QLatin1String("/styles")))
                    stylesPath = target;
            }
        }

        QByteArray bytes;
        if (zip_.Has(stringsPath)) {
            if (!zip_.Read(stringsPath, bytes) || !readStrings(bytes)) return Refusal::Damaged;
        }
        if (zip_.Has(stylesPath)) {
            if (!zip_.Read(stylesPath, bytes) || !readStyles(bytes)) return Refusal::Damaged;
        }
        if (!zip_.Read(sheetPath, bytes)) return Refusal::Damaged;
        return readSheet(bytes, table) ? Refusal::None : Refusal::Damaged;
    }

private:
    // The relation id of the first sheet (null when the workbook is unreadable).
    QString readWorkbook(const QByteArray& bytes) {
        QXmlStreamReader x(bytes);
        QString first;
        while (!x.atEnd()) {
            x.readNext();
            if (!x.isStartElement()) continue;
            if (x.name() == QLatin1String("workbookPr")) {
                const QStringView v = x.attributes().value(QLatin1String("date1904"));
                date1904_ = v == QLatin1String("1") || v == QLatin1String("true");
            } else if (x.name() == QLatin1String("sheet") && first.isNull()) {
                for (const QXmlStreamAttribute& a : x.attributes())
                    if (a.name() == QLatin1String("id") && !a.prefix().isEmpty())
                        first = a.value().toString();
                if (first.isNull()) first = QStringLiteral("");
            }
        }
        return x.hasError() ? QString() : first;
    }

    bool readStrings(const QByteArray& bytes) {
        QXmlStreamReader x(bytes);
        while (!x.atEnd()) {
            x.readNext();
            if (x.isStartElement() && x.name() == QLatin1String("si")) strings_ << stringItem(x);
        }
        return !x.hasError();
    }

    bool readStyles(const QByteArray& bytes) {
        QXmlStreamReader x(bytes);
        QHash<int, DateKind> custom;
        bool inCellXfs = false;
        std::vector<int> formatOfStyle;
        while (!x.atEnd()) {
            x.readNext();
            if (x.isStartElement()) {
                const auto a = x.attributes();
                if (x.name() == QLatin1String("numFmt")) {
                    custom.insert(a.value(QLatin1String("numFmtId")).toInt(),
                                  KindOfFormat(a.value(QLatin1String("formatCode")).toString()));
                } else if (x.name() == QLatin1String("cellXfs")) {
                    inCellXfs = true;
                } else if (x.name() == QLatin1String("xf") && inCellXfs) {
                    formatOfStyle.push_back(a.value(QLatin1String("numFmtId")).toInt());
                }
            } else if (x.isEndElement() && x.name() == QLatin1String("cellXfs")) {
                inCellXfs = false;
            }
        }
        for (int id : formatOfStyle)
            styleKind_.push_back(custom.contains(id) ? custom.value(id) : KindOfBuiltinFormat(id));
        return !x.hasError();
    }

    bool readSheet(const QByteArray& bytes, CellTable& table) {
        QXmlStreamReader x(bytes);
        int row = 0;
        int col = 0;
        while (!x.atEnd()) {
            x.readNext();
            if (!x.isStartElement()) continue;
            if (x.name() == QLatin1String("row")) {
                const int r = x.attributes().value(QLatin1String("r")).toInt();
                row = r > 0 ? r : row + 1;
                col = 0;
            } else if (x.name() == QLatin1String("c")) {
                const auto a = x.attributes();
                int r = row;
                int c = col + 1;
                if (a.hasAttribute(QLatin1String("r")) &&
                    !cellRef(a.value(QLatin1String("r")), r, c))
                    return false;
                row = r;
                col = c;
                const QString type = a.value(QLatin1String("t")).toString();
                const int style = a.value(QLatin1String("s")).toInt();
                table.Set(row, col, cellText(x, type, style));
            }
        }
        return !x.hasError();
    }

    // Reads the cell's element to its end and gives its text.
    QString cellText(QXmlStreamReader& x, const QString& type, int style) {
        QString value;
        QString inline_;
        while (!x.atEnd()) {
            x.readNext();
            if (x.isStartElement()) {
                if (x.name() == QLatin1String("v"))
                    value = x.readElementText();
                else if (x.name() == QLatin1String("is"))
                    inline_ = stringItem(x);
                else
                    x.skipCurrentElement();  // a formula, an extension
            } else if (x.isEndElement() && x.name() == QLatin1String("c")) {
                break;
            }
        }
        if (type == QLatin1String("inlineStr")) return inline_;
        if (type == QLatin1String("s")) {
            bool ok = false;
            const int i = value.toInt(&ok);
            return ok && i >= 0 && i < strings_.size() ? strings_[i] : QString();
        }
        if (type == QLatin1String("str") || type == QLatin1String("e")) return value;
        if (type == QLatin1String("b"))
            return value.isEmpty()               ? QString()
                   : value == QLatin1String("1") ? QStringLiteral("TRUE")
                                                 : QStringLiteral("FALSE");
        if (type == QLatin1String("d")) return value.left(10);  // an ISO date
        if (value.isEmpty()) return QString();
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok) return value;
        const DateKind kind = style >= 0 && size_t(style) < styleKind_.size()
                                  ? styleKind_[size_t(style)]
                                  : DateKind::None;
        return SerialText(number, kind, date1904_);
    }

    const Package& zip_;
    bool date1904_ = false;
    QStringList strings_;
    std::vector<DateKind> styleKind_;
};

}  // namespace

namespace XlsxSheet {

std::unique_ptr<Sheet> Open(const QString& path, Refusal& why) {
    // The file begins as a zip does: one that does not open is damaged.
    int error = 0;
    zip_t* zip = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &error);
    if (!zip) {
        why = Refusal::Damaged;
        return nullptr;
    }
    const Package package(zip);
    auto table = std::make_unique<CellTable>();
    why = Reader(package).Read(*table);
    if (why != Refusal::None) return nullptr;
    return table;
}

}  // namespace XlsxSheet
}  // namespace Sheets
