#include "clsDbopt.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUrl>

#include "JetSql.h"
#include "MsgBox.h"
#include "RecordsetData.h"
#include "RuntimeError.h"

namespace {
QString& overridePath() {
    static QString p;
    return p;
}
int connectionCounter = 0;
int actionDepth = 0;
}  // namespace

clsDbopt::clsDbopt() : name_(QStringLiteral("ClothesSell-%1").arg(++connectionCounter)) {}

clsDbopt::~clsDbopt() {
    Close();
}

QString clsDbopt::DataFilePath() {
    if (!overridePath().isEmpty()) return overridePath();
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("ClothesSell.mdb"));
}

void clsDbopt::SetDataFilePath(const QString& path) {
    overridePath() = path;
}

bool clsDbopt::ConnectionToDB() {
    Close();
    const QString path = DataFilePath();
    const QFileInfo fi(path);
    if (!fi.exists() || !fi.isFile() || !fi.isReadable()) return false;
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_);
    // Opened by URI with mode=rw, so that a file is never made here.
    db_.setDatabaseName(QUrl::fromLocalFile(fi.absoluteFilePath()).toString(QUrl::FullyEncoded) +
                        QStringLiteral("?mode=rw"));
    db_.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=15000"));
    if (!db_.open()) {
        Close();
        return false;
    }
    QSqlQuery q(db_);
    // A file that is not a data file fails here.
    if (!q.exec(QStringLiteral("select count(*) from sqlite_master where type='table'")) ||
        !q.next() || q.value(0).toInt() == 0) {
        q = QSqlQuery();
        Close();
        return false;
    }
    q.exec(QStringLiteral("PRAGMA journal_mode=WAL"));
    q.exec(QStringLiteral("PRAGMA synchronous=NORMAL"));
    q.exec(QStringLiteral("PRAGMA busy_timeout=15000"));
    // Room for the goods table of a large shop (16 MB at 100,000 goods) in
    // the page cache, so that each search of the goods list reads it from
    // memory instead of asking the system for every page again.
    q.exec(QStringLiteral("PRAGMA cache_size=-32768"));
    return true;
}

bool clsDbopt::IsConnected() const {
    return db_.isValid() && db_.isOpen();
}

void clsDbopt::Close() {
    endActionTransaction();
    if (db_.isValid()) {
        db_.close();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
    }
}

namespace {

// The connection's own SQLite handle: statements are run on it directly, so
// that reading a large result costs one value per cell and nothing more.
sqlite3* handleOf(const QSqlDatabase& db) {
    const QVariant v = db.driver()->handle();
    if (v.isValid() && qstrcmp(v.typeName(), "sqlite3*") == 0)
        return *static_cast<sqlite3* const*>(v.constData());
    return nullptr;
}

// Adds the row the statement stands on to the table, each value as the
// store holds it. The values are read through sqlite3_column_value, one call
// a cell: the per-call cost of the column functions (three calls a cell)
// is most of what reading a large result costs. The connection is used by
// this thread only, which is what reading an unprotected value requires.
void addRow(sqlite3_stmt* st, int n, RecordsetData& out) {
    out.reserveRow();
    for (int c = 0; c < n; ++c) {
        sqlite3_value* v = sqlite3_column_value(st, c);
        switch (sqlite3_value_type(v)) {
            case SQLITE_INTEGER:
                out.putInteger(sqlite3_value_int64(v));
                break;
            case SQLITE_FLOAT:
                out.putDouble(sqlite3_value_double(v));
                break;
            case SQLITE_NULL:
                out.putNull();
                break;
            case SQLITE_BLOB: {
                const auto* p = static_cast<const char*>(sqlite3_value_blob(v));
                out.putBytes(Recordset::Kind::Blob, p, size_t(sqlite3_value_bytes(v)));
                break;
            }
            default: {
                const auto* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
                out.putBytes(Recordset::Kind::Text, p, size_t(sqlite3_value_bytes(v)));
            }
        }
    }
}

struct Statement {
    sqlite3_stmt* st = nullptr;
    ~Statement() { sqlite3_finalize(st); }
};

}  // namespace

