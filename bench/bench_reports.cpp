// The report windows on a shop after two busy years (100,000 goods rows,
// 1,000,000 sale lines): each through the window's own path (statement,
// binding, sum rows, the window laid out and painted), then the same
// statements through the data layer alone, then stepped straight on SQLite,
// so that the cost of each layer shows.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QApplication>
#include <QDateEdit>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include "DateText.h"
#include "JetSql.h"
#include "MsgBox.h"
#include "Session.h"
#include "VSGrid.h"
#include "VolumeData.h"
#include "frmDayAmount.h"
#include "frmProfit.h"
#include "frmSellGroup.h"
#include "frmSellQuery.h"
#include "frmStore.h"

namespace {

const VolumeData::Volume kVolume{100000, 5000, 1000000};

QString volumeFile() {
    static const QString path = VolumeData::Cached(kVolume);
    return path;
}

QString day(int fromToday) {
    return DateText::Of(QDate::currentDate().addDays(fromToday));
}

// The periods asked for: a day, a month and a year of the two years of sales.
const int kDay = -100;
const int kMonthBegin = -60, kMonthEnd = -31;
const int kYearBegin = -365;

bool openSession(benchmark::State& state, const QString& path) {
    if (path.isEmpty() || !VolumeData::OpenSession(path)) {
        state.SkipWithError("no volume data file");
        return false;
    }
    MsgBox::SetPresenter([](const MsgBox::Box&) { return MsgBox::Answer::Yes; });
    return true;
}

// The day close writes its settlement row: it works on a copy of the file,
// made once for the run (a benchmark is called several times).
QString writableCopy() {
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString cached = volumeFile();
        const QString p = dir.filePath("ClothesSell.mdb");
        if (cached.isEmpty() || !QFile::copy(cached, p)) return QString();
        QFile::setPermissions(p, QFile::ReadOwner | QFile::WriteOwner);
        return p;
    }();
    return path;
}

template <typename T>
T* ctl(QWidget& w, const char* name) {
    return w.findChild<T*>(QLatin1String(name));
}

void setDates(QWidget& w, int begin, int end) {
    ctl<QDateEdit>(w, "DTBeginTime")->setDate(QDate::currentDate().addDays(begin));
    ctl<QDateEdit>(w, "DTEndTime")->setDate(QDate::currentDate().addDays(end));
}

// A click as the clerk makes it, and the window brought up to date on screen
// (merged cells, layout, the visible rows painted).
void clickAndShow(QWidget& w, const char* button) {
    ctl<QPushButton>(w, button)->click();
    QApplication::processEvents();
    w.repaint();
}

// ---- the statements, as the windows write them

QString dayCloseSell(const QString& d) {
    return "Select Sum(Quantity) as 数量,sum(Amount) as 金额 from Sell Where ShopNo='" +
           kDefaultShop + "' And   DateTime=#" + d + "# And Seller='admin'";
}
QStringList dayClose(const QString& d) {
    return {dayCloseSell(d),
            "Select Sum(Quantity) as 数量,sum(Amount) as 金额 from SellChange Where ShopNo='" +
                kDefaultShop + "' And State=2   And ChangeDate=#" + d + "# And Seller='admin'",
            "Select Sum(Quantity) as 数量,sum(AddAmount) as 金额 from SellChange Where ShopNo='" +
                kDefaultShop + "' And State=1   And ChangeDate=#" + d + "# And Seller='admin'",
            "Select  * from  DayAmount Where DateTime=#" + d + "# And ShopNo='" + kDefaultShop +
                "'  And Seller='管理员'",
            "Update DayAmount Set SellQuantity=1, SellAmount=1, BackQuantity=1, BackAmount=1, "
            "ChangeQuantity=1, ChangeAmount=1, ReciveAmount=1 Where GUID='{BENCH}'"};
}

QStringList profit(const QString& b, const QString& e) {
    const QString period =
        "DateTime>=#" + b + "# And DateTime<=#" + e + "# And ShopNo='" + kDefaultShop + "'";
    return {
        "Select Sum(Quantity) as 数量,Sum(Price*Quantity) as 价格 From StoreDetail Where " + period,
        "Select Sum(Quantity) as 数量,Sum(Amount) as 金额,Sum(Amount-BuyPrice) as 利润 From Sell "
        "Where " +
            period + " And State<2",
        "Select Sum(Quantity) as 数量,Sum(Amount) as 金额 From FactoryBackTotal Where " + period,
        "Select Sum(Quantity) as 数量,Sum(Price*Quantity) as 金额 From BuyPrice Where ShopNo='" +
            kDefaultShop + "'",
        "Select Sum(Quantity) as 数量,Sum(BuyPrice) as 金额 From BackStore Where ShopNo='" +
            kDefaultShop + "' And IsBackFactory=0",
        "Select Sum(Amount) as 金额 From OtherOut Where " + period};
}

