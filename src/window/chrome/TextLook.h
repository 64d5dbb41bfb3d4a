#pragma once

#include <QFont>
#include <QTextCharFormat>
#include <QTextOption>

class QPlainTextEdit;

/// What the code editors and the console have in common in looks. Interface thread only.
namespace TextLook {

/// `base` enlarged by `zoom` points and the interface scale. A size outside the font bounds of the
/// settings becomes the bound, and `zoom` is rewritten to what is in force.
QFont ZoomedFont(const QFont& base, int& zoom);

/// Text, base and selection colours, for every colour group.
void ApplyColors(
    QPlainTextEdit& edit, const QTextCharFormat& plain, const QTextCharFormat& selected);

/// Tab stops every `tabSize` widths of a space in `font`; wrapping at words or not at all.
QTextOption Option(const QFont& font, int tabSize, bool wordWrap);

} // namespace TextLook
