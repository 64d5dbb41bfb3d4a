#include "support/TestMain.h"

#include <maya/MAngle.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MDistance.h>
#include <maya/MDoubleArray.h>
#include <maya/MIOStream.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>
#include <maya/MVectorArray.h>

#include <QtTest>

namespace {

/// What goes to the standard error stream while it lives.
class ErrorCapture
{
public:
    ErrorCapture()
        : m_previous(cerr.rdbuf(m_text.rdbuf()))
    { }
    ~ErrorCapture() { cerr.rdbuf(m_previous); }
    QString Text() const { return QString::fromStdString(m_text.str()); }

private:
    std::ostringstream m_text;
    std::streambuf* m_previous;
};

int evaluations = 0;

MStatus Evaluate(MStatus status)
{
    ++evaluations;
    return status;
}

MStatus ReturnIt(MStatus given)
{
    CHECK_MSTATUS_AND_RETURN_IT(Evaluate(given));
    return MS::kEndOfFile;
}

int ReturnValue(MStatus given)
{
    CHECK_MSTATUS_AND_RETURN(Evaluate(given), 7);
    return 0;
}

} // namespace

/// MStatus and the arrays.
class ValuesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void NamesItsErrors_data();
    void NamesItsErrors();
    void ComparesWithCodesNotWithNumbers();
    void ChecksEvaluateOnce();
    void ChecksStayQuietOnSuccess();
    void ArraysInsertAndRemoveAtTheEnds();
    void ArraysRefuseIndicesOutside();
    void ArraysCopyIndependently();
    void StringArraysFindElements();
    void FloatsConvert();
    void MatricesMoveVectorsAndPoints();
    void UnitsConvert();
};

void ValuesTest::NamesItsErrors_data()
{
    Columns<int, QString>("code", "text");
    Row("success", int(MS::kSuccess), "Success");
    Row("failure", int(MS::kFailure), "(kFailure): Unexpected Internal Failure");
    Row("last", int(MS::kEndOfFile), "(kEndOfFile): End of file");
}

void ValuesTest::NamesItsErrors()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    const MStatus status(static_cast<MStatus::MStatusCode>(code));
    QCOMPARE(QString(status.errorString().asChar()), text);
    const ErrorCapture capture;
    status.perror("Reading");
    QCOMPARE(capture.Text(), "Reading: " + text + "\n");
}

void ValuesTest::ComparesWithCodesNotWithNumbers()
{
    const MStatus failure(MS::kFailure);
    QVERIFY(failure == 0); // through the conversion to bool
    QVERIFY(!(MStatus() == 0));
    QVERIFY(MS::kFailure == failure && MS::kSuccess != failure && failure != MS::kSuccess);
    QVERIFY(failure != MStatus() && failure == MStatus(MS::kFailure));
    QVERIFY(!failure && failure.error());
    MStatus cleared(failure);
    cleared.clear();
    QVERIFY(cleared);
}

void ValuesTest::ChecksEvaluateOnce()
{
    const ErrorCapture capture;
    evaluations = 0;
    QCOMPARE(ReturnIt(MS::kNotFound).statusCode(), MS::kNotFound);
    QCOMPARE(ReturnValue(MS::kFailure), 7);
    CHECK_MSTATUS(Evaluate(MS::kFailure));
    QCOMPARE(evaluations, 3);
    QCOMPARE(capture.Text().count("API error detected in " __FILE__ " at line "), 3);
    QVERIFY(capture.Text().contains("(kFailure): Unexpected Internal Failure"));
}

void ValuesTest::ChecksStayQuietOnSuccess()
{
    const ErrorCapture capture;
    QCOMPARE(ReturnIt(MS::kSuccess).statusCode(), MS::kEndOfFile);
    QCOMPARE(ReturnValue(MS::kSuccess), 0);
    CHECK_MSTATUS(MStatus());
    QCOMPARE(capture.Text(), QString());
}

void ValuesTest::ArraysInsertAndRemoveAtTheEnds()
{
    MIntArray array;
    array.append(2);
    QVERIFY(array.insert(1, 0));
    QVERIFY(array.insert(3, 2));
    QVERIFY(array.remove(1));
    std::ostringstream stream;
    stream << array;
    QCOMPARE(stream.str().c_str(), "[1, 3]");
    array.setLength(5);
    QCOMPARE(array.length(), 5u);
    QCOMPARE(array[1], 3);
    array.clear();
    QCOMPARE(array.length(), 0u);
    QVERIFY(array.begin() == array.end());
}

