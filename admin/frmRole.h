#pragma once
// The roles and their rights: a list of role names, and a tree of check
// boxes with one node per right of the selected role.
#include <memory>

#include "Form.h"

namespace Ui {
class frmRole;
}
class QTreeWidgetItem;

class frmRole : public Form {
    Q_OBJECT
public:
    explicit frmRole(QWidget* parent = nullptr);
    ~frmRole() override;

    Ui::frmRole* ui() { return ui_.get(); }
    bool Adding() const { return adding_; }
    bool Editing() const { return editing_; }
    // The tree node of a right by its key (the Role column's name).
    QTreeWidgetItem* Node(const QString& key) const;
    static QString NodeKey(const QTreeWidgetItem* node);

private:
    void LoadRoleTree();
    void LoadRoleGrid();
    void ShowRights(bool ToTree);
    void ClearRights();
    bool RoleExists(const QString& name, bool adding);
    QList<QTreeWidgetItem*> Nodes() const;
    void setChecked(QTreeWidgetItem* node, bool on);
    void setBrowse();

    void Grid_RowColChange();
    void Node_Check(QTreeWidgetItem* node);
    void Add_Click();
    void Edit_Click();
    void Del_Click();
    void Cancel_Click();
    void Save_Click();

    std::unique_ptr<Ui::frmRole> ui_;
    bool adding_ = false;
    bool editing_ = false;
    int treeBusy_ = 0;  // nodes set by the window, not checked by the user
    int lastRow_ = -1;
    int lastCol_ = -1;
};
