#pragma once
// The one connection to the data file. Every statement of every window goes
// through Excute, written in the Jet dialect and translated by JetSql.
#include <QSqlDatabase>
#include <QString>

#include "Recordset.h"

class QSqlQuery;

class clsDbopt {
public:
    clsDbopt();
    ~clsDbopt();
    clsDbopt(const clsDbopt&) = delete;
    clsDbopt& operator=(const clsDbopt&) = delete;

    // The data file: ClothesSell.mdb in the program's folder unless set otherwise.
    static QString DataFilePath();
    static void SetDataFilePath(const QString& path);

    // Opens the connection on the data file. Never creates a file: a missing
    // file or one that is not a data file gives false.
    bool ConnectionToDB();
    bool IsConnected() const;
    // Closes the connection (before the data file is copied).
    void Close();

    // Runs one statement. On failure shows the engine's own text in a plain
    // box, sets IsErr and returns a closed recordset.
    Recordset Excute(const QString& SQL, bool& IsErr);
    Recordset Excute(const QString& SQL) {
        bool e;
        return Excute(SQL, e);
    }

    // Runs a prepared command on the connection; errors go to the caller.
    void ExcuteProc(QSqlQuery& Cmd);

    // Transactions on the connection; errors go to the caller.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    QSqlDatabase& Connection() { return db_; }

private:
    QString name_;
    QSqlDatabase db_;
};
