#include "frmbatchbuyIn.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <vector>

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
#include "ui_frmbatchbuyIn.h"

namespace {

const QString kTotal = QStringLiteral("合计");

QListWidgetItem* newEntry(const QString& text) {
    auto* item = new QListWidgetItem(text);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    return item;
}

// The quantity in a cell: an empty or unreadable cell counts nothing.
double cellValue(const VSGrid* g, int row, int col) {
    const QString t = g->TextMatrix(row, col);
    if (t.isEmpty() || !Convert::IsNumeric(t)) return 0;
    return Convert::CDbl(t);
}

void setSum(VSGrid* g, int row, int col, double sum) {
    const QString text = sum == 0 ? QString() : Convert::DblText(sum);
    if (g->TextMatrix(row, col) != text) g->setTextMatrix(row, col, text);
}

}  // namespace

frmbatchbuyIn::frmbatchbuyIn(frmBuyIn* buyIn, QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmbatchbuyIn>()), buyIn_(buyIn) {
    ui_->setupUi(this);
    VSGrid* g = ui_->VSFlexGrid;
    g->setTextMatrix(0, 0, QStringLiteral("颜色/尺码"));
    g->setColWidth(0, 900);
    g->setEditable(true);

    const struct {
        QPushButton* button;
        const char* item;
        QComboBox* combo;
    } lookups[] = {
        {ui_->cmdName, "种类", ui_->comName},
        {ui_->cmdBrand, "品牌", ui_->comBrand},
        {ui_->cmdProductPlace, "产地", ui_->comProductPlace},
        {ui_->cmdLeather, "面料", ui_->comLeather},
        {ui_->cmdGrade, "等级", ui_->comGrade},
    };
    for (const auto& l : lookups)
        frmDataDictionary::AttachButton(l.button, QString::fromUtf8(l.item), l.combo, this);

    for (QWidget* w : std::initializer_list<QWidget*>{
             ui_->txtBlock, ui_->txtFloor, ui_->txtMemo, ui_->txtNo, ui_->txtPrice,
             ui_->txtSellPrice, ui_->comBrand, ui_->comName, ui_->comColour, ui_->comSize,
             ui_->comGrade, ui_->comLeather, ui_->comProductPlace, ui_->DT})
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
    ui_->DT->setDate(QDate::currentDate());
    for (int i = 0; i < ui_->comColour->count(); ++i)
        ui_->listCoulor->addItem(newEntry(ui_->comColour->itemText(i)));
    for (int i = 0; i < ui_->comSize->count(); ++i)
        ui_->listSize->addItem(newEntry(ui_->comSize->itemText(i)));
    // A tall drop-down, so that many brands show at once.
    const int itemHeight = std::max(1, ui_->comBrand->fontMetrics().height() + 4);
    ui_->comBrand->setMaxVisibleItems(std::max(1, 500 / itemHeight));

    On(ui_->listCoulor, &QListWidget::itemChanged, this,
       [this](QListWidgetItem* item) { listCoulor_ItemCheck(item); });
    On(ui_->listSize, &QListWidget::itemChanged, this,
       [this](QListWidgetItem* item) { listSize_ItemCheck(item); });
    On(g, &VSGrid::BeforeEdit, this,
       [this](int row, int col, bool& cancel) { VSFlexGrid_BeforeEdit(row, col, cancel); });
    On(g, &VSGrid::AfterEdit, this, [this](int row, int col) { VSFlexGrid_AfterEdit(row, col); });
    On(ui_->txtColour, &QLineEdit::returnPressed, this,
       [this] { AddToList(ui_->txtColour, ui_->listCoulor, QStringLiteral("颜色")); });
    On(ui_->txtSize, &QLineEdit::returnPressed, this,
       [this] { AddToList(ui_->txtSize, ui_->listSize, QStringLiteral("尺码")); });
    On(ui_->cmdInStore, &QPushButton::clicked, this, [this] { cmdInStore_Click(); });
    On(ui_->cmdClear, &QPushButton::clicked, this, [this] { cmdClear_Click(); });
}

frmbatchbuyIn::~frmbatchbuyIn() {
    // Closing with a cell still being edited ends that edit while the window
    // goes away: its handlers must not run any more by then.
    QObject::disconnect(ui_->VSFlexGrid, nullptr, this, nullptr);
    QObject::disconnect(ui_->listCoulor, nullptr, this, nullptr);
    QObject::disconnect(ui_->listSize, nullptr, this, nullptr);
}

