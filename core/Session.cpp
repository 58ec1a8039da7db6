#include "Session.h"

#include <QDateTime>

#include "Convert.h"
#include "DateText.h"
#include "MsgBox.h"
#include "RuntimeError.h"

namespace {
std::unique_ptr<clsDbopt> gDbopt;
std::unique_ptr<clsNewGUID> gGuid;
std::unique_ptr<clsUser> gUser;
std::unique_ptr<clsSellRole> gSellRole;

bool asBool(const QVariant& v) {
    return !v.isNull() && Convert::VarDbl(v) != 0;
}
}  // namespace

void Session::Create() {
    gDbopt.reset();
    gDbopt = std::make_unique<clsDbopt>();
    gGuid = std::make_unique<clsNewGUID>();
    gUser = std::make_unique<clsUser>();
    gSellRole = std::make_unique<clsSellRole>();
    ShopNo.clear();
    ShopName.clear();
}

void Session::ReleaseDb() {
    gDbopt.reset();
}

bool Session::HasDbopt() {
    return gDbopt != nullptr;
}

clsDbopt& Session::Dbopt() {
    if (!gDbopt)
        throw RuntimeError(QStringLiteral("运行时错误 '91':\n\n对象变量或 With 块变量未设置"));
    return *gDbopt;
}
clsNewGUID& Session::NewGUID() {
    if (!gGuid) gGuid = std::make_unique<clsNewGUID>();
    return *gGuid;
}
clsUser& Session::User() {
    if (!gUser) gUser = std::make_unique<clsUser>();
    return *gUser;
}
clsSellRole& Session::SellRole() {
    if (!gSellRole) gSellRole = std::make_unique<clsSellRole>();
    return *gSellRole;
}

// ---- clsRole

const QStringList& clsRole::RightNames() {
    static const QStringList names = {
        "AllList",       "Data",          "UserManage",   "SellRole",          "ChangeShop",
        "BuyIn",         "Sell",          "ClientChange", "ClientBack",        "Question",
        "FactoryBack",   "SellBlankOut",  "ChangePrice",  "OtherOut",          "StoreQuery",
        "SellQuery",     "SellGroup",     "BuyDetail",    "ClientChangeQuery", "FactoryBackQuery",
        "BlankOutQuery", "OtherOurQuery", "DayAmount",    "TotalAmount",       "Profit",
        "ReStart"};
    return names;
}

bool* clsRole::Right(const QString& name) {
    bool* flags[] = {
        &AllList,       &Data,          &UserManage,   &SellRole,          &ChangeShop,
        &BuyIn,         &Sell,          &ClientChange, &ClientBack,        &Question,
        &FactoryBack,   &SellBlankOut,  &ChangePrice,  &OtherOut,          &StoreQuery,
        &SellQuery,     &SellGroup,     &BuyDetail,    &ClientChangeQuery, &FactoryBackQuery,
        &BlankOutQuery, &OtherOurQuery, &DayAmount,    &TotalAmount,       &Profit,
        &ReStart};
    const QStringList& names = RightNames();
    for (int i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return flags[i];
    return nullptr;
}

void clsRole::Initial(const QString& guid) {
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute("select * from Role Where GUID='" + guid + "'", isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    if (rs.Eof()) return;
    // Every column sets the member of its name; a column without one is an error.
    for (int i = 0; i < rs.FieldCount(); ++i) {
        const QString col = rs.FieldName(i);
        const QVariant v = rs.Field(i);
        if (col.compare("GUID", Qt::CaseInsensitive) == 0) {
            GUID = Convert::VarText(v);
        } else if (col.compare("Name", Qt::CaseInsensitive) == 0) {
            Name = Convert::VarText(v);
        } else if (bool* flag = Right(col)) {
            *flag = asBool(v);
        } else {
            throw RuntimeError(RuntimeError::noSuchField(col));
        }
    }
}

// ---- clsUser

bool clsUser::Initial(const QString& pNo) {
    bool isErr = false;
    // The number goes in as typed.
    Recordset rs = Session::Dbopt().Excute("Select * from [User] Where [No]='" + pNo + "'", isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return false;
    }
    if (rs.Eof() && rs.Bof()) return false;
    No = pNo;
    Name = rs.Text("Name");
    PassWord = rs.Text("pwd");
    const QString roleGuid = rs.Text("RoleGUID");
    if (!Role) Role = std::make_unique<clsRole>();
    Role->Initial(roleGuid);
    LoginTime = DateText::NowText();
    return true;
}

// ---- clsSellRole

void clsSellRole::Initial(const QString& shopNo) {
    bool isErr = false;
    Recordset rs =
        Session::Dbopt().Excute("select * from SellRole Where ShopNo='" + shopNo + "'", isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    if (rs.Bof() && rs.Eof()) return;
    // By name, driven by the row: a null sets false (0 for the numbers).
    for (int i = 0; i < rs.FieldCount(); ++i) {
        const QString col = rs.FieldName(i).toLower();
        const QVariant v = rs.Field(i);
        if (col == "shopno") {
            ShopNo = Convert::VarText(v);
            continue;
        }
        const double num = v.isNull() ? 0 : Convert::VarDbl(v);
        if (col == "sellorder")
            SellOrder = Convert::CLng(num);
        else if (col == "backdays")
            BackDays = Convert::CInt(num);
        else if (col == "abatecannotback")
            AbateCanNotBack = num != 0;
        else if (col == "specialcannotback")
            SpecialCanNotBack = num != 0;
        else if (col == "changedays")
            ChangeDays = Convert::CInt(num);
        else if (col == "abatecannotchange")
            AbateCanNotChange = num != 0;
        else if (col == "specialcannotchange")
            SpecialCanNotChange = num != 0;
        else if (col == "sametypechange")
            SameTypeChange = num != 0;
        else if (col == "deargoodschange")
            DearGoodsChange = num != 0;
        else if (col == "changeonetime")
            ChangeOneTime = num != 0;
        else if (col == "changnottoback")
            ChangNotToBack = num != 0;
        else if (col == "isprint")
            IsPrint = num != 0;
        else if (col == "printertype")
            PrinterType = Convert::CInt(num);
        else
            throw RuntimeError(RuntimeError::noSuchField(rs.FieldName(i)));
    }
}
