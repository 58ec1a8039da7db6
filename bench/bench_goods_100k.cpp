// A shop of 100,000 goods rows: the counter's article number box key by key,
// the key that lists every row, and the stock-in goods list. Each window path
// stands beside SQLite stepping the same statements on the same connection
// (every value of every row read in its own type), so that the cost of our
// layers shows as a ratio; and the memory the process holds with the
// stock-in list open.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSqlDriver>

#include "JetSql.h"
#include "MsgBox.h"
#include "Session.h"
#include "VSGrid.h"
#include "VolumeData.h"
#include "frmBuyIn.h"
#include "frmSell.h"

namespace {

const VolumeData::Volume kShop{100000, 5000, 1000000};

bool openShop(benchmark::State& state) {
    const QString path = VolumeData::Cached(kShop);
    if (path.isEmpty() || !VolumeData::OpenSession(path)) {
        state.SkipWithError("no volume data file");
        return false;
    }
    MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Yes; });
    return true;
}

sqlite3* sessionHandle() {
    const QVariant v = Session::Dbopt().Connection().driver()->handle();
    if (v.isValid() && qstrcmp(v.typeName(), "sqlite3*") == 0)
        return *static_cast<sqlite3* const*>(v.constData());
    return nullptr;
}

// SQLite alone: the statement as the data layer translates it, prepared and
// stepped to the end on the session's connection, every value read in its
// own type. Returns the rows.
int stepStatement(const QString& jet) {
    sqlite3* h = sessionHandle();
    const QByteArray sql = JetSql::Translate(jet).sql.toUtf8();
    sqlite3_stmt* st = nullptr;
    if (!h || sqlite3_prepare_v2(h, sql.constData(), int(sql.size()), &st, nullptr) != SQLITE_OK)
        return -1;
    const int n = sqlite3_column_count(st);
    int rows = 0;
    while (sqlite3_step(st) == SQLITE_ROW) {
        for (int c = 0; c < n; ++c) {
            switch (sqlite3_column_type(st, c)) {
                case SQLITE_INTEGER:
                    benchmark::DoNotOptimize(sqlite3_column_int64(st, c));
                    break;
                case SQLITE_FLOAT:
                    benchmark::DoNotOptimize(sqlite3_column_double(st, c));
                    break;
                case SQLITE_NULL:
                    break;
                default:
                    benchmark::DoNotOptimize(sqlite3_column_text(st, c));
                    benchmark::DoNotOptimize(sqlite3_column_bytes(st, c));
            }
        }
        ++rows;
    }
    sqlite3_finalize(st);
    return rows;
}

// The counter's statements: what the article number box lists for a text.
QString counterStatement(const QString& typed) {
    const QString select = QStringLiteral(
        "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
        "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
        "IDCode as 条码 from Store ");
    if (typed.isEmpty()) return select + "Where ShopNo='" + Session::ShopNo + "' And Quantity>0";
    return select + "Where Typeno Like'%" + typed + "%' And ShopNo='" + Session::ShopNo +
           "' And Quantity>0";
}

// The stock-in window's whole list.
QString stockInListStatement() {
    return QStringLiteral(
               "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as "
               "颜色,Leather as 面料,Grade as 等级,ProductPlace as 产地 ,Quantity as 数量,IDCode "
               "as 条码,GoodsFloor as 柜层 from Store Where ShopNo='") +
           Session::ShopNo + QLatin1Char('\'');
}

void press(QWidget* w, int key, const QString& text = QString()) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &up);
}

template <typename T>
T* ctl(QWidget& w, const char* name) {
    return w.findChild<T*>(QLatin1String(name));
}

// The visible part of a window's list painted now, as the clerk sees it.
void redraw(QWidget& w) {
    ctl<VSGrid>(w, "VSFlexGrid")->viewport()->repaint();
}

// The texts the box holds while an article number is typed and taken back
// with Backspace down to the empty box: 14 keystrokes, seven of which list
// every row ("Z", "ZM", "ZM0" match every article).
QStringList typingTexts() {
    const QString article = VolumeData::ArticleNo(1234);
    QStringList texts;
    for (int i = 1; i <= article.size(); ++i) texts << article.left(i);
    for (int i = article.size() - 1; i >= 0; --i) texts << article.left(i);
    return texts;
}

