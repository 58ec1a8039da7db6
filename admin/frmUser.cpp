#include "frmUser.h"

#include "AdminToolbar.h"
#include "ModMain.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "VSGrid.h"
#include "frmRole.h"
#include "ui_frmUser.h"

namespace {
const QString kTitle = QStringLiteral("提示");
}

frmUser::frmUser(QWidget* parent) : Form(parent), ui_(std::make_unique<Ui::frmUser>()) {
    ui_->setupUi(this);
    AdminToolbar::SetIcons(ui_->Toolbar);
    VSGrid* grid = ui_->VSFlexGrid;
    grid->setRowChangeAllowed([this] { return !adding_ && !editing_; });

    On(ui_->Add, &QAction::triggered, this, [this] { Add_Click(); });
    On(ui_->Edit, &QAction::triggered, this, [this] { Edit_Click(); });
    On(ui_->Del, &QAction::triggered, this, [this] { Del_Click(); });
    On(ui_->Cancel, &QAction::triggered, this, [this] { Cancel_Click(); });
    On(ui_->Save, &QAction::triggered, this, [this] { Save_Click(); });
    // Roles added through the "…" button show up the next time the list drops down.
    On(ui_->comRole, &DropDownCombo::DropDown, this, [this] { LoadRoles(); });
    On(ui_->cmdRole, &QPushButton::clicked, this, [this] {
        frmRole f(this);
        Modal::Show(&f);
    });

    LoadUserGrid();
    LoadRoles();
    EnableFields(false);
    if (ui_->comRole->count() > 0) ui_->comRole->setCurrentIndex(0);
    if (grid->Rows() > 1) ShowRow(true);
    ui_->Cancel->setEnabled(false);
    ui_->Save->setEnabled(false);
    lastRow_ = grid->Row();
    lastCol_ = grid->Col();
    On(grid, &VSGrid::RowColChange, this, [this] { Grid_RowColChange(); });
}

frmUser::~frmUser() = default;

void frmUser::LoadUserGrid() {
    VSGrid* grid = ui_->VSFlexGrid;
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(
        QStringLiteral("Select GUID,[No] as 工号,Name as 姓名,pwd as 密码,RoleGUID,RoleName as "
                       "角色 from [User]"),
        isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    grid->Bind(rs);
    for (int c : {1, 4, 5})
        if (c < grid->Cols()) grid->setColHidden(c, true);
    SetGridCols(grid, 2800);
}

void frmUser::LoadRoles() {
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(QStringLiteral("Select * from Role"), isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    QString guids, names;
    for (bool first = true; !rs.Eof(); rs.MoveNext(), first = false) {
        if (!first) {
            guids += ',';
            names += ',';
        }
        guids += rs.Text("GUID");
        names += rs.Text("Name");
    }
    // The box is rebuilt from nothing; a reloaded list has no selection.
    ui_->comRole->clear();
    roles_.Initial(ui_->comRole, guids, names, QString());
    ui_->comRole->setCurrentIndex(-1);
}

bool frmUser::NoExists(const QString& No, bool adding) {
    VSGrid* grid = ui_->VSFlexGrid;
    QString sql = "Select * from [User] Where [No]='" + No + "'";
    if (!adding) sql += " And GUID<>'" + grid->Cell(grid->Row(), QStringLiteral("GUID")) + "'";
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return false;
    }
    return !rs.Eof();
}

void frmUser::ShowRow(bool ToFields) {
    VSGrid* grid = ui_->VSFlexGrid;
    const int row = grid->Row();
    if (ToFields) {
        ui_->txtNo->setText(grid->TextMatrix(row, 2));
        ui_->txtName->setText(grid->TextMatrix(row, 3));
        ui_->txtPwd->setText(grid->TextMatrix(row, 4));
        roles_.setNo(grid->TextMatrix(row, 5));
    } else {
        grid->setTextMatrix(row, 2, ui_->txtNo->text());
        grid->setTextMatrix(row, 3, ui_->txtName->text());
        grid->setTextMatrix(row, 4, ui_->txtPwd->text());
        grid->setTextMatrix(row, 5, roles_.No());
        grid->setTextMatrix(row, 6, roles_.Caption());
    }
}

void frmUser::EnableFields(bool on) {
    ui_->txtName->setEnabled(on);
    ui_->txtNo->setEnabled(on);
    ui_->txtPwd->setEnabled(on);
    ui_->comRole->setEnabled(on);
}

void frmUser::ClearFields() {
    ui_->txtNo->clear();
    ui_->txtName->clear();
    ui_->txtPwd->clear();
    ui_->comRole->setCurrentIndex(-1);
}

void frmUser::setButtons(bool browsing) {
    ui_->Add->setEnabled(browsing);
    ui_->Edit->setEnabled(browsing);
    ui_->Del->setEnabled(browsing);
    ui_->Cancel->setEnabled(!browsing);
    ui_->Save->setEnabled(!browsing);
}

void frmUser::Grid_RowColChange() {
    VSGrid* grid = ui_->VSFlexGrid;
    const int row = grid->Row(), col = grid->Col();
    // Moving along the same row is no change of user.
    const bool sameRowOtherCol = row == lastRow_ && col != lastCol_;
    lastRow_ = row;
    lastCol_ = col;
    if (sameRowOtherCol || row < 1) return;
    ShowRow(true);
}

void frmUser::Add_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    grid->AddItem(QString());
    ClearFields();
    grid->setRow(grid->Rows() - 1);
    grid->ShowCell(grid->Rows() - 1, 2);
    setButtons(false);
    editing_ = false;
    adding_ = true;
    EnableFields(true);
    ui_->txtNo->setFocus();
}

