#include "CostLayer.h"

#include "Convert.h"
#include "Session.h"

void TakeCostLayer(const QString& StoreGUID, int32_t& ID, float& Cost) {
    Cost = 0;
    QString sql = "Select top 1 ID,Price,Quantity from BuyPrice Where StoreGUID='" + StoreGUID +
                  "' And Quantity>0 Order by sDate ";
    sql += Session::SellRole().SellOrder == 0 ? QStringLiteral("ASC") : QStringLiteral("DESC");
    Recordset rs = Session::Dbopt().Excute(sql);
    if (!rs.Eof()) {
        Cost = Convert::ToSingle(Convert::VarDbl(rs.Field("Price")));
        ID = Convert::CLng(Convert::VarDbl(rs.Field("ID")));
        Session::Dbopt().Excute("Update BuyPrice set Quantity=Quantity-1 Where ID=" +
                                QString::number(ID));
    }
}
