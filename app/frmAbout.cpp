#include "frmAbout.h"

#include "ExternalTools.h"
#include "MsgBox.h"
#include "On.h"
#include "ui_frmAbout.h"

frmAbout::frmAbout(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    setWindowTitle(QStringLiteral("关于 ") + MsgBox::AppTitle());
    ui_->lblTitle->setText(MsgBox::AppTitle());
    ui_->lblVersion->setText(QStringLiteral("版本 ") + QStringLiteral("2.0.0"));
    On(ui_->cmdOK, &QPushButton::clicked, this, [this] { accept(); });
    On(ui_->cmdSysInfo, &QPushButton::clicked, this, [] {
        if (!ExternalTools::StartFirst(SystemInfoTools()))
            MsgBox::Show(QStringLiteral("此时系统信息不可用"), MsgBox::Icon::None,
                         MsgBox::Buttons::Ok);
    });
}

frmAbout::~frmAbout() = default;

const QStringList& frmAbout::SystemInfoTools() {
    static const QStringList tools = {"gnome-system-monitor", "ksysguard",
                                      "plasma-systemmonitor", "hardinfo",
                                      "xfce4-taskmanager",    "lxtask"};
    return tools;
}
