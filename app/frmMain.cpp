#include "frmMain.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QPainter>
#include <QToolBar>

#include "Commands.h"
#include "ExternalTools.h"
#include "Guard.h"
#include "Icons.h"
#include "Modal.h"
#include "MsgBox.h"
#include "Session.h"
#include "frmAbout.h"
#include "frmChangePwd.h"
#include "frmDataDictionary.h"
#include "frmReLogin.h"
#include "ui_frmMain.h"

namespace {

frmMain* gInstance = nullptr;

// Toolbar buttons in their order: key, caption, icon-theme name.
struct ToolDef {
    const char* key;
    const char* caption;
    const char* icon;
};
const ToolDef kTools[] = {
    {"BuyIn", "进 货", "go-down"},
    {"SellOut", "售  货", "emblem-money"},
    {"ClientBackChange", "客户调换", "view-refresh"},
    {"ClientBack", "客户退货", "edit-undo"},
    {"CompanyBack", "厂商退货", "mail-send"},
    {"StoreQuery", "库存查询", "system-search"},
    {"SellQuery", "售货查询", "edit-find"},
    {"ChangeShop", "店面管理", "go-home"},
    {"Calculate", "计算器", "accessories-calculator"},
    {"Note", "记事本", "accessories-text-editor"},
    {"Exit", "退 出", "application-exit"},
};

// The gated menu items with their rights, in the order they are set.
const std::pair<const char*, const char*> kMenuRights[] = {
    {"UserManage", "UserManage"},
    {"SellRole", "SellRole"},
    {"ChangeShop", "ChangeShop"},
    {"BuyIn", "BuyIn"},
    {"SellOut", "Sell"},
    {"ClientBack", "ClientBack"},
    {"ClientBackChange", "ClientChange"},
    {"Question", "Question"},
    {"CompanyBack", "FactoryBack"},
    {"BlankOut", "SellBlankOut"},
    {"ChangePrice", "ChangePrice"},
    {"OtherOut", "OtherOut"},
    {"StoreQuery", "StoreQuery"},
    {"SellQuery", "SellQuery"},
    {"SellGroup", "SellGroup"},
    {"BuyInDetail", "BuyDetail"},
    {"ClientChangeQuery", "ClientChangeQuery"},
    {"Back", "FactoryBackQuery"},
    {"BlankOutQuery", "BlankOutQuery"},
    {"OtherOutQuery", "OtherOurQuery"},
    {"DayAmount", "DayAmount"},
    {"AmountTotal", "TotalAmount"},
    {"Profit", "Profit"},
    {"ReStart", "ReStart"},
};
const std::pair<const char*, const char*> kToolRights[] = {
    {"BuyIn", "BuyIn"},
    {"SellOut", "Sell"},
    {"ClientBackChange", "ClientChange"},
    {"ChangeShop", "ChangeShop"},
    {"StoreQuery", "StoreQuery"},
    {"SellQuery", "SellQuery"},
    {"CompanyBack", "FactoryBack"},
    {"ClientBack", "ClientBack"},
};

}  // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent), ui_(std::make_unique<Ui::frmMain>()) {
    ui_->setupUi(this);
    gInstance = this;
    ui_->split->setSeparator(true);
    ui_->split1->setSeparator(true);

    QPixmap pic(420, 160);
    pic.fill(Qt::transparent);
    {
        QPainter p(&pic);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor("#deebf7"));
        p.setPen(QPen(QColor("#2e75b6"), 2));
        p.drawRoundedRect(QRectF(2, 2, 416, 156), 16, 16);
        QFont f = p.font();
        f.setPixelSize(30);
        f.setBold(true);
        p.setFont(f);
        p.setPen(QColor("#1f4e79"));
        p.drawText(pic.rect(), Qt::AlignCenter, QStringLiteral("服装店进销存管理系统"));
    }
    ui_->Image1->setPixmap(pic);

    // Every menu item runs its command; the Data items open their lists.
    const QList<QAction*> dataItems = ui_->Data->actions();
    for (QAction* a : findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (a->isSeparator() || a->menu()) continue;
        const QString key = a->objectName();
        if (dataItems.contains(a)) {
            const QString item = a->text();
            connect(a, &QAction::triggered, this,
                    [this, item] { Guard::Run([&] { frmDataDictionary::ShowFor(item, this); }); });
        } else {
            connect(a, &QAction::triggered, this, [this, key] { RunCommand(key); });
        }
    }
    buildToolbar();
    LoadPopdem();
    setWindowTitle(FixedTitle() + "-" + Session::ShopName);
}

frmMain::~frmMain() {
    if (gInstance == this) gInstance = nullptr;
}

frmMain* frmMain::Instance() {
    return gInstance;
}

QString frmMain::FixedTitle() {
    return QStringLiteral("Vantro服装店进销存管理系统普及版2.0");
}

