#pragma once
// Who is working, where, and under which rules: the process-wide objects that
// start-up creates and every window reads.
#include <QString>
#include <memory>

#include "clsDbopt.h"
#include "clsNewGUID.h"

// The rights of one role, a flag per column of the Role table.
class clsRole {
public:
    QString GUID;
    QString Name;
    bool AllList = false, Data = false, UserManage = false, SellRole = false, ChangeShop = false,
         BuyIn = false, Sell = false, ClientChange = false, ClientBack = false, Question = false,
         FactoryBack = false, SellBlankOut = false, ChangePrice = false, OtherOut = false,
         StoreQuery = false, SellQuery = false, SellGroup = false, BuyDetail = false,
         ClientChangeQuery = false, FactoryBackQuery = false, BlankOutQuery = false,
         OtherOurQuery = false, DayAmount = false, TotalAmount = false, Profit = false,
         ReStart = false;

    // Loads the role's row; an unknown GUID leaves the flags as they were.
    void Initial(const QString& guid);

    // The flag of a right by its column name (case ignored); nullptr if none.
    bool* Right(const QString& name);
    // The 26 column names of the rights, in the table's order.
    static const QStringList& RightNames();
};

// The person logged in.
class clsUser {
public:
    QString No;
    QString Name;
    QString PassWord;
    std::unique_ptr<clsRole> Role;  // made at the first load, then reused
    QString LoginTime;

    // Loads the user with this number; false when not found (or the read failed).
    bool Initial(const QString& pNo);
};

// The shop's rules, the in-memory copy of one SellRole row.
class clsSellRole {
public:
    QString ShopNo;
    int32_t SellOrder = 0;
    int16_t BackDays = 0;
    bool AbateCanNotBack = false;
    bool SpecialCanNotBack = false;
    int16_t ChangeDays = 0;
    bool AbateCanNotChange = false;
    bool SpecialCanNotChange = false;
    bool SameTypeChange = false;
    bool DearGoodsChange = false;
    bool ChangeOneTime = false;
    bool ChangNotToBack = false;
    bool IsPrint = false;
    int16_t PrinterType = 0;

    void Initial(const QString& shopNo);
};

// The fixed keys of the data file.
inline const QString kDefaultShop = QStringLiteral("{308D7A28-0405-4A3F-AE2C-0A52E6B7901B}");
inline const QString kAdminRole = QStringLiteral("{26EF1CD6-0B28-43D9-8D85-77067AA9AC75}");

struct Session {
    // Creates the shared objects (start-up steps 1 to 4). Drops any earlier ones.
    static void Create();
    // Drops the data access object, which closes the connection.
    static void ReleaseDb();

    static clsDbopt& Dbopt();
    static bool HasDbopt();
    static clsNewGUID& NewGUID();
    static clsUser& User();
    static clsSellRole& SellRole();

    // Shop.GUID and Shop.ShopName of the current shop.
    static inline QString ShopNo;
    static inline QString ShopName;
};
