#pragma once
// The replacement picker of the exchange window: the clerk finds goods in
// stock, prices them by a discount or a special price and confirms. The
// picker then writes the pair straight into the exchange window that opened
// it (the mark on the old row, the replacement row, the money labels and the
// reason) and closes. Nothing is written to the data file here.
#include <memory>

#include "Form.h"

namespace Ui {
class frmChange;
}
class frmClientBackChange;

class frmChange : public Form {
    Q_OBJECT
public:
    explicit frmChange(QWidget* parent = nullptr);
    ~frmChange() override;

    Ui::frmChange* ui() { return ui_.get(); }

    // The exchange window to write into and the old sale line: its key, sale
    // number, article number and retail price.
    void LoadIt(frmClientBackChange* Owner, const QString& GUID, const QString& SellNo,
                const QString& TypeNo, float Price);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadGoods();
    void txtNo_Change();
    void txtAbate_Enter();
    void txtChangePrice_Enter();
    void cmdOk_Click();
    void AddChangeRow(const QString& GUID);
    bool GoodsEmpty() const;

    std::unique_ptr<Ui::frmChange> ui_;
    frmClientBackChange* owner_ = nullptr;
    QString GUID_;
    QString SellNo_;
    QString TypeNo_;
    QString Price_;
};
