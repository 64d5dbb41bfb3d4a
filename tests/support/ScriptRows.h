#pragma once

#include <QtTest>

/// Tables of one-line scripts and what they answer: the columns "script" and "result".
inline void ScriptColumns()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("result");
}

inline void ScriptRow(const char* name, const char* script, const char* result)
{
    QTest::newRow(name) << QString(script) << QString(result);
}
