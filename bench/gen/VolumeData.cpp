#include "VolumeData.h"

#include <QCryptographicHash>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <cstdio>

#include "Session.h"

namespace VolumeData {

namespace {

QString guid() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

bool check(QSqlQuery& q) {
    if (q.exec()) return true;
    std::fprintf(stderr, "%s\n", qPrintable(q.lastError().text()));
    return false;
}

// A short key of the delivered file's schema: a cached file made before an
// index was added to the schema is not taken for one made after.
QString schemaKey() {
    QByteArray schema;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "volume-schema");
        db.setDatabaseName(QStringLiteral(CS_TEMPLATE_DB));
        db.setConnectOptions("QSQLITE_OPEN_READONLY");
        if (db.open()) {
            QSqlQuery q(db);
            if (q.exec("select type, name, sql from sqlite_master order by type, name")) {
                while (q.next())
                    schema +=
                        (q.value(0).toString() + q.value(1).toString() + q.value(2).toString())
                            .toUtf8();
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase("volume-schema");
    return QString::fromLatin1(
        QCryptographicHash::hash(schema, QCryptographicHash::Sha1).toHex().left(8));
}

}  // namespace

QString ArticleNo(int i) {
    return QStringLiteral("ZM%1").arg(i, 5, 10, QChar('0'));
}

bool Make(const QString& path, const Volume& v) {
    QFile::remove(path);
    if (!QFile::copy(QStringLiteral(CS_TEMPLATE_DB), path)) return false;
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    bool ok = true;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "volume");
        db.setDatabaseName(path);
        if (!db.open()) return false;
        QSqlQuery(db).exec("PRAGMA synchronous=OFF");
        db.transaction();
        QRandomGenerator rnd(20261122);
        const QStringList colours = {"黑色", "白色",   "红色", "蓝色",
                                     "灰色", "卡其色", "粉色", "绿色"};
        const QStringList sizes = {"S", "M", "L", "XL", "XXL", "均码"};
        const QStringList kinds = {"T恤", "衬衫", "毛衣", "外套", "牛仔裤", "连衣裙", "卫衣"};
        const QStringList brands = {"青木", "北岸", "简约时光", "城市印象", "雅风"};
        const QDate start = QDate::currentDate().addYears(-2);

