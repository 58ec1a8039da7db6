#include "frmShopSetting.h"

#include <QListWidget>

#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "frmChangeShop.h"
#include "ui_frmChangeShop.h"
#include "ui_frmShopSetting.h"

frmShopSetting::frmShopSetting(frmChangeShop* shops, QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmShopSetting>()), shops_(shops) {
    ui_->setupUi(this);
    On(ui_->cmdNewGoods, &QPushButton::clicked, this, [this] { cmdNewGoods_Click(); });
    On(ui_->txtNo, &QLineEdit::returnPressed, this, [this] { cmdNewGoods_Click(); });
}

frmShopSetting::~frmShopSetting() = default;

void frmShopSetting::LoadIt(int Mode, const QString& Name) {
    mode_ = Mode;
    ui_->txtNo->setText(Name);
    ui_->txtNo->selectAll();
}

void frmShopSetting::cmdNewGoods_Click() {
    if (ui_->txtNo->text().isEmpty()) {
        MsgBox::Info(QStringLiteral("名称不能为空！"));
        ui_->txtNo->setFocus();
        return;
    }
    const QString name = ReplaceQuote(ui_->txtNo->text());
    if (mode_ == 2) {
        // Whatever shop was chosen, the name is that of the default shop.
        Session::Dbopt().Excute("Update Shop Set ShopName='" + name + "' Where GUID='" +
                                kDefaultShop + "'");
        Session::ShopName = name;
    } else if (mode_ == 1) {
        const QString guid = Session::NewGUID().GUID();
        Session::Dbopt().Excute("Insert Into Shop Values('" + guid + "','" + name + "')");
        if (shops_) shops_->AddItem(guid, name);
    }
    if (shops_) {
        if (mode_ == 2)
            if (QListWidgetItem* item = shops_->Item(kDefaultShop)) item->setText(name);
        shops_->ui()->ListView->update();
    }
    accept();
}
