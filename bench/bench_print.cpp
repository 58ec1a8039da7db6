// The print window over a stock list of 10,000 goods rows, as the stock
// query hands it over (per-article totals above each article, the grand
// total in row 1): the copy the window takes, and a click on the preview
// button up to the first page painted on screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCheckBox>
#include <QGraphicsView>
#include <QPrintPreviewWidget>
#include <QPushButton>

#include "ARViewer.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "VSGrid.h"
#include "frmPrint.h"

namespace {

constexpr int kGoods = 10000;

// The stock query's list: 12 columns, five sizes of each article.
void StockList(VSGrid& g) {
    const QStringList names = {"货号", "种类", "品牌", "尺码",   "颜色", "面料",
                               "等级", "产地", "数量", "零售价", "条码", "柜层"};
    const QStringList sizes = {"S", "M", "L", "XL", "XXL"};
    std::vector<Recordset::Row> rows;
    rows.reserve(kGoods);
    for (int i = 0; i < kGoods; ++i) {
        rows.push_back({QString("A%1").arg(i / 5, 5, 10, QChar('0')), "衬衫", "红豆", sizes[i % 5],
                        "藏青色", "纯棉", "一等品", "广州", i % 7, 129.5,
                        QString("69%1").arg(i, 8, 10, QChar('0')), "二楼A区"});
    }
    g.Bind(Recordset(names, std::move(rows)));
    SetGridCols(&g, 1160);
    const int qty = g.ColIndex("数量");
    g.Subtotal(VSGrid::SubtotalSum, 1, qty, "d", Qt::red, true, "合计", true);
    g.Subtotal(VSGrid::SubtotalSum, 0, qty, "d", Qt::red, true, "总合计", true);
}

void BM_PrintHandOver(benchmark::State& state) {
    VSGrid source;
    StockList(source);
    for (auto _ : state) {
        frmPrint w;
        w.LoadIt(&source, true);
    }
    state.counters["rows"] = source.Rows();
}
BENCHMARK(BM_PrintHandOver)->Unit(benchmark::kMillisecond)->Iterations(5);

// Numbering, the report's layout, every page laid out for the preview, and
// the first page drawn.
void BM_PrintPreviewFirstPage(benchmark::State& state) {
    MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Ok; });
    VSGrid source;
    StockList(source);
    frmPrint w;
    w.resize(1200, 800);
    w.LoadIt(&source, true);
    w.findChild<QCheckBox*>("chkRecordIndex")->setChecked(true);
    w.show();
    QApplication::processEvents();
    auto* arv = w.findChild<ARViewer*>("arv");
    auto* preview = w.findChild<QPushButton*>("cmdPreview");
    QWidget* page = arv->Preview()->findChild<QGraphicsView*>()->viewport();
    for (auto _ : state) {
        preview->click();
        page->repaint();
    }
    state.counters["rows"] = source.Rows();
    state.counters["pages"] = arv->PageCount();
}
BENCHMARK(BM_PrintPreviewFirstPage)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
