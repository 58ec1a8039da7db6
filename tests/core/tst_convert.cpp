// Amounts, prices and quantities: the conversions every window relies on.
#include <QTest>

#include "Convert.h"
#include "RuntimeError.h"
#include "TestRegistry.h"

using namespace Convert;

class TestConvert : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numericTest_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("numeric");
        QTest::newRow("int") << "12" << true;
        QTest::newRow("blanks around") << "  12 " << true;
        QTest::newRow("decimal") << "8.5" << true;
        QTest::newRow("leading dot") << ".5" << true;
        QTest::newRow("negative") << "-2" << true;
        QTest::newRow("plus sign") << "+5" << true;
        QTest::newRow("thousands") << "1,000" << true;
        QTest::newRow("exponent") << "1e3" << true;
        QTest::newRow("hex") << "&H1F" << true;
        QTest::newRow("trailing rubbish") << "12a" << false;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("blank") << "   " << false;
        QTest::newRow("sign only") << "-" << false;
        QTest::newRow("dot only") << "." << false;
        QTest::newRow("word") << "全" << false;
        QTest::newRow("leading comma") << ",5" << false;
        QTest::newRow("two dots") << "1.2.3" << false;
        QTest::newRow("inner blank") << "1 2" << false;
    }
    void numericTest() {
        QFETCH(QString, text);
        QFETCH(bool, numeric);
        QCOMPARE(IsNumeric(text), numeric);
        // The strict conversion agrees with the test.
        bool threw = false;
        try {
            CDbl(text);
        } catch (const RuntimeError&) {
            threw = true;
        }
        QCOMPARE(threw, !numeric);
    }

    void leadingNumber() {
        QCOMPARE(Val(""), 0.0);
        QCOMPARE(Val("12a"), 12.0);
        QCOMPARE(Val("1,000"), 1.0);  // the comma ends the number
        QCOMPARE(Val(" 1 2 3"), 123.0);
        QCOMPARE(Val("-8.5x"), -8.5);
        QCOMPARE(Val("全"), 0.0);
        QCOMPARE(Val("2e2b"), 200.0);
        QCOMPARE(Val("3e"), 3.0);
        QCOMPARE(Val(".5"), 0.5);
    }

    void strictConversionOfCommaAndCost() {
        // "1,000" is a cost of 1000 but a retail price of 1.
        QCOMPARE(CSng("1,000"), 1000.0f);
        QCOMPARE(float(Val("1,000")), 1.0f);
    }

    void bankersRoundingThrough16Bits() {
        QCOMPARE(CInt(2.5), int16_t(2));
        QCOMPARE(CInt(3.5), int16_t(4));
        QCOMPARE(CInt(-2.5), int16_t(-2));
        QCOMPARE(CInt(84.15), int16_t(84));
        QCOMPARE(CInt(22.5), int16_t(22));
        QCOMPARE(CInt(13.5), int16_t(14));
        QCOMPARE(CInt("99.5"), int16_t(100));
        QCOMPARE(CInt("98.5"), int16_t(98));
        QCOMPARE(CInt(32767.4), int16_t(32767));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, CInt(32767.5));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, CInt(-32768.6));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, CInt("abc"));
        QCOMPARE(CLng(70000.5), int32_t(70000));
    }

    void discountUsesThirtyTwoBitFactor() {
        // 50 at 8.1: the factor held as a float makes 40.5000019, which gives 41.
        const float f = CSng("8.1");
        QCOMPARE(CInt(50.0 * double(f) / 10.0), int16_t(41));
        QCOMPARE(CInt(50.0 * 8.1 / 10.0), int16_t(40));  // a double factor would give 40
    }

    void shortestText() {
        QCOMPARE(FloatText(84.0f), QString("84"));
        QCOMPARE(FloatText(0.1f), QString("0.1"));
        QCOMPARE(FloatText(CSng("12.345678")), QString("12.345678"));
        QCOMPARE(FloatText(CSng("123456789")), QString("123456790"));  // seven digits survive
        QCOMPARE(FloatText(-2.0f), QString("-2"));
        QCOMPARE(FloatText(-0.0f), QString("0"));
        QCOMPARE(FloatText(10000000.0f), QString("10000000"));
        // A double is written with at most 15 significant digits.
        QCOMPARE(DblText(0.1 + 0.2), QString("0.3"));
        QCOMPARE(DblText(99.9 - 84), QString("15.9"));
        QCOMPARE(DblText(-(99.9 - 84)), QString("-15.9"));
        QCOMPARE(DblText(123456789012.345), QString("123456789012.345"));
        QCOMPARE(DblText(1234567890123456789.0), QString("1234567890123460000"));
        QCOMPARE(DblText(0.000123456789012345678), QString("0.000123456789012346"));
        QCOMPARE(DblText(double(84.1f)), QString("84.0999984741211"));
        QCOMPARE(DblText(41.0), QString("41"));
    }

    void valuesFromTheStore() {
        QCOMPARE(VarText(QVariant()), QString());
        QCOMPARE(VarText(QVariant(40.5)), QString("40.5"));
        QCOMPARE(VarText(QVariant(qlonglong(-1))), QString("-1"));
        QCOMPARE(VarText(QVariant(QString("全"))), QString("全"));
        QCOMPARE(VarDbl(QVariant()), 0.0);
        QCOMPARE(VarDbl(QVariant(QString("5"))), 5.0);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, VarDbl(QVariant(QString("x"))));
    }

    void gridFormats() {
        QCOMPARE(Formatted(12.0, "d"), QString("12"));
        QCOMPARE(Formatted(12.5, "d"), QString("12"));
        QCOMPARE(Formatted(13.5, "d"), QString("14"));
        QCOMPARE(Formatted(3.14159, "0.00"), QString("3.14"));
        QCOMPARE(Formatted(2.5, ""), QString("2.5"));
    }
};

CS_TEST(TestConvert)
#include "tst_convert.moc"