void ValuesTest::ArraysRefuseIndicesOutside()
{
    MCallbackIdArray array(2, 5);
    QCOMPARE(array.remove(2).statusCode(), MS::kInvalidParameter);
    QCOMPARE(array.insert(1, 3).statusCode(), MS::kInvalidParameter);
    QCOMPARE(array.set(1, 2).statusCode(), MS::kInvalidParameter);
    QCOMPARE(array.length(), 2u);
}

void ValuesTest::ArraysCopyIndependently()
{
    const MString source[] = {"a", "b"};
    MStringArray first(source, 2);
    MStringArray second(first);
    second[0] += "x";
    first = first;
    QCOMPARE(first[0].asChar(), "a");
    QCOMPARE(second[0].asChar(), "ax");
    MString copied[2];
    first.get(copied);
    QCOMPARE(copied[1].asChar(), "b");
}

void ValuesTest::StringArraysFindElements()
{
    const char* source[] = {"one", "two"};
    const MStringArray array(source, 2);
    QCOMPARE(array.indexOf("two"), 1);
    QCOMPARE(array.indexOf("three"), -1);
}

void ValuesTest::FloatsConvert()
{
    const float source[] = {0.5f, 2};
    MDoubleArray array(source, 2);
    array.set(1.5f, 0);
    float copied[2];
    array.get(copied);
    QCOMPARE(copied[0] + copied[1], 3.5f);
}

void ValuesTest::MatricesMoveVectorsAndPoints()
{
    const double rows[4][4] = {{0, 2, 0, 0}, {-3, 0, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}};
    const MMatrix matrix(rows);
    const MVector moved = MVector(1, 1, 1) * matrix;
    QVERIFY(moved == MVector(-3, 2, 4));
    QVERIFY(MPoint(moved) + MVector(5, 6, 7) == MPoint(1, 1, 1) * matrix);
    QVERIFY((matrix * matrix.inverse()).isEquivalent(MMatrix::identity));
    QVERIFY((matrix * matrix).transpose() == matrix.transpose() * matrix.transpose());
    QCOMPARE(matrix.det4x4(), 24.0);
    QCOMPARE(matrix[3][1], 6.0);
    QVERIFY((matrix - matrix).isSingular());
    QCOMPARE(2 * MVector::xAxis * MVector(3, 4), 6.0);
    QVERIFY((MVector::xAxis ^ MVector::yAxis) == MVector::zAxis && MVector::zero.normal().x == 0);
    QCOMPARE(MPoint(3, 4).distanceTo(MPoint::origin), 5.0);
    QVERIFY(MPoint(2, 4, 6, 2).cartesianize() == MPoint(1, 2, 3));
    MVectorArray array(2, MVector::one);
    array.append(moved);
    std::ostringstream stream;
    stream << array;
    QCOMPARE(stream.str().c_str(), "[[1, 1, 1], [1, 1, 1], [-3, 2, 4]]");
}

void ValuesTest::UnitsConvert()
{
    QCOMPARE(MTime(2, MTime::kSeconds).as(MTime::kFilm), 48.0);
    QVERIFY(MTime(1, MTime::kSeconds) + MTime(12) == MTime(1500, MTime::kMilliseconds));
    QVERIFY(MTime(25, MTime::kPALFrame) <= MTime(24) && MTime(25) > MTime(1, MTime::kSeconds));
    QCOMPARE(MDistance(1, MDistance::kFeet).asInches(), 12.0);
    QCOMPARE(MAngle(180, MAngle::kDegrees).asAngMinutes(), 10800.0);
    MDistance distance(1, MDistance::kMeters);
    QVERIFY(distance.setUnit(MDistance::kMillimeters));
    QCOMPARE(distance.value(), 1000.0);
    QCOMPARE(distance.setUnit(MDistance::kInvalid).statusCode(), MS::kInvalidParameter);
}

TE2_TEST(ValuesTest)
#include "ValuesTest.moc"
