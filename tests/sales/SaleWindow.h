#pragma once
// Drives the sale window as a clerk does: shown, active, keys to the control
// that has the focus.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "MsgRecorder.h"
#include "VSGrid.h"
#include "frmSell.h"
#include "ui_frmSell.h"

// The boxes shown since the last look, each as its kind and text:
// "I:" information, "W:" warning, "Q:" question, "E:" error, "-:" plain.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) {
        const char* kind = b.icon == MsgBox::Icon::Information   ? "I:"
                           : b.icon == MsgBox::Icon::Exclamation ? "W:"
                           : b.icon == MsgBox::Icon::Question    ? "Q:"
                           : b.icon == MsgBox::Icon::Critical    ? "E:"
                                                                 : "-:";
        out << kind + b.text;
    }
    return out;
}

struct SaleWindow {
    frmSell w;
    Ui::frmSell* ui;

    SaleWindow() : ui(w.ui()) {
        w.show();
        QApplication::setActiveWindow(&w);
        (void)QTest::qWaitForWindowActive(&w);
    }

    QWidget* Focus() const { return QApplication::focusWidget(); }
    // A key or text to the control that has the focus.
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    // Enter in a control, after giving it the focus.
    void Enter(QWidget* control) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
    }

    void Find(const QString& typeNo) { ui->txtNo->setText(typeNo); }
    // A line at a discount ("全" or a number): Enter in the discount box.
    void SellAt(const QString& typeNo, const QString& qty, const QString& abate) {
        Find(typeNo);
        ui->txtQuatity->setText(qty);
        ui->txtAbate->setFocus();
        ui->txtAbate->setText(abate);
        QTest::keyClick(ui->txtAbate, Qt::Key_Return);
    }
    // A line at a special price: Enter in the special price box.
    void SellSpecial(const QString& typeNo, const QString& qty, const QString& price) {
        Find(typeNo);
        ui->txtQuatity->setText(qty);
        ui->txtChangePrice->setFocus();
        ui->txtChangePrice->setText(price);
        QTest::keyClick(ui->txtChangePrice, Qt::Key_Return);
    }
    // Pays and confirms.
    void CheckOut(MsgRecorder& rec, const QString& paid) {
        ui->txtReciveAmout->setText(paid);
        rec.Yes();
        ui->cmdCheckOut->click();
    }

    int Pieces() const { return ui->VSSell->Rows() - 1; }
    QString LastAmount() const { return ui->VSSell->Cell(Pieces(), "应收金额"); }
};
