#include "editing/TextColumns.h"

int VisualWidth(const QString& text, int tabSize)
{
    const int step = qMax(1, tabSize);
    int width = 0;
    for (const QChar character : text)
        width += character == QLatin1Char('\t') ? step - width % step : 1;
    return width;
}

int IndexOfColumn(const QString& text, int column, int tabSize)
{
    const int step = qMax(1, tabSize);
    int width = 0;
    for (int index = 0; index < text.size(); ++index) {
        width += text.at(index) == QLatin1Char('\t') ? step - width % step : 1;
        if (width > column)
            return index;
    }
    return text.size();
}

int IndentLength(const QString& text)
{
    int length = 0;
    while (length < text.size()
        && (text.at(length) == QLatin1Char(' ') || text.at(length) == QLatin1Char('\t')))
        ++length;
    return length;
}
