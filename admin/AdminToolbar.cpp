#include "AdminToolbar.h"

#include <QAction>
#include <QToolBar>

#include "Icons.h"

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
            a->setIcon(
                Icons::Themed(QString::fromLatin1(d.theme), a->text(), QColor(d.colour), 24));
        }
    }
}

}  // namespace AdminToolbar
