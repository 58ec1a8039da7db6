#pragma once
// The name of a shop: mode 1 adds a shop, mode 2 renames the default shop.
#include <memory>

#include "Form.h"

namespace Ui {
class frmShopSetting;
}
class frmChangeShop;

class frmShopSetting : public Form {
    Q_OBJECT
public:
    // The list of frmChangeShop is brought up to date when a name is saved.
    explicit frmShopSetting(frmChangeShop* shops, QWidget* parent = nullptr);
    ~frmShopSetting() override;

    void LoadIt(int Mode, const QString& Name);
    int Mode() const { return mode_; }
    Ui::frmShopSetting* ui() { return ui_.get(); }

private:
    void cmdNewGoods_Click();

    std::unique_ptr<Ui::frmShopSetting> ui_;
    frmChangeShop* shops_;
    int mode_ = 0;
};
