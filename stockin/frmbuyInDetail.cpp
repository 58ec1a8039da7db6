#include "frmbuyInDetail.h"

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "frmedit.h"
#include "ui_frmbuyInDetail.h"

namespace {
const QString kSelect = QStringLiteral(
    "Select TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
    "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 进价 ,"
    "Memo as 备注,DateTime as 进货日期 ,ParentGUID,GUID from StoreDetail Where ShopNo='");
}  // namespace

frmbuyInDetail::frmbuyInDetail(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmbuyInDetail>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->cmdDel, &QPushButton::clicked, this, [this] { cmdDel_Click(); });
    On(ui_->cmdedit, &QPushButton::clicked, this, [this] { cmdedit_Click(); });

    Guard::Run([this] { cmdQuery_Click(); });
    ui_->DTEndTime->setDate(QDate::currentDate());
    ui_->DTBeginTime->setDate(QDate::currentDate().addMonths(-1));
}

frmbuyInDetail::~frmbuyInDetail() = default;

void frmbuyInDetail::AddTotal(VSGrid* grid) {
    grid->Subtotal(VSGrid::SubtotalSum, -1, grid->ColIndex(QStringLiteral("数量")),
                   QStringLiteral("d"), QColor(255, 0, 0), true, QStringLiteral("合计"), false);
}

void frmbuyInDetail::cmdQuery_Click() {
    QString filter;
    if (ui_->chkDate->isChecked())
        filter = QStringLiteral(" DateTime Between #") + DateText::Of(ui_->DTBeginTime->date()) +
                 QStringLiteral("# And #") + DateText::Of(ui_->DTEndTime->date()) +
                 QLatin1Char('#');
    if (ui_->chkTypeNo->isChecked()) {
        // The number goes in as typed.
        if (!filter.isEmpty()) filter += QStringLiteral(" And ");
        filter += QStringLiteral("TypeNo='") + ui_->txtNo->text() + QLatin1Char('\'');
    }
    QString sql = kSelect + Session::ShopNo + QLatin1Char('\'');
    if (!filter.isEmpty()) sql += QStringLiteral(" And ") + filter;

    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    g->setColHidden(g->ColIndex(QStringLiteral("ParentGUID")), true);
    g->setColHidden(g->ColIndex(QStringLiteral("GUID")), true);
    SetGridCols(g, 1040);
    AddTotal(g);
}

bool frmbuyInDetail::IsSold(VSGrid* grid, int32_t& layerId) {
    const int row = grid->Row();
    Recordset rs = Session::Dbopt().Excute(
        QStringLiteral("Select Quantity,ID from BuyPrice Where StoreGUID='") +
        grid->Cell(row, QStringLiteral("ParentGUID")) + QStringLiteral("' And sDate=#") +
        grid->Cell(row, QStringLiteral("进货日期")) + QLatin1Char('#'));
    layerId = 0;
    if (rs.Eof()) return false;
    const int16_t left = Convert::CInt(Convert::VarDbl(rs.Field(QStringLiteral("Quantity"))));
    layerId = Convert::CLng(Convert::VarDbl(rs.Field(QStringLiteral("ID"))));
    return Convert::Val(grid->Cell(row, QStringLiteral("数量"))) > left;
}

bool frmbuyInDetail::StoreQuantity(const QString& parentGuid, int& quantity) {
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("select * from Store where GUID='") +
                                           parentGuid + QLatin1Char('\''));
    if (rs.Eof()) return false;
    quantity = Convert::CInt(Convert::VarDbl(rs.Field(QStringLiteral("Quantity"))));
    return true;
}

void frmbuyInDetail::RemoveRecord(const QString& guid, const QString& parentGuid, int32_t layerId,
                                  int quantity, int storeQuantity) {
    clsDbopt& db = Session::Dbopt();
    db.Excute(QStringLiteral("Delete from StoreDetail Where GUID='") + guid + QLatin1Char('\''));
    db.Excute(QStringLiteral("Delete from Buyprice where Id=") + QString::number(layerId));
    if (quantity == storeQuantity) {
        db.Excute(QStringLiteral("delete from store where GUID='") + parentGuid +
                  QLatin1Char('\''));
    } else {
        db.Excute(QStringLiteral("Update Store Set Quantity=Quantity-") +
                  QString::number(quantity) + QStringLiteral(" Where GUID='") + parentGuid +
                  QLatin1Char('\''));
    }
}

void frmbuyInDetail::cmdDel_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    const int row = g->Row();
    if (row == 0 || row == g->Rows() - 1) return;
    const QString parentGuid = g->Cell(row, QStringLiteral("ParentGUID"));
    const QString guid = g->Cell(row, QStringLiteral("GUID"));
    const int quantity = Convert::CInt(g->Cell(row, QStringLiteral("数量")));
    int storeQuantity = 0;
    if (!StoreQuantity(parentGuid, storeQuantity)) return;
    if (!MsgBox::AskYes(QStringLiteral("确定要删除这次进货吗？"), QStringLiteral("提示"))) return;
    int32_t layerId = 0;
    if (IsSold(g, layerId)) {
        MsgBox::Info(QStringLiteral("对不起，这批货已经出售不能再删除！"));
        return;
    }
    RemoveRecord(guid, parentGuid, layerId, quantity, storeQuantity);
    g->RemoveItem(row);
    AddTotal(g);
}

void frmbuyInDetail::cmdedit_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1) return;
    frmedit f(this);
    f.LoadIt(g);
    Modal::Show(&f);
}
