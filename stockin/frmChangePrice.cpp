#include "frmChangePrice.h"

#include "Convert.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "VSGrid.h"
#include "ui_frmChangePrice.h"

namespace {
const QString kSelect = QStringLiteral(
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
    "Leather as 面料,Grade as 等级,ProductPlace as 产地,Price as 零售价 from Store Where ");
}  // namespace

frmChangePrice::frmChangePrice(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmChangePrice>()) {
    ui_->setupUi(this);
    On(ui_->txtNo, &QLineEdit::returnPressed, this, [this] { txtNo_Enter(); });
    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key != Qt::Key_Return && key != Qt::Key_Enter) return;
           handled = true;
           if (ui_->VSFlexGrid->Rows() > 1) ui_->txtNewPrice->setFocus();
       });
    On(ui_->cmdNewPrice, &QPushButton::clicked, this, [this] {
        ChangePrice(ui_->txtNewPrice, false, ui_->VSFlexGrid->Text(QStringLiteral("GUID")));
    });
    On(ui_->cmdChangePriceBath, &QPushButton::clicked, this, [this] {
        ChangePrice(ui_->txtNewPrice, true, ui_->VSFlexGrid->Text(QStringLiteral("货号")));
    });
    Guard::Run([this] { FillList(kSelect + QStringLiteral("ShopNo='") + Session::ShopNo + "'"); });
}

frmChangePrice::~frmChangePrice() = default;

void frmChangePrice::FillList(const QString& sql) {
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(rs);
    g->setColHidden(1, true);
    SetGridCols(g, 1250);
}

// Enter in the number box: the rows of exactly that article number.
void frmChangePrice::txtNo_Enter() {
    FillList(kSelect + QStringLiteral("Typeno='") + ReplaceQuote(ui_->txtNo->text()) +
             QStringLiteral("' And ShopNo='") + Session::ShopNo + "'");
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() > 1) {
        g->setRow(1);
        g->setFocus();
    }
}

void frmChangePrice::ChangePrice(QLineEdit* NewPrice, bool ByTypeNo, const QString& Key) {
    const QString price = NewPrice->text();
    if (!Convert::IsNumeric(price)) {
        MsgBox::Info(QStringLiteral("请输入正确的数据类型"));
        NewPrice->setFocus();
        NewPrice->selectAll();
        return;
    }
    // The price goes in as typed, the key as it stands.
    const QString sql = ByTypeNo ? QStringLiteral("Update Store Set Price=") + price +
                                       QStringLiteral(" Where TypeNo='") + Key +
                                       QStringLiteral("' And ShopNo='") + Session::ShopNo + "'"
                                 : QStringLiteral("Update Store Set Price=") + price +
                                       QStringLiteral(" Where GUID='") + Key +
                                       QStringLiteral("' And ShopNo='") + Session::ShopNo + "'";
    Session::Dbopt().Excute(sql);

    // The list shows the new price without reading again.
    VSGrid* g = ui_->VSFlexGrid;
    if (ByTypeNo) {
        for (int r = 1; r < g->Rows(); ++r)
            if (g->Cell(r, QStringLiteral("货号")) == Key)
                g->setCell(r, QStringLiteral("零售价"), price);
    } else {
        g->setCell(g->Row(), QStringLiteral("零售价"), price);
    }
    MsgBox::Info(QStringLiteral("变价成功"));
}