        QSqlQuery st(db), sd(db), bp(db), sl(db), sc(db);
        st.prepare("Insert Into Store Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        sd.prepare("Insert Into StoreDetail Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        bp.prepare(
            "Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values(?,?,?,?,?)");
        sl.prepare("Insert Into Sell Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        sc.prepare(
            "Insert Into SellChange Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");

        struct Goods {
            QString guid, typeNo, kind, brand, size, colour;
            int price;
        };
        std::vector<Goods> goods;
        goods.reserve(size_t(v.goods));
        const QString shop = kDefaultShop;
        for (int i = 0; i < v.goods && ok; ++i) {
            const int art = i % v.articles;
            Goods g{guid(),
                    ArticleNo(art),
                    kinds[art % kinds.size()],
                    brands[art % brands.size()],
                    sizes[(i / v.articles) % sizes.size()],
                    colours[(i / v.articles / sizes.size()) % colours.size()],
                    60 + (art % 40) * 10};
            const int qty = 1 + int(rnd.bounded(30));
            const int cost = g.price / 2;
            const QString date = start.addDays(rnd.bounded(700)).toString("yyyy-MM-dd");
            const QVariantList svals = {g.guid,
                                        shop,
                                        g.typeNo,
                                        g.kind,
                                        g.brand,
                                        g.size,
                                        g.colour,
                                        "纯棉",
                                        "一等品",
                                        "广州",
                                        qty,
                                        g.price,
                                        QString("69%1").arg(100000000 + i),
                                        "A1"};
            for (int k = 0; k < svals.size(); ++k) st.bindValue(k, svals[k]);
            const QVariantList dvals = {guid(),  g.guid, shop,     g.typeNo, g.kind,
                                        g.brand, g.size, g.colour, "纯棉",   "一等品",
                                        cost,    qty,    "广州",   "",       date};
            for (int k = 0; k < dvals.size(); ++k) sd.bindValue(k, dvals[k]);
            const QVariantList bvals = {g.guid, cost, qty, date, shop};
            for (int k = 0; k < bvals.size(); ++k) bp.bindValue(k, bvals[k]);
            ok = check(st) && check(sd) && check(bp);
            goods.push_back(std::move(g));
        }
        // Sale lines: a few pieces per sale, numbered per day.
        int line = 0;
        QDate day = start;
        const int perDay = std::max(1, (v.saleLines + 729) / 730);
        while (line < v.saleLines && ok) {
            int saleOfDay = 0;
            for (int n = 0; n < perDay && line < v.saleLines && ok; ++saleOfDay) {
                const QString sellNo =
                    day.toString("yyyyMMdd") + QString("%1").arg(saleOfDay + 1, 4, 10, QChar('0'));
                const int pieces = 1 + int(rnd.bounded(3));
                for (int p = 0; p < pieces && n < perDay && line < v.saleLines && ok;
                     ++p, ++n, ++line) {
                    const Goods& g = goods[size_t(rnd.bounded(int(goods.size())))];
                    const int roll = int(rnd.bounded(1000));
                    const int state = roll < 20 ? 2 : roll < 30 ? 1 : roll < 35 ? 3 : 0;
                    const QString abate = roll % 3 == 0 ? "全" : roll % 3 == 1 ? "8.5" : "特价";
                    const int amount = abate == "全"    ? g.price
                                       : abate == "8.5" ? g.price * 85 / 100
                                                        : g.price - 10;
                    const QString sellGuid = guid();
                    const QString date = day.toString("yyyy-MM-dd");
                    const QVariantList vals = {
                        sellGuid,    g.guid,  shop,     g.typeNo, g.kind,
                        g.brand,     g.size,  g.colour, "纯棉",   "一等品",
                        "广州",      1,       g.price,  abate,    amount,
                        g.price / 2, "admin", date,     sellNo,   1 + line % std::max(1, v.goods),
                        "管理员",    state,   amount,   0};
                    for (int k = 0; k < vals.size(); ++k) sl.bindValue(k, vals[k]);
                    ok = check(sl);
                    if (ok && state != 0) {
                        const QVariantList cv = {guid(),  state == 1 ? g.guid : QString(""),
                                                 shop,    g.typeNo,
                                                 g.kind,  g.brand,
                                                 g.size,  g.colour,
                                                 "纯棉",  "一等品",
                                                 "广州",  1,
                                                 g.price, abate,
                                                 amount,  g.price / 2,
                                                 "admin", date,
                                                 1,       "管理员",
                                                 amount,  sellGuid,
                                                 sellNo,  date,
                                                 state,   "尺码不合适"};
                        for (int k = 0; k < cv.size(); ++k) sc.bindValue(k, cv[k]);
                        ok = check(sc);
                    }
                }
            }
            day = day.addDays(1);
        }
        if (ok)
            db.commit();
        else
            db.rollback();
        db.close();
    }
    QSqlDatabase::removeDatabase("volume");
    return ok;
}

QString Cached(const Volume& v) {
    const QString path = QDir::temp().filePath(QStringLiteral("clothes-volume-%1-%2-%3-%4.mdb")
                                                   .arg(v.goods)
                                                   .arg(v.articles)
                                                   .arg(v.saleLines)
                                                   .arg(schemaKey()));
    if (QFile::exists(path)) return path;
    const QString tmp = path + ".part";
    if (!Make(tmp, v)) return QString();
    QFile::rename(tmp, path);
    return path;
}

}  // namespace VolumeData

namespace VolumeData {
bool OpenSession(const QString& path) {
    clsDbopt::SetDataFilePath(path);
    Session::Create();
    if (!Session::Dbopt().ConnectionToDB()) return false;
    Session::ShopNo = kDefaultShop;
    Session::ShopName = QStringLiteral("本店");
    return Session::User().Initial(QStringLiteral("admin"));
}
}  // namespace VolumeData
