#include "SaleRoutines.h"

#include "Convert.h"
#include "DateText.h"
#include "MsgBox.h"
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

QString FirstSellNo() {
    return DateText::TodayKey() + QStringLiteral("0001");
}

QString NextSellNo() {
    const QString key = DateText::TodayKey();
    bool isErr = false;
    Recordset rs =
        Session::Dbopt().Excute("select SellNo from Sell where mid(SellNo,1,8)='" + key +
                                    "' And ShopNo='" + Session::ShopNo + "' Order By SellNo Desc",
                                isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return QString();
    }
    if (!rs.Eof()) {
        const QString last = rs.IsNull("SellNo") ? QStringLiteral("0") : rs.Text("SellNo");
        return Convert::DblText(Convert::CDbl(last) + 1);
    }
    return FirstSellNo();
}
