#include "AdminToolbar.h"

#include <QAction>
#include <QIcon>
#include <QPainter>
#include <QToolBar>

namespace {

// The caption's first character on a coloured tile.
QIcon paintedIcon(const QString& caption, const QColor& colour) {
    QPixmap pm(24, 24);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(colour);
    p.setPen(Qt::NoPen);
    p.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
    p.setPen(Qt::white);
    QFont f = p.font();
    f.setPixelSize(14);
    f.setBold(true);
    p.setFont(f);
    p.drawText(pm.rect(), Qt::AlignCenter, caption.simplified().remove(' ').left(1));
    return QIcon(pm);
}

}  // namespace

namespace AdminToolbar {

void SetIcons(QToolBar* bar) {
    struct Def {
        const char* key;
        const char* theme;
        const char* colour;
    };
    static const Def defs[] = {{"Add", "document-new", "#548235"},
                               {"Edit", "document-edit", "#2e75b6"},
                               {"Del", "edit-delete", "#c00000"},
                               {"Cancel", "edit-undo", "#7f7f7f"},
                               {"Save", "document-save", "#1f4e79"}};
    for (QAction* a : bar->actions()) {
        for (const Def& d : defs) {
            if (a->objectName() != QLatin1String(d.key)) continue;
            a->setIcon(QIcon::fromTheme(QString::fromLatin1(d.theme),
                                        paintedIcon(a->text(), QColor(d.colour))));
        }
    }
}

}  // namespace AdminToolbar
