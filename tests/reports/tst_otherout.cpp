// Other expenses: the checks of an entry, the list with its grand total, and
// deleting single rows.
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>

#include "ReportData.h"
#include "TestRegistry.h"
#include "frmOtherOut.h"
#include "frmOtherOutQuery.h"
#include "ui_frmOtherOut.h"
#include "ui_frmOtherOutQuery.h"

class TestOtherOut : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The amount is the leading number of a numeric text ("1,000" is 1);
    // quotes are stored as typed; the item and the date stay for the next.
    void entryChecks() {
        TestDb db;
        MsgRecorder rec;
        frmOtherOut w;
        auto* u = w.ui();
        const auto save = [&](const QString& item, const QString& amount) {
            u->comItem->setEditText(item);
            u->txtAmount->setText(amount);
            u->cmdQuery->click();
            return Said(rec);
        };
        QList<QStringList> said;  // the boxes of each save
        for (const char* amount : {"12abc", "", "-5"}) said << save("房租", amount);
        u->DT->setDate(QDate(2026, 3, 8));
        u->txtMemo->setText("O'Neil");
        said << save("Joe's", "1,000");
        said << save("", "0");
        COMPARE_ROWS(said, {"I:请按规矩办事！", "I:请按规矩办事！", "I:不能作弊", "I:保存成功！",
                            "I:保存成功！"});
        QCOMPARE(QStringList({u->txtAmount->text(), u->txtMemo->text()}), QStringList({"", ""}));
        QCOMPARE(u->DT->date(), QDate(2026, 3, 8));
        COMPARE_ROWS(Rows("Select Item,Amount,Memo,[DateTime],OptName from OtherOut"),
                     {"Joe's|1|O'Neil|2026-03-08|管理员", "|0||2026-03-08|管理员"});
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The total row's caption lies in the hidden key column: a delete there,
    // or with nothing listed, does nothing; on a row it deletes at once and
    // the total keeps the old sum.
    void listAndDelete() {
        TestDb db;
        MsgRecorder rec;
        for (const QString& row : {"'g1','" + Day(-1) + "',300", "'g2','" + Day(-3) + "',120.5",
                                   "'g3','" + Day(-30) + "',5"})
            TestDb::Exec("Insert Into OtherOut (GUID,[DateTime],Amount,ShopNo) Values(" + row +
                         ",'" + Session::ShopNo + "')");
        frmOtherOutQuery w;
        auto* u = w.ui();
        VSGrid* g = u->VSSell;
        u->cmdDel->click();
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        u->cmdQuery->click();
        QVERIFY(g->ColHidden(1));
        QCOMPARE(Cells(g, "GUID") + Cells(g, "金额"),
                 QStringList({"g2", "g1", "总合计", "120.5", "300", "420"}));
        g->setRow(3);
        u->cmdDel->click();
        g->setRow(1);
        u->cmdDel->click();
        QCOMPARE(Cells(g, "GUID") + Cells(g, "金额"), QStringList({"g1", "总合计", "300", "420"}));
        QCOMPARE(TestDb::Count("OtherOut"), 2);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestOtherOut)
#include "tst_otherout.moc"
