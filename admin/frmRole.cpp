#include "frmRole.h"

#include <QTreeWidget>

#include "AdminToolbar.h"
#include "ModMain.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "ui_frmRole.h"

namespace {

const QString kTitle = QStringLiteral("提示");

// The rights in the order the tree shows them: key (Role column), caption.
const std::pair<const char*, const char*> kRights[] = {
    {"Data", "数据维护"},
    {"ReStart", "重新开始"},
    {"UserManage", "角色管理"},
    {"SellRole", "系统参数规则"},
    {"ChangeShop", "店面管理"},
    {"BuyIn", "进货"},
    {"Sell", "售货"},
    {"ClientChange", "客户调换"},
    {"ClientBack", "客户退货"},
    {"Question", "问题鞋"},
    {"FactoryBack", "厂家退货"},
    {"SellBlankOut", "销售作废"},
    {"ChangePrice", "价格变动"},
    {"OtherOut", "营业外支出"},
    {"StoreQuery", "库存查询"},
    {"SellQuery", "销售查询"},
    {"SellGroup", "销售排行"},
    {"BuyDetail", "进货明细"},
    {"ClientChangeQuery", "客户退换查询"},
    {"FactoryBackQuery", "厂家退货查询"},
    {"BlankOutQuery", "销售作废查询"},
    {"OtherOurQuery", "营业外支出查询"},
    {"DayAmount", "日结算"},
    {"TotalAmount", "结算汇总"},
    {"Profit", "利润分析"},
};

constexpr int kKeyRole = Qt::UserRole;

}  // namespace

frmRole::frmRole(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmRole>()) {
    ui_->setupUi(this);
    AdminToolbar::SetIcons(ui_->Toolbar);
    VSGrid* grid = ui_->VSFlexGrid;
    grid->setRowChangeAllowed([this] { return !adding_ && !editing_; });

    On(ui_->Add, &QAction::triggered, this, [this] { Add_Click(); });
    On(ui_->Edit, &QAction::triggered, this, [this] { Edit_Click(); });
    On(ui_->Del, &QAction::triggered, this, [this] { Del_Click(); });
    On(ui_->Cancel, &QAction::triggered, this, [this] { Cancel_Click(); });
    On(ui_->Save, &QAction::triggered, this, [this] { Save_Click(); });
    On(ui_->TreeView, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* node, int) {
        if (treeBusy_ == 0) Node_Check(node);
    });

    LoadRoleTree();
    LoadRoleGrid();
    ui_->Cancel->setEnabled(false);
    ui_->Save->setEnabled(false);
    ShowRights(true);
    ui_->txtRole->setText(grid->Row() > 0 ? grid->TextMatrix(grid->Row(), 2) : QString());
    lastRow_ = grid->Row();
    lastCol_ = grid->Col();
    On(grid, &VSGrid::RowColChange, this, [this] { Grid_RowColChange(); });
}

frmRole::~frmRole() = default;

QString frmRole::NodeKey(const QTreeWidgetItem* node) {
    return node ? node->data(0, kKeyRole).toString() : QString();
}

QList<QTreeWidgetItem*> frmRole::Nodes() const {
    QList<QTreeWidgetItem*> all;
    for (QTreeWidgetItemIterator it(ui_->TreeView); *it; ++it) all << *it;
    return all;
}

QTreeWidgetItem* frmRole::Node(const QString& key) const {
    for (QTreeWidgetItem* n : Nodes())
        if (NodeKey(n) == key) return n;
    return nullptr;
}

void frmRole::setChecked(QTreeWidgetItem* node, bool on) {
    ++treeBusy_;
    node->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    --treeBusy_;
}

void frmRole::LoadRoleTree() {
    ++treeBusy_;
    QTreeWidget* tree = ui_->TreeView;
    tree->clear();
    auto* root = new QTreeWidgetItem(tree, QStringList(QStringLiteral("全部权限")));
    root->setData(0, kKeyRole, QStringLiteral("AllList"));
    root->setCheckState(0, Qt::Unchecked);
    for (const auto& [key, caption] : kRights) {
        auto* n = new QTreeWidgetItem(root, QStringList(QString::fromUtf8(caption)));
        n->setData(0, kKeyRole, QString::fromLatin1(key));
        n->setCheckState(0, Qt::Unchecked);
    }
    root->setExpanded(true);
    --treeBusy_;
}

