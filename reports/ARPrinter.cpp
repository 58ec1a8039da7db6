#include "ARPrinter.h"

#include <fontconfig/fontconfig.h>

#include <QFont>
#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <cmath>

#include "RuntimeError.h"
#include "VSGrid.h"

namespace {

constexpr int kPageHeaderHeight = 420;
constexpr int kDetailHeight = 360;
constexpr int kPageFooterHeight = 420;
// A thin border: one screen pixel.
constexpr int kBorderTwips = 15;

// The first family, in fontconfig's order for the pattern, that has Chinese
// characters; "" when no installed font has them.
QString chineseFamily(const char* pattern) {
    FcPattern* pat = FcNameParse(reinterpret_cast<const FcChar8*>(pattern));
    if (!pat) return QString();
    FcPatternAddString(pat, FC_LANG, reinterpret_cast<const FcChar8*>("zh-cn"));
    FcConfigSubstitute(nullptr, pat, FcMatchPattern);
    FcDefaultSubstitute(pat);
    FcResult result = FcResultNoMatch;
    FcFontSet* set = FcFontSort(nullptr, pat, FcFalse, nullptr, &result);
    QString found;
    for (int i = 0; set && i < set->nfont && found.isEmpty(); ++i) {
        FcCharSet* chars = nullptr;
        FcChar8* family = nullptr;
        if (FcPatternGetCharSet(set->fonts[i], FC_CHARSET, 0, &chars) == FcResultMatch &&
            FcCharSetHasChar(chars, 0x5B8B) && FcCharSetHasChar(chars, 0x8D27) &&
            FcPatternGetString(set->fonts[i], FC_FAMILY, 0, &family) == FcResultMatch) {
            found = QString::fromUtf8(reinterpret_cast<const char*>(family));
        }
    }
    if (set) FcFontSetDestroy(set);
    FcPatternDestroy(pat);
    return found;
}

// The installed family that stands for a typeface name of the report. "宋体",
// a Song (Ming) serif, is rarely installed under that name: it is looked up
// as fontconfig's serif for simplified Chinese, so that a Song face such as
// AR PL UMing is taken where there is one, and any font with Chinese
// characters where there is none, never one that prints boxes.
QString installedFamily(const QString& name) {
    static QHash<QString, QString> known;
    const auto it = known.constFind(name);
    if (it != known.constEnd()) return *it;
    QString family = name;
    if (!QFontDatabase::hasFamily(name)) {
        const QString chinese = chineseFamily("serif");
        if (!chinese.isEmpty()) family = chinese;
    }
    known.insert(name, family);
    return family;
}

QFont controlFont(const ARPrinter::Control& c) {
    QFont f(installedFamily(c.FontName));
    f.setPointSizeF(c.FontSize);
    f.setBold(c.FontBold);
    return f;
}

// Detail fields hold one line; labels (the title) may hold several.
int qtAlignment(const ARPrinter::Control& c) {
    int a = c.Alignment == 1 ? Qt::AlignRight : c.Alignment == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
    a |= c.VerticalAlignment == 1   ? Qt::AlignVCenter
         : c.VerticalAlignment == 2 ? Qt::AlignBottom
                                    : Qt::AlignTop;
    return c.Tag.isEmpty() ? a : a | Qt::TextSingleLine;
}

ARPrinter::Control label(const QString& name, int left, int top, int width, int height,
                         int alignment, const QString& caption = QString()) {
    ARPrinter::Control c;
    c.Name = name;
    c.Caption = caption;
    c.Left = left;
    c.Top = top;
    c.Width = width;
    c.Height = height;
    c.Alignment = alignment;
    c.FontName = ARPrinter::FieldFont();
    return c;
}

}  // namespace

const QString& ARPrinter::FieldFont() {
    static const QString name = QStringLiteral("宋体");
    return name;
}

ARPrinter::ARPrinter() {
    PageHeader.Height = kPageHeaderHeight;
    Control info = label(QStringLiteral("lbInfo"), 2268, 0, 6236, 425, 2);
    info.FontSize = 16;
    info.FontBold = true;
    PageHeader.Controls.push_back(info);

    Detail.Height = kDetailHeight;

    PageFooter.Height = kPageFooterHeight;
    Control page = label(QStringLiteral("Field1"), 4252, 142, 567, 283, 1);
    page.DataField = page.Name;
    Control of = label(QStringLiteral("Label1"), 4819, 142, 283, 283, 2, QStringLiteral("of"));
    Control pages = label(QStringLiteral("Field2"), 5102, 142, 567, 283, 0);
    pages.DataField = pages.Name;
    PageFooter.Controls = {page, of, pages};
}

void ARPrinter::setGrid(VSGrid* grid) {
    grid_ = grid;
    row_ = 0;
    Detail.Controls.clear();
    Fields.clear();
    int left = 0;
    // Field1 and Field2 are the footer's; the detail fields number on from there.
    int serial = 3;
    for (int col = isRecordIndex_ ? 0 : 1; col < grid->Cols(); ++col) {
        if (grid->ColHidden(col)) continue;
        Control f;
        f.Name = QStringLiteral("Field%1").arg(serial++);
        f.Tag = QString::number(col);
        f.DataField = f.Name;
        f.Left = left;
        f.Top = 0;
        f.Width = grid->ColWidth(col);
        f.Height = kDetailHeight;
        f.Alignment = 2;
        f.VerticalAlignment = 1;
        f.FontName = FieldFont();
        if (isSwag_) {
            f.BorderRight = f.BorderTop = f.BorderBottom = true;
            // Only the first field has a left border, so that neighbours share one line.
            f.BorderLeft = Detail.Controls.empty();
        }
        Fields.insert(f.DataField, QString());
        Detail.Controls.push_back(f);
        left += f.Width;
        PrintWidth = left;
    }
}

