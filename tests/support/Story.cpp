#include "support/Story.h"

#include "support/Rows.h"

#include <QDir>

namespace {

/// Takes away what stands behind the mark; null when it is not there.
QString TakeBehind(QString& step, const QString& mark)
{
    const QString padded = ' ' + step + ' ';
    const int position = padded.lastIndexOf(mark);
    if (position < 0)
        return QString();
    step = padded.left(position).trimmed();
    return "" + padded.mid(position + mark.size()).trimmed().replace("\\n", "\n");
}

bool Fits(const QString& text, const QString& wanted)
{
    return wanted.endsWith("...") ? text.startsWith(wanted.chopped(3)) : text == wanted;
}

void AddStory(const QString& story)
{
    QStringList steps;
    for (const QString& line : story.split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith("    "))
            steps.last() += '\n' + line.mid(4);
        else
            steps += line;
    }
    const QString name = steps.takeFirst();
    QVERIFY2(!steps.isEmpty(), qPrintable(name));
    Row(qPrintable(name), steps);
}

} // namespace

void Story::AddRows(const QString& folder)
{
    Columns<QStringList>("steps");
    const QFileInfoList files = QDir(folder).entryInfoList({"*.story"}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = '\n' + QString::fromUtf8(file.readAll());
        for (const QString& story : text.split("\n== ").mid(1))
            AddStory(story);
    }
}

QString Story::FaultOf(const QStringList& steps, const Run& run, const Messages& messages)
{
    for (const QString& step : steps) {
        QString text = step;
        const QString said = TakeBehind(text, " >> ");
        const QString answer = TakeBehind(text, " => ");
        if (!said.isNull() && !text.isEmpty())
            messages();
        const QString given = text.isEmpty() ? QString() : run(text);
        if (answer.isNull() ? given.startsWith("error: ") : !Fits(given, answer))
            return step + "\nanswered: " + given;
        const QString heard = said.isNull() ? QString() : messages().join(" | ");
        if (!said.isNull() && !Fits(heard, said))
            return step + "\nsaid: " + heard;
    }
    return QString();
}
