// Builds the delivered data file from the schema and the seed rows.
#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>
#include <cstdio>

namespace {

// Splits a script into statements at semicolons that end a line, keeping
// trigger bodies (BEGIN ... END;) whole.
QStringList statements(const QString& script) {
    QStringList out;
    QString cur;
    bool inTrigger = false;
    const auto lines = script.split('\n');
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.startsWith("--") || line.isEmpty()) continue;
        cur += raw + '\n';
        const QString up = line.toUpper();
        if (up.startsWith("CREATE TRIGGER")) inTrigger = true;
        if (!line.endsWith(';')) continue;
        if (inTrigger && !up.startsWith("END")) continue;
        inTrigger = false;
        out << cur.trimmed();
        cur.clear();
    }
    if (!cur.trimmed().isEmpty()) out << cur.trimmed();
    return out;
}

bool runScript(QSqlDatabase& db, const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    const QString script = QString::fromUtf8(f.readAll());
    QSqlQuery q(db);
    for (const QString& st : statements(script)) {
        if (!q.exec(st)) {
            std::fprintf(stderr, "%s: %s\n%s\n", qPrintable(path),
                         qPrintable(q.lastError().databaseText()), qPrintable(st));
            return false;
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: mkdatafile schema.sql seed.sql out.mdb\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[3]);
    const QString tmp = out + ".tmp";
    QFile::remove(tmp);
    int rc = 1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "mk");
        db.setDatabaseName(tmp);
        if (db.open()) {
            QSqlQuery(db).exec("PRAGMA journal_mode=DELETE");
            db.transaction();
            if (runScript(db, QString::fromLocal8Bit(argv[1])) &&
                runScript(db, QString::fromLocal8Bit(argv[2]))) {
                db.commit();
                // Later connections switch the file to write-ahead logging.
                QSqlQuery(db).exec("PRAGMA journal_mode=WAL");
                rc = 0;
            } else {
                db.rollback();
            }
            db.close();
        }
    }
    QSqlDatabase::removeDatabase("mk");
    if (rc == 0) {
        QFile::remove(out);
        if (!QFile::rename(tmp, out)) rc = 1;
    } else {
        QFile::remove(tmp);
    }
    return rc;
}
