#include "clsDbopt.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUrl>

#include "JetSql.h"
#include "MsgBox.h"
#include "RuntimeError.h"

namespace {
QString& overridePath() {
    static QString p;
    return p;
}
int connectionCounter = 0;
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
    return true;
}

bool clsDbopt::IsConnected() const {
    return db_.isValid() && db_.isOpen();
}

void clsDbopt::Close() {
    if (db_.isValid()) {
        db_.close();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
    }
}

Recordset clsDbopt::Excute(const QString& SQL, bool& IsErr) {
    IsErr = false;
    QString error;
    if (!IsConnected()) {
        error = QStringLiteral("对象关闭时，不允许操作。");
    } else {
        const JetSql::Result t = JetSql::Translate(SQL);
        if (!t.error.isEmpty()) {
            error = t.error;
        } else {
            QSqlQuery q(db_);
            q.setForwardOnly(true);
            if (q.exec(t.sql)) {
                if (!q.isSelect()) return Recordset();
                const QSqlRecord rec = q.record();
                const int n = rec.count();
                QStringList names;
                names.reserve(n);
                for (int i = 0; i < n; ++i) names << rec.fieldName(i);
                std::vector<Recordset::Row> rows;
                while (q.next()) {
                    Recordset::Row row(n);
                    for (int i = 0; i < n; ++i) row[i] = q.value(i);
                    rows.push_back(std::move(row));
                }
                if (q.lastError().isValid() && q.lastError().type() != QSqlError::NoError) {
                    error = q.lastError().databaseText();
                } else {
                    return Recordset(std::move(names), std::move(rows));
                }
            } else {
                error = q.lastError().databaseText();
                if (error.isEmpty()) error = q.lastError().text();
            }
        }
    }
    IsErr = true;
    MsgBox::Show(error);
    return Recordset();
}

void clsDbopt::ExcuteProc(QSqlQuery& Cmd) {
    if (!Cmd.exec()) throw RuntimeError(Cmd.lastError().text());
}

void clsDbopt::BeginTrans() {
    if (!db_.transaction()) throw RuntimeError(db_.lastError().text());
}

void clsDbopt::CommitTrans() {
    if (!db_.commit()) throw RuntimeError(db_.lastError().text());
}

void clsDbopt::RollbackTrans() {
    if (!db_.rollback()) throw RuntimeError(db_.lastError().text());
}
