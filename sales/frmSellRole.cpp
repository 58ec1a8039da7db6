#include "frmSellRole.h"

#include <QPainter>
#include <QPixmap>

#include "Convert.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "ui_frmSellRole.h"

namespace {
// A small drawing of each kind of printer beside its option.
QPixmap PrinterPicture(bool slip) {
    QPixmap pm(96, 72);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor("#555"), 2));
    p.setBrush(QColor("#ddd"));
    if (slip) {
        p.drawRoundedRect(24, 28, 48, 36, 6, 6);
        p.setBrush(Qt::white);
        p.drawRect(36, 4, 24, 30);
        for (int y = 10; y < 30; y += 6) p.drawLine(40, y, 56, y);
    } else {
        p.drawRoundedRect(4, 26, 88, 34, 6, 6);
        p.setBrush(Qt::white);
        p.drawRect(16, 6, 64, 24);
        for (int y = 12; y < 28; y += 6) p.drawLine(22, y, 74, y);
    }
    return pm;
}

int Checked(const QCheckBox* box) {
    return box->checkState() == Qt::Checked ? 1 : 0;
}
}  // namespace

frmSellRole::frmSellRole(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmSellRole>()) {
    ui_->setupUi(this);
    ui_->Image1->setPixmap(PrinterPicture(true));
    ui_->Image2->setPixmap(PrinterPicture(false));
    On(ui_->SSTab, &QTabWidget::currentChanged, this, [this](int tab) { SSTab_Click(tab); });
    On(ui_->cmdSetting, &QPushButton::clicked, this, [this] {
        SaveRules();
        MsgBox::Info(QStringLiteral("设置成功！"));
    });

    // Loading the window: the session's rules, not the table.
    SetNumberOnly(ui_->txtBackdays, true);
    SetNumberOnly(ui_->txtChangeDays, true);
    const clsSellRole& r = Session::SellRole();
    if (r.SellOrder == 0)
        ui_->OptA->setChecked(true);
    else
        ui_->OptB->setChecked(true);
    ui_->chkBackAbate->setChecked(r.AbateCanNotBack);
    ui_->chkBackSpecial->setChecked(r.SpecialCanNotBack);
    ui_->chkChangeNotToBack->setChecked(r.ChangNotToBack);
    ui_->chkChangeAbate->setChecked(r.AbateCanNotChange);
    ui_->chkChangeSpecial->setChecked(r.SpecialCanNotChange);
    ui_->chkHightPrice->setChecked(r.DearGoodsChange);
    ui_->chkSameType->setChecked(r.SameTypeChange);
    ui_->chkIsMany->setChecked(r.ChangeOneTime);
    ui_->chkIsPrint->setChecked(r.IsPrint);
    ui_->txtBackdays->setText(QString::number(r.BackDays));
    ui_->txtChangeDays->setText(QString::number(r.ChangeDays));
    if (r.PrinterType != 0)
        ui_->optSmall->setChecked(true);
    else
        ui_->optBig->setChecked(true);
}

frmSellRole::~frmSellRole() = default;

void frmSellRole::SSTab_Click(int tab) {
    if (tab == 1) {
        ui_->txtBackdays->setFocus();
        ui_->txtBackdays->selectAll();
    } else if (tab == 2) {
        ui_->txtChangeDays->setFocus();
        ui_->txtChangeDays->selectAll();
    }
}

void frmSellRole::SaveRules() {
    const int sellOrder = ui_->OptA->isChecked() ? 0 : (ui_->OptB->isChecked() ? 1 : 0);
    const int printerType = ui_->optBig->isChecked() ? 0 : (ui_->optSmall->isChecked() ? 1 : 0);
    const QString n = QStringLiteral("%1");
    auto days = [](const QLineEdit* box) { return Convert::DblText(Convert::Val(box->text())); };
    Session::Dbopt().Excute(
        "Update SellRole Set SellOrder=" + n.arg(sellOrder) + ",BackDays=" +
        days(ui_->txtBackdays) + ",AbateCannotBack=" + n.arg(Checked(ui_->chkBackAbate)) +
        ",SpecialCannotBack=" + n.arg(Checked(ui_->chkBackSpecial)) + ",ChangeDays=" +
        days(ui_->txtChangeDays) + ",AbateCannotChange=" + n.arg(Checked(ui_->chkChangeAbate)) +
        ",SpecialCannotChange=" + n.arg(Checked(ui_->chkChangeSpecial)) +
        ",SameTypeChange=" + n.arg(Checked(ui_->chkSameType)) + ",DearGoodsChange=" +
        n.arg(Checked(ui_->chkHightPrice)) + ", ChangeOneTime=" + n.arg(Checked(ui_->chkIsMany)) +
        ",ChangNotToBack=" + n.arg(Checked(ui_->chkChangeNotToBack)) +
        ",IsPrint=" + n.arg(Checked(ui_->chkIsPrint)) + ",PrinterType=" + n.arg(printerType) +
        " Where ShopNo='" + Session::SellRole().ShopNo + "'");

    // The session's copy, member by member. The day counts are converted
    // strictly first, so an empty or too large count stops with an error after
    // the row was written and leaves the session's rules as they were.
    const int16_t backDays = Convert::CInt(ui_->txtBackdays->text());
    const int16_t changeDays = Convert::CInt(ui_->txtChangeDays->text());
    clsSellRole& r = Session::SellRole();
    auto set = [](const QCheckBox* box) { return box->checkState() != Qt::Unchecked; };
    r.SellOrder = sellOrder;
    r.AbateCanNotBack = set(ui_->chkBackAbate);
    r.AbateCanNotChange = set(ui_->chkChangeAbate);
    r.SpecialCanNotBack = set(ui_->chkBackSpecial);
    r.SpecialCanNotChange = set(ui_->chkChangeSpecial);
    r.BackDays = backDays;
    r.ChangeDays = changeDays;
    r.SameTypeChange = set(ui_->chkSameType);
    r.DearGoodsChange = set(ui_->chkHightPrice);
    r.ChangeOneTime = set(ui_->chkIsMany);
    r.ChangNotToBack = set(ui_->chkChangeNotToBack);
    r.IsPrint = set(ui_->chkIsPrint);
    r.PrinterType = int16_t(printerType);
}