QString salesQuery(const QString& b, const QString& e) {
    return "Select TypeNo as 货号, Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
           "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
           "Abate as 折扣,Amount as 实收金额,SellerName as 销售员,SellNo as 销售编号,DateTime as "
           "销售日期 from Sell Where ShopNo='" +
           kDefaultShop + "' And DateTime>=#" + b + "# And DateTime <=#" + e +
           "# And State<2  Order By TypeNo,[Size],Colour";
}

QString ranking(const QString& b, const QString& e) {
    return "Select TypeNo as 货号,Name as 种类 ,Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
           "Leather as 面料,Grade as 等级,ProductPlace as 产地,sum(Quantity) as 数量 from Sell "
           "Where ShopNo='" +
           kDefaultShop + "' And DateTime>=#" + b + "# And DateTime <=#" + e +
           "# And State<2  Group By TypeNo,Name,Brand,[Size],Colour,Leather,Grade,ProductPlace "
           "Order by sum(Quantity) DESC";
}

QString stockList() {
    return "Select TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,"
           "Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,"
           "IDCode as 条码,GoodsFloor as 柜层 from Store Where ShopNo='" +
           kDefaultShop + "' And Quantity>0";
}

// ---- the same statements through the data layer only, and straight on SQLite

void throughDbopt(benchmark::State& state, const QString& path, const QStringList& sqls) {
    if (!openSession(state, path)) return;
    int rows = 0;
    for (auto _ : state) {
        rows = 0;
        for (const QString& sql : sqls) {
            Recordset rs = Session::Dbopt().Excute(sql);
            if (rs.IsOpen()) rows += rs.RecordCount();
        }
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = rows;
}

// Each statement translated as the data layer does, then prepared, stepped to
// its end with every cell read, and finalized, on a connection of its own
// with the data layer's settings.
void straightOnSqlite(benchmark::State& state, const QString& path, const QStringList& sqls) {
    sqlite3* db = nullptr;
    if (path.isEmpty() || sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE,
                                          nullptr) != SQLITE_OK) {
        state.SkipWithError("no volume data file");
        return;
    }
    sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL", nullptr, nullptr,
                 nullptr);
    std::vector<QByteArray> texts;
    for (const QString& sql : sqls) texts.push_back(JetSql::Translate(sql).sql.toUtf8());
    int rows = 0;
    for (auto _ : state) {
        rows = 0;
        for (const QByteArray& sql : texts) {
            sqlite3_stmt* st = nullptr;
            if (sqlite3_prepare_v2(db, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
                state.SkipWithError(sqlite3_errmsg(db));
                break;
            }
            while (sqlite3_step(st) == SQLITE_ROW) {
                for (int c = 0; c < sqlite3_column_count(st); ++c) {
                    if (sqlite3_column_type(st, c) == SQLITE_TEXT)
                        benchmark::DoNotOptimize(sqlite3_column_text(st, c));
                    else
                        benchmark::DoNotOptimize(sqlite3_column_double(st, c));
                }
                ++rows;
            }
            sqlite3_finalize(st);
        }
    }
    sqlite3_close(db);
    state.counters["rows"] = rows;
}

// ---- day close: three sums of one clerk's day, the settlement row written

void BM_DayClose_Window(benchmark::State& state) {
    if (!openSession(state, writableCopy())) return;
    frmDayAmount w;
    w.show();
    ctl<QDateEdit>(w, "DTDate")->setDate(QDate::currentDate().addDays(kDay));
    for (auto _ : state) clickAndShow(w, "cmdCheckOut");
    state.counters["pieces"] = ctl<QLabel>(w, "lbSellCount")->text().toDouble();
}
BENCHMARK(BM_DayClose_Window)->Unit(benchmark::kMillisecond);

void BM_DayClose_Dbopt(benchmark::State& state) {
    throughDbopt(state, writableCopy(), dayClose(day(kDay)));
}
BENCHMARK(BM_DayClose_Dbopt)->Unit(benchmark::kMillisecond);

void BM_DayClose_Sqlite(benchmark::State& state) {
    straightOnSqlite(state, writableCopy(), dayClose(day(kDay)));
}
BENCHMARK(BM_DayClose_Sqlite)->Unit(benchmark::kMillisecond);

