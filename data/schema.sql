-- The data file of the shop: fifteen tables.
-- Text columns are TEXT, amounts and quantities NUMERIC (a quoted '5' is stored
-- as the number 5), dates TEXT in the form yyyy-MM-dd, yes/no columns INTEGER
-- kept at -1 for yes and 0 for no by the triggers below, whatever was written.
-- Text compares without regard to case, as the shop's statements expect.

CREATE TABLE [Store] (
    [GUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [TypeNo] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [Brand] TEXT COLLATE NOCASE,
    [Size] TEXT COLLATE NOCASE,
    [Colour] TEXT COLLATE NOCASE,
    [Leather] TEXT COLLATE NOCASE,
    [Grade] TEXT COLLATE NOCASE,
    [ProductPlace] TEXT COLLATE NOCASE,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [IDCode] TEXT COLLATE NOCASE,
    [GoodsFloor] TEXT COLLATE NOCASE
);

CREATE TABLE [StoreDetail] (
    [GUID] TEXT COLLATE NOCASE,
    [ParentGUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [TypeNo] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [Brand] TEXT COLLATE NOCASE,
    [Size] TEXT COLLATE NOCASE,
    [Colour] TEXT COLLATE NOCASE,
    [Leather] TEXT COLLATE NOCASE,
    [Grade] TEXT COLLATE NOCASE,
    [Price] NUMERIC,
    [Quantity] NUMERIC,
    [ProductPlace] TEXT COLLATE NOCASE,
    [Memo] TEXT COLLATE NOCASE,
    [DateTime] TEXT COLLATE NOCASE
);

CREATE TABLE [BuyPrice] (
    [ID] INTEGER PRIMARY KEY AUTOINCREMENT,
    [StoreGUID] TEXT COLLATE NOCASE,
    [Price] NUMERIC,
    [Quantity] NUMERIC,
    [sDate] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE
);

CREATE TABLE [Sell] (
    [GUID] TEXT COLLATE NOCASE,
    [StoreGUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [TypeNo] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [Brand] TEXT COLLATE NOCASE,
    [Size] TEXT COLLATE NOCASE,
    [Colour] TEXT COLLATE NOCASE,
    [Leather] TEXT COLLATE NOCASE,
    [Grade] TEXT COLLATE NOCASE,
    [ProductPlace] TEXT COLLATE NOCASE,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [Abate] TEXT COLLATE NOCASE,
    [Amount] NUMERIC,
    [BuyPrice] NUMERIC,
    [Seller] TEXT COLLATE NOCASE,
    [DateTime] TEXT COLLATE NOCASE,
    [SellNo] TEXT COLLATE NOCASE,
    [BuyPriceID] NUMERIC,
    [SellerName] TEXT COLLATE NOCASE,
    [State] NUMERIC,
    [Money1] NUMERIC,
    [Money2] NUMERIC
);

CREATE TABLE [SellChange] (
    [GUID] TEXT COLLATE NOCASE,
    [StoreGUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [TypeNo] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [Brand] TEXT COLLATE NOCASE,
    [Size] TEXT COLLATE NOCASE,
    [Colour] TEXT COLLATE NOCASE,
    [Leather] TEXT COLLATE NOCASE,
    [Grade] TEXT COLLATE NOCASE,
    [ProductPlace] TEXT COLLATE NOCASE,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [Abate] TEXT COLLATE NOCASE,
    [Amount] NUMERIC,
    [BuyPrice] NUMERIC,
    [Seller] TEXT COLLATE NOCASE,
    [DateTime] TEXT COLLATE NOCASE,
    [BuyPriceID] NUMERIC,
    [SellerName] TEXT COLLATE NOCASE,
    [AddAmount] NUMERIC,
    [SellGUID] TEXT COLLATE NOCASE,
    [SellNo] TEXT COLLATE NOCASE,
    [ChangeDate] TEXT COLLATE NOCASE,
    [State] NUMERIC,
    [Resion] TEXT COLLATE NOCASE
);

CREATE TABLE [BackStore] (
    [ID] INTEGER PRIMARY KEY AUTOINCREMENT,
    [GUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [TypeNo] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [Brand] TEXT COLLATE NOCASE,
    [Size] TEXT COLLATE NOCASE,
    [Colour] TEXT COLLATE NOCASE,
    [Leather] TEXT COLLATE NOCASE,
    [Grade] TEXT COLLATE NOCASE,
    [ProductPlace] TEXT COLLATE NOCASE,
    [Quantity] NUMERIC,
    [BuyPrice] NUMERIC,
    [BackResion] TEXT COLLATE NOCASE,
    [Seller] TEXT COLLATE NOCASE,
    [SellName] TEXT COLLATE NOCASE,
    [IsBackFactory] INTEGER,
    [BackFactoryDate] TEXT COLLATE NOCASE
);

CREATE TABLE [FactoryBackTotal] (
    [DateTime] TEXT COLLATE NOCASE,
    [Seller] TEXT COLLATE NOCASE,
    [SellerNo] TEXT COLLATE NOCASE,
    [Quantity] NUMERIC,
    [Amount] NUMERIC,
    [ShopNo] TEXT COLLATE NOCASE
);

CREATE TABLE [DayAmount] (
    [GUID] TEXT COLLATE NOCASE,
    [SellQuantity] NUMERIC,
    [SellAmount] NUMERIC,
    [BackQuantity] NUMERIC,
    [BackAmount] NUMERIC,
    [ChangeQuantity] NUMERIC,
    [ChangeAmount] NUMERIC,
    [ReciveAmount] NUMERIC,
    [Seller] TEXT COLLATE NOCASE,
    [DateTime] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [ShopName] TEXT COLLATE NOCASE
);

CREATE TABLE [OtherOut] (
    [GUID] TEXT COLLATE NOCASE,
    [ShopNo] TEXT COLLATE NOCASE,
    [ShopName] TEXT COLLATE NOCASE,
    [Item] TEXT COLLATE NOCASE,
    [Amount] NUMERIC,
    [DateTime] TEXT COLLATE NOCASE,
    [Memo] TEXT COLLATE NOCASE,
    [OptName] TEXT COLLATE NOCASE
);

CREATE TABLE [SellRole] (
    [ShopNo] TEXT COLLATE NOCASE,
    [SellOrder] NUMERIC,
    [BackDays] NUMERIC,
    [AbateCannotBack] INTEGER,
    [SpecialCannotBack] INTEGER,
    [ChangeDays] NUMERIC,
    [AbateCannotChange] INTEGER,
    [SpecialCannotChange] INTEGER,
    [SameTypeChange] INTEGER,
    [DearGoodsChange] INTEGER,
    [ChangeOneTime] INTEGER,
    [ChangNotToBack] INTEGER,
    [IsPrint] INTEGER,
    [PrinterType] NUMERIC
);

CREATE TABLE [DataDictionary] (
    [Item] TEXT COLLATE NOCASE,
    [Content] TEXT COLLATE NOCASE
);

CREATE TABLE [Shop] (
    [GUID] TEXT COLLATE NOCASE,
    [ShopName] TEXT COLLATE NOCASE
);

CREATE TABLE [Role] (
    [GUID] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [AllList] INTEGER,
    [Data] INTEGER,
    [UserManage] INTEGER,
    [SellRole] INTEGER,
    [ChangeShop] INTEGER,
    [BuyIn] INTEGER,
    [Sell] INTEGER,
    [ClientChange] INTEGER,
    [ClientBack] INTEGER,
    [Question] INTEGER,
    [FactoryBack] INTEGER,
    [SellBlankOut] INTEGER,
    [ChangePrice] INTEGER,
    [OtherOut] INTEGER,
    [StoreQuery] INTEGER,
    [SellQuery] INTEGER,
    [SellGroup] INTEGER,
    [BuyDetail] INTEGER,
    [ClientChangeQuery] INTEGER,
    [FactoryBackQuery] INTEGER,
    [BlankOutQuery] INTEGER,
    [OtherOurQuery] INTEGER,
    [DayAmount] INTEGER,
    [TotalAmount] INTEGER,
    [Profit] INTEGER,
    [ReStart] INTEGER
);

CREATE TABLE [User] (
    [GUID] TEXT COLLATE NOCASE,
    [No] TEXT COLLATE NOCASE,
    [Name] TEXT COLLATE NOCASE,
    [pwd] TEXT COLLATE NOCASE,
    [RoleGUID] TEXT COLLATE NOCASE,
    [RoleName] TEXT COLLATE NOCASE
);

CREATE TABLE [FileSave] (
    [dirpath] TEXT COLLATE NOCASE,
    [Drive] TEXT COLLATE NOCASE,
    [Dir] TEXT COLLATE NOCASE,
    [FileName] TEXT COLLATE NOCASE,
    [isSave] INTEGER
);

-- Yes/no columns read back as -1 (yes) or 0 (no).
CREATE TRIGGER Role_yesno_insert AFTER INSERT ON [Role]
BEGIN
    UPDATE [Role] SET
        AllList=-(AllList<>0),
        Data=-(Data<>0),
        UserManage=-(UserManage<>0),
        SellRole=-(SellRole<>0),
        ChangeShop=-(ChangeShop<>0),
        BuyIn=-(BuyIn<>0),
        Sell=-(Sell<>0),
        ClientChange=-(ClientChange<>0),
        ClientBack=-(ClientBack<>0),
        Question=-(Question<>0),
        FactoryBack=-(FactoryBack<>0),
        SellBlankOut=-(SellBlankOut<>0),
        ChangePrice=-(ChangePrice<>0),
        OtherOut=-(OtherOut<>0),
        StoreQuery=-(StoreQuery<>0),
        SellQuery=-(SellQuery<>0),
        SellGroup=-(SellGroup<>0),
        BuyDetail=-(BuyDetail<>0),
        ClientChangeQuery=-(ClientChangeQuery<>0),
        FactoryBackQuery=-(FactoryBackQuery<>0),
        BlankOutQuery=-(BlankOutQuery<>0),
        OtherOurQuery=-(OtherOurQuery<>0),
        DayAmount=-(DayAmount<>0),
        TotalAmount=-(TotalAmount<>0),
        Profit=-(Profit<>0),
        ReStart=-(ReStart<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER Role_yesno_update AFTER UPDATE ON [Role]
BEGIN
    UPDATE [Role] SET
        AllList=-(AllList<>0),
        Data=-(Data<>0),
        UserManage=-(UserManage<>0),
        SellRole=-(SellRole<>0),
        ChangeShop=-(ChangeShop<>0),
        BuyIn=-(BuyIn<>0),
        Sell=-(Sell<>0),
        ClientChange=-(ClientChange<>0),
        ClientBack=-(ClientBack<>0),
        Question=-(Question<>0),
        FactoryBack=-(FactoryBack<>0),
        SellBlankOut=-(SellBlankOut<>0),
        ChangePrice=-(ChangePrice<>0),
        OtherOut=-(OtherOut<>0),
        StoreQuery=-(StoreQuery<>0),
        SellQuery=-(SellQuery<>0),
        SellGroup=-(SellGroup<>0),
        BuyDetail=-(BuyDetail<>0),
        ClientChangeQuery=-(ClientChangeQuery<>0),
        FactoryBackQuery=-(FactoryBackQuery<>0),
        BlankOutQuery=-(BlankOutQuery<>0),
        OtherOurQuery=-(OtherOurQuery<>0),
        DayAmount=-(DayAmount<>0),
        TotalAmount=-(TotalAmount<>0),
        Profit=-(Profit<>0),
        ReStart=-(ReStart<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER SellRole_yesno_insert AFTER INSERT ON [SellRole]
BEGIN
    UPDATE [SellRole] SET
        AbateCannotBack=-(AbateCannotBack<>0),
        SpecialCannotBack=-(SpecialCannotBack<>0),
        AbateCannotChange=-(AbateCannotChange<>0),
        SpecialCannotChange=-(SpecialCannotChange<>0),
        SameTypeChange=-(SameTypeChange<>0),
        DearGoodsChange=-(DearGoodsChange<>0),
        ChangeOneTime=-(ChangeOneTime<>0),
        ChangNotToBack=-(ChangNotToBack<>0),
        IsPrint=-(IsPrint<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER SellRole_yesno_update AFTER UPDATE ON [SellRole]
BEGIN
    UPDATE [SellRole] SET
        AbateCannotBack=-(AbateCannotBack<>0),
        SpecialCannotBack=-(SpecialCannotBack<>0),
        AbateCannotChange=-(AbateCannotChange<>0),
        SpecialCannotChange=-(SpecialCannotChange<>0),
        SameTypeChange=-(SameTypeChange<>0),
        DearGoodsChange=-(DearGoodsChange<>0),
        ChangeOneTime=-(ChangeOneTime<>0),
        ChangNotToBack=-(ChangNotToBack<>0),
        IsPrint=-(IsPrint<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER BackStore_yesno_insert AFTER INSERT ON [BackStore]
BEGIN
    UPDATE [BackStore] SET
        IsBackFactory=-(IsBackFactory<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER BackStore_yesno_update AFTER UPDATE ON [BackStore]
BEGIN
    UPDATE [BackStore] SET
        IsBackFactory=-(IsBackFactory<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER FileSave_yesno_insert AFTER INSERT ON [FileSave]
BEGIN
    UPDATE [FileSave] SET
        isSave=-(isSave<>0)
    WHERE rowid = NEW.rowid;
END;
CREATE TRIGGER FileSave_yesno_update AFTER UPDATE ON [FileSave]
BEGIN
    UPDATE [FileSave] SET
        isSave=-(isSave<>0)
    WHERE rowid = NEW.rowid;
END;

-- Indexes for the lookups the windows make.
CREATE INDEX Store_GUID ON Store (GUID);
CREATE INDEX Store_TypeNo ON Store (TypeNo);
CREATE INDEX Store_IDCode ON Store (IDCode);
CREATE INDEX StoreDetail_GUID ON StoreDetail (GUID);
CREATE INDEX StoreDetail_TypeNo ON StoreDetail (TypeNo);
CREATE INDEX BuyPrice_Store_Date ON BuyPrice (StoreGUID, sDate);
CREATE INDEX Sell_GUID ON Sell (GUID);
CREATE INDEX Sell_SellNo ON Sell (SellNo, ShopNo);
CREATE INDEX Sell_Day ON Sell (substr(SellNo, 1, 8), ShopNo);
CREATE INDEX Sell_TypeNo ON Sell (TypeNo);
CREATE INDEX SellChange_Shop_Date ON SellChange (ShopNo, ChangeDate);
CREATE INDEX SellChange_SellGUID ON SellChange (SellGUID);
CREATE INDEX BackStore_Shop ON BackStore (ShopNo, IsBackFactory);
CREATE INDEX DayAmount_Shop_Date ON DayAmount (ShopNo, [DateTime]);
CREATE INDEX OtherOut_Shop_Date ON OtherOut (ShopNo, [DateTime]);
CREATE INDEX DataDictionary_Item ON DataDictionary (Item);
CREATE INDEX User_No ON [User] ([No]);
CREATE INDEX Role_GUID ON Role (GUID);

-- Indexes for the reports over a long history.
-- The ranking groups a shop's sale lines on the eight goods columns: read in
-- this order, straight from the index, the lines need no sorting to be grouped.
CREATE INDEX Sell_Shop_Goods ON Sell (ShopNo, TypeNo, Name, Brand, [Size], Colour, Leather, Grade,
    ProductPlace, [DateTime], State, Quantity);
-- The profit sums a period's sale lines and stock-in rows from the index alone;
-- the same indexes serve every search of a shop's lines by date (the day
-- close, the sales query), so no shorter index on (ShopNo, DateTime) is kept
-- beside them for every sale line to update.
CREATE INDEX Sell_Shop_Date_Sums ON Sell (ShopNo, [DateTime], State, Quantity, Amount, BuyPrice);
CREATE INDEX StoreDetail_Shop_Date_Sums ON StoreDetail (ShopNo, [DateTime], Quantity, Price);
