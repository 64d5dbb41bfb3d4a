#pragma once

#include "search/SearchResult.h"

#include <QVector>

#include <optional>

class QRegularExpression;

/// A piece of a text and what is to stand in its place.
struct TextEdit
{
    int start = 0;
    int length = 0;
    QString text;
};

/// What to do to the text so that each of the hits, which are in their order, becomes the
/// replacement. Nothing when one of them does not stand in the text as it was listed, or the
/// expression gives up. "\1" and the like stand for groups of expressions that were typed as such.
std::optional<QVector<TextEdit>> PlanReplacement(const QString& text,
    const QVector<SearchResult>& hits, const QRegularExpression& expression,
    const QString& replacement);

QString ApplyEdits(const QString& text, const QVector<TextEdit>& edits);