void frmRole::LoadRoleGrid() {
    VSGrid* grid = ui_->VSFlexGrid;
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("Select * from Role "), isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    grid->Bind(rs);
    SetGridCols(grid, 5000);
    if (grid->Cols() > 2) grid->setTextMatrix(0, 2, QStringLiteral("角色名称"));
    for (int c = 1; c < grid->Cols(); ++c) grid->setColHidden(c, c != 2);
}

void frmRole::ShowRights(bool ToTree) {
    VSGrid* grid = ui_->VSFlexGrid;
    if (grid->Rows() < 2) {
        ClearRights();
        ui_->txtRole->clear();
        return;
    }
    const int row = grid->Row();
    for (QTreeWidgetItem* n : Nodes()) {
        const int col = grid->ColIndex(NodeKey(n));
        if (col < 0) continue;
        if (ToTree)
            setChecked(n, grid->TextMatrix(row, col) == QLatin1String("-1"));
        else
            grid->setTextMatrix(
                row, col,
                n->checkState(0) == Qt::Checked ? QStringLiteral("-1") : QStringLiteral("0"));
    }
}

void frmRole::ClearRights() {
    for (QTreeWidgetItem* n : Nodes()) setChecked(n, false);
}

bool frmRole::RoleExists(const QString& name, bool adding) {
    // The name goes in as typed: a quote in it makes the read fail.
    QString sql = "Select * from Role Where Name='" + name + "'";
    if (!adding) {
        VSGrid* grid = ui_->VSFlexGrid;
        sql += " And GUID<>'" + grid->TextMatrix(grid->Row(), 1) + "'";
    }
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return false;
    }
    return !rs.Eof();
}

void frmRole::setBrowse() {
    ui_->Add->setEnabled(true);
    ui_->Edit->setEnabled(true);
    ui_->Del->setEnabled(true);
    ui_->Cancel->setEnabled(false);
    ui_->Save->setEnabled(false);
    ui_->txtRole->setReadOnly(true);
}

void frmRole::Grid_RowColChange() {
    VSGrid* grid = ui_->VSFlexGrid;
    const int row = grid->Row(), col = grid->Col();
    // Moving along the same row is no change of role.
    const bool sameRowOtherCol = row == lastRow_ && col != lastCol_;
    lastRow_ = row;
    lastCol_ = col;
    if (sameRowOtherCol) return;
    ShowRights(true);
    ui_->txtRole->setText(row > 0 ? grid->TextMatrix(row, 2) : QString());
}

void frmRole::Node_Check(QTreeWidgetItem* node) {
    // Checking a right while browsing starts editing the role.
    if (!adding_ && !editing_) Edit_Click();
    const bool on = node->checkState(0) == Qt::Checked;
    const QList<QTreeWidgetItem*> nodes = Nodes();
    if (!node->parent()) {
        for (QTreeWidgetItem* n : nodes) setChecked(n, on);
        return;
    }
    QTreeWidgetItem* all = Node(QStringLiteral("AllList"));
    const QString key = NodeKey(node);
    for (QTreeWidgetItem* n : nodes) {
        if (on) {
            if (node->parent()->checkState(0) != Qt::Checked) setChecked(node->parent(), true);
            if (all && all->checkState(0) != Qt::Checked) setChecked(all, true);
        }
        if (n->parent() && NodeKey(n->parent()) == key) setChecked(n, on);
    }
}

void frmRole::Add_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    grid->AddItem(QString());
    grid->setRow(grid->Rows() - 1);
    grid->ShowCell(grid->Rows() - 1, 2);
    ui_->Add->setEnabled(false);
    ui_->Edit->setEnabled(false);
    ui_->Del->setEnabled(false);
    ui_->Cancel->setEnabled(true);
    ui_->Save->setEnabled(true);
    adding_ = true;
    editing_ = false;
    ui_->txtRole->setFocus();
    ui_->txtRole->setReadOnly(false);
}

