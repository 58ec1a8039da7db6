#include "frmPrint.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHash>
#include <QListWidget>
#include <QStandardPaths>

#include "ARPrinter.h"
#include "FileDialog.h"
#include "GridWorkbook.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "VSGrid.h"
#include "ui_frmPrint.h"

namespace {
// Room beside the text of a cell when the widths are fitted, in pixels.
constexpr int kCellPadding = 12;

// The wait pointer for the life of the object.
struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};
}  // namespace

frmPrint::frmPrint(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmPrint>()) {
    ui_->setupUi(this);
    ui_->txtTable->setPlainText(QStringLiteral("服装店数据报表\n"));
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 3);

    On(ui_->listField, &QListWidget::itemChanged, this,
       [this](QListWidgetItem* item) { listField_ItemCheck(item); });
    On(ui_->comAutoSize, &QPushButton::clicked, this, [this] { comAutoSize_Click(); });
    On(ui_->chkIsTableHead, &QCheckBox::toggled, this, [this] { chkIsTableHead_Click(); });
    On(ui_->chkisTotal, &QCheckBox::toggled, this, [this] { chkisTotal_Click(); });
    On(ui_->cmdPreview, &QPushButton::clicked, this, [this] { cmdPreview_Click(); });
    On(ui_->cmdExcel, &QPushButton::clicked, this, [this] { cmdExcel_Click(); });
    On(ui_->cmdPdf, &QPushButton::clicked, this, [this] { cmdPdf_Click(); });
}

frmPrint::~frmPrint() = default;

void frmPrint::Open(VSGrid* Grid, bool HasTotal, QWidget* parent) {
    frmPrint f(parent);
    f.LoadIt(Grid, HasTotal);
    Modal::Show(&f);
}

void frmPrint::LoadIt(VSGrid* Grid, bool hasTotal) {
    HasTotal = hasTotal;
    CanTotal = hasTotal;
    if (!hasTotal)
        ui_->chkisTotal->setEnabled(false);
    else
        ui_->chkisTotal->setChecked(true);

    VSGrid* g = ui_->VSFlexGrid;
    g->setCols(Grid->Cols());
    g->setRows(Grid->Rows());
    for (int c = 0; c < Grid->Cols(); ++c) {
        g->setColHidden(c, Grid->ColHidden(c));
        g->setColWidth(c, Grid->ColWidth(c));
        g->setColAlignment(c, VSGrid::AlignCenterCenter);
        for (int r = 0; r < Grid->Rows(); ++r) {
            const QString text = Grid->TextMatrix(r, c);
            if (!text.isEmpty() || !g->TextMatrix(r, c).isEmpty()) g->setTextMatrix(r, c, text);
        }
    }
    g->setColWidth(0, 420);

    const QSignalBlocker block(ui_->listField);
    ui_->listField->clear();
    for (int c = 1; c < g->Cols(); ++c) {
        if (g->ColHidden(c)) continue;
        auto* item = new QListWidgetItem(g->TextMatrix(0, c), ui_->listField);
        item->setData(Qt::UserRole, c);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
}

void frmPrint::listField_ItemCheck(QListWidgetItem* item) {
    ui_->VSFlexGrid->setColHidden(item->data(Qt::UserRole).toInt(),
                                  item->checkState() != Qt::Checked);
}

void frmPrint::comAutoSize_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    const QFontMetrics fm(g->font());
    QHash<QString, int> widths;  // lists repeat their texts (sizes, colours, brands)
    for (int c = 1; c < g->Cols(); ++c) {
        int widest = 0;
        for (int r = 0; r < g->Rows(); ++r) {
            const QString text = g->TextMatrix(r, c);
            auto it = widths.find(text);
            if (it == widths.end()) it = widths.insert(text, fm.horizontalAdvance(text));
            widest = std::max(widest, *it);
        }
        g->setColWidth(c, (widest + kCellPadding) * VSGrid::kTwipsPerPixel);
    }
}

void frmPrint::chkIsTableHead_Click() {
    const bool on = ui_->chkIsTableHead->isChecked();
    ui_->txtTable->setEnabled(on);
    if (!on) ui_->txtTable->clear();
}

void frmPrint::chkisTotal_Click() {
    VSGrid* g = ui_->VSFlexGrid;
    if (g->Rows() > 1 && CanTotal) {
        if (ui_->chkisTotal->isChecked()) {
            if (!HasTotal) {
                g->AddItem(TotalRowText, 1);
                HasTotal = true;
            }
            FirstRecordRow = 2;
            return;
        }
        if (HasTotal) {
            QStringList cells;
            for (int c = 0; c < g->Cols(); ++c) cells << g->TextMatrix(1, c);
            TotalRowText = cells.join(QLatin1Char('\t'));
            g->RemoveItem(1);
            HasTotal = false;
        }
    }
    FirstRecordRow = 1;
}

void frmPrint::NumberRows() {
    VSGrid* g = ui_->VSFlexGrid;
    const bool numbered = ui_->chkRecordIndex->isChecked();
    int counter = 1;
    for (int r = FirstRecordRow; r < g->Rows(); ++r, ++counter)
        g->setTextMatrix(r, 0, numbered ? QString::number(counter) : QString());
    if (g->Rows() > 1 && HasTotal) g->setTextMatrix(1, 0, QStringLiteral("合计"));
}

void frmPrint::cmdPreview_Click() {
    if (ui_->chkIsTableHead->isChecked() && ui_->txtTable->toPlainText().isEmpty()) {
        MsgBox::Warn(QStringLiteral("请输入表头！"));
        return;
    }
    NumberRows();
    const WaitCursor wait;
    auto report = std::make_shared<ARPrinter>();
    report->setIsSwag(ui_->chkIsSwag->isChecked());
    report->setIsRecordIndex(ui_->chkRecordIndex->isChecked());
    report->lbInfo().Caption = ui_->txtTable->toPlainText();
    report->setGrid(ui_->VSFlexGrid);
    report->Orientation = ui_->Opt0->isChecked() ? ARPrinter::ddOPortrait : ARPrinter::ddOLandscape;
    Report = report;
    ui_->arv->SetReport(report);
    ui_->cmdPdf->setEnabled(true);
}

void frmPrint::cmdExcel_Click() {
    QString path;
    {
        const WaitCursor wait;
        path = GridWorkbook::NewPath();
        GridWorkbook::Write(ui_->VSFlexGrid, path);
    }
    if (!GridWorkbook::Open(path))
        MsgBox::Info(QStringLiteral("已导出到Excel文件：\n%1\n没有找到打开它的程序，请自行打开。")
                         .arg(QDir::toNativeSeparators(path)));
}

void frmPrint::cmdPdf_Click() {
    if (!Report) return;
    QString name = Report->lbInfo().Caption.simplified();
    if (name.isEmpty()) name = QStringLiteral("数据报表");
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString file = FileDialog::SaveFile(this, QStringLiteral("导出PDF"),
                                        QDir(folder).filePath(name + QStringLiteral(".pdf")),
                                        QStringLiteral("PDF 文件 (*.pdf)"));
    if (file.isEmpty()) return;
    if (QFileInfo(file).suffix().isEmpty()) file += QStringLiteral(".pdf");
    const WaitCursor wait;
    ui_->arv->ExportPdf(file);
}
