#pragma once
// The report viewer of the print window: the pages of a report in a print
// preview, with page navigation, zoom, and printing through the system's
// print dialog. The viewer keeps the report it was given, so that what is
// printed or written to PDF is the report on screen, laid out again for the
// chosen printer.
#include <QWidget>
#include <memory>

class ARPrinter;
class QLabel;
class QPrintPreviewWidget;
class QPrinter;
class QSpinBox;
class QToolButton;

class ARViewer : public QWidget {
    Q_OBJECT
public:
    explicit ARViewer(QWidget* parent = nullptr);
    ~ARViewer() override;

    // Runs the report and shows its pages from the first.
    void SetReport(std::shared_ptr<ARPrinter> report);
    ARPrinter* Report() const { return report_.get(); }

    QPrintPreviewWidget* Preview() const { return preview_; }
    int PageCount() const;
    int CurrentPage() const;

    // Opens the print dialog (modally, through Modal::Show) and prints the
    // report on the printer chosen there; nothing when the dialog is cancelled.
    void PrintReport();
    // Writes the report to a PDF file. Throws RuntimeError when the file
    // cannot be written.
    void ExportPdf(const QString& file);

Q_SIGNALS:
    void ReportChanged();

private:
    void updateNavigation();

    std::unique_ptr<QPrinter> printer_;
    QPrintPreviewWidget* preview_ = nullptr;
    std::shared_ptr<ARPrinter> report_;
    QToolButton* cmdFirst_ = nullptr;
    QToolButton* cmdPrevious_ = nullptr;
    QToolButton* cmdNext_ = nullptr;
    QToolButton* cmdLast_ = nullptr;
    QSpinBox* txtPage_ = nullptr;
    QLabel* lbPages_ = nullptr;
    QToolButton* cmdPrint_ = nullptr;
};
