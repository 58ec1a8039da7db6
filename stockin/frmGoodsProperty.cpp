#include "frmGoodsProperty.h"

#include <QLineEdit>

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "StockSql.h"
#include "VSGrid.h"
#include "frmBuyIn.h"
#include "frmDataDictionary.h"
#include "ui_frmGoodsProperty.h"

frmGoodsProperty::frmGoodsProperty(frmBuyIn* buyIn, QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmGoodsProperty>()), buyIn_(buyIn) {
    ui_->setupUi(this);

    // The "…" buttons open the lookup list and fill the combo again on return.
    const struct {
        QPushButton* button;
        const char* item;
        QComboBox* combo;
    } lookups[] = {
        {ui_->cmdName, "种类", ui_->comName},
        {ui_->cmdBrand, "品牌", ui_->comBrand},
        {ui_->cmdProductPlace, "产地", ui_->comProductPlace},
        {ui_->cmdColour, "颜色", ui_->comColour},
        {ui_->cmdLeather, "面料", ui_->comLeather},
        {ui_->cmdGrade, "等级", ui_->comGrade},
        {ui_->cmdSize, "尺码", ui_->comSize},
    };
    for (const auto& l : lookups)
        frmDataDictionary::AttachButton(l.button, QString::fromUtf8(l.item), l.combo, this);
    On(ui_->cmdPutIn, &QPushButton::clicked, this, [this] { cmdPutIn_Click(); });
    On(ui_->cmdClear, &QPushButton::clicked, this, [this] { cmdClear_Click(); });

    for (QWidget* w : std::initializer_list<QWidget*>{
             ui_->txtNo, ui_->comName, ui_->comBrand, ui_->comSize, ui_->comColour, ui_->comLeather,
             ui_->comGrade, ui_->comProductPlace, ui_->txtPrice, ui_->txtSellPrice,
             ui_->txtQuantity, ui_->DT, ui_->txtBlock, ui_->txtFloor, ui_->txtMemo})
        EnterToTab(w);

    Guard::Run([this] {
        FillCombo(QStringLiteral("颜色"), ui_->comColour);
        FillCombo(QStringLiteral("尺码"), ui_->comSize);
        FillCombo(QStringLiteral("等级"), ui_->comGrade);
        FillCombo(QStringLiteral("面料"), ui_->comLeather);
        FillCombo(QStringLiteral("种类"), ui_->comName);
        FillCombo(QStringLiteral("产地"), ui_->comProductPlace);
        FillCombo(QStringLiteral("品牌"), ui_->comBrand);
    });
    ui_->DT->setDate(QDate::currentDate());
}

frmGoodsProperty::~frmGoodsProperty() = default;

void frmGoodsProperty::cmdPutIn_Click() {
    if (ui_->txtNo->text().isEmpty()) {
        MsgBox::Info(QStringLiteral("货号不能为空！"));
        ui_->txtNo->setFocus();
        return;
    }
    if (ui_->comBrand->currentText().isEmpty()) {
        MsgBox::Info(QStringLiteral("品牌不能为空！"));
        ui_->comBrand->setFocus();
        return;
    }
    for (QLineEdit* box : {ui_->txtPrice, ui_->txtQuantity, ui_->txtSellPrice}) {
        if (!Convert::IsNumeric(box->text())) {
            MsgBox::Info(QStringLiteral("数据类型不正确！"));
            box->setFocus();
            return;
        }
    }

    GoodsText goods;
    goods.TypeNo = ReplaceQuote(ui_->txtNo->text());
    goods.Name = ui_->comName->currentText();  // as typed: a quote breaks the statements
    goods.Brand = ReplaceQuote(ui_->comBrand->currentText());
    goods.Size = ReplaceQuote(ui_->comSize->currentText());
    goods.Colour = ReplaceQuote(ui_->comColour->currentText());
    goods.Leather = ReplaceQuote(ui_->comLeather->currentText());
    goods.Grade = ReplaceQuote(ui_->comGrade->currentText());
    goods.ProductPlace = ReplaceQuote(ui_->comProductPlace->currentText());
    const QString idCode = ReplaceQuote(ui_->txtBlock->text());
    const QString goodsFloor = ReplaceQuote(ui_->txtFloor->text());
    const QString memo = ui_->txtMemo->text();
    const float cost = Convert::CSng(ui_->txtPrice->text());
    const float quantity = Convert::CSng(ui_->txtQuantity->text());
    const float price = Convert::ToSingle(Convert::Val(ui_->txtSellPrice->text()));
    const QString date = DateText::Of(ui_->DT->date());

    const QString storeGuid = Session::NewGUID().GUID();
    const QString detailGuid = Session::NewGUID().GUID();
    const QString store =
        StockSql::StoreInsert(storeGuid, goods, quantity, price, idCode, goodsFloor);
    const QString detail =
        StockSql::StoreDetailInsert(detailGuid, storeGuid, goods, cost, quantity, memo, date);
    const QString layer = StockSql::BuyPriceInsert(storeGuid, cost, quantity, date);

    if (!MsgBox::AskYes(QStringLiteral("确认要入库么？"), QStringLiteral("提示"))) return;

    clsDbopt& db = Session::Dbopt();
    db.Excute(store);
    db.Excute(detail);
    db.Excute(layer);

    // The list shows the history row's key until it is read again.
    if (buyIn_)
        buyIn_->AppendGoods(
            StockSql::BuyInGridRow(detailGuid, goods, quantity, idCode, goodsFloor));
}

void frmGoodsProperty::cmdClear_Click() {
    // The text boxes only: the combos and the date keep what they hold.
    for (QLineEdit* box : {ui_->txtNo, ui_->txtPrice, ui_->txtSellPrice, ui_->txtQuantity,
                           ui_->txtBlock, ui_->txtFloor, ui_->txtMemo})
        box->clear();
    ui_->txtNo->setFocus();
}