void BM_Counter100k_ArticleNoKeys(benchmark::State& state) {
    if (!openShop(state)) return;
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
    state.counters["rows"] = ctl<VSGrid>(w, "VSFlexGrid")->Rows() - 1;
}
BENCHMARK(BM_Counter100k_ArticleNoKeys)->Unit(benchmark::kMillisecond);

void BM_Counter100k_ArticleNoKeys_RawStep(benchmark::State& state) {
    if (!openShop(state)) return;
    QStringList statements;
    for (const QString& t : typingTexts()) statements << counterStatement(t);
    int keys = 0;
    int rows = 0;
    for (auto _ : state) {
        for (const QString& sql : statements) {
            rows = stepStatement(sql);
            ++keys;
        }
    }
    state.counters["ms_per_key"] = benchmark::Counter(
        keys / 1000.0, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["rows"] = rows;
}
BENCHMARK(BM_Counter100k_ArticleNoKeys_RawStep)->Unit(benchmark::kMillisecond);

// The worst key at the counter: "Z" lists every row, and Backspace to the
// empty box lists every row again.
void BM_Counter100k_FullListKey(benchmark::State& state) {
    if (!openShop(state)) return;
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
BENCHMARK(BM_Counter100k_FullListKey)->Unit(benchmark::kMillisecond);

void BM_Counter100k_FullListKey_RawStep(benchmark::State& state) {
    if (!openShop(state)) return;
    const QString all[2] = {counterStatement(QStringLiteral("Z")), counterStatement(QString())};
    bool typed = false;
    int rows = 0;
    for (auto _ : state) {
        rows = stepStatement(all[typed ? 1 : 0]);
        typed = !typed;
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_Counter100k_FullListKey_RawStep)->Unit(benchmark::kMillisecond);

// The stock-in window's whole goods list: the key that empties its article
// number box queries, binds and sizes the list, and paints what shows.
void BM_BuyIn100k_FullList(benchmark::State& state) {
    if (!openShop(state)) return;
    frmBuyIn w;
    w.resize(1000, 700);
    w.show();
    QLineEdit* no = ctl<QLineEdit>(w, "txtNo");
    no->setFocus();
    for (auto _ : state) {
        state.PauseTiming();
        press(no, 'X', QStringLiteral("X"));  // matches nothing
        state.ResumeTiming();
        press(no, Qt::Key_Backspace);
        redraw(w);
    }
    state.counters["rows"] = w.Grid()->Rows() - 1;
}
BENCHMARK(BM_BuyIn100k_FullList)->Unit(benchmark::kMillisecond);

void BM_BuyIn100k_FullList_RawStep(benchmark::State& state) {
    if (!openShop(state)) return;
    const QString sql = stockInListStatement();
    int rows = 0;
    for (auto _ : state) rows = stepStatement(sql);
    state.counters["rows"] = rows;
}
BENCHMARK(BM_BuyIn100k_FullList_RawStep)->Unit(benchmark::kMillisecond);

double residentMB() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : f.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ')[0].toDouble() / 1024;
    }
    return -1;
}

// Memory held with the stock-in window open on the whole list, and again
// after a clerk has searched and gone back to the whole list a few times
// (each search replaces the list while the old one is still bound).
// Meaningful when run on its own (--benchmark_filter=Resident), in a fresh
// process.
void BM_BuyIn100k_Resident(benchmark::State& state) {
    if (!openShop(state)) return;
    const double before = residentMB();
    double open = 0, searched = 0;
    for (auto _ : state) {
        frmBuyIn w;
        w.resize(1000, 700);
        w.show();
        redraw(w);
        open = residentMB();
        QLineEdit* no = ctl<QLineEdit>(w, "txtNo");
        no->setFocus();
        for (int i = 0; i < 4; ++i) {
            press(no, 'Z', QStringLiteral("Z"));  // every article number
            redraw(w);
            press(no, 'M', QStringLiteral("M"));
            press(no, '9', QStringLiteral("9"));  // a few
            redraw(w);
            press(no, Qt::Key_Backspace);
            press(no, Qt::Key_Backspace);
            press(no, Qt::Key_Backspace);  // the whole list again
            redraw(w);
        }
        searched = residentMB();
        benchmark::DoNotOptimize(w.Grid()->Rows());
    }
    state.counters["rss_session_mb"] = before;
    state.counters["rss_open_mb"] = open;
    state.counters["rss_searched_mb"] = searched;
}
BENCHMARK(BM_BuyIn100k_Resident)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
