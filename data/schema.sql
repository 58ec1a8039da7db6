-- The data file of the shop: fifteen tables.
-- Text columns are TEXT, amounts and quantities NUMERIC (a quoted '5' is stored
-- as the number 5), dates TEXT in the form yyyy-MM-dd, yes/no columns INTEGER
-- kept at -1 for yes and 0 for no by the triggers below, whatever was written.

CREATE TABLE [Store] (
    [GUID] TEXT,
    [ShopNo] TEXT,
    [TypeNo] TEXT,
    [Name] TEXT,
    [Brand] TEXT,
    [Size] TEXT,
    [Colour] TEXT,
    [Leather] TEXT,
    [Grade] TEXT,
    [ProductPlace] TEXT,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [IDCode] TEXT,
    [GoodsFloor] TEXT
);

CREATE TABLE [StoreDetail] (
    [GUID] TEXT,
    [ParentGUID] TEXT,
    [ShopNo] TEXT,
    [TypeNo] TEXT,
    [Name] TEXT,
    [Brand] TEXT,
    [Size] TEXT,
    [Colour] TEXT,
    [Leather] TEXT,
    [Grade] TEXT,
    [Price] NUMERIC,
    [Quantity] NUMERIC,
    [ProductPlace] TEXT,
    [Memo] TEXT,
    [DateTime] TEXT
);

CREATE TABLE [BuyPrice] (
    [ID] INTEGER PRIMARY KEY AUTOINCREMENT,
    [StoreGUID] TEXT,
    [Price] NUMERIC,
    [Quantity] NUMERIC,
    [sDate] TEXT,
    [ShopNo] TEXT
);

CREATE TABLE [Sell] (
    [GUID] TEXT,
    [StoreGUID] TEXT,
    [ShopNo] TEXT,
    [TypeNo] TEXT,
    [Name] TEXT,
    [Brand] TEXT,
    [Size] TEXT,
    [Colour] TEXT,
    [Leather] TEXT,
    [Grade] TEXT,
    [ProductPlace] TEXT,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [Abate] TEXT,
    [Amount] NUMERIC,
    [BuyPrice] NUMERIC,
    [Seller] TEXT,
    [DateTime] TEXT,
    [SellNo] TEXT,
    [BuyPriceID] NUMERIC,
    [SellerName] TEXT,
    [State] NUMERIC,
    [Money1] NUMERIC,
    [Money2] NUMERIC
);

CREATE TABLE [SellChange] (
    [GUID] TEXT,
    [StoreGUID] TEXT,
    [ShopNo] TEXT,
    [TypeNo] TEXT,
    [Name] TEXT,
    [Brand] TEXT,
    [Size] TEXT,
    [Colour] TEXT,
    [Leather] TEXT,
    [Grade] TEXT,
    [ProductPlace] TEXT,
    [Quantity] NUMERIC,
    [Price] NUMERIC,
    [Abate] TEXT,
    [Amount] NUMERIC,
    [BuyPrice] NUMERIC,
    [Seller] TEXT,
    [DateTime] TEXT,
    [BuyPriceID] NUMERIC,
    [SellerName] TEXT,
    [AddAmount] NUMERIC,
    [SellGUID] TEXT,
    [SellNo] TEXT,
    [ChangeDate] TEXT,
    [State] NUMERIC,
    [Resion] TEXT
);

CREATE TABLE [BackStore] (
    [ID] INTEGER PRIMARY KEY AUTOINCREMENT,
    [GUID] TEXT,
    [ShopNo] TEXT,
    [TypeNo] TEXT,
    [Name] TEXT,
    [Brand] TEXT,
    [Size] TEXT,
    [Colour] TEXT,
    [Leather] TEXT,
    [Grade] TEXT,
    [ProductPlace] TEXT,
    [Quantity] NUMERIC,
    [BuyPrice] NUMERIC,
    [BackResion] TEXT,
    [Seller] TEXT,
    [SellName] TEXT,
    [IsBackFactory] INTEGER,
    [BackFactoryDate] TEXT
);

CREATE TABLE [FactoryBackTotal] (
    [DateTime] TEXT,
    [Seller] TEXT,
    [SellerNo] TEXT,
    [Quantity] NUMERIC,
    [Amount] NUMERIC,
    [ShopNo] TEXT
);

CREATE TABLE [DayAmount] (
    [GUID] TEXT,
    [SellQuantity] NUMERIC,
    [SellAmount] NUMERIC,
    [BackQuantity] NUMERIC,
    [BackAmount] NUMERIC,
    [ChangeQuantity] NUMERIC,
    [ChangeAmount] NUMERIC,
    [ReciveAmount] NUMERIC,
    [Seller] TEXT,
    [DateTime] TEXT,
    [ShopNo] TEXT,
    [ShopName] TEXT
);

CREATE TABLE [OtherOut] (
    [GUID] TEXT,
    [ShopNo] TEXT,
    [ShopName] TEXT,
    [Item] TEXT,
    [Amount] NUMERIC,
    [DateTime] TEXT,
    [Memo] TEXT,
    [OptName] TEXT
);

CREATE TABLE [SellRole] (
    [ShopNo] TEXT,
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
    [Item] TEXT,
    [Content] TEXT
);

CREATE TABLE [Shop] (
    [GUID] TEXT,
    [ShopName] TEXT
);

CREATE TABLE [Role] (
    [GUID] TEXT,
    [Name] TEXT,
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
    [GUID] TEXT,
    [No] TEXT,
    [Name] TEXT,
    [pwd] TEXT,
    [RoleGUID] TEXT,
    [RoleName] TEXT
);

CREATE TABLE [FileSave] (
    [dirpath] TEXT,
    [Drive] TEXT,
    [Dir] TEXT,
    [FileName] TEXT,
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
CREATE INDEX StoreDetail_Shop_Date ON StoreDetail (ShopNo, [DateTime]);
CREATE INDEX StoreDetail_TypeNo ON StoreDetail (TypeNo);
CREATE INDEX BuyPrice_Store_Date ON BuyPrice (StoreGUID, sDate);
CREATE INDEX Sell_GUID ON Sell (GUID);
CREATE INDEX Sell_SellNo ON Sell (SellNo, ShopNo);
CREATE INDEX Sell_Day ON Sell (substr(SellNo, 1, 8), ShopNo);
CREATE INDEX Sell_Shop_Date ON Sell (ShopNo, [DateTime]);
CREATE INDEX Sell_TypeNo ON Sell (TypeNo);
CREATE INDEX SellChange_Shop_Date ON SellChange (ShopNo, ChangeDate);
CREATE INDEX SellChange_SellGUID ON SellChange (SellGUID);
CREATE INDEX BackStore_Shop ON BackStore (ShopNo, IsBackFactory);
CREATE INDEX DayAmount_Shop_Date ON DayAmount (ShopNo, [DateTime]);
CREATE INDEX OtherOut_Shop_Date ON OtherOut (ShopNo, [DateTime]);
CREATE INDEX DataDictionary_Item ON DataDictionary (Item);
CREATE INDEX User_No ON [User] ([No]);
CREATE INDEX Role_GUID ON Role (GUID);
