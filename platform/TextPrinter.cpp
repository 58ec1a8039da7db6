#include "TextPrinter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStringList>

#include "RuntimeError.h"

namespace {
std::unique_ptr<TextPrinter>& current() {
    static std::unique_ptr<TextPrinter> p;
    return p;
}
}  // namespace

TextPrinter& TextPrinter::Current() {
    auto& p = current();
    if (!p) p = std::make_unique<QtTextPrinter>();
    return *p;
}

std::unique_ptr<TextPrinter> TextPrinter::SetCurrent(std::unique_ptr<TextPrinter> printer) {
    auto old = std::move(current());
    current() = std::move(printer);
    return old;
}

// ---- the default printer

struct QtTextPrinter::Doc {
    QPrinter printer;
    QPainter painter;
    QFont baseFont;
    qreal y = 0;
    explicit Doc(const QPrinterInfo& info) : printer(info, QPrinter::HighResolution) {}
};

QtTextPrinter::QtTextPrinter() = default;

QtTextPrinter::~QtTextPrinter() {
    if (doc_ && doc_->painter.isActive()) doc_->painter.end();
}

void QtTextPrinter::requirePrinter() {
    if (QPrinterInfo::defaultPrinter().isNull())
        throw RuntimeError(QStringLiteral("运行时错误 '484':\n\n打印机错误"));
}

void QtTextPrinter::beginDoc() {
    if (doc_) return;
    requirePrinter();
    auto doc = std::make_unique<Doc>(QPrinterInfo::defaultPrinter());
    doc->printer.setDocName(QStringLiteral("结帐单"));
    if (!doc->painter.begin(&doc->printer))
        throw RuntimeError(QStringLiteral("运行时错误 '482':\n\n打印机错误"));
    doc->baseFont = doc->painter.font();  // the default typeface on the printer
    doc_ = std::move(doc);
}

void QtTextPrinter::SetFontSize(float size) {
    requirePrinter();
    size_ = size;
}

void QtTextPrinter::SetBold(bool on) {
    requirePrinter();
    bold_ = on;
}

void QtTextPrinter::Print(const QString& text) {
    beginDoc();
    QFont f = doc_->baseFont;
    f.setPointSizeF(size_);
    f.setBold(bold_);
    doc_->painter.setFont(f);
    const QFontMetricsF fm(f, &doc_->printer);
    const qreal foot =
        doc_->printer.pageLayout().paintRectPixels(doc_->printer.resolution()).height();
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const QString& line : t.split('\n')) {
        if (doc_->y + fm.height() > foot && doc_->y > 0) {
            doc_->printer.newPage();
            doc_->y = 0;
        }
        doc_->painter.drawText(QPointF(0, doc_->y + fm.ascent()), line);
        doc_->y += fm.lineSpacing();
    }
}

void QtTextPrinter::EndDoc() {
    requirePrinter();
    if (!doc_) return;
    doc_->painter.end();
    doc_.reset();
}
