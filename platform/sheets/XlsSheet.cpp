// .xls workbooks (Excel 97 to 2003, BIFF8) through libfreexl. The workbook is
// read into memory when it opens; cells are taken from it as they are asked for.
#include <freexl.h>

#include <QFile>

#include "SheetReaders.h"

namespace Sheets {
namespace {

class Workbook : public Sheet {
public:
    explicit Workbook(const void* handle) : handle_(handle) {}
    ~Workbook() override { freexl_close(handle_); }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    bool SelectFirstSheet() {
        unsigned int rows = 0;
        unsigned short cols = 0;
        if (freexl_select_active_worksheet(handle_, 0) != FREEXL_OK ||
            freexl_worksheet_dimensions(handle_, &rows, &cols) != FREEXL_OK)
            return false;
        rows_ = int(std::min<unsigned int>(rows, kMaxRows));
        cols_ = int(cols);
        return true;
    }

    QString Cell(int row, int col) const override {
        if (row < 1 || col < 1 || row > rows_ || col > cols_) return QString();
        FreeXL_CellValue v;
        if (freexl_get_cell_value(handle_, unsigned(row - 1), static_cast<unsigned short>(col - 1),
                                  &v) != FREEXL_OK)
            return QString();
        switch (v.type) {
            case FREEXL_CELL_INT:
                return QString::number(v.value.int_value);
            case FREEXL_CELL_DOUBLE:
                return NumberText(v.value.double_value);
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:  // already "YYYY-MM-DD", "YYYY-MM-DD HH:MM:SS", "HH:MM:SS"
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME:
                return v.value.text_value ? QString::fromUtf8(v.value.text_value) : QString();
            default:
                return QString();
        }
    }
    int Rows() const override { return rows_; }
    int Cols() const override { return cols_; }

private:
    const void* handle_;
    int rows_ = 0;
    int cols_ = 0;
};

// Whether a workbook stream begins with Excel's password record: the FILEPASS
// record (0x002F) right behind the BOF record (0x0809) of the workbook globals.
// The records behind it are ciphered, so that reading them fails on the way.
bool beginsWithPassword(const QByteArray& bytes) {
    const auto word = [&](qsizetype at) {
        return at + 2 <= bytes.size() ? quint16(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8)
                                      : quint16(0);
    };
    for (qsizetype at = bytes.indexOf("\x09\x08"); at >= 0;
         at = bytes.indexOf("\x09\x08", at + 1)) {
        const quint16 version = word(at + 4);
        if ((version == 0x0600 || version == 0x0500) && word(at + 6) == 0x0005)
            return word(at + 4 + word(at + 2)) == 0x002F;
    }
    return false;
}

// A compound document that does not read as a workbook is kept closed by a
// password when it holds Excel's encrypted package (an .xlsx with a password;
// its stream names are UTF-16) or a workbook that begins with the password record.
bool passwordProtected(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = f.readAll();
    const QString name = QStringLiteral("EncryptedPackage");
    const QByteArray utf16(reinterpret_cast<const char*>(name.utf16()), name.size() * 2);
    return bytes.contains(utf16) || beginsWithPassword(bytes);
}

}  // namespace

namespace XlsSheet {

std::unique_ptr<Sheet> Open(const QString& path, Refusal& why) {
    const void* handle = nullptr;
    const int rc = freexl_open(QFile::encodeName(path).constData(), &handle);
    // A workbook that fails half-way through its records can come back as
    // read, but without a handle.
    if (rc != FREEXL_OK || !handle) {
        freexl_close(handle);  // it may hold what was read before the failure
        why = passwordProtected(path)                ? Refusal::Password
              : rc == FREEXL_BIFF_WORKBOOK_NOT_FOUND ? Refusal::NotASheet
                                                     : Refusal::Damaged;
        return nullptr;
    }
    auto book = std::make_unique<Workbook>(handle);
    unsigned int info = 0;
    if (freexl_get_info(handle, FREEXL_BIFF_PASSWORD, &info) == FREEXL_OK &&
        info == FREEXL_BIFF_OBFUSCATED) {
        why = Refusal::Password;
        return nullptr;
    }
    if (!book->SelectFirstSheet()) {
        why = Refusal::Damaged;
        return nullptr;
    }
    return book;
}

}  // namespace XlsSheet
}  // namespace Sheets
