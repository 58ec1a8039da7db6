#pragma once
// Helpers of the sales tests: the sale window driven as a clerk does, a
// receipt printer that records, and short looks at boxes and data.
#include <QApplication>
#include <QTest>
#include <memory>

#include "MsgRecorder.h"
#include "TestDb.h"
#include "TextPrinter.h"
#include "VSGrid.h"
#include "frmSell.h"
#include "ui_frmSell.h"

// The boxes shown since the last look, as kind and text: "I:" information,
// "W:" warning, "E:" error, "Q:" question.
inline QStringList Said(MsgRecorder& rec) {
    QStringList out;
    for (const MsgBox::Box& b : rec.Take()) out << QChar("-IWEQ"[int(b.icon)]) + (":" + b.text);
    return out;
}

// The first field of each row of a query.
inline QStringList Column(const QString& sql) {
    QStringList out;
    for (Recordset rs = TestDb::Query(sql); !rs.Eof(); rs.MoveNext()) out << rs.Text(0);
    return out;
}

// Stands in for the receipt printer: records each operation ("size 10",
// "bold 1", "print", "end") and each text.
struct RecordingPrinter : TextPrinter {
    QStringList ops, texts;
    void SetFontSize(float size) override { Step("size " + QString::number(double(size))); }
    void SetBold(bool on) override { Step(on ? "bold 1" : "bold 0"); }
    void Print(const QString& text) override { Step("print"), texts << text; }
    void EndDoc() override { Step("end"); }
    void Step(const QString& op) { ops << op; }
};

// Installs a recording printer for the life of the object.
struct PrinterScope {
    std::unique_ptr<RecordingPrinter> made = std::make_unique<RecordingPrinter>();
    RecordingPrinter* printer = made.get();
    std::unique_ptr<TextPrinter> old = TextPrinter::SetCurrent(std::move(made));
    ~PrinterScope() { TextPrinter::SetCurrent(std::move(old)); }
    RecordingPrinter* operator->() { return printer; }
};

struct SaleWindow {
    frmSell w;
    Ui::frmSell* ui;

    SaleWindow() : ui(w.ui()) {
        w.show();
        QApplication::setActiveWindow(&w);
        (void)QTest::qWaitForWindowActive(&w);
    }

    QWidget* Focus() const { return QApplication::focusWidget(); }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void Enter(QWidget* control) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
    }
    // A line: Enter in the discount box ("全" or a number), or with special,
    // in the special price box.
    void Sell(const QString& typeNo, const QString& qty, const QString& value,
              bool special = false) {
        ui->txtNo->setText(typeNo);
        ui->txtQuatity->setText(qty);
        QLineEdit* box = special ? ui->txtChangePrice : ui->txtAbate;
        box->setFocus();
        box->setText(value);
        QTest::keyClick(box, Qt::Key_Return);
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
