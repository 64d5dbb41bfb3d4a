#pragma once

class QString;

/// Orders names as people do: without case, and with the numbers in them by their value. Names that
/// differ in nothing else are ordered by leading zeros and then by case, so that the order is
/// total.
bool NaturalLess(const QString& left, const QString& right);

/// The same for who orders many names and keeps beside each what its case folds to.
bool NaturalLess(const QString& left, const QString& foldedLeft, const QString& right,
    const QString& foldedRight);
