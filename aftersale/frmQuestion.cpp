#include "frmQuestion.h"

#include "Convert.h"
#include "CostLayer.h"
#include "Keys.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmDataDictionary.h"
#include "ui_frmQuestion.h"

using Convert::CDbl;
using Convert::Val;

namespace {

const QString kResion = QStringLiteral("退货原因");

const QStringList kGoodsCells = {"货号", "种类", "品牌", "尺码", "颜色", "面料", "等级", "产地"};

}  // namespace

frmQuestion::frmQuestion(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmQuestion>()) {
    ui_->setupUi(this);
    for (QWidget* w : {static_cast<QWidget*>(ui_->txtNo), static_cast<QWidget*>(ui_->txtQuatity),
                       static_cast<QWidget*>(ui_->comResion)})
        w->installEventFilter(this);
    if (QLineEdit* edit = ui_->comResion->lineEdit()) edit->installEventFilter(this);
    EnterClicks(ui_->cmdAddQuestion);
    EnterClicks(ui_->cmdOk);

    On(ui_->VSFlexGrid, &VSGrid::KeyDown, this,
       [this](int key, Qt::KeyboardModifiers, bool& handled) {
           if (key == Qt::Key_Return || key == Qt::Key_Enter) {
               handled = true;
               if (ui_->VSFlexGrid->Rows() > 1) ui_->txtQuatity->setFocus();
           }
       });
    On(ui_->cmdAddQuestion, &QPushButton::clicked, this, [this] { cmdAddQuestion_Click(); });
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    frmDataDictionary::AttachButton(ui_->cmdLeather, kResion, ui_->comResion, this);

    Guard::Run([this] {
        LoadGoods();
        InitQuestionGrid();
        FillCombo(kResion, ui_->comResion);
    });
}

frmQuestion::~frmQuestion() = default;

void frmQuestion::BindGoods(const QString& sql) {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(sql));
    g->setColHidden(1, true);
    SetGridCols(g, 1140);
}

void frmQuestion::LoadGoods() {
    BindGoods(
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价 from "
        "Store Where ShopNo='" +
        Session::ShopNo + "' And Quantity>0");
}

void frmQuestion::InitQuestionGrid() {
    static const QStringList keys = {"GUID", "货号", "种类", "品牌", "尺码",     "颜色",
                                     "面料", "等级", "产地", "数量", "质量问题", "BuyPrice"};
    VSGrid* g = ui_->VSQuestion;
    g->setRows(1);
    g->setCols(13);
    for (int c = 1; c < 13; ++c) {
        g->setTextMatrix(0, c, keys[c - 1]);
        g->setColKey(c, keys[c - 1]);
    }
    g->setColHidden(1, true);
    g->setColHidden(12, true);
    SetGridCols(g, 960);
    g->setColWidth(11, 2000);
}

// The whole article number, and goods without stock too: the stock check
// refuses those.
void frmQuestion::txtNo_Enter() {
    const QString text = ui_->txtNo->text();
    VSGrid* g = ui_->VSFlexGrid;
    if (text.isEmpty()) {
        g->setFocus();
        return;
    }
    BindGoods(
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量 ,Price as 零售价 from "
        "Store Where Typeno='" +
        ReplaceQuote(text) + "' And ShopNo='" + Session::ShopNo + "'");
    if (g->Rows() > 1) {
        g->setRow(1);
        g->setFocus();
    }
}

// The checks of the quantity box and of the add button, in their order. The
// stock is the grid's figure, lowered by the rows already collected.
bool frmQuestion::QuantityPasses() {
    const VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() <= 1) {
        MsgBox::Info(QStringLiteral("请选择一个商品！"));
        return false;
    }
    const QString text = ui_->txtQuatity->text();
    if (!Convert::IsNumeric(text)) {
        MsgBox::Info(QStringLiteral("数量的数据类型不正确！"));
        ui_->txtQuatity->setFocus();
        return false;
    }
    const double n = CDbl(text);
    if (n <= 0) {
        MsgBox::Info(QStringLiteral("数量的不能小于0！"));
        ui_->txtQuatity->setFocus();
        return false;
    }
    if (Val(g->Text(QStringLiteral("数量"))) < n) {
        MsgBox::Info(QStringLiteral("库存不足不能转化成问题歇，请通知管理员！"));
        return false;
    }
    return true;
}

