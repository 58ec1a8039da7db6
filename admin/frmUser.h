#pragma once
// The users who may log in: a list with a form beside it, each user with a
// number, name, password and role.
#include <memory>

#include "Form.h"
#include "clsCombox.h"

namespace Ui {
class frmUser;
}

class frmUser : public Form {
    Q_OBJECT
public:
    explicit frmUser(QWidget* parent = nullptr);
    ~frmUser() override;

    Ui::frmUser* ui() { return ui_.get(); }
    bool Adding() const { return adding_; }
    bool Editing() const { return editing_; }
    // The role box's wrapper (the role GUID behind each name).
    const clsCombox& Roles() const { return roles_; }

private:
    void LoadUserGrid();
    void LoadRoles();
    bool NoExists(const QString& No, bool adding);
    void ShowRow(bool ToFields);
    void EnableFields(bool on);
    void ClearFields();
    void setButtons(bool browsing);

    void Grid_RowColChange();
    void Add_Click();
    void Edit_Click();
    void Del_Click();
    void Cancel_Click();
    void Save_Click();

    std::unique_ptr<Ui::frmUser> ui_;
    clsCombox roles_;
    bool adding_ = false;
    bool editing_ = false;
    int lastRow_ = -1;
    int lastCol_ = -1;
};
