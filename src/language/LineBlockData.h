#pragma once

#include "language/LineRegions.h"

class CodeEditorBlockData;

/// Fills `data` with all that does not depend on the language: brackets outside strings and
/// comments, the ranges of these, the indent and the lengths. Returns the place behind the last
/// character that is neither white space nor part of a comment, 0 without one.
int FillBlockData(CodeEditorBlockData& data, const QString& text,
    const QVector<LineRegion>& regions, const RegionScanner& scanner);
