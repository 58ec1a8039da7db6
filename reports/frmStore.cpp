#include "frmStore.h"

#include "ModMain.h"
#include "On.h"
#include "ReportGrid.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "ui_frmStore.h"

namespace {
const QString kSelect = QStringLiteral(
    "Select TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather as "
    "面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,IDCode as 条码,"
    "GoodsFloor as 柜层 from Store ");
}  // namespace

frmStore::frmStore(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmStore>()) {
    ui_->setupUi(this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    On(ui_->txtNo, &QLineEdit::textChanged, this, [this] { txtNo_Change(); });
    On(ui_->TabStrip, &QTabWidget::currentChanged, this, [this](int tab) { TabStrip_Click(tab); });
    // Even with the problem goods in front, the saleable list is printed.
    On(ui_->cmdPrint, &QPushButton::clicked, this, [this] { PrintGrid(ui_->VSFlexGrid, this); });

    Guard::Run([this] {
        ShowStore(Head() + Tail(), From::Load);
        FillComboAll(QStringLiteral("种类"), ui_->comName);
        FillComboAll(QStringLiteral("品牌"), ui_->comBrand);
    });
}

frmStore::~frmStore() = default;

QString frmStore::Head() const {
    return kSelect + "Where ShopNo='" + Session::ShopNo;
}

// Whether goods sold out (or below) are left out is read each time a
// statement is built; ticking the box alone changes nothing on screen.
QString frmStore::Tail() const {
    return ui_->chkZero->isChecked() ? QStringLiteral("' And Quantity>0") : QStringLiteral("'");
}

void frmStore::ShowStore(const QString& sql, From from) {
    VSGrid* g = ui_->VSFlexGrid;
    g->Bind(Session::Dbopt().Excute(sql));
    SetGridCols(g, 1160);
    const bool hasRows = g->Rows() > 1;
    if (from == From::ArticleNo && hasRows) g->setRow(1);
    if (from != From::ArticleNo || hasRows) {
        // Sum rows stand above what they add up, so the grand total is row 1
        // (the print window counts on it). An article whose rows are not
        // neighbours gets a total for each run of them.
        const int qty = g->ColIndex(QStringLiteral("数量"));
        AddSums(g, 1, qty, QStringLiteral("合计"), true);
        AddSums(g, 0, qty, QStringLiteral("总合计"), true);
    }
    if (from == From::Load || from == From::Query) {
        for (int c = 1; c <= 3; ++c) g->setMergeCol(c, true);
        g->setMergeCells(true);
    }
}

// The kind and brand go into the statement as they stand.
void frmStore::cmdQuery_Click() {
    const bool allBrands = ui_->comBrand->currentIndex() == 0;
    const bool allKinds = ui_->comName->currentIndex() == 0;
    const QString brand = ui_->comBrand->currentText();
    const QString name = ui_->comName->currentText();
    QString filter;
    if (allBrands && !allKinds)
        filter = "' And Name='" + name;
    else if (!allBrands && allKinds)
        filter = "' And Brand='" + brand;
    else if (!allBrands && !allKinds)
        filter = "' And Brand='" + brand + "' And Name ='" + name;
    ShowStore(Head() + filter + Tail(), From::Query);
}

// Part of an article number, in every brand and kind whatever the boxes show.
void frmStore::txtNo_Change() {
    const QString no = ReplaceQuote(ui_->txtNo->text());
    if (no.isEmpty()) {
        ShowStore(Head() + Tail(), From::ArticleNo);
        return;
    }
    ShowStore(kSelect + " Where Typeno Like'%" + no + "%' And ShopNo='" + Session::ShopNo + Tail(),
              From::ArticleNo);
}

void frmStore::TabStrip_Click(int tab) {
    if (tab == 0) {
        ShowStore(Head() + Tail(), From::Tab);
        ui_->txtNo->setFocus();
    } else {
        ShowQuestion();
    }
}

// Problem goods not yet returned to the factory, with a total of pieces and
// of cost per run of one article.
void frmStore::ShowQuestion() {
    VSGrid* g = ui_->VSQuestion;
    g->Bind(Session::Dbopt().Excute(
        "Select TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
        "as 面料,Grade as 等级,ProductPlace as 产地,BuyPrice as 进价,Quantity as 数量,BackResion "
        "as 问题 from BackStore Where ShopNo='" +
        Session::ShopNo + "' And IsBackFactory=0 Order By TypeNo"));
    SetGridCols(g, 1280);
    AddSums(g, 1, g->ColIndex(QStringLiteral("数量")), QStringLiteral("合计"));
    AddSums(g, 1, g->ColIndex(QStringLiteral("进价")), QStringLiteral("合计"));
}
