#include "frmedit.h"

#include <QStringList>

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "StockSql.h"
#include "VSGrid.h"
#include "frmDataDictionary.h"
#include "frmbuyInDetail.h"
#include "ui_frmedit.h"

namespace {
// Selects the entry equal to the text; none when the list no longer has it.
void pick(QComboBox* combo, const QString& text) {
    const int i = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    combo->setCurrentIndex(i);
    if (i < 0 && combo->isEditable()) combo->setEditText(QString());
}
}  // namespace

frmedit::frmedit(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmedit>()) {
    ui_->setupUi(this);
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
    On(ui_->cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    for (QWidget* w : std::initializer_list<QWidget*>{
             ui_->txtNo, ui_->comName, ui_->comBrand, ui_->comSize, ui_->comColour, ui_->comLeather,
             ui_->comGrade, ui_->comProductPlace, ui_->txtPrice, ui_->txtQuantity, ui_->DT,
             ui_->txtMemo})
        EnterToTab(w);

    Guard::Run([this] {
        FillCombo(QStringLiteral("颜色"), ui_->comColour);
        FillCombo(QStringLiteral("尺码"), ui_->comSize);
        FillCombo(QStringLiteral("等级"), ui_->comGrade);
        FillCombo(QStringLiteral("面料"), ui_->comLeather);
        FillCombo(QStringLiteral("品牌"), ui_->comBrand);
        FillCombo(QStringLiteral("种类"), ui_->comName);
        FillCombo(QStringLiteral("产地"), ui_->comProductPlace);
    });
}

frmedit::~frmedit() = default;

void frmedit::LoadIt(VSGrid* Grid) {
    Grid_ = Grid;
    const int row = Grid->Row();
    ui_->txtNo->setText(Grid->Cell(row, QStringLiteral("货号")));
    ui_->txtPrice->setText(Grid->Cell(row, QStringLiteral("进价")));
    ui_->txtQuantity->setText(Grid->Cell(row, QStringLiteral("数量")));
    pick(ui_->comColour, Grid->Cell(row, QStringLiteral("颜色")));
    pick(ui_->comGrade, Grid->Cell(row, QStringLiteral("等级")));
    pick(ui_->comLeather, Grid->Cell(row, QStringLiteral("面料")));
    pick(ui_->comName, Grid->Cell(row, QStringLiteral("种类")));
    pick(ui_->comSize, Grid->Cell(row, QStringLiteral("尺码")));
    pick(ui_->comBrand, Grid->Cell(row, QStringLiteral("品牌")));
    pick(ui_->comProductPlace, Grid->Cell(row, QStringLiteral("产地")));
    ParentGUID_ = Grid->Cell(row, QStringLiteral("ParentGUID"));
    GUID_ = Grid->Cell(row, QStringLiteral("GUID"));
    // A row without a date (the total row) leaves the picker as it is.
    const QDate date = DateText::Parse(Grid->Cell(row, QStringLiteral("进货日期")));
    if (date.isValid()) ui_->DT->setDate(date);
    ui_->txtMemo->setText(Grid->Cell(row, QStringLiteral("备注")));

    Recordset rs = Session::Dbopt().Excute(QStringLiteral("Select Price from Store Where GUID='") +
                                           ParentGUID_ + QLatin1Char('\''));
    if (!rs.Eof()) Price_ = Convert::ToSingle(Convert::VarDbl(rs.Field(0)));
}

void frmedit::cmdOk_Click() {
    if (!Grid_) return;
    VSGrid* g = Grid_;
    const int row = g->Row();
    if (row == 0 || row == g->Rows() - 1) return;
    const QString parentGuid = g->Cell(row, QStringLiteral("ParentGUID"));
    const QString guid = g->Cell(row, QStringLiteral("GUID"));
    const int quantity = Convert::CInt(g->Cell(row, QStringLiteral("数量")));
    int storeQuantity = 0;
    if (!frmbuyInDetail::StoreQuantity(parentGuid, storeQuantity)) return;
    int32_t layerId = 0;
    if (frmbuyInDetail::IsSold(g, layerId)) {
        MsgBox::Info(QStringLiteral("对不起，这批货已经出售不能再修改！"));
        return;
    }
    frmbuyInDetail::RemoveRecord(guid, parentGuid, layerId, quantity, storeQuantity);
    g->RemoveItem(row);
    // The old record is gone whether or not the boxes pass their checks.
    StoreEntry(row);
    frmbuyInDetail::AddTotal(g);
    accept();
}

bool frmedit::StoreEntry(int row) {
    if (ui_->txtNo->text().isEmpty()) {
        MsgBox::Info(QStringLiteral("货号不能为空！"));
        ui_->txtNo->setFocus();
        return false;
    }
    if (ui_->comBrand->currentText().isEmpty()) {
        MsgBox::Info(QStringLiteral("品牌不能为空！"));
        ui_->comBrand->setFocus();
        return false;
    }
    for (QLineEdit* box : {ui_->txtPrice, ui_->txtQuantity}) {
        if (!Convert::IsNumeric(box->text())) {
            MsgBox::Info(QStringLiteral("数据类型不正确！"));
            box->setFocus();
            return false;
        }
    }

    GoodsText goods;
    goods.TypeNo = ReplaceQuote(ui_->txtNo->text());
    goods.Name = ui_->comName->currentText();
    goods.Brand = ReplaceQuote(ui_->comBrand->currentText());
    goods.Size = ReplaceQuote(ui_->comSize->currentText());
    goods.Colour = ReplaceQuote(ui_->comColour->currentText());
    goods.Leather = ReplaceQuote(ui_->comLeather->currentText());
    goods.Grade = ReplaceQuote(ui_->comGrade->currentText());
    goods.ProductPlace = ReplaceQuote(ui_->comProductPlace->currentText());
    const QString memo = ui_->txtMemo->text();
    const float cost = Convert::CSng(ui_->txtPrice->text());
    const float quantity = Convert::CSng(ui_->txtQuantity->text());
    const QString date = DateText::Of(ui_->DT->date());

    clsDbopt& db = Session::Dbopt();
    // A corrected article has no bar code or shelf: this window has no boxes for them.
    const QString storeGuid = Session::NewGUID().GUID();
    db.Excute(StockSql::StoreInsert(storeGuid, goods, quantity, Price_, QString(), QString()));
    const QString detailGuid = Session::NewGUID().GUID();
    db.Excute(
        StockSql::StoreDetailInsert(detailGuid, storeGuid, goods, cost, quantity, memo, date));
    db.Excute(StockSql::BuyPriceInsert(storeGuid, cost, quantity, date));

    const QStringList cells{QString(),
                            goods.TypeNo,
                            goods.Name,
                            goods.Brand,
                            goods.Size,
                            goods.Colour,
                            goods.Leather,
                            goods.Grade,
                            goods.ProductPlace,
                            Convert::FloatText(quantity),
                            Convert::FloatText(cost),
                            memo,
                            date,
                            storeGuid,
                            detailGuid};
    Grid_->AddItem(cells.join(QLatin1Char('\t')), row);
    return true;
}
