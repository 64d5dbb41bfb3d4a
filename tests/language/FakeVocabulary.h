#pragma once

#include <QHash>
#include <QStringList>

/// What the host answers in the tests of this folder, and what it was asked.
struct FakeVocabulary
{
    static QHash<QString, QStringList> attributes; ///< by object; "" for the names of the source
    static int answerTime; ///< ms that every question about attributes takes
    static QStringList askedSources; ///< as they were sent
    static QStringList askedObjects;
    static QStringList askedFlags; ///< commands
    static QStringList executed; ///< import statements
    static QStringList failing; ///< statements that raise

    static void Reset();
};
