#pragma once
// The three statements of every stock-in: the goods row (Store), its history
// row (StoreDetail) and its cost layer (BuyPrice). Store and StoreDetail are
// written by position, so the values stand in the order of the columns.
//
// The texts of GoodsText go into the statements exactly as given: the caller
// decides which of them have their quotes doubled.
#include <QString>

struct GoodsText {
    QString TypeNo;
    QString Name;
    QString Brand;
    QString Size;
    QString Colour;
    QString Leather;
    QString Grade;
    QString ProductPlace;
};

namespace StockSql {

// Insert Into Store Values(...), 14 values, for the current shop.
QString StoreInsert(const QString& guid, const GoodsText& g, float quantity, float price,
                    const QString& idCode, const QString& goodsFloor);
// Insert Into StoreDetail Values(...), 15 values, for the current shop; price is the cost.
QString StoreDetailInsert(const QString& guid, const QString& parentGuid, const GoodsText& g,
                          float cost, float quantity, const QString& memo, const QString& date);
// One cost layer of the current shop.
QString BuyPriceInsert(const QString& storeGuid, float cost, float quantity, const QString& date);

// The same three statements with the numbers given as the texts that stand
// bare in them (the sheet import writes its cells as they are).
QString StoreInsert(const QString& guid, const GoodsText& g, const QString& quantity,
                    const QString& price, const QString& idCode, const QString& goodsFloor);
QString StoreDetailInsert(const QString& guid, const QString& parentGuid, const GoodsText& g,
                          const QString& cost, const QString& quantity, const QString& memo,
                          const QString& date);
QString BuyPriceInsert(const QString& storeGuid, const QString& cost, const QString& quantity,
                       const QString& date);

// The row that a stock-in appends to the goods list of the stock-in window:
// an empty first cell, then the GUID it is given and the goods' columns.
QString BuyInGridRow(const QString& guid, const GoodsText& g, float quantity, const QString& idCode,
                     const QString& goodsFloor);

}  // namespace StockSql
