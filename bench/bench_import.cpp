// The stock sheet import with a shop's worth of goods already in stock: a
// supplier's sheet with every size cell filled, 200 lines and 5,000 lines of
// ten sizes each, chosen in the import window and imported through it, the
// window on screen and its progress bar drawn as the import goes.
#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include "FileDialog.h"
#include "MsgBox.h"
#include "Session.h"
#include "VolumeData.h"
#include "frmPutIn.h"

namespace {

const VolumeData::Volume kShop{50000, 2500, 100000};

// A sheet in the window's default layout: sizes in row 3 from column 6,
// lines from row 4, cost in column 17 and retail price in column 18.
bool writeSheet(const QString& path, int lines) {
    lxw_workbook* book = workbook_new(QFile::encodeName(path).constData());
    lxw_worksheet* s = workbook_add_worksheet(book, nullptr);
    const char* sizes[] = {"S", "M", "L", "XL", "XXL", "160", "165", "170", "175", "180"};
    for (int c = 0; c < 10; ++c) worksheet_write_string(s, 2, lxw_col_t(5 + c), sizes[c], nullptr);
    for (int i = 0; i < lines; ++i) {
        const lxw_row_t r = lxw_row_t(3 + i);
        worksheet_write_string(s, r, 0, "青木", nullptr);
        worksheet_write_string(
            s, r, 1,
            QStringLiteral("GYS%1").arg(i / 4, 5, 10, QLatin1Char('0')).toUtf8().constData(),
            nullptr);
        worksheet_write_string(s, r, 2, "T恤", nullptr);
        worksheet_write_string(s, r, 4, i % 2 ? "黑色" : "白色", nullptr);
        for (int c = 0; c < 10; ++c)
            worksheet_write_number(s, r, lxw_col_t(5 + c), 1 + (i + c) % 5, nullptr);
        worksheet_write_number(s, r, 16, 45.5, nullptr);
        worksheet_write_number(s, r, 17, 89, nullptr);
    }
    return workbook_close(book) == LXW_NO_ERROR;
}

void BM_ImportSheet(benchmark::State& state) {
    const int lines = int(state.range(0));
    const QString cached = VolumeData::Cached(kShop);
    QTemporaryDir dir;
    const QString data = dir.filePath("ClothesSell.mdb");
    const QString sheet = dir.filePath("supplier.xlsx");
    if (cached.isEmpty() || !QFile::copy(cached, data) || !writeSheet(sheet, lines)) {
        state.SkipWithError("no data file or sheet");
        return;
    }
    QFile::setPermissions(data, QFile::ReadOwner | QFile::WriteOwner);
    if (!VolumeData::OpenSession(data)) {
        state.SkipWithError("cannot open the data file");
        return;
    }
    int failures = 0;
    MsgBox::SetPresenter([&](const MsgBox::Box& box) {
        if (box.text != QStringLiteral("导入成功!")) ++failures;
        return MsgBox::Answer::Ok;
    });
    auto oldDialog = FileDialog::SetPresenter([&](auto, auto&, auto&, auto&) { return sheet; });
    frmPutIn w;
    w.show();
    auto* endRow = w.findChild<QLineEdit*>(QStringLiteral("txtEndrow"));
    auto* select = w.findChild<QPushButton*>(QStringLiteral("cmdSelect"));
    auto* putIn = w.findChild<QPushButton*>(QStringLiteral("cmdPutIn"));
    endRow->setText(QString::number(3 + lines));
    const int before =
        Session::Dbopt().Excute(QStringLiteral("Select GUID from Store")).RecordCount();
    for (auto _ : state) {
        select->click();  // reads the whole sheet
        putIn->click();
    }
    const int after =
        Session::Dbopt().Excute(QStringLiteral("Select GUID from Store")).RecordCount();
    FileDialog::SetPresenter(oldDialog);
    MsgBox::SetPresenter({});
    if (failures > 0) state.SkipWithError("the import failed");
    state.counters["goods_rows_per_import"] =
        double(after - before) / double(std::max<int64_t>(1, state.iterations()));
}
BENCHMARK(BM_ImportSheet)->Arg(200)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportSheet)->Arg(5000)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