void frmQuestion::cmdAddQuestion_Click() {
    if (!QuantityPasses()) return;
    VSGrid* g = ui_->VSFlexGrid;
    AddQuestionRow(g->TextMatrix(g->Row(), 1));
    // Shown only, but the next stock check reads it.
    g->setCell(
        g->Row(), QStringLiteral("数量"),
        Convert::DblText(Val(g->Text(QStringLiteral("数量"))) - CDbl(ui_->txtQuatity->text())));
}

void frmQuestion::AddQuestionRow(const QString& GUID) {
    const VSGrid* g = ui_->VSFlexGrid;
    VSGrid* q = ui_->VSQuestion;
    QStringList cells = {QString(), GUID};
    for (const QString& key : kGoodsCells) cells << g->Text(key);
    cells << ui_->txtQuatity->text() << ui_->comResion->currentText();
    q->AddItem(cells.join('\t'));
    q->setRow(q->Rows() - 1);
}

// Every piece takes a cost layer as a sale does; the row's cost is the sum.
// The fault written is what the box shows now, for every row alike.
void frmQuestion::cmdOk_Click() {
    VSGrid* q = ui_->VSQuestion;
    if (q->Rows() <= 1) return;
    clsDbopt& db = Session::Dbopt();
    const clsUser& user = Session::User();
    for (int r = 1; r < q->Rows(); ++r) {
        auto v = [q, r](const char* key) { return q->Cell(r, QString::fromUtf8(key)); };
        const QString GUID = v("GUID");
        const int16_t n = Convert::CInt(v("数量"));
        float sum = 0;
        int32_t ID = 0;
        for (int16_t i = 0; i < n; ++i) {
            float cost = 0;
            TakeCostLayer(GUID, ID, cost);
            sum += cost;
        }
        db.Excute("Update Store Set Quantity=Quantity-" + QString::number(n) + " Where GUID='" +
                  GUID + "'");
        auto rq = [&v](const char* key) { return ReplaceQuote(v(key)); };
        // The fault and the user go in as they stand.
        db.Excute(
            "Insert Into BackStore ([GUID],ShopNo,TypeNo,Name,Brand,[Size],Colour,Leather,Grade,"
            "ProductPlace,Quantity,BuyPrice,BackResion,Seller,SellName,IsBackFactory,"
            "BackFactoryDate) Values('" +
            rq("GUID") + "','" + Session::ShopNo + "','" + rq("货号") + "','" + rq("种类") + "','" +
            rq("品牌") + "','" + rq("尺码") + "','" + rq("颜色") + "','" + rq("面料") + "','" +
            rq("等级") + "','" + rq("产地") + "'," + rq("数量") + "," + Convert::FloatText(sum) +
            ",'" + ui_->comResion->currentText() + "','" + user.No + "','" + user.Name +
            "',0,Null)");
    }
    MsgBox::Info(QStringLiteral("处理成功！"));
    RemoveVsRows(q);
}

bool frmQuestion::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::FocusIn) {
        if (o == ui_->txtQuatity) ui_->txtQuatity->selectAll();
        return false;
    }
    QKeyEvent* k = KeyPress(e);
    if (!k || !IsEnter(k)) return false;
    Guard::Run([&] {
        if (o == ui_->txtNo) {
            txtNo_Enter();
        } else if (o == ui_->txtQuatity) {
            if (QuantityPasses()) ui_->comResion->setFocus();
        } else {
            ui_->cmdAddQuestion->setFocus();
        }
    });
    return true;
}