// A colour ticked becomes a row above the total row; unticked, its row goes,
// and with the last colour the total row goes too.
void frmbatchbuyIn::listCoulor_ItemCheck(QListWidgetItem* item) {
    const bool ticked = item->checkState() == Qt::Checked;
    if (ticked == ticked_.contains(item)) return;  // not a change of the tick
    if (ticked)
        ticked_.insert(item);
    else
        ticked_.remove(item);

    VSGrid* g = ui_->VSFlexGrid;
    const QString colour = item->text();
    if (ticked) {
        if (g->Rows() == 1) {
            g->setRows(3);
            g->setTextMatrix(1, 0, colour);
            g->setTextMatrix(2, 0, kTotal);
        } else {
            const int row = g->Rows() - 1;
            g->AddItem(QString(), row);
            g->setTextMatrix(row, 0, colour);
        }
    } else if (g->Rows() > 3) {
        int found = 0;
        for (int r = 1; r < g->Rows(); ++r) {
            if (g->TextMatrix(r, 0) == colour) {
                found = r;
                break;
            }
        }
        if (found == 0) return;
        g->RemoveItem(found);
    } else if (g->Rows() == 3) {
        g->setRows(1);
    }
    g->setAllCellsAlignment(VSGrid::AlignCenterCenter);
    SumAll();
}

// A size ticked becomes a column before the total column; unticked, the
// columns right of it move one place left with their quantities and keys.
void frmbatchbuyIn::listSize_ItemCheck(QListWidgetItem* item) {
    const bool ticked = item->checkState() == Qt::Checked;
    if (ticked == ticked_.contains(item)) return;
    if (ticked)
        ticked_.insert(item);
    else
        ticked_.remove(item);

    VSGrid* g = ui_->VSFlexGrid;
    const QString size = item->text();
    if (ticked) {
        if (g->Cols() == 1) {
            g->setCols(3);
            g->setTextMatrix(0, 1, size);
            g->setColKey(1, size);
            g->setTextMatrix(0, 2, kTotal);
        } else {
            g->setCols(g->Cols() + 1);
            const int last = g->Cols() - 1;
            g->setTextMatrix(0, last - 1, size);
            g->setColKey(last - 1, size);
            g->setTextMatrix(0, last, kTotal);
            // The former total column becomes the new size's column, empty.
            for (int r = 1; r < g->Rows(); ++r) {
                g->setTextMatrix(r, last, g->TextMatrix(r, last - 1));
                g->setTextMatrix(r, last - 1, QString());
            }
        }
    } else if (g->Cols() > 3) {
        const int col = g->ColIndex(size);
        if (col < 1) return;
        for (int c = col; c < g->Cols() - 1; ++c) {
            for (int r = 0; r < g->Rows(); ++r) g->setTextMatrix(r, c, g->TextMatrix(r, c + 1));
            g->setColKey(c, g->ColKey(c + 1));
        }
        g->setCols(g->Cols() - 1);
    } else if (g->Cols() == 3) {
        g->setCols(1);
    }
    g->setAllCellsAlignment(VSGrid::AlignCenterCenter);
    SumAll();
}

void frmbatchbuyIn::SumAll() {
    VSGrid* g = ui_->VSFlexGrid;
    const int rows = g->Rows();
    const int cols = g->Cols();
    if (rows < 3 || cols < 3) return;
    const int lastRow = rows - 1;
    const int lastCol = cols - 1;
    // Each cell is read once; the column sums, total column included, build up
    // while the rows are summed.
    std::vector<double> colSums(size_t(cols), 0.0);
    for (int r = 1; r < lastRow; ++r) {
        double rowSum = 0;
        for (int c = 1; c < lastCol; ++c) {
            const double v = cellValue(g, r, c);
            rowSum += v;
            colSums[size_t(c)] += v;
        }
        setSum(g, r, lastCol, rowSum);
        colSums[size_t(lastCol)] += rowSum;
    }
    for (int c = 1; c <= lastCol; ++c) setSum(g, lastRow, c, colSums[size_t(c)]);
}

void frmbatchbuyIn::VSFlexGrid_BeforeEdit(int row, int col, bool& cancel) {
    VSGrid* g = ui_->VSFlexGrid;
    if (row == g->Rows() - 1 || col == g->Cols() - 1) cancel = true;
}

// A positive quantity updates its column's and row's sums and the corner;
// anything else empties the cell and leaves the sums as they are.
void frmbatchbuyIn::VSFlexGrid_AfterEdit(int row, int col) {
    VSGrid* g = ui_->VSFlexGrid;
    const QString text = g->TextMatrix(row, col);
    if (!Convert::IsNumeric(text) || Convert::CDbl(text) <= 0) {
        g->setTextMatrix(row, col, QString());
        return;
    }
    const int lastRow = g->Rows() - 1;
    const int lastCol = g->Cols() - 1;
    double colSum = 0;
    for (int r = 1; r < lastRow; ++r) colSum += cellValue(g, r, col);
    g->setTextMatrix(lastRow, col, Convert::DblText(colSum));
    double rowSum = 0;
    for (int c = 1; c < lastCol; ++c) rowSum += cellValue(g, row, c);
    g->setTextMatrix(row, lastCol, Convert::DblText(rowSum));
    double all = 0;
    for (int c = 1; c < lastCol; ++c) all += cellValue(g, lastRow, c);
    g->setTextMatrix(lastRow, lastCol, Convert::DblText(all));
}

