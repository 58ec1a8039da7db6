// Other expenses: recording one with its checks, the list with its grand
// total, and deleting single rows.
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
    void recordingChecks() {
        TestDb db;
        MsgRecorder rec;
        frmOtherOut w;
        auto* u = w.ui();
        QCOMPARE(u->comItem->currentText(), QString("房租"));
        const auto save = [&](const QString& amount) {
            u->txtAmount->setText(amount);
            u->cmdQuery->click();
            return Said(rec);
        };
        QCOMPARE(save("12abc"), QStringList{"I:请按规矩办事！"});
        QCOMPARE(save(""), QStringList{"I:请按规矩办事！"});
        QCOMPARE(save("-5"), QStringList{"I:不能作弊"});
        QCOMPARE(TestDb::Count("OtherOut"), 0);

        u->DT->setDate(QDate(2026, 3, 8));
        u->txtMemo->setText("O'Neil's");
        QCOMPARE(save("1200.5"), QStringList{"I:保存成功！"});
        QCOMPARE(u->txtAmount->text() + u->txtMemo->text(), QString());
        QCOMPARE(u->comItem->currentText() + " " + DateText::Of(u->DT->date()),
                 QString("房租 2026-03-08"));
        // The amount is the leading number of the text: "1,000" passes the
        // number test and is stored as 1. An empty item is taken, a zero too.
        u->comItem->setEditText("Joe's");
        QCOMPARE(save("1,000"), QStringList{"I:保存成功！"});
        u->comItem->setEditText("");
        QCOMPARE(save("0"), QStringList{"I:保存成功！"});

        QStringList rows;
        for (Recordset rs = TestDb::Query("Select * from OtherOut"); !rs.Eof(); rs.MoveNext()) {
            QStringList f;
            for (int i = 1; i < rs.FieldCount(); ++i) f << rs.Text(i);
            rows << f.join('|');
        }
        const QString shop = Session::ShopNo + "|本店|";
        QCOMPARE(rows, QStringList({shop + "房租|1200.5|2026-03-08|O'Neil's|管理员",
                                    shop + "Joe's|1|2026-03-08||管理员",
                                    shop + "|0|2026-03-08||管理员"}));
        CS_NO_LEFTOVER_BOXES(rec);
    }

    // The grand total stands below the rows with its caption in the hidden
    // key column; a delete on it, on the header or on an empty list does
    // nothing, a delete on a row takes it out at once.
    void listAndDelete() {
        TestDb db;
        MsgRecorder rec;
        const auto add = [](const QString& guid, const QString& date, const QString& amount) {
            TestDb::Exec("Insert Into OtherOut Values('" + guid + "','" + Session::ShopNo +
                         "','本店','房租'," + amount + ",'" + date + "','','管理员')");
        };
        add("g1", Day(-1), "300");
        add("g2", Day(-3), "120.5");
        add("g3", Day(-30), "5");
        add("g4", Day(0), "1");
        TestDb::Exec("Update OtherOut Set ShopNo='{OTHER}' Where GUID='g4'");

        frmOtherOutQuery w;
        auto* u = w.ui();
        VSGrid* g = u->VSSell;
        QVERIFY(g->ColHidden(1));
        u->cmdDel->click();  // nothing listed
        u->DTBeginTime->setDate(QDate::currentDate().addDays(-7));
        u->cmdQuery->click();
        QVERIFY(g->ColHidden(1));
        QCOMPARE(Cells(g, 1), QStringList({"g2", "g1", "总合计"}));
        QCOMPARE(Cells(g, "金额"), QStringList({"120.5", "300", "420"}));

        g->setRow(3);
        u->cmdDel->click();
        QCOMPARE(g->Rows(), 4);
        g->setRow(1);
        u->cmdDel->click();
        QCOMPARE(Cells(g, 1), QStringList({"g1", "总合计"}));
        QCOMPARE(g->Cell(2, "金额"), QString("420"));
        QCOMPARE(Column("Select GUID from OtherOut Order By GUID"), QString("g1/g3/g4"));

        u->DTBeginTime->setDate(QDate::currentDate());
        u->cmdQuery->click();
        QCOMPARE(g->Rows(), 1);
        u->cmdDel->click();
        QCOMPARE(TestDb::Count("OtherOut"), 3);
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestOtherOut)
#include "tst_otherout.moc"