void frmMain::buildToolbar() {
    int i = 0;
    for (const ToolDef& t : kTools) {
        const QString caption = QString::fromUtf8(t.caption);
        auto* a = new QAction(caption, ui_->Toolbar);
        a->setObjectName(QString::fromLatin1(t.key));
        static const QColor colours[] = {"#2e75b6", "#c55a11", "#548235", "#7030a0",
                                         "#bf9000", "#1f4e79", "#843c0c", "#375623"};
        a->setIcon(Icons::Themed(QString::fromLatin1(t.icon), caption, colours[i++ % 8]));
        const QString key = a->objectName();
        connect(a, &QAction::triggered, this, [this, key] { RunCommand(key); });
        ui_->Toolbar->addAction(a);
    }
}

QAction* frmMain::MenuItem(const QString& name) const {
    return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

QAction* frmMain::ToolButton(const QString& key) const {
    return ui_->Toolbar->findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
}

QToolBar* frmMain::Toolbar() const {
    return ui_->Toolbar;
}

void frmMain::LoadPopdem() {
    clsUser& user = Session::User();
    clsRole none;
    clsRole& role = user.Role ? *user.Role : none;
    for (const auto& [item, right] : kMenuRights)
        if (QAction* a = MenuItem(QString::fromLatin1(item)))
            a->setEnabled(*role.Right(QString::fromLatin1(right)));
    for (const auto& [key, right] : kToolRights)
        if (QAction* a = ToolButton(QString::fromLatin1(key)))
            a->setEnabled(*role.Right(QString::fromLatin1(right)));
}

void frmMain::RunCommand(const QString& key) {
    Guard::Run([&] {
        if (key == "Exit") {
            close();
        } else if (key == "ReStart") {
            ReStart();
        } else if (key == "Calculate") {
            Calculate();
        } else if (key == "Note") {
            Note();
        } else if (key == "About") {
            frmAbout f(this);
            Modal::Show(&f);
        } else if (key == "ReLogin") {
            frmReLogin f(this);
            Modal::Show(&f);
        } else if (key == "ChagePassWord") {
            frmChangePwd f(this);
            Modal::Show(&f);
        } else {
            Commands::Run(key, this);
        }
    });
}

void frmMain::ReStart() {
    if (!MsgBox::AskYes(QStringLiteral("如果重新开始了后 所有数据将丢失！慎重哦！"),
                        QStringLiteral("提示")))
        return;
    clsDbopt& db = Session::Dbopt();
    bool isErr = false;
    for (const char* st :
         {"Delete From Sell", "Delete from Store", "delete from Store", "delete from StoreDetail",
          "delete from BuyPrice", "delete from BackStore", "delete from SellChange",
          "delete from DayAmount", "delete from OtherOut", "delete from FactoryBackTotal"})
        db.Excute(QString::fromLatin1(st), isErr);
}

void frmMain::Calculate() {
    if (!ExternalTools::StartFirst(ExternalTools::Calculators()))
        MsgBox::Info(QStringLiteral("该工具可能已被系统删除！"));
}

void frmMain::Note() {
    if (!ExternalTools::StartFirst(ExternalTools::Editors()))
        MsgBox::Info(QStringLiteral("该工具可能已被系统删除！"));
}

bool frmMain::ReadBackupSetting(QString& target, bool& isSave) {
    target.clear();
    isSave = false;
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("Select * from FileSave"), isErr);
    if (isErr) return false;
    if (rs.Eof()) {
        MsgBox::Info(QStringLiteral("数据库被修改，请联系软件商！"));
        return false;
    }
    // A null counts as 0; the parts are joined with nothing between them.
    const QString dir = rs.IsNull("dirpath") ? QStringLiteral("0") : rs.Text("dirpath");
    const QString name = rs.IsNull("FileName") ? QStringLiteral("0") : rs.Text("FileName");
    target = dir + name + QStringLiteral(".mdb");
    isSave = !rs.IsNull("isSave") && rs.Text("isSave") != "0";
    return true;
}

void frmMain::closeEvent(QCloseEvent* e) {
    if (!MsgBox::AskYes(QStringLiteral("确认要退出系统吗？"), QStringLiteral("提示"))) {
        e->ignore();
        return;
    }
    Guard::Run([] {
        QString target;
        bool isSave = false;
        if (!ReadBackupSetting(target, isSave) || !isSave) return;
        const QString source = clsDbopt::DataFilePath();
        // The connection is closed before the file is copied.
        Session::ReleaseDb();
        if (QFile::exists(target)) QFile::remove(target);
        QFile src(source);
        if (!src.copy(target)) {
            // Reported as the copy's run-time error; the system still closes.
            const bool folderThere = QFileInfo(target).absoluteDir().exists();
            throw RuntimeError(folderThere ? QStringLiteral("运行时错误 '75':\n\n路径/文件访问错误")
                                           : QStringLiteral("运行时错误 '76':\n\n路径未找到"));
        }
    });
    e->accept();
}

void frmMain::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);  // the picture stays centred by its layout
}
