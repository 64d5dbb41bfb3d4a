#include "ui/commands/ProcedureCall.h"

#include <QRegularExpression>

namespace host::ui {

Outcome CallProcedure(const Element& element, const QString& flag, const QVector<Value>& values)
{
    static const QRegularExpression name(QStringLiteral("\\A\\w+\\z"));
    Script script = element.GetCallback(flag);
    if (script.callable || !name.match(script.text).hasMatch())
        return script.Run(values);
    QStringList words;
    for (int i = 0; i < values.size(); ++i) {
        const QString marker = QStringLiteral("#%1").arg(i + 1);
        words += values.at(i).IsString() ? QLatin1Char('"') + marker + QLatin1Char('"') : marker;
    }
    script.text += QStringLiteral("(%1)").arg(words.join(QStringLiteral(", ")));
    return script.Run(values);
}

} // namespace host::ui
