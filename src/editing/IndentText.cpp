#include "editing/IndentText.h"

#include "editing/EditingOptions.h"
#include "editing/TextColumns.h"

namespace {

QString Spaces(int count)
{
    return QString(count, QLatin1Char(' '));
}

} // namespace

QString TabsToSpaces(const QString& indent, int tabSize)
{
    QString spaces;
    for (const QChar character : indent) {
        if (character == QLatin1Char('\t'))
            spaces += Spaces(tabSize - spaces.size() % tabSize);
        else
            spaces += character;
    }
    return spaces;
}

QString SpacesToTabs(const QString& indent, int tabSize)
{
    const int blanks = IndentLength(indent);
    const int width = VisualWidth(indent.left(blanks), tabSize);
    return QString(width / tabSize, QLatin1Char('\t')) + Spaces(width % tabSize)
        + indent.mid(blanks);
}

QString IndentInStyle(const QString& indent, const EditingOptions& options)
{
    return options.insertSpaces ? TabsToSpaces(indent, options.tabSize)
                                : SpacesToTabs(indent, options.tabSize);
}

QString Dedented(const QString& indent, int steps, const EditingOptions& options)
{
    const int width = VisualWidth(indent, options.tabSize) - steps * options.tabSize;
    return IndentInStyle(Spaces(qMax(0, width)), options);
}
