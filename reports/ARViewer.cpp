#include "ARViewer.h"

#include <QGraphicsView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include "ARPrinter.h"
#include "Modal.h"
#include "On.h"

namespace {
QToolButton* toolButton(QWidget* parent, const char* name, const QString& text) {
    auto* b = new QToolButton(parent);
    b->setObjectName(QLatin1String(name));
    b->setText(text);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return b;
}
}  // namespace

ARViewer::ARViewer(QWidget* parent)
    : QWidget(parent), printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    ARPrinter().ApplyPageSettings(printer_.get());
    preview_ = new QPrintPreviewWidget(printer_.get(), this);
    preview_->setObjectName(QStringLiteral("preview"));
    preview_->setAccessibleName(QStringLiteral("打印预览"));
    if (auto* pages = preview_->findChild<QGraphicsView*>())
        pages->setAccessibleName(QStringLiteral("打印预览"));
    preview_->setZoomMode(QPrintPreviewWidget::FitToWidth);

    cmdFirst_ = toolButton(this, "cmdFirst", QStringLiteral("首页"));
    cmdPrevious_ = toolButton(this, "cmdPrevious", QStringLiteral("上一页"));
    txtPage_ = new QSpinBox(this);
    txtPage_->setObjectName(QStringLiteral("txtPage"));
    txtPage_->setAccessibleName(QStringLiteral("页码"));
    txtPage_->setRange(0, 0);
    lbPages_ = new QLabel(QStringLiteral("/ 0"), this);
    lbPages_->setObjectName(QStringLiteral("lbPages"));
    cmdNext_ = toolButton(this, "cmdNext", QStringLiteral("下一页"));
    cmdLast_ = toolButton(this, "cmdLast", QStringLiteral("末页"));
    QToolButton* zoomIn = toolButton(this, "cmdZoomIn", QStringLiteral("放大"));
    QToolButton* zoomOut = toolButton(this, "cmdZoomOut", QStringLiteral("缩小"));
    QToolButton* fitWidth = toolButton(this, "cmdFitWidth", QStringLiteral("适合宽度"));
    QToolButton* fitPage = toolButton(this, "cmdFitPage", QStringLiteral("整页"));
    cmdPrint_ = toolButton(this, "cmdPrint", QStringLiteral("打印(&P)..."));

    auto* bar = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(cmdFirst_), static_cast<QWidget*>(cmdPrevious_),
                       static_cast<QWidget*>(txtPage_), static_cast<QWidget*>(lbPages_),
                       static_cast<QWidget*>(cmdNext_), static_cast<QWidget*>(cmdLast_)})
        bar->addWidget(w);
    bar->addSpacing(16);
    for (QWidget* w : {zoomIn, zoomOut, fitWidth, fitPage}) bar->addWidget(w);
    bar->addStretch(1);
    bar->addWidget(cmdPrint_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(bar);
    layout->addWidget(preview_, 1);

    // The preview asks for its pages when it is first shown and whenever it
    // is updated; without a report it has none.
    connect(preview_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
        if (report_) report_->Run(printer);
    });
    connect(preview_, &QPrintPreviewWidget::previewChanged, this, [this] { updateNavigation(); });
    On(cmdFirst_, &QToolButton::clicked, this, [this] { preview_->setCurrentPage(1); });
    On(cmdPrevious_, &QToolButton::clicked, this,
       [this] { preview_->setCurrentPage(CurrentPage() - 1); });
    On(cmdNext_, &QToolButton::clicked, this,
       [this] { preview_->setCurrentPage(CurrentPage() + 1); });
    On(cmdLast_, &QToolButton::clicked, this, [this] { preview_->setCurrentPage(PageCount()); });
    On(txtPage_, &QSpinBox::valueChanged, this, [this](int page) {
        if (page >= 1 && page != CurrentPage()) preview_->setCurrentPage(page);
    });
    On(zoomIn, &QToolButton::clicked, this, [this] { preview_->zoomIn(1.25); });
    On(zoomOut, &QToolButton::clicked, this, [this] { preview_->zoomOut(1.25); });
    On(fitWidth, &QToolButton::clicked, this, [this] { preview_->fitToWidth(); });
    On(fitPage, &QToolButton::clicked, this, [this] { preview_->fitInView(); });
    On(cmdPrint_, &QToolButton::clicked, this, [this] { PrintReport(); });
    updateNavigation();
}

ARViewer::~ARViewer() = default;

void ARViewer::SetReport(std::shared_ptr<ARPrinter> report) {
    report_ = std::move(report);
    if (report_) report_->ApplyPageSettings(printer_.get());
    preview_->updatePreview();
    preview_->setCurrentPage(1);
    updateNavigation();
    Q_EMIT ReportChanged();
}

int ARViewer::PageCount() const {
    return report_ ? preview_->pageCount() : 0;
}

int ARViewer::CurrentPage() const {
    return report_ ? preview_->currentPage() : 0;
}

void ARViewer::updateNavigation() {
    const int pages = PageCount();
    const int page = CurrentPage();
    {
        const QSignalBlocker block(txtPage_);
        txtPage_->setRange(pages > 0 ? 1 : 0, pages);
        txtPage_->setValue(page);
    }
    lbPages_->setText(QStringLiteral("/ %1").arg(pages));
    cmdFirst_->setEnabled(page > 1);
    cmdPrevious_->setEnabled(page > 1);
    cmdNext_->setEnabled(page < pages);
    cmdLast_->setEnabled(page < pages);
    txtPage_->setEnabled(pages > 0);
    cmdPrint_->setEnabled(report_ != nullptr);
}

void ARViewer::PrintReport() {
    if (!report_) return;
    QPrinter printer(QPrinter::HighResolution);
    report_->ApplyPageSettings(&printer);
    printer.setDocName(report_->lbInfo().Caption.trimmed());
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(QStringLiteral("打印"));
    if (Modal::Show(&dialog) != QDialog::Accepted) return;
    report_->Run(&printer);
}

void ARViewer::ExportPdf(const QString& file) {
    if (!report_) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setDocName(report_->lbInfo().Caption.trimmed());
    printer.setCreator(QStringLiteral("服装店进销存管理系统"));
    report_->ApplyPageSettings(&printer);
    report_->Run(&printer);
}
