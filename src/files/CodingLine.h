#pragma once

class QByteArray;

/// The encoding that a script declares for itself: "# -*- coding: latin-1 -*-" and its like, in the
/// first line, or in the second one below a comment or a blank line. The name as the toolkit spells
/// it; empty without one, and for names that stand for no encoding in which plain English text has
/// the bytes that it has everywhere. Looks at the beginning of `bytes` alone.
QByteArray FindDeclaredCodec(const QByteArray& bytes);
