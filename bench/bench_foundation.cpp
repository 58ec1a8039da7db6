// The ground every window stands on: binding the whole goods list into the
// grid, and a Like search through the data layer against the same statement
// straight on SQLite, so that the cost of our layers shows as a ratio.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "Session.h"
#include "VSGrid.h"
#include "VolumeData.h"

namespace {

const VolumeData::Volume kVolume{100000, 5000, 1000000};

QString volumeFile() {
    static const QString path = VolumeData::Cached(kVolume);
    return path;
}

bool openSession(benchmark::State& state) {
    const QString path = volumeFile();
    if (path.isEmpty() || !VolumeData::OpenSession(path)) {
        state.SkipWithError("no volume data file");
        return false;
    }
    return true;
}

const QString kGoodsList =
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
    "as "
    "面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,IDCode as 条码 from "
    "Store Where ShopNo='%1' And Quantity>0";

void BM_BindFullGoodsList(benchmark::State& state) {
    if (!openSession(state)) return;
    Recordset rs = Session::Dbopt().Excute(kGoodsList.arg(Session::ShopNo));
    VSGrid grid;
    for (auto _ : state) {
        grid.Bind(rs);
        benchmark::DoNotOptimize(grid.Rows());
    }
    state.counters["rows"] = grid.Rows() - 1;
}
BENCHMARK(BM_BindFullGoodsList)->Unit(benchmark::kMillisecond);

void BM_QueryAndBindFullGoodsList(benchmark::State& state) {
    if (!openSession(state)) return;
    VSGrid grid;
    for (auto _ : state) {
        grid.Bind(Session::Dbopt().Excute(kGoodsList.arg(Session::ShopNo)));
        benchmark::DoNotOptimize(grid.Rows());
    }
    state.counters["rows"] = grid.Rows() - 1;
}
BENCHMARK(BM_QueryAndBindFullGoodsList)->Unit(benchmark::kMillisecond);

const QString kLike =
    "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,[Size] as 尺码,Colour as 颜色,Leather "
    "as "
    "面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as 零售价,IDCode as 条码 from "
    "Store Where Typeno Like'%%1%' And ShopNo='%2' And Quantity>0";

void BM_LikeSearchThroughDbopt(benchmark::State& state) {
    if (!openSession(state)) return;
    int rows = 0;
    for (auto _ : state) {
        Recordset rs = Session::Dbopt().Excute(kLike.arg("M0012", Session::ShopNo));
        rows = rs.RecordCount();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_LikeSearchThroughDbopt)->Unit(benchmark::kMillisecond);

void BM_LikeSearchStraightOnSqlite(benchmark::State& state) {
    const QString path = volumeFile();
    sqlite3* db = nullptr;
    if (path.isEmpty() || sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY,
                                          nullptr) != SQLITE_OK) {
        state.SkipWithError("no volume data file");
        return;
    }
    const QByteArray sql =
        QString(
            "Select GUID,TypeNo as 货号,Name as 种类, Brand as 品牌,\"Size\" as 尺码,Colour as "
            "颜色,Leather as 面料,Grade as 等级,ProductPlace as 产地,Quantity as 数量,Price as "
            "零售价,IDCode as 条码 from Store Where Typeno Like'%M0012%' And ShopNo='%1' And "
            "Quantity>0")
            .arg(kDefaultShop)
            .toUtf8();
    int rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, sql.constData(), -1, &st, nullptr);
        rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(st); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(st, c));
            ++rows;
        }
        sqlite3_finalize(st);
    }
    sqlite3_close(db);
    state.counters["rows"] = rows;
}
BENCHMARK(BM_LikeSearchStraightOnSqlite)->Unit(benchmark::kMillisecond);

}  // namespace
