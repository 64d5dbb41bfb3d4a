#pragma once

#include <QtTest>

/// QCOMPARE takes a literal as what is expected of a text or of bytes without a zero.
namespace QTest {

inline bool qCompare(const QString& actual, const char* expected, const char* actualCode,
    const char* expectedCode, const char* file, int line)
{
    return qCompare(actual, QString::fromUtf8(expected), actualCode, expectedCode, file, line);
}

inline bool qCompare(const QByteArray& actual, const char* expected, const char* actualCode,
    const char* expectedCode, const char* file, int line)
{
    return qCompare(actual, QByteArray(expected), actualCode, expectedCode, file, line);
}

} // namespace QTest