// ---- profit for a year: six sums

void BM_ProfitYear_Window(benchmark::State& state) {
    if (!openSession(state, volumeFile())) return;
    frmProfit w;
    w.show();
    setDates(w, kYearBegin, 0);
    for (auto _ : state) clickAndShow(w, "cmdQuery");
    state.counters["pieces"] = ctl<QLabel>(w, "lbSellQuantity")->text().toDouble();
}
BENCHMARK(BM_ProfitYear_Window)->Unit(benchmark::kMillisecond);

void BM_ProfitYear_Dbopt(benchmark::State& state) {
    throughDbopt(state, volumeFile(), profit(day(kYearBegin), day(0)));
}
BENCHMARK(BM_ProfitYear_Dbopt)->Unit(benchmark::kMillisecond);

void BM_ProfitYear_Sqlite(benchmark::State& state) {
    straightOnSqlite(state, volumeFile(), profit(day(kYearBegin), day(0)));
}
BENCHMARK(BM_ProfitYear_Sqlite)->Unit(benchmark::kMillisecond);

// ---- sales query for one month, with the four sets of sum rows

void BM_SalesMonth_Window(benchmark::State& state) {
    if (!openSession(state, volumeFile())) return;
    frmSellQuery w;
    w.resize(1000, 700);
    w.show();
    setDates(w, kMonthBegin, kMonthEnd);
    for (auto _ : state) clickAndShow(w, "cmdQuery");
    state.counters["grid_rows"] = ctl<VSGrid>(w, "VSSell")->Rows() - 1;
}
BENCHMARK(BM_SalesMonth_Window)->Unit(benchmark::kMillisecond);

void BM_SalesMonth_Dbopt(benchmark::State& state) {
    throughDbopt(state, volumeFile(), {salesQuery(day(kMonthBegin), day(kMonthEnd))});
}
BENCHMARK(BM_SalesMonth_Dbopt)->Unit(benchmark::kMillisecond);

void BM_SalesMonth_Sqlite(benchmark::State& state) {
    straightOnSqlite(state, volumeFile(), {salesQuery(day(kMonthBegin), day(kMonthEnd))});
}
BENCHMARK(BM_SalesMonth_Sqlite)->Unit(benchmark::kMillisecond);

// ---- ranking for a year

void BM_RankingYear_Window(benchmark::State& state) {
    if (!openSession(state, volumeFile())) return;
    frmSellGroup w;
    w.resize(1000, 700);
    w.show();
    setDates(w, kYearBegin, 0);
    for (auto _ : state) clickAndShow(w, "cmdQuery");
    state.counters["grid_rows"] = ctl<VSGrid>(w, "VSSell")->Rows() - 1;
}
BENCHMARK(BM_RankingYear_Window)->Unit(benchmark::kMillisecond);

void BM_RankingYear_Dbopt(benchmark::State& state) {
    throughDbopt(state, volumeFile(), {ranking(day(kYearBegin), day(0))});
}
BENCHMARK(BM_RankingYear_Dbopt)->Unit(benchmark::kMillisecond);

void BM_RankingYear_Sqlite(benchmark::State& state) {
    straightOnSqlite(state, volumeFile(), {ranking(day(kYearBegin), day(0))});
}
BENCHMARK(BM_RankingYear_Sqlite)->Unit(benchmark::kMillisecond);

// ---- the stock list of every goods row with its article and grand totals

void BM_StockList_Window(benchmark::State& state) {
    if (!openSession(state, volumeFile())) return;
    frmStore w;  // loading lists the stock once already
    w.resize(1000, 700);
    w.show();
    QApplication::processEvents();
    for (auto _ : state) clickAndShow(w, "cmdQuery");
    state.counters["grid_rows"] = ctl<VSGrid>(w, "VSFlexGrid")->Rows() - 1;
}
BENCHMARK(BM_StockList_Window)->Unit(benchmark::kMillisecond);

void BM_StockList_Dbopt(benchmark::State& state) {
    throughDbopt(state, volumeFile(), {stockList()});
}
BENCHMARK(BM_StockList_Dbopt)->Unit(benchmark::kMillisecond);

void BM_StockList_Sqlite(benchmark::State& state) {
    straightOnSqlite(state, volumeFile(), {stockList()});
}
BENCHMARK(BM_StockList_Sqlite)->Unit(benchmark::kMillisecond);

}  // namespace