void frmUser::Edit_Click() {
    setButtons(false);
    adding_ = false;
    editing_ = true;
    EnableFields(true);
}

void frmUser::Save_Click() {
    const QString no = ReplaceQuote(ui_->txtNo->text());
    const QString name = ReplaceQuote(ui_->txtName->text());
    const QString pwd = ReplaceQuote(ui_->txtPwd->text());
    const QString roleName = ReplaceQuote(ui_->comRole->currentText());
    if (no.isEmpty()) {
        MsgBox::Info(QStringLiteral("编号不能为空！"), kTitle);
        ui_->txtNo->setFocus();
        return;
    }
    if (NoExists(ui_->txtNo->text(), adding_)) {
        MsgBox::Info(QStringLiteral("编号已经存在！"), kTitle);
        ui_->txtNo->setFocus();
        return;
    }
    if (roles_.Caption().isEmpty()) {
        MsgBox::Info(QStringLiteral("请选择一个角色！"), kTitle);
        ui_->comRole->setFocus();
        return;
    }
    if (name.isEmpty()) {
        MsgBox::Info(QStringLiteral("姓名不能为空！"), kTitle);
        ui_->txtName->setFocus();
        return;
    }
    ShowRow(false);
    VSGrid* grid = ui_->VSFlexGrid;
    QString sql;
    if (adding_) {
        // The new key stays out of the grid: the row shows it only when the
        // window is opened again.
        const QString guid = Session::NewGUID().GUID();
        sql = "Insert Into [User] Values ('" + guid + "','" + no + "','" + name + "','" + pwd +
              "','" + roles_.No() + "','" + roleName + "')";
    } else {
        sql = "Update [User] Set [No]='" + no + "', Name='" + name + "', pwd='" + pwd +
              "', RoleGUID='" + roles_.No() + "',RoleName='" + roleName + "' Where GUID='" +
              grid->Cell(grid->Row(), QStringLiteral("GUID")) + "'";
    }
    bool isErr = false;
    Session::Dbopt().Excute(sql, isErr);
    if (isErr) {
        MsgBox::ReadFail();
        return;
    }
    setButtons(true);
    EnableFields(false);
    adding_ = false;
    editing_ = false;
}

void frmUser::Cancel_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    if (adding_) {
        adding_ = false;
        grid->RemoveItem(grid->Row());
        if (grid->Rows() > 1) grid->setRow(grid->Rows() - 1);
    }
    if (editing_) {
        editing_ = false;
        ShowRow(true);
    }
    setButtons(true);
    EnableFields(false);
}

void frmUser::Del_Click() {
    VSGrid* grid = ui_->VSFlexGrid;
    const int row = grid->Row();
    if (row < 1) return;
    if (grid->TextMatrix(row, 2) == Session::User().No) {
        MsgBox::Info(QStringLiteral("对不起不能删除该用户！"), kTitle);
        return;
    }
    if (!MsgBox::AskYes(QStringLiteral("是否要删除该记录！"), kTitle)) return;
    const QString guid = grid->Cell(row, QStringLiteral("GUID"));
    grid->RemoveItem(row);
    if (grid->Rows() < 2) {
        ClearFields();
    } else {
        if (row == 1)
            grid->setRow(1);
        else if (row < grid->Rows())
            grid->setRow(row);
        else
            grid->setRow(grid->Rows() - 1);
        ShowRow(true);
    }
    bool isErr = false;
    Session::Dbopt().Excute("Delete  from [User] Where GUID='" + guid + "'", isErr);
    if (isErr) MsgBox::ReadFail();
}