bool ARPrinter::FetchData() {
    if (!grid_ || row_ >= grid_->Rows()) return false;
    for (const Control& c : Detail.Controls) {
        if (c.Tag.isEmpty()) continue;
        Fields[c.DataField] = grid_->TextMatrix(row_, c.Tag.toInt());
    }
    ++row_;
    return true;
}

void ARPrinter::ApplyPageSettings(QPrinter* printer) const {
    const double inch = double(kMargin) / kTwipsPerInch;
    printer->setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4),
                    Orientation == ddOLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                    QMarginsF(inch, inch, inch, inch), QPageLayout::Inch));
}

ARPrinter::PageGeometry ARPrinter::Geometry(const QPrinter* printer) const {
    PageGeometry g;
    const double dpi = printer->resolution();
    const QRectF area = printer->pageLayout().paintRectPixels(int(dpi));
    const double width = PrintWidth * dpi / kTwipsPerInch;
    if (width > area.width()) g.scale = area.width() / width;
    const double body =
        area.height() / g.scale - (PageHeader.Height + PageFooter.Height) * dpi / kTwipsPerInch;
    g.rowsPerPage = std::max(1, int(std::floor(body / (Detail.Height * dpi / kTwipsPerInch))));
    const int rows = grid_ ? grid_->Rows() : 0;
    g.pageCount = std::max(1, (rows + g.rowsPerPage - 1) / g.rowsPerPage);
    return g;
}

int ARPrinter::Run(QPrinter* printer) {
    const PageGeometry g = Geometry(printer);
    QPainter p;
    if (!p.begin(printer))
        throw RuntimeError(QStringLiteral("运行时错误 '75':\n\n路径/文件访问错误"));
    const double dpi = printer->resolution();
    const double pageHeight = printer->pageLayout().paintRectPixels(int(dpi)).height() / g.scale;
    QFont detailFont(installedFamily(FieldFont()));
    if (!Detail.Controls.empty()) detailFont = controlFont(Detail.Controls.front());
    Restart();
    for (int page = 1; page <= g.pageCount; ++page) {
        if (page > 1) printer->newPage();
        paintPage(p, detailFont, g.scale, page, g.pageCount, g.rowsPerPage, dpi, pageHeight);
    }
    p.end();
    return g.pageCount;
}

void ARPrinter::paintPage(QPainter& p, const QFont& detailFont, double scale, int page, int pages,
                          int rowsPerPage, double dpi, double pageHeight) {
    const auto px = [dpi](int twips) { return twips * dpi / kTwipsPerInch; };
    p.save();
    p.scale(scale, scale);
    p.setPen(Qt::black);

    for (const Control& c : PageHeader.Controls) drawControl(p, c, c.Caption, dpi, 0);

    // Detail lines, one fetched row each.
    const double top = px(PageHeader.Height);
    const double lineHeight = px(Detail.Height);
    p.setFont(detailFont);
    int lines = 0;
    for (; lines < rowsPerPage && FetchData(); ++lines) {
        const double y = top + lines * lineHeight;
        for (const Control& c : Detail.Controls) {
            const QString& text = Fields[c.DataField];
            if (text.isEmpty()) continue;
            p.drawText(QRectF(px(c.Left), y + px(c.Top), px(c.Width), px(c.Height)), qtAlignment(c),
                       text);
        }
    }

    // The fields fill the band's height and stand side by side, so their
    // borders on one page make a single grid: a line at each row boundary
    // across the bordered fields, and a line down each bordered edge.
    if (lines > 0) {
        QPen pen(Qt::black);
        pen.setWidthF(px(kBorderTwips));
        p.setPen(pen);
        const double bottom = top + lines * lineHeight;
        double from = -1;
        double to = -1;
        for (const Control& c : Detail.Controls) {
            const double l = px(c.Left);
            const double r = px(c.Left + c.Width);
            if (c.BorderLeft) p.drawLine(QPointF(l, top), QPointF(l, bottom));
            if (c.BorderRight) p.drawLine(QPointF(r, top), QPointF(r, bottom));
            if (c.BorderTop || c.BorderBottom) {
                if (from < 0) from = l;
                to = r;
            }
        }
        for (int i = 0; from >= 0 && i <= lines; ++i) {
            const double y = top + i * lineHeight;
            p.drawLine(QPointF(from, y), QPointF(to, y));
        }
        p.setPen(Qt::black);
    }

    const double footer = pageHeight - px(PageFooter.Height);
    for (const Control& c : PageFooter.Controls) {
        const QString text = c.Name == QLatin1String("Field1")   ? QString::number(page)
                             : c.Name == QLatin1String("Field2") ? QString::number(pages)
                                                                 : c.Caption;
        drawControl(p, c, text, dpi, footer);
    }
    p.restore();
}

void ARPrinter::drawControl(QPainter& p, const Control& c, const QString& text, double dpi,
                            double top) {
    if (text.isEmpty()) return;
    const auto px = [dpi](int twips) { return twips * dpi / kTwipsPerInch; };
    p.setFont(controlFont(c));
    p.drawText(QRectF(px(c.Left), top + px(c.Top), px(c.Width), px(c.Height)), qtAlignment(c),
               text);
}
