#pragma once

#include <QString>
#include <QVector>

/// What the quick help knows of one name. Plain texts, as the host gives them.
struct QuickHelpTopic
{
    enum class Kind { Nothing, Command, RunTimeCommand, Procedure, Python };

    struct Flag
    {
        QString longName; ///< without a dash; the short one where there is no other
        QString shortName;
        QString type; ///< of the first argument
    };

    bool IsKnown() const { return kind != Kind::Nothing; }

    Kind kind = Kind::Nothing;
    QString name;
    QString pythonKind; ///< "function", "class", "module", "property" or "instance"
    QString synopsis; ///< how it is called
    QString text; ///< what it is for
    QString script; ///< what a run-time command runs
    QString file; ///< where it is defined
    int line = 0; ///< from 1 in the file, 0 when unknown
    QVector<Flag> flags;
};
