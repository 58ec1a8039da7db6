// A lookup list: adding, refusing doubles, deleting and where the selection goes.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "MsgRecorder.h"
#include "TestDb.h"
#include "TestRegistry.h"
#include "frmDataDictionary.h"
#include "ui_frmDataDictionary.h"

namespace {
QStringList entries(frmDataDictionary& f) {
    QStringList out;
    for (int i = 0; i < f.ui()->List->count(); ++i) out << f.ui()->List->item(i)->text();
    return out;
}
void add(frmDataDictionary& f, const QString& text) {
    f.ui()->txtItem->setText(text);
    QTest::keyClick(f.ui()->txtItem, Qt::Key_Return);
}
}  // namespace

class TestDictionary : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void addAndRefuse() {
        TestDb db;
        MsgRecorder rec;
        frmDataDictionary f;
        f.LoadIt("等级");
        QCOMPARE(f.windowTitle(), QString("数据字典--等级"));
        QCOMPARE(entries(f), (QStringList{"优等品", "一等品", "合格品"}));
        add(f, "");
        add(f, "一等品");
        QCOMPARE(rec.TakeTexts(), (QStringList{"内容不能为空！", "该内容已经存在！"}));
        add(f, "abc");
        add(f, "ABC");  // case counts
        add(f, "it's");
        QCOMPARE(entries(f).mid(3), (QStringList{"abc", "ABC", "it's"}));
        QCOMPARE(f.ui()->List->currentRow(), 5);
        QVERIFY(f.ui()->txtItem->text().isEmpty());
        QCOMPARE(TestDb::Count("DataDictionary", "Item='等级' and Content='it''s'"), 1);
        // Another list may hold the same content.
        frmDataDictionary g;
        g.LoadIt("产地");
        add(g, "abc");
        QCOMPARE(TestDb::Count("DataDictionary", "Item='产地' and Content='abc'"), 1);
        CS_NO_LEFTOVER_BOXES(rec);
    }

    void deleteAndSelection() {
        TestDb db;
        MsgRecorder rec;
        TestDb::Exec("Delete from DataDictionary where Item='等级'");
        frmDataDictionary f;
        f.LoadIt("等级");
        for (const char* t : {"a", "b", "c", "it's"}) add(f, t);
        // The last entry of several: the one before it is selected. A quote
        // leaves the row in the table (the statement breaks) but not on screen.
        f.ui()->List->setCurrentRow(3);
        f.ui()->cmdDel->click();
        QCOMPARE(rec.Take().size(), 1);  // the engine's text
        QCOMPARE(entries(f), (QStringList{"a", "b", "c"}));
        QCOMPARE(f.ui()->List->currentRow(), 2);
        QCOMPARE(TestDb::Count("DataDictionary", "Item='等级'"), 4);
        // One in the middle: the selection stays at its index.
        f.ui()->List->setCurrentRow(1);
        f.ui()->cmdDel->click();
        QCOMPARE(entries(f), (QStringList{"a", "c"}));
        QCOMPARE(f.ui()->List->currentRow(), 1);
        f.ui()->List->setCurrentRow(0);
        f.ui()->cmdDel->click();
        QCOMPARE(f.ui()->List->currentRow(), 0);
        f.ui()->cmdDel->click();
        QVERIFY(entries(f).isEmpty());
        QCOMPARE(f.ui()->List->currentRow(), -1);
        QCOMPARE(TestDb::Count("DataDictionary", "Item='等级'"), 1);  // only it's is left
        CS_NO_LEFTOVER_BOXES(rec);
    }
};

CS_TEST(TestDictionary)
#include "tst_dictionary.moc"
