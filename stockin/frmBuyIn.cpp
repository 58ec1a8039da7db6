#include "frmBuyIn.h"

#include <QKeyEvent>

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "StockSql.h"
#include "VSGrid.h"
#include "frmGoodsProperty.h"
#include "frmbatchbuyIn.h"
#include "ui_frmBuyIn.h"

namespace {
const QString kSelect = QStringLiteral(
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
    "Leather as 面料,Grade as 等级,ProductPlace as 产地 ,Quantity as 数量,IDCode as 条码,"
    "GoodsFloor as 柜层 from Store Where ShopNo='");
const QString kSearch = QStringLiteral(
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
    "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,IDCode as 条码,"
    "GoodsFloor as 柜层 from Store Where Typeno like'%");
}  // namespace

frmBuyIn::frmBuyIn(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmBuyIn>()) {
    ui_->setupUi(this);
    ui_->DT->setDate(QDate::currentDate());
    EnterToTab(ui_->txtPrice);
    EnterToTab(ui_->txtQuantity);
    ui_->txtNo->installEventFilter(this);

    On(ui_->txtNo, &QLineEdit::textChanged, this, [this] { txtNo_Change(); });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key != Qt::Key_Return && key != Qt::Key_Enter) return;
           handled = true;
           if (ui_->VSFlexGrid->Rows() > 1) ui_->txtQuantity->setFocus();
       });
    On(ui_->cmdPutIn, &QPushButton::clicked, this, [this] { cmdPutIn_Click(); });
    On(ui_->cmdNewGoods, &QPushButton::clicked, this, [this] { cmdNewGoods_Click(); });
    On(ui_->Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });

    Guard::Run([this] { FillList(kSelect + Session::ShopNo + QLatin1Char('\'')); });
}

frmBuyIn::~frmBuyIn() = default;

VSGrid* frmBuyIn::Grid() const {
    return ui_->VSFlexGrid;
}

void frmBuyIn::AppendGoods(const QString& tabText) {
    VSGrid* g = ui_->VSFlexGrid;
    g->AddItem(tabText);
    g->setRow(g->Rows() - 1);
}

bool frmBuyIn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->txtNo && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        if (ui_->VSFlexGrid->Rows() > 1) ui_->VSFlexGrid->setFocus();
        return true;
    }
    return Form::eventFilter(watched, event);
}

void frmBuyIn::FillList(const QString& sql) {
    VSGrid* g = ui_->VSFlexGrid;
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    g->Bind(rs);
    g->setColHidden(g->ColIndex(QStringLiteral("GUID")), true);
    SetGridCols(g, 1160);
}

void frmBuyIn::txtNo_Change() {
    const QString text = ReplaceQuote(ui_->txtNo->text());
    if (text.isEmpty()) {
        FillList(kSelect + Session::ShopNo + QLatin1Char('\''));
    } else {
        FillList(kSearch + text + QStringLiteral("%' And ShopNo='") + Session::ShopNo +
                 QLatin1Char('\''));
    }
    if (ui_->VSFlexGrid->Rows() > 1) ui_->VSFlexGrid->setRow(1);
}

// Restock of the picked row: the goods row gains the quantity, and the entry
// gets its own history row and cost layer. The retail price stays as it was.
// Without a picked row nothing happens, as with an empty list: nothing is
// ever read from the header row.
void frmBuyIn::cmdPutIn_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() < 2 || g->Row() < 1) return;
    if (!Convert::IsNumeric(ui_->txtPrice->text())) {
        MsgBox::Info(QStringLiteral("数据类型不正确！"));
        ui_->txtPrice->setFocus();
        return;
    }
    if (!Convert::IsNumeric(ui_->txtQuantity->text())) {
        MsgBox::Info(QStringLiteral("数据类型不正确！"));
        ui_->txtQuantity->setFocus();
        return;
    }

    const int row = g->Row();
    GoodsText goods;
    goods.Brand = ReplaceQuote(g->Cell(row, QStringLiteral("品牌")));
    goods.Name = g->Cell(row, QStringLiteral("种类"));  // as it stands
    goods.TypeNo = ReplaceQuote(g->Cell(row, QStringLiteral("货号")));
    goods.Colour = ReplaceQuote(g->Cell(row, QStringLiteral("颜色")));
    goods.Leather = ReplaceQuote(g->Cell(row, QStringLiteral("面料")));
    goods.Size = ReplaceQuote(g->Cell(row, QStringLiteral("尺码")));
    goods.Grade = ReplaceQuote(g->Cell(row, QStringLiteral("等级")));
    goods.ProductPlace = ReplaceQuote(g->Cell(row, QStringLiteral("产地")));
    const QString storeGuid = g->Cell(row, QStringLiteral("GUID"));

    const float cost = Convert::CSng(ui_->txtPrice->text());
    const float quantity = Convert::CSng(ui_->txtQuantity->text());
    const QString date = DateText::Of(ui_->DT->date());
    const QString update = QStringLiteral("Update Store Set Quantity=Quantity+ ") +
                           Convert::FloatText(quantity) + QStringLiteral(" Where GUID='") +
                           storeGuid + QLatin1Char('\'');
    const QString detail = StockSql::StoreDetailInsert(Session::NewGUID().GUID(), storeGuid, goods,
                                                       cost, quantity, QString(), date);
    const QString layer = StockSql::BuyPriceInsert(storeGuid, cost, quantity, date);

    if (!MsgBox::AskYes(QStringLiteral("确认要入库吗？"), QStringLiteral("提示"))) return;

    clsDbopt& db = Session::Dbopt();
    db.Excute(update);
    db.Excute(detail);
    db.Excute(layer);

    const double shown = Convert::CDbl(ui_->txtQuantity->text()) +
                         Convert::Val(g->Cell(row, QStringLiteral("数量")));
    g->setCell(row, QStringLiteral("数量"), Convert::DblText(shown));
    ui_->txtPrice->clear();
    ui_->txtQuantity->clear();
    ui_->txtNo->setFocus();
}

void frmBuyIn::cmdNewGoods_Click() {
    frmGoodsProperty f(this, this);
    Modal::Show(&f);
}

void frmBuyIn::Command1_Click() {
    frmbatchbuyIn f(this, this);
    Modal::Show(&f);
}
