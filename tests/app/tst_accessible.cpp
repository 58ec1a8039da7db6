// Screen readers and accessibility-based tools find a control by its
// accessible name: every control that can take the focus has one, from its
// own caption or from the label linked to it.
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QTest>
#include <QWidget>
#include <functional>
#include <memory>

#include "TestDb.h"
#include "TestRegistry.h"
#include "frmAbout.h"
#include "frmAmountTotal.h"
#include "frmBackChangeQuery.h"
#include "frmBackFactoryQuery.h"
#include "frmBackup.h"
#include "frmBlankOutQuery.h"
#include "frmBlankout.h"
#include "frmBuyIn.h"
#include "frmChange.h"
#include "frmChangePrice.h"
#include "frmChangePwd.h"
#include "frmChangeShop.h"
#include "frmClientBack.h"
#include "frmClientBackChange.h"
#include "frmDataDictionary.h"
#include "frmDayAmount.h"
#include "frmFactoryBack.h"
#include "frmGoodsProperty.h"
#include "frmLogin.h"
#include "frmMain.h"
#include "frmOtherOut.h"
#include "frmOtherOutQuery.h"
#include "frmPrint.h"
#include "frmProfit.h"
#include "frmPutIn.h"
#include "frmQuestion.h"
#include "frmReLogin.h"
#include "frmRole.h"
#include "frmSell.h"
#include "frmSellGroup.h"
#include "frmSellQuery.h"
#include "frmSellRole.h"
#include "frmShopSetting.h"
#include "frmStore.h"
#include "frmUser.h"
#include "frmbatchbuyIn.h"
#include "frmbuyInDetail.h"
#include "frmedit.h"

namespace {

// The focusable controls of a window that have no accessible name. Qt's own
// inner parts (the edit line of a date box, the bar of a tab control) speak
// through the control they belong to.
QStringList Unnamed(QWidget* window) {
    QStringList out;
    for (QWidget* w : window->findChildren<QWidget*>()) {
        if (w->focusPolicy() == Qt::NoFocus || w->objectName().startsWith(QLatin1String("qt_")) ||
            w->window() != window)
            continue;
        QWidget* parent = w->parentWidget();
        auto* area = qobject_cast<QAbstractScrollArea*>(parent);
        if (parent && (parent->focusProxy() == w || qobject_cast<QComboBox*>(parent) ||
                       qobject_cast<QAbstractSpinBox*>(parent) || (area && area->viewport() == w)))
            continue;
        QAccessibleInterface* a = QAccessible::queryAccessibleInterface(w);
        if (!a || a->text(QAccessible::Name).trimmed().isEmpty())
            out << QString::fromLatin1(w->metaObject()->className()) + ' ' + w->objectName();
    }
    return out;
}

using Make = std::function<std::unique_ptr<QWidget>()>;

template <typename T>
Make make() {
    return [] { return std::make_unique<T>(); };
}

}  // namespace

class TestAccessible : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyControlHasAName() {
        TestDb db;
        std::unique_ptr<frmBuyIn> buyIn = std::make_unique<frmBuyIn>();
        std::unique_ptr<frmChangeShop> shops = std::make_unique<frmChangeShop>();
        const QList<QPair<const char*, Make>> windows = {
            {"frmLogin", make<frmLogin>()},
            {"frmMain", make<frmMain>()},
            {"frmReLogin", make<frmReLogin>()},
            {"frmChangePwd", make<frmChangePwd>()},
            {"frmAbout", make<frmAbout>()},
            {"frmDataDictionary", make<frmDataDictionary>()},
            {"frmUser", make<frmUser>()},
            {"frmRole", make<frmRole>()},
            {"frmChangeShop", make<frmChangeShop>()},
            {"frmShopSetting",
             [&] { return std::unique_ptr<QWidget>(new frmShopSetting(shops.get())); }},
            {"frmBackup", make<frmBackup>()},
            {"frmBuyIn", make<frmBuyIn>()},
            {"frmGoodsProperty",
             [&] { return std::unique_ptr<QWidget>(new frmGoodsProperty(buyIn.get())); }},
            {"frmbatchbuyIn",
             [&] { return std::unique_ptr<QWidget>(new frmbatchbuyIn(buyIn.get())); }},
            {"frmbuyInDetail", make<frmbuyInDetail>()},
            {"frmedit", make<frmedit>()},
            {"frmChangePrice", make<frmChangePrice>()},
            {"frmPutIn", make<frmPutIn>()},
            {"frmSellRole", make<frmSellRole>()},
            {"frmSell", make<frmSell>()},
            {"frmBlankout", make<frmBlankout>()},
            {"frmBlankOutQuery", make<frmBlankOutQuery>()},
            {"frmClientBack", make<frmClientBack>()},
            {"frmClientBackChange", make<frmClientBackChange>()},
            {"frmChange", make<frmChange>()},
            {"frmQuestion", make<frmQuestion>()},
            {"frmFactoryBack", make<frmFactoryBack>()},
            {"frmBackFactoryQuery", make<frmBackFactoryQuery>()},
            {"frmBackChangeQuery", make<frmBackChangeQuery>()},
            {"frmDayAmount", make<frmDayAmount>()},
            {"frmAmountTotal", make<frmAmountTotal>()},
            {"frmProfit", make<frmProfit>()},
            {"frmStore", make<frmStore>()},
            {"frmSellQuery", make<frmSellQuery>()},
            {"frmSellGroup", make<frmSellGroup>()},
            {"frmOtherOut", make<frmOtherOut>()},
            {"frmOtherOutQuery", make<frmOtherOutQuery>()},
            {"frmPrint", make<frmPrint>()},
        };
        QStringList missing;
        for (const auto& [name, create] : windows) {
            std::unique_ptr<QWidget> w = create();
            for (const QString& control : Unnamed(w.get()))
                missing << QString::fromLatin1(name) + ": " + control;
        }
        for (const QString& m : missing) qWarning("%s", qPrintable(m));
        QCOMPARE(missing.size(), 0);
    }
};

CS_TEST(TestAccessible)
#include "tst_accessible.moc"
