#include "frmChangeShop.h"

#include <QIcon>
#include <QListWidget>
#include <QPainter>

#include "Modal.h"
#include "On.h"
#include "RuntimeError.h"
#include "Session.h"
#include "frmShopSetting.h"
#include "ui_frmChangeShop.h"

namespace {

constexpr int kKeyRole = Qt::UserRole;

// A small shop front: awning over a door.
QIcon shopIcon() {
    const QIcon themed = QIcon::fromTheme(QStringLiteral("go-home"));
    if (!themed.isNull()) return themed;
    QPixmap pm(48, 48);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor("#1f4e79"), 2));
    p.setBrush(QColor("#deebf7"));
    p.drawRect(QRectF(8, 18, 32, 26));
    p.setBrush(QColor("#c55a11"));
    p.drawRect(QRectF(4, 8, 40, 10));
    p.setBrush(QColor("#2e75b6"));
    p.drawRect(QRectF(20, 28, 10, 16));
    return QIcon(pm);
}

}  // namespace

frmChangeShop::frmChangeShop(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmChangeShop>()) {
    ui_->setupUi(this);
    On(ui_->cmdEdit, &QPushButton::clicked, this, [this] { cmdEdit_Click(); });

    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("select * from Shop"), isErr);
    if (!isErr)
        for (; !rs.Eof(); rs.MoveNext()) AddItem(rs.Text("GUID"), rs.Text("ShopName"));
    // As a list view does, the first shop starts selected.
    if (ui_->ListView->count() > 0) ui_->ListView->setCurrentRow(0);
}

frmChangeShop::~frmChangeShop() = default;

QString frmChangeShop::ItemKey(const QListWidgetItem* item) {
    return item ? item->data(kKeyRole).toString() : QString();
}

QListWidgetItem* frmChangeShop::Item(const QString& key) const {
    for (int i = 0; i < ui_->ListView->count(); ++i)
        if (ItemKey(ui_->ListView->item(i)) == key) return ui_->ListView->item(i);
    return nullptr;
}

QListWidgetItem* frmChangeShop::AddItem(const QString& key, const QString& text) {
    auto* item = new QListWidgetItem(shopIcon(), text, ui_->ListView);
    item->setData(kKeyRole, key);
    return item;
}

void frmChangeShop::cmdEdit_Click() {
    QListWidgetItem* item = ui_->ListView->currentItem();
    if (!item || !item->isSelected())
        throw RuntimeError(QStringLiteral("运行时错误 '91':\n\n对象变量或 With 块变量未设置"));
    frmShopSetting f(this, this);
    f.LoadIt(2, item->text());
    Modal::Show(&f);
}
