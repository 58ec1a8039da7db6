#include "TestDb.h"

#include <QFile>
#include <QTest>
#include <stdexcept>

#include "DateText.h"
#include "MsgBox.h"
#include "Session.h"

TestDb::TestDb(bool login) {
    path_ = dir_.filePath("ClothesSell.mdb");
    if (!QFile::copy(QStringLiteral(CS_TEMPLATE_DB), path_))
        throw std::runtime_error("cannot copy the data file template");
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner);
    clsDbopt::SetDataFilePath(path_);
    Session::Create();
    if (!Session::Dbopt().ConnectionToDB()) throw std::runtime_error("cannot open the data file");
    if (login) {
        Recordset shop = Query("select * from Shop");
        Session::ShopNo = shop.Text("GUID");
        Session::ShopName = shop.Text("ShopName");
        Session::User().Initial("admin");
        Session::SellRole().Initial(kDefaultShop);
    }
}

TestDb::~TestDb() {
    Session::ReleaseDb();
    clsDbopt::SetDataFilePath(QString());
}

void TestDb::Exec(const QString& jet) {
    bool err = false;
    auto old = MsgBox::SetPresenter({});
    Session::Dbopt().Excute(jet, err);
    MsgBox::SetPresenter(old);
    if (err) throw std::runtime_error(("statement failed: " + jet).toStdString());
}

Recordset TestDb::Query(const QString& jet) {
    bool err = false;
    auto old = MsgBox::SetPresenter({});
    Recordset rs = Session::Dbopt().Excute(jet, err);
    MsgBox::SetPresenter(old);
    if (err) throw std::runtime_error(("query failed: " + jet).toStdString());
    return rs;
}

QString TestDb::Scalar(const QString& jet) {
    Recordset rs = Query(jet);
    return rs.Eof() ? QString() : rs.Text(0);
}

int TestDb::Count(const QString& table, const QString& where) {
    return Scalar("select count(*) from " + table + (where.isEmpty() ? "" : " where " + where))
        .toInt();
}

QString TestDb::AddGoods(const QString& typeNo, double qty, double price, double cost,
                         const QString& size, const QString& colour, const QString& idCode,
                         const QString& date) {
    const QString guid = Session::NewGUID().GUID();
    const QString d = date.isEmpty() ? DateText::Today() : date;
    const QString shop = Session::ShopNo;
    Exec(QString(
             "Insert Into Store "
             "Values('%1','%2','%3','T恤','青木','%4','%5','纯棉','一等品','广州',%6,%7,'%8','A1')")
             .arg(guid, shop, typeNo, size, colour, QString::number(qty), QString::number(price),
                  idCode));
    Exec(QString("Insert Into StoreDetail "
                 "Values('%1','%2','%3','%4','T恤','青木','%5','%6','纯棉','一等品',%7,%8,'广州',''"
                 ",'%9')")
             .arg(Session::NewGUID().GUID(), guid, shop, typeNo, size, colour,
                  QString::number(cost), QString::number(qty), d));
    Exec(QString("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) "
                 "Values('%1',%2,%3,'%4','%5')")
             .arg(guid, QString::number(cost), QString::number(qty), d, shop));
    return guid;
}