void frmRole::Edit_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    if (grid->TextMatrix(grid->Row(), 1) == kAdminRole) {
        MsgBox::Info(QStringLiteral("对不起不能编辑管理员角色！"), kTitle);
        grid->setFocus();
        return;
    }
    ui_->Add->setEnabled(false);
    ui_->Edit->setEnabled(false);
    ui_->Del->setEnabled(false);
    ui_->Cancel->setEnabled(true);
    ui_->Save->setEnabled(true);
    editing_ = true;
    adding_ = false;
    ui_->txtRole->setReadOnly(false);
}

void frmRole::Save_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    const QString typed = ui_->txtRole->text();
    const QString name = ReplaceQuote(typed);
    if (typed.isEmpty()) {
        MsgBox::Info(QStringLiteral("角色名称不能为空！"), kTitle);
        ui_->txtRole->setFocus();
        return;
    }
    if (RoleExists(typed, adding_)) {
        MsgBox::Info(QStringLiteral("该角色已经存在！"), kTitle);
        ui_->txtRole->setFocus();
        return;
    }
    ShowRights(false);
    const int row = grid->Row();
    auto bit = [&](int col) {
        return grid->TextMatrix(row, col) == QLatin1String("-1") ? QStringLiteral("1")
                                                                 : QStringLiteral("0");
    };
    QString sql;
    if (adding_) {
        const QString guid = Session::NewGUID().GUID();
        grid->setTextMatrix(row, 2, typed);
        grid->setTextMatrix(row, 1, guid);
        QStringList values;
        for (int c = 3; c < grid->Cols(); ++c) values << bit(c);
        sql = "Insert Into Role Values ('" + guid + "','" + name + "'," + values.join(',') + ")";
    } else {
        grid->setTextMatrix(row, 2, typed);
        QStringList sets;
        for (int c = 3; c < grid->Cols(); ++c) sets << grid->TextMatrix(0, c) + "=" + bit(c);
        sql = "Update Role Set Name='" + name + "'," + sets.join(',') + " Where GUID='" +
              grid->TextMatrix(row, 1) + "'";
    }
    bool isErr = false;
    Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    setBrowse();
    adding_ = false;
    editing_ = false;
}

void frmRole::Cancel_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    if (adding_) {
        adding_ = false;
        grid->RemoveItem(grid->Row());
        if (grid->Rows() > 1) grid->setRow(grid->Rows() - 1);
    }
    if (editing_) {
        ShowRights(true);
        ui_->txtRole->setText(grid->Row() > 0 ? grid->TextMatrix(grid->Row(), 2) : QString());
        editing_ = false;
    }
    setBrowse();
}

void frmRole::Del_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    if (grid->TextMatrix(grid->Row(), 1) == kAdminRole) {
        MsgBox::Info(QStringLiteral("对不起不能删除管理员角色！"), kTitle);
        return;
    }
    if (!MsgBox::AskYes(QStringLiteral("如果要删除该角色那么该角色下的用户也将一并删除？"), kTitle,
                        MsgBox::Icon::None))
        return;
    const int row = grid->Row();
    const QString guid = grid->TextMatrix(row, 1);
    grid->RemoveItem(row);
    if (grid->Rows() < 2) {
        ui_->txtRole->clear();
        ClearRights();
    } else {
        if (row == 1)
            grid->setRow(1);
        else if (row < grid->Rows())
            grid->setRow(row);
        else
            grid->setRow(grid->Rows() - 1);
        ShowRights(true);
        ui_->txtRole->setText(grid->TextMatrix(grid->Row(), 2));
    }
    // Both deletes go to the engine as one text.
    const QString sql = "Delete  from Role Where GUID='" + guid + "'\r\n" +
                        "Delete from 用户表 where RoleGUID='" + guid + "'";
    bool isErr = false;
    Session::Dbopt().Excute(sql, isErr);
    if (isErr) MsgBox::ReadFail();
}
