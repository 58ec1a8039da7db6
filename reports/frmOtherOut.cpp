#include "frmOtherOut.h"

#include "Convert.h"
#include "DateText.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "frmDataDictionary.h"
#include "ui_frmOtherOut.h"

namespace {
const QString kItems = QStringLiteral("其他支出项目");
}

frmOtherOut::frmOtherOut(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmOtherOut>()) {
    ui_->setupUi(this);
    // The small button beside the item opens the list of expense items.
    frmDataDictionary::AttachButton(ui_->cmdColour, kItems, ui_->comItem, this);
    On(ui_->cmdQuery, &QPushButton::clicked, this, [this] { cmdQuery_Click(); });
    for (QWidget* w : {static_cast<QWidget*>(ui_->comItem), static_cast<QWidget*>(ui_->txtAmount),
                       static_cast<QWidget*>(ui_->txtMemo), static_cast<QWidget*>(ui_->DT)})
        EnterToTab(w);
    Guard::Run([this] { FillCombo(kItems, ui_->comItem); });
    ui_->DT->setDate(QDate::currentDate());
}

frmOtherOut::~frmOtherOut() = default;

// An empty item is taken; a zero amount too. The item and the date stay for
// the next entry.
void frmOtherOut::cmdQuery_Click() {
    const QString guid = Session::NewGUID().GUID();
    const QString item = ReplaceQuote(ui_->comItem->currentText());
    const QString text = ui_->txtAmount->text();
    if (!Convert::IsNumeric(text)) {
        MsgBox::Info(QStringLiteral("请按规矩办事！"));
        return;
    }
    if (Convert::Val(text) < 0) {
        MsgBox::Info(QStringLiteral("不能作弊"));
        return;
    }
    const float amount = Convert::ToSingle(Convert::Val(text));
    const QString memo = ReplaceQuote(ui_->txtMemo->text());
    Session::Dbopt().Excute("Insert Into OtherOut values('" + guid + "','" + Session::ShopNo +
                            "','" + Session::ShopName + "','" + item + "'," +
                            Convert::FloatText(amount) + ",'" + DateText::Of(ui_->DT->date()) +
                            "','" + memo + "','" + Session::User().Name + "')");
    MsgBox::Info(QStringLiteral("保存成功！"));
    ui_->txtAmount->clear();
    ui_->txtMemo->clear();
}
