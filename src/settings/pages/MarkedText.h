#pragma once

class QPainter;
class QRect;
class QString;

/// Draws one line of text with the painter's font and pen, elided at its right end; the first place
/// that contains `match`, case ignored, lies on a ground of its own. An empty match is nowhere.
void DrawMarkedText(
    QPainter& painter, const QRect& area, const QString& text, const QString& match);
