#pragma once
// Drives the sale window as a clerk does: shown, active, keys to the control
// that has the focus.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "VSGrid.h"
#include "frmSell.h"
#include "ui_frmSell.h"

struct SaleWindow {
    frmSell w;
    Ui::frmSell* ui;

    SaleWindow() : ui(w.ui()) {
        w.show();
        QApplication::setActiveWindow(&w);
        (void)QTest::qWaitForWindowActive(&w);
    }

    QWidget* Focus() const { return QApplication::focusWidget(); }

    // A key to the control that has the focus.
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    // A key to a control, after giving it the focus.
    void KeyIn(QWidget* control, Qt::Key key) {
        control->setFocus();
        QTest::keyClick(control, key);
    }
    void Enter(QWidget* control) { KeyIn(control, Qt::Key_Return); }

    // Narrows the goods list to an article number and states the line.
    void Find(const QString& typeNo) { ui->txtNo->setText(typeNo); }
    // One line at a discount ("全" or a number), Enter in the discount box.
    void SellAt(const QString& typeNo, const QString& qty, const QString& abate) {
        Find(typeNo);
        ui->txtQuatity->setText(qty);
        ui->txtAbate->setFocus();
        ui->txtAbate->setText(abate);
        QTest::keyClick(ui->txtAbate, Qt::Key_Return);
    }
    // One line at a special price, Enter in the special price box.
    void SellSpecial(const QString& typeNo, const QString& qty, const QString& price) {
        Find(typeNo);
        ui->txtQuatity->setText(qty);
        ui->txtChangePrice->setFocus();
        ui->txtChangePrice->setText(price);
        QTest::keyClick(ui->txtChangePrice, Qt::Key_Return);
    }

    int Pieces() const { return ui->VSSell->Rows() - 1; }
    QString Basket(int row, const QString& key) const { return ui->VSSell->Cell(row, key); }
    QString LastAmount() const { return Basket(Pieces(), "应收金额"); }
};
