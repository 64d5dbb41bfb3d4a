#include "engine/Value.h"

#include "support/TestMain.h"

#include <QtTest>

#include <limits>

using namespace host;

Q_DECLARE_METATYPE(host::Value)

/// The conversions that every part of the language leans on.
class ValueTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ConvertsBetweenKinds_data();
    void ConvertsBetweenKinds();
    void ShowsValuesAsText_data();
    void ShowsValuesAsText();
    void ReadsLeadingNumbers_data();
    void ReadsLeadingNumbers();
    void OnlyTextWithoutNumberIsInexact();
    void ArraysGiveTheirElementsAndNothingBeyond();
    void NamesOfKindsReadBack();
};

void ValueTest::ConvertsBetweenKinds_data()
{
    Columns<Value, int, double, bool>("value", "asInt", "asFloat", "asBool");
    const double huge = 1e300;
    Row("nothing is zero", Value(), 0, 0.0, false);
    Row("a yes is one", Value(true), 1, 1.0, true);
    Row("a fraction is cut toward zero", Value(-2.9), -2, -2.9, true);
    Row("a small fraction still counts as true", Value(0.25), 0, 0.25, true);
    Row("too large for an int gives the largest", Value(huge), std::numeric_limits<int>::max(),
        huge, true);
    Row("text gives its leading number", Value(QString("3.14abc")), 3, 3.14, true);
    Row("text without number is zero", Value(QString("abc")), 0, 0.0, false);
    Row("a vector gives its length", Value(Vector{3, 4, 0}), 5, 5.0, true);
    Row("an array gives zero", Value(IntList{7}), 0, 0.0, false);
}

void ValueTest::ConvertsBetweenKinds()
{
    QFETCH(Value, value);
    QTEST(value.ToInt(), "asInt");
    QTEST(value.ToFloat(), "asFloat");
    QTEST(value.ToBool(), "asBool");
}

void ValueTest::ShowsValuesAsText_data()
{
    Columns<Value, QString, QString>("value", "printed", "result");
    const Matrix matrix{2, 2, {3.14159, 2.3456781232131, 1, -0.5}};
    Row("a whole float has no point", Value(3.0), "3", "3");
    Row("ten digits", Value(1.0 / 3), "0.3333333333", "0.3333333333");
    Row("large exponent", Value(1e10), "1e+10", "1e+10");
    Row("small exponent", Value(0.00001), "1e-05", "1e-05");
    Row("vector", Value(Vector{1.2, 0, -3}), "1.2 0 -3", "1.2 0 -3");
    Row("matrix rows stand below each other", Value(matrix),
        "<< 3.14159, 2.345678123;\n   1, -0.5 >>", "<< 3.14159, 2.345678123;\n   1, -0.5 >>");
    Row("array", Value(StringList{"a", "b"}), "a\nb\n", "a b");
    Row("empty array shows nothing", Value(FloatList()), "", "");
    Row("vectors in an array", Value(VectorList{{1, 2, 3}, {4, 5, 6}}), "1 2 3\n4 5 6\n",
        "1 2 3 4 5 6");
}

void ValueTest::ShowsValuesAsText()
{
    QFETCH(Value, value);
    QTEST(value.ToPrintText(), "printed");
    QTEST(value.ToResultText(), "result");
}

void ValueTest::ReadsLeadingNumbers_data()
{
    Columns<QString, bool, double>("text", "found", "number");
    Row("after blanks", " \t12 apples", true, 12.0);
    Row("point without digits before", "-.5", true, -0.5);
    Row("point without digits behind", "7.", true, 7.0);
    Row("exponent", "1e3x", true, 1000.0);
    Row("an e without digits is no exponent", "2e+", true, 2.0);
    Row("point alone", ".", false, 0.0);
    Row("sign alone", "-", false, 0.0);
    Row("empty", "", false, 0.0);
    Row("word", "inf", false, 0.0);
}

void ValueTest::ReadsLeadingNumbers()
{
    QFETCH(QString, text);
    bool found = false;
    QTEST(LeadingNumber(text, &found), "number");
    QTEST(found, "found");
}

void ValueTest::OnlyTextWithoutNumberIsInexact()
{
    bool exact = false;
    Value(QString("12abc")).ToInt(&exact);
    QVERIFY(exact);
    Value(QString("abc")).ToInt(&exact);
    QVERIFY(!exact);
    Value(2.5).ToInt(&exact);
    QVERIFY(exact);
}

void ValueTest::ArraysGiveTheirElementsAndNothingBeyond()
{
    const Value array(StringList{"a", "b"});
    QCOMPARE(array.At(1), Value(QString("b")));
    QVERIFY(array.At(2).IsNone());
    QVERIFY(array.At(-1).IsNone());
    QCOMPARE(Value(5).At(0), Value(5));
    QCOMPARE(Value(5).Count(), 1);
    QCOMPARE(Value().Count(), 0);
}

void ValueTest::NamesOfKindsReadBack()
{
    for (int i = 1; i <= static_cast<int>(Value::Kind::VectorArray); ++i) {
        const auto kind = static_cast<Value::Kind>(i);
        QCOMPARE(KindFromName(KindName(kind)), kind);
        QCOMPARE(Value::Default(kind).GetKind(), kind);
    }
    QCOMPARE(KindFromName("matrix[]"), Value::Kind::None);
    QCOMPARE(ElementKindOf(ArrayKindOf(Value::Kind::Vector)), Value::Kind::Vector);
}

TE2_TEST(ValueTest)
#include "ValueTest.moc"
