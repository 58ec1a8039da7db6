#include "frmDataDictionary.h"

#include <QKeyEvent>

#include "ModMain.h"
#include "Modal.h"
#include "MsgBox.h"
#include "On.h"
#include "Session.h"
#include "SqlText.h"
#include "ui_frmDataDictionary.h"

frmDataDictionary::frmDataDictionary(QWidget* parent)
    : Form(parent), ui_(std::make_unique<Ui::frmDataDictionary>()) {
    ui_->setupUi(this);
    On(ui_->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    On(ui_->txtItem, &QLineEdit::returnPressed, this, [this] { cmdAdd_Click(); });
    On(ui_->cmdDel, &QPushButton::clicked, this, [this] { cmdDel_Click(); });
}

frmDataDictionary::~frmDataDictionary() = default;

void frmDataDictionary::ShowFor(const QString& Item, QWidget* parent) {
    frmDataDictionary f(parent);
    f.LoadIt(Item);
    Modal::Show(&f);
}

void frmDataDictionary::AttachButton(QAbstractButton* button, const QString& Item, QComboBox* combo,
                                     QWidget* owner) {
    On(button, &QAbstractButton::clicked, owner, [Item, combo, owner] {
        ShowFor(Item, owner);
        FillCombo(Item, combo);
    });
}

void frmDataDictionary::LoadIt(const QString& Item) {
    item_ = Item;
    ui_->List->clear();
    bool isErr = false;
    Recordset rs = Session::Dbopt().Excute(
        "Select Content from Datadictionary Where Item='" + Item + "'", isErr);
    if (!isErr)
        for (; !rs.Eof(); rs.MoveNext()) ui_->List->addItem(rs.Text("Content"));
    setWindowTitle(QStringLiteral("数据字典--") + Item);
}

void frmDataDictionary::cmdAdd_Click() {
    const QString text = ui_->txtItem->text();
    if (text.isEmpty()) {
        MsgBox::Info(QStringLiteral("内容不能为空！"));
        ui_->txtItem->setFocus();
        return;
    }
    for (int i = 0; i < ui_->List->count(); ++i) {
        if (ui_->List->item(i)->text() == text) {
            MsgBox::Info(QStringLiteral("该内容已经存在！"));
            ui_->txtItem->setFocus();
            return;
        }
    }
    Session::Dbopt().Excute("Insert Into DataDictionary (Item,Content) Values ('" + item_ + "','" +
                            ReplaceQuote(text) + "')");
    ui_->List->addItem(text);
    ui_->List->setCurrentRow(ui_->List->count() - 1);
    ui_->txtItem->clear();
}

void frmDataDictionary::cmdDel_Click() {
    const int i = ui_->List->currentRow();
    const int n = ui_->List->count();
    const QString content = i >= 0 ? ui_->List->item(i)->text() : QString();
    // The entry goes in as it stands: one with a quote stays in the table.
    Session::Dbopt().Excute("Delete from Datadictionary Where Item='" + item_ + "' And Content ='" +
                            content + "'");
    if (i < 0) return;
    delete ui_->List->takeItem(i);
    if (i == 0 && n == 1) {
        ui_->List->setCurrentRow(-1);
    } else if (i == n - 1) {
        ui_->List->setCurrentRow(i - 1);
    } else {
        ui_->List->setCurrentRow(i);
    }
}
