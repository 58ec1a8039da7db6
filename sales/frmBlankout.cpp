#include "frmBlankout.h"

#include <QKeyEvent>

#include "DateText.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmDataDictionary.h"
#include "ui_frmBlankout.h"

namespace {
const QString kResion = QStringLiteral("作废原因");
}

frmBlankout::frmBlankout(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmBlankout>()) {
    ui_->setupUi(this);
    ui_->txtSellNo->installEventFilter(this);
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (ui_->VSFlexGrid->Row() >= 1) ui_->comResion->setFocus();
           }
       });
    frmDataDictionary::AttachButton(ui_->cmdLeather, kResion, ui_->comResion, this);
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });

    Guard::Run([this] {
        ShowRows(Session::Dbopt().Excute(
            "Select GUID,StoreGUID,ShopNo,BuyPrice,BuyPriceId,SellNo,State,TypeNo as 货号, Name as "
            "种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather as 面料,Grade as 等级,"
            "ProductPlace as 产地,Quantity as 数量,Price as 零售价,Abate as 折扣,Amount as 金额,"
            "SellerName as 销售员,DateTime as 销售日期  from Sell Where GUID=''"));
        FillCombo(kResion, ui_->comResion);
    });
}

frmBlankout::~frmBlankout() = default;

void frmBlankout::ShowRows(const Recordset& rs) {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    for (int c = 1; c <= 7; ++c) g->setColHidden(c, true);
    SetGridCols(g, 860);
}

void frmBlankout::txtSellNo_Enter() {
    // The number goes in as typed.
    Recordset rs = Session::Dbopt().Excute(
        "Select GUID,StoreGUID,ShopNo,BuyPrice,BuyPriceId,SellNo,State,TypeNo as 货号, Name as "
        "种类 "
        ",Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather as 面料,Grade as 等级,ProductPlace "
        "as 产地,Quantity as 数量,Price as 零售价,Abate as 折扣,Amount as 金额,SellerName as "
        "销售员, "
        "DateTime as 销售日期  from Sell Where  SellNo='" +
        ui_->txtSellNo->text() + "' And ShopNo='" + Session::ShopNo + "' And State<2");
    if (rs.Eof()) {
        ui_->lbTip->setText(QStringLiteral("该销售编号不存在！"));
        return;
    }
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    ui_->lbTip->clear();
    g->setFocus();
    g->setRow(1);
    for (int c = 1; c <= 7; ++c) g->setColHidden(c, true);
    SetGridCols(g, 860);
}

void frmBlankout::cmdOk_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1) return;
    if (!MsgBox::AskYes(QStringLiteral("确认要作废该次售货吗？"), QStringLiteral("提示"))) return;

    clsDbopt& db = Session::Dbopt();
    const clsUser& user = Session::User();
    auto q = [g](const QString& key) { return ReplaceQuote(g->Text(key)); };
    db.Excute("Update Store Set Quantity=Quantity+1 Where GUID='" + g->Text("StoreGUID") + "'");
    db.Excute("Update BuyPrice Set Quantity=Quantity+1 Where ID=" + g->Text("BuyPriceId"));
    db.Excute("Update Sell Set State=3  Where GUID='" + g->Text("GUID") + "'");
    // The reason goes in as typed.
    db.Excute("Insert Into SellChange Values('" + Session::NewGUID().GUID() + "','" + "" + "','" +
              Session::ShopNo + "','" + q("货号") + "','" + q("种类") + "','" + q("品牌") + "','" +
              q("尺码") + "','" + q("颜色") + "','" + q("面料") + "','" + q("等级") + "','" +
              q("产地") + "'," + q("数量") + "," + q("零售价") + ",'" + q("折扣") + "'," +
              q("金额") + "," + q("BuyPrice") + ",'" + user.No + "','" + q("销售日期") + "'," +
              q("BuyPriceID") + ",'" + user.Name + "'," + q("金额") + ",'" + g->Text("GUID") +
              "','" + g->Text("SellNo") + "','" + DateText::Today() + "',3,'" +
              ui_->comResion->currentText() + "')");
    g->RemoveItem();
}

bool frmBlankout::eventFilter(QObject* o, QEvent* e) {
    if (o == ui_->txtSellNo && e->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Guard::Run([this] { txtSellNo_Enter(); });
            return true;
        }
    }
    return false;
}