// A new colour or size goes into the lookup list at once and to the end of
// this window's list, unticked.
void frmbatchbuyIn::AddToList(QLineEdit* box, QListWidget* list, const QString& item) {
    const QString text = box->text();
    if (text.isEmpty()) {
        MsgBox::Info(QStringLiteral("内容不能为空！"));
        box->setFocus();
        return;
    }
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->text() == text) {
            MsgBox::Info(QStringLiteral("该内容已经存在！"));
            box->setFocus();
            return;
        }
    }
    Session::Dbopt().Excute("Insert Into DataDictionary (Item,Content) Values ('" + item + "','" +
                            ReplaceQuote(text) + "')");
    list->addItem(newEntry(text));
    list->setCurrentRow(list->count() - 1);
    box->clear();
}

void frmbatchbuyIn::cmdInStore_Click() {
    // A quantity still being typed counts: its cell's edit ends first (the
    // access key of the button does not take the focus from the cell).
    VSGrid* g = ui_->VSFlexGrid;
    if (QWidget* f = QApplication::focusWidget(); f && f != g && g->isAncestorOf(f))
        f->clearFocus();
    if (ui_->txtNo->text().isEmpty()) {
        MsgBox::Info(QStringLiteral("产品货号不能为空！"));
        ui_->txtNo->setFocus();
        return;
    }
    if (ui_->comBrand->currentText().isEmpty()) {
        MsgBox::Info(QStringLiteral("品牌不能为空！"));
        ui_->comBrand->setFocus();
        return;
    }
    if (!Convert::IsNumeric(ui_->txtPrice->text())) {
        MsgBox::Info(QStringLiteral("请正确填写进价,要确认是数字！"));
        ui_->txtPrice->setFocus();
        return;
    }
    if (!Convert::IsNumeric(ui_->txtSellPrice->text())) {
        MsgBox::Info(QStringLiteral("请正确填写零售价,要确认是数字！"));
        ui_->txtSellPrice->setFocus();
        return;
    }
    if (g->Rows() == 1) {
        MsgBox::Info(QStringLiteral("尺码和颜色至少各选择一种，输入数量！"));
        return;
    }
    if (!MsgBox::AskYes(QStringLiteral("确认要入库么？"), QStringLiteral("提示"))) return;

    GoodsText goods;
    goods.Brand = ReplaceQuote(ui_->comBrand->currentText());
    goods.TypeNo = ReplaceQuote(ui_->txtNo->text());
    goods.Name = ui_->comName->currentText();
    goods.Leather = ReplaceQuote(ui_->comLeather->currentText());
    goods.Grade = ReplaceQuote(ui_->comGrade->currentText());
    goods.ProductPlace = ReplaceQuote(ui_->comProductPlace->currentText());
    const QString idCode = ReplaceQuote(ui_->txtBlock->text());
    const QString goodsFloor = ReplaceQuote(ui_->txtFloor->text());
    const QString memo = ui_->txtMemo->text();
    const float cost = Convert::CSng(ui_->txtPrice->text());
    const float price = Convert::ToSingle(Convert::Val(ui_->txtSellPrice->text()));
    const QString date = DateText::Of(ui_->DT->date());

    if (g->Rows() < 3 || g->Cols() < 3) return;

    clsDbopt& db = Session::Dbopt();
    clsNewGUID& guids = Session::NewGUID();
    frmBuyIn* list = buyIn_;
    bool isErr = false;
    for (int r = 1; r < g->Rows() - 1; ++r) {
        goods.Colour = g->TextMatrix(r, 0);  // colour and size as they stand
        for (int c = 1; c < g->Cols() - 1; ++c) {
            const QString cell = g->TextMatrix(r, c);
            if (cell.isEmpty()) continue;
            const QString storeGuid = guids.GUID();
            const float quantity = Convert::CSng(cell);
            goods.Size = g->TextMatrix(0, c);
            db.Excute(StockSql::StoreInsert(storeGuid, goods, quantity, price, idCode, goodsFloor),
                      isErr);
            if (isErr) return;
            const QString detailGuid = guids.GUID();
            db.Excute(StockSql::StoreDetailInsert(detailGuid, storeGuid, goods, cost, quantity,
                                                  memo, date),
                      isErr);
            if (isErr) return;
            db.Excute(StockSql::BuyPriceInsert(storeGuid, cost, quantity, date), isErr);
            if (isErr) return;
            if (list)
                list->AppendGoods(
                    StockSql::BuyInGridRow(detailGuid, goods, quantity, idCode, goodsFloor));
        }
    }
    cmdClear_Click();
}

// Clears the article number and the quantities and unticks the colours; the
// sizes stay ticked for the next article in the same sizes.
void frmbatchbuyIn::cmdClear_Click() {
    ui_->txtNo->clear();
    ui_->txtNo->setFocus();
    VSGrid* g = ui_->VSFlexGrid;
    for (int r = 1; r < g->Rows(); ++r)
        for (int c = 1; c < g->Cols(); ++c)
            if (!g->TextMatrix(r, c).isEmpty()) g->setTextMatrix(r, c, QString());
    for (int i = 0; i < ui_->listCoulor->count(); ++i)
        ui_->listCoulor->item(i)->setCheckState(Qt::Unchecked);
}