Recordset clsDbopt::Excute(const QString& SQL, bool& IsErr) {
    IsErr = false;
    QString error;
    sqlite3* h = IsConnected() ? handleOf(db_) : nullptr;
    if (!h) {
        error = QStringLiteral("对象关闭时，不允许操作。");
    } else {
        const JetSql::Result t = JetSql::Translate(SQL);
        if (!t.error.isEmpty()) {
            error = t.error;
        } else {
            const QByteArray sql = t.sql.toUtf8();
            Statement s;
            const char* tail = nullptr;
            if (sqlite3_prepare_v2(h, sql.constData(), int(sql.size()), &s.st, &tail) !=
                SQLITE_OK) {
                error = QString::fromUtf8(sqlite3_errmsg(h));
            } else if (tail && !QByteArray(tail).trimmed().isEmpty()) {
                error = QStringLiteral("在 SQL 语句结尾之后找到字符。");
            } else if (!s.st) {
                return Recordset();  // an empty text
            } else {
                if (actionDepth > 0 && !sqlite3_stmt_readonly(s.st)) beginActionTransaction();
                const int n = sqlite3_column_count(s.st);
                QStringList names;
                names.reserve(n);
                for (int i = 0; i < n; ++i)
                    names << QString::fromUtf8(sqlite3_column_name(s.st, i));
                Recordset::Builder rows(std::move(names));
                int rc;
                while ((rc = sqlite3_step(s.st)) == SQLITE_ROW) addRow(s.st, n, *rows.d_);
                if (rc != SQLITE_DONE) {
                    error = QString::fromUtf8(sqlite3_errmsg(h));
                } else if (n == 0) {
                    return Recordset();  // Insert, Update, Delete: a closed result
                } else {
                    return rows.Finish();
                }
            }
        }
    }
    IsErr = true;
    reporting_ = true;
    MsgBox::Show(error);
    reporting_ = false;
    return Recordset();
}

void clsDbopt::ExcuteProc(QSqlQuery& Cmd) {
    if (actionDepth > 0) beginActionTransaction();
    if (!Cmd.exec()) throw RuntimeError(Cmd.lastError().text());
}

bool clsDbopt::exec(const char* sql, QString* error) {
    sqlite3* h = IsConnected() ? handleOf(db_) : nullptr;
    if (!h) {
        if (error) *error = QStringLiteral("对象关闭时，不允许操作。");
        return false;
    }
    if (sqlite3_exec(h, sql, nullptr, nullptr, nullptr) == SQLITE_OK) return true;
    if (error) *error = QString::fromUtf8(sqlite3_errmsg(h));
    return false;
}

bool clsDbopt::InTransaction() const {
    sqlite3* h = IsConnected() ? handleOf(db_) : nullptr;
    return h && !sqlite3_get_autocommit(h);
}

// ---- user actions

int clsDbopt::ActionDepth() {
    return actionDepth;
}

void clsDbopt::EnterAction() {
    ++actionDepth;
}

void clsDbopt::LeaveActionDepth() {
    if (actionDepth > 0) --actionDepth;
}

void clsDbopt::LeaveAction(int depth) {
    if (actionBegunAt_ >= depth) endActionTransaction();
    if (ownTrans_ && ownTransAt_ >= depth) {
        // A transaction of the caller's own that its handler left open (a
        // run-time error between begin and commit) is undone, all of it.
        exec("ROLLBACK");
        ownTrans_ = false;
    }
}

void clsDbopt::CommitBeforeWaiting() {
    if (!reporting_) endActionTransaction();
}

void clsDbopt::beginActionTransaction() {
    if (actionBegunAt_ > 0 || ownTrans_ || InTransaction()) return;
    // When the data file stays locked past the busy time-out the statement
    // runs on its own and meets the lock itself.
    if (exec("BEGIN IMMEDIATE")) actionBegunAt_ = actionDepth;
}

void clsDbopt::endActionTransaction() {
    if (actionBegunAt_ == 0) return;
    actionBegunAt_ = 0;
    // A statement that failed badly enough may have undone the transaction
    // already; then there is nothing left to commit.
    if (!InTransaction()) return;
    QString error;
    if (!exec("COMMIT", &error)) {
        exec("ROLLBACK");
        MsgBox::Show(error);
    }
}

void clsDbopt::BeginTrans() {
    endActionTransaction();
    QString error;
    if (!exec("BEGIN IMMEDIATE", &error)) throw RuntimeError(error);
    ownTrans_ = true;
    ownTransAt_ = actionDepth;
}

void clsDbopt::CommitTrans() {
    QString error;
    if (!exec("COMMIT", &error)) throw RuntimeError(error);
    ownTrans_ = false;
}

void clsDbopt::RollbackTrans() {
    QString error;
    if (!exec("ROLLBACK", &error)) throw RuntimeError(error);
    ownTrans_ = false;
}
