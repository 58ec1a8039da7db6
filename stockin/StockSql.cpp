#include "StockSql.h"

#include <QStringList>

#include "Convert.h"
#include "Session.h"

namespace {
QString quoted(const QString& text) {
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}
}  // namespace

namespace StockSql {

QString StoreInsert(const QString& guid, const GoodsText& g, float quantity, float price,
                    const QString& idCode, const QString& goodsFloor) {
    return StoreInsert(guid, g, Convert::FloatText(quantity), Convert::FloatText(price), idCode,
                       goodsFloor);
}

QString StoreInsert(const QString& guid, const GoodsText& g, const QString& quantity,
                    const QString& price, const QString& idCode, const QString& goodsFloor) {
    const QStringList values{
        quoted(guid),    quoted(Session::ShopNo), quoted(g.TypeNo), quoted(g.Name),
        quoted(g.Brand), quoted(g.Size),          quoted(g.Colour), quoted(g.Leather),
        quoted(g.Grade), quoted(g.ProductPlace),  quantity,         price,
        quoted(idCode),  quoted(goodsFloor)};
    return QStringLiteral("Insert Into Store Values(") + values.join(QLatin1Char(',')) +
           QLatin1Char(')');
}

QString StoreDetailInsert(const QString& guid, const QString& parentGuid, const GoodsText& g,
                          float cost, float quantity, const QString& memo, const QString& date) {
    return StoreDetailInsert(guid, parentGuid, g, Convert::FloatText(cost),
                             Convert::FloatText(quantity), memo, date);
}

QString StoreDetailInsert(const QString& guid, const QString& parentGuid, const GoodsText& g,
                          const QString& cost, const QString& quantity, const QString& memo,
                          const QString& date) {
    const QStringList values{quoted(guid),
                             quoted(parentGuid),
                             quoted(Session::ShopNo),
                             quoted(g.TypeNo),
                             quoted(g.Name),
                             quoted(g.Brand),
                             quoted(g.Size),
                             quoted(g.Colour),
                             quoted(g.Leather),
                             quoted(g.Grade),
                             cost,
                             quantity,
                             quoted(g.ProductPlace),
                             quoted(memo),
                             quoted(date)};
    return QStringLiteral("Insert Into StoreDetail Values(") + values.join(QLatin1Char(',')) +
           QLatin1Char(')');
}

QString BuyPriceInsert(const QString& storeGuid, float cost, float quantity, const QString& date) {
    return BuyPriceInsert(storeGuid, Convert::FloatText(cost), Convert::FloatText(quantity), date);
}

QString BuyPriceInsert(const QString& storeGuid, const QString& cost, const QString& quantity,
                       const QString& date) {
    return QStringLiteral("Insert Into BuyPrice (StoreGUID,Price,Quantity,sDate,ShopNo) Values('") +
           storeGuid + QStringLiteral("',") + cost + QLatin1Char(',') + quantity +
           QStringLiteral(",'") + date + QStringLiteral("','") + Session::ShopNo +
           QStringLiteral("')");
}

QString BuyInGridRow(const QString& guid, const GoodsText& g, float quantity, const QString& idCode,
                     const QString& goodsFloor) {
    const QStringList cells{QString(),
                            guid,
                            g.TypeNo,
                            g.Name,
                            g.Brand,
                            g.Size,
                            g.Colour,
                            g.Leather,
                            g.Grade,
                            g.ProductPlace,
                            Convert::FloatText(quantity),
                            idCode,
                            goodsFloor};
    return cells.join(QLatin1Char('\t'));
}

}  // namespace StockSql
