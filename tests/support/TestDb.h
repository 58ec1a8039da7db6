#pragma once
// A fresh copy of the delivered data file in a temporary folder, with the
// session's objects made and connected to it.
#include <QTemporaryDir>

#include "Recordset.h"

class TestDb {
public:
    // Copies the data file, creates the session objects and connects.
    // With login, the administrator is loaded as the current user, the
    // default shop as the current shop and its rules as the rules.
    explicit TestDb(bool login = true);
    ~TestDb();

    QString Path() const { return path_; }
    QString Folder() const { return dir_.path(); }

    // Runs a statement that must succeed (test set-up and checks).
    static void Exec(const QString& jet);
    static Recordset Query(const QString& jet);
    // The first field of the first row of a query, as text ("" when no row).
    static QString Scalar(const QString& jet);
    static int Count(const QString& table, const QString& where = QString());

    // Adds a goods row with one layer; returns the Store GUID.
    static QString AddGoods(const QString& typeNo, double qty, double price, double cost,
                            const QString& size = "M", const QString& colour = "黑色",
                            const QString& idCode = QString(), const QString& date = QString());

private:
    QTemporaryDir dir_;
    QString path_;
};
