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

    // A transaction of the caller's own (the spreadsheet import); errors go
    // to the caller. It takes the place of the user action's transaction:
    // what the action wrote before it is committed first.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    // User actions. The statements of one user action (one guarded handler:
    // a checkout, a return, a restock ...) share one transaction, begun before
    // the action's first write (BEGIN IMMEDIATE, so that a second till waits
    // for the first) and committed when the handler that began it ends,
    // whatever its statements did. A failed statement still stands alone, as
    // everywhere, but a crash or a power cut leaves all of the action or none.
    // See UserAction.h.
    static int ActionDepth();
    static void EnterAction();
    // Ends the action at this depth on the connection: commits the
    // transaction it began. Then LeaveActionDepth steps out of it.
    void LeaveAction(int depth);
    static void LeaveActionDepth();
    // Commits the action's transaction before the program waits for the
    // user, unless the wait is the box of a failed statement.
    void CommitBeforeWaiting();
    bool InTransaction() const;

    QSqlDatabase& Connection() { return db_; }

private:
    void beginActionTransaction();
    void endActionTransaction();
    bool exec(const char* sql, QString* error = nullptr);

    QString name_;
    QSqlDatabase db_;
    int actionBegunAt_ = 0;   // depth of the action whose transaction is open, 0 for none
    bool ownTrans_ = false;   // BeginTrans of the caller is open
    int ownTransAt_ = 0;      // depth of the action that opened it
    bool reporting_ = false;  // showing the engine's text of a failed statement
};
