// The sale window with 50,000 goods rows in the shop: every key typed in the
// article number box re-queries and redraws the goods list, and a checkout
// of 20 pieces writes four statements a piece and lays out the receipt.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include "ModMain.h"
#include "MsgBox.h"
#include "Session.h"
#include "TextPrinter.h"
#include "VSGrid.h"
#include "VolumeData.h"
#include "frmSell.h"

namespace {

const VolumeData::Volume kCounter{50000, 2500, 100000};

bool openCounter(benchmark::State& state, const QString& path) {
    if (path.isEmpty() || !VolumeData::OpenSession(path)) {
        state.SkipWithError("no volume data file");
        return false;
    }
    MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Yes; });
    return true;
}

// A key as the keyboard (or the scanner) delivers it to the focused box.
void press(QWidget* w, int key, const QString& text = QString()) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &up);
}

template <typename T>
T* ctl(frmSell& w, const char* name) {
    return w.findChild<T*>(QLatin1String(name));
}

// The list as the clerk sees it: the visible part painted now.
void redraw(frmSell& w) {
    ctl<VSGrid>(w, "VSFlexGrid")->viewport()->repaint();
}

// Types an article number key by key and takes it back with Backspace, down
// to the empty box (the whole list again): 14 keystrokes.
void BM_SaleArticleNoKeystrokes(benchmark::State& state) {
    if (!openCounter(state, VolumeData::Cached(kCounter))) return;
    frmSell w;
    w.resize(1000, 700);
    w.show();
    QLineEdit* no = ctl<QLineEdit>(w, "txtNo");
    no->setFocus();
    const QString article = VolumeData::ArticleNo(1234);
    int keys = 0;
    for (auto _ : state) {
        for (const QChar c : article) {
            press(no, c.unicode(), QString(c));
            redraw(w);
            ++keys;
        }
        for (int i = 0; i < article.size(); ++i) {
            press(no, Qt::Key_Backspace);
            redraw(w);
            ++keys;
        }
    }
    state.counters["ms_per_key"] = benchmark::Counter(
        keys / 1000.0, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["goods_rows"] = ctl<VSGrid>(w, "VSFlexGrid")->Rows() - 1;
}
BENCHMARK(BM_SaleArticleNoKeystrokes)->Unit(benchmark::kMillisecond);

// The worst key: one that lists every goods row ("Z" matches all, Backspace
// to the empty box lists all).
void BM_SaleKeystrokeFullList(benchmark::State& state) {
    if (!openCounter(state, VolumeData::Cached(kCounter))) return;
    frmSell w;
    w.resize(1000, 700);
    w.show();
    QLineEdit* no = ctl<QLineEdit>(w, "txtNo");
    no->setFocus();
    bool typed = false;
    for (auto _ : state) {
        if (typed)
            press(no, Qt::Key_Backspace);
        else
            press(no, 'Z', QStringLiteral("Z"));
        typed = !typed;
        redraw(w);
    }
    state.counters["rows"] = ctl<VSGrid>(w, "VSFlexGrid")->Rows() - 1;
}
BENCHMARK(BM_SaleKeystrokeFullList)->Unit(benchmark::kMillisecond);

// The parts of that key: the statement with the rows read, then binding
// and sizing the list.
const QString kAllZ = QStringLiteral(
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
    "as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,IDCode as 条码 "
    "from Store Where Typeno Like'%Z%' And ShopNo='%1' And Quantity>0");

void BM_SaleFullListQueryOnly(benchmark::State& state) {
    if (!openCounter(state, VolumeData::Cached(kCounter))) return;
    const QString sql = kAllZ.arg(Session::ShopNo);
    for (auto _ : state) benchmark::DoNotOptimize(Session::Dbopt().Excute(sql).RecordCount());
}
BENCHMARK(BM_SaleFullListQueryOnly)->Unit(benchmark::kMillisecond);

void BM_SaleFullListBindOnly(benchmark::State& state) {
    if (!openCounter(state, VolumeData::Cached(kCounter))) return;
    Recordset rs = Session::Dbopt().Excute(kAllZ.arg(Session::ShopNo));
    VSGrid g;
    g.resize(900, 400);
    g.show();
    for (auto _ : state) {
        g.Bind(rs);
        g.setColHidden(1, true);
        SetGridCols(&g, 1140);
        g.viewport()->repaint();
    }
}
BENCHMARK(BM_SaleFullListBindOnly)->Unit(benchmark::kMillisecond);

// A scanner's bar code: the characters and Enter in the bar code box.
void BM_SaleScanBarCode(benchmark::State& state) {
    if (!openCounter(state, VolumeData::Cached(kCounter))) return;
    frmSell w;
    w.show();
    QLineEdit* code = ctl<QLineEdit>(w, "txtIDCode");
    int i = 0;
    for (auto _ : state) {
        code->clear();
        code->setFocus();
        for (const QChar c : QStringLiteral("69%1").arg(100000000 + (i++ * 7919) % 50000))
            press(code, c.unicode(), QString(c));
        press(code, Qt::Key_Return, QStringLiteral("\r"));
        redraw(w);
    }
    state.counters["rows"] = ctl<VSGrid>(w, "VSFlexGrid")->Rows() - 1;
}
BENCHMARK(BM_SaleScanBarCode)->Unit(benchmark::kMillisecond);

// Receipt text goes nowhere.
class NullPrinter : public TextPrinter {
public:
    void SetFontSize(float) override {}
    void SetBold(bool) override {}
    void Print(const QString& text) override { benchmark::DoNotOptimize(text.size()); }
    void EndDoc() override {}
};

// Checkout of 20 pieces from 20 goods rows, the dot-matrix receipt laid out;
// the basket is filled outside the timing.
void BM_SaleCheckout20Pieces(benchmark::State& state) {
    const QString cached = VolumeData::Cached(kCounter);
    QTemporaryDir dir;
    const QString path = dir.filePath("ClothesSell.mdb");
    if (cached.isEmpty() || !QFile::copy(cached, path)) {
        state.SkipWithError("no volume data file");
        return;
    }
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    if (!openCounter(state, path)) return;
    Session::SellRole().Initial(kDefaultShop);
    Session::SellRole().IsPrint = true;
    Session::SellRole().PrinterType = 0;
    auto old = TextPrinter::SetCurrent(std::make_unique<NullPrinter>());
    frmSell w;
    w.show();
    int next = 0;
    for (auto _ : state) {
        state.PauseTiming();
        for (int p = 0; p < 20; ++p) {
            ctl<QLineEdit>(w, "txtIDCode")
                ->setText(QStringLiteral("69%1").arg(100000000 + next++ % 50000));
            ctl<QLineEdit>(w, "txtIDCode")->setFocus();
            press(ctl<QLineEdit>(w, "txtIDCode"), Qt::Key_Return, QStringLiteral("\r"));
            ctl<QLineEdit>(w, "txtQuatity")->setText(QStringLiteral("1"));
            ctl<QLineEdit>(w, "txtAbate")->setText(QStringLiteral("9"));
            w.AddToBasket(ctl<VSGrid>(w, "VSFlexGrid")->TextMatrix(1, 1));
        }
        ctl<QLineEdit>(w, "txtReciveAmout")->setText(QStringLiteral("9999"));
        state.ResumeTiming();
        ctl<QPushButton>(w, "cmdCheckOut")->click();
    }
    TextPrinter::SetCurrent(std::move(old));
    state.counters["sales"] = double(state.iterations());
}
BENCHMARK(BM_SaleCheckout20Pieces)->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace
