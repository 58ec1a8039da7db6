#include "frmPutIn.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <limits>

#include "Convert.h"
#include "DateText.h"
#include "FileDialog.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "Sheet.h"
#include "StockSql.h"
#include "ui_frmPutIn.h"

namespace {

// A setting: the leading number of its box as a 16-bit whole number, so that
// a box without a number is 0. A number too large for 16 bits leaves the
// setting at 0: the import passes over a conversion that fails.
int16_t setting(const QLineEdit* box) {
    try {
        return Convert::CInt(Convert::Val(box->text()));
    } catch (const RuntimeError&) {
        return 0;
    }
}

// How often the window is drawn again while an import runs.
constexpr int kRepaintMs = 50;

}  // namespace

frmPutIn::frmPutIn(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmPutIn>()) {
    ui_->setupUi(this);
    ui_->DT->setDate(QDate::currentDate());
    On(ui_->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    On(ui_->cmdPutIn, &QPushButton::clicked, this, [this] { cmdPutIn_Click(); });
}

frmPutIn::~frmPutIn() = default;

QString frmPutIn::FileFilter() {
    return QStringLiteral(
        "Excel文件 (*.xls *.xlsx *.csv);;Excel 97-2003 工作簿 (*.xls);;Excel 工作簿 (*.xlsx);;"
        "CSV 文件 (*.csv);;所有文件 (*)");
}

QString frmPutIn::Cell(int row, int col) const {
    return sheet_ ? sheet_->Cell(row, col) : QString();
}

// A new file replaces the open sheet. The reader goes by what the file holds,
// whatever its name says; a file that cannot be read is refused with the
// reason, and nothing can be imported until a readable one is chosen.
void frmPutIn::cmdSelect_Click() {
    const QString file =
        FileDialog::OpenFile(this, QStringLiteral("打开"), ui_->txtFileName->text(), FileFilter());
    if (file.isEmpty()) return;
    ui_->txtFileName->setText(file);
    sheet_.reset();
    ui_->cmdPutIn->setEnabled(false);
    QString error;
    sheet_ = Sheets::Open(file, &error);
    if (!sheet_) {
        MsgBox::Warn(error, QStringLiteral("提示"));
        return;
    }
    ui_->cmdPutIn->setEnabled(true);
}

void frmPutIn::cmdPutIn_Click() {
    const int beginRow = setting(ui_->txtBeginRow);
    const int endRow = setting(ui_->txtEndrow);
    const int brandCol = setting(ui_->txtBrandCol);
    const int typeNoCol = setting(ui_->txtTypeNoCol);
    const int nameCol = setting(ui_->txtNameCol);
    const int colourCol = setting(ui_->txtColourCol);
    const int sizeBCol = setting(ui_->txtSizeBCol);
    const int sizeECol = setting(ui_->txtSizeECol);
    const int priceCol = setting(ui_->txtPriceCol);
    const int sellPriceCol = setting(ui_->txtSellPriceCol);
    const int sizeRow = setting(ui_->txtColourRow);  // the row of the sizes
    // The fabric, grade and origin columns are settings of the form only: the
    // goods rows get empty texts for them.
    if (endRow == 0) {
        MsgBox::Info(QStringLiteral("请输入结束行！"));
        return;
    }

    QProgressBar* bar = ui_->ProgressBar;
    bar->setMinimum(1);
    // Rows times size columns; with settings of 16 bits the product may pass the
    // range of int.
    const qint64 cells = qint64(endRow - beginRow + 1) * (sizeECol - sizeBCol + 1);
    bar->setMaximum(int(std::clamp<qint64>(cells, 1, std::numeric_limits<int>::max())));
    bar->reset();
    bar->show();
    QElapsedTimer sinceRepaint;
    sinceRepaint.start();

    clsDbopt& db = Session::Dbopt();
    const clsNewGUID& guids = Session::NewGUID();
    const QString date = DateText::Of(ui_->DT->date());
    const QString none;
    db.BeginTrans();
    for (int row = beginRow; row <= endRow; ++row) {
        GoodsText goods;
        goods.Brand = Cell(row, brandCol);
        goods.TypeNo = Cell(row, typeNoCol);
        goods.Name = Cell(row, nameCol);
        goods.Colour = Cell(row, colourCol);
        const QString cost = Cell(row, priceCol);
        const QString price = Cell(row, sellPriceCol);
        for (int col = sizeBCol; col <= sizeECol; ++col) {
            // Both keys are taken for every cell, also for one that stores nothing.
            const QString storeGuid = guids.GUID();
            const QString detailGuid = guids.GUID();
            goods.Size = Cell(sizeRow, col);
            const QString quantity = Cell(row, col);
            // The leading number decides; the cells then stand in the
            // statements as they are, so a quantity such as "3x", a price
            // that is no number or a quote in a text fails the statement,
            // and the whole sheet is taken back. The engine has said why.
            if (Convert::Val(quantity) > 0) {
                const QString statements[] = {
                    StockSql::StoreInsert(storeGuid, goods, quantity, price, none, none),
                    StockSql::StoreDetailInsert(detailGuid, storeGuid, goods, cost, quantity, none,
                                                date),
                    StockSql::BuyPriceInsert(storeGuid, cost, quantity, date)};
                for (const QString& sql : statements) {
                    bool isErr = false;
                    db.Excute(sql, isErr);
                    if (isErr) {
                        // A failure that has already undone the transaction
                        // leaves nothing to roll back.
                        if (db.InTransaction()) db.RollbackTrans();
                        return;
                    }
                }
            }
            bar->setValue(bar->value() + 1);
            if (sinceRepaint.elapsed() >= kRepaintMs) {
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
                sinceRepaint.restart();
            }
        }
    }
    db.CommitTrans();
    MsgBox::Warn(QStringLiteral("导入成功!"));
    bar->hide();
    sheet_.reset();
}
