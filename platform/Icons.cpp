#include "Icons.h"

#include <QPainter>
#include <QPixmap>

namespace Icons {

QIcon Themed(const QString& themeName, const QString& caption, const QColor& colour, int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(colour);
    p.setPen(Qt::NoPen);
    p.drawRoundedRect(QRectF(1, 1, size - 2, size - 2), size / 5.0, size / 5.0);
    p.setPen(Qt::white);
    QFont f = p.font();
    f.setPixelSize(size * 9 / 16);
    f.setBold(true);
    p.setFont(f);
    p.drawText(pm.rect(), Qt::AlignCenter, caption.simplified().remove(' ').left(1));
    p.end();
    return QIcon::fromTheme(themeName, QIcon(pm));
}

}  // namespace Icons
