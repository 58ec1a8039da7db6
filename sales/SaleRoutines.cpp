#include "SaleRoutines.h"

#include "Convert.h"
#include "DateText.h"
#include "MsgBox.h"
#include "Session.h"

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
