// The host's own files: what it writes it reads, and what it cannot read it says.

#include "engine/OptionVars.h"
#include "fuzz/Fuzz.h"
#include "mel/Source.h"
#include "ui/workspace/WorkspaceFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace host;
using fuzz::Expect;

namespace {

void ReadLayout(const QByteArray& bytes)
{
    QStringList problems;
    const ui::SavedWorkspace read = ui::ReadWorkspace(bytes, problems);
    const QByteArray once = ui::WriteWorkspace(read);
    QStringList none;
    const QByteArray twice = ui::WriteWorkspace(ui::ReadWorkspace(once, none));
    Expect(once == twice,
        QStringLiteral("a layout\n%1\nbecame\n%2")
            .arg(QString::fromUtf8(once), QString::fromUtf8(twice)));
    Expect(none.isEmpty(), QStringLiteral("nothing written is a problem: %1").arg(none.join(' ')));
}

void ReadPanel(const QString& text)
{
    ui::ControlRecord record;
    if (!ui::ReadControlState(text, record))
        return;
    const QString once = ui::WriteControlState(record);
    ui::ControlRecord again;
    Expect(ui::ReadControlState(once, again) && ui::WriteControlState(again) == once,
        QStringLiteral("a panel's state is read as it was written: %1").arg(once));
}

void ReadOptionVars(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("optionVars.json"));
    QFile file(path);
    Expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
        QStringLiteral("a file can be written"));
    file.close();
    OptionVars read;
    read.Load(path);
    Expect(read.Save(path).isEmpty(), QStringLiteral("it is saved"));
    OptionVars again;
    Expect(again.Load(path).isEmpty(), QStringLiteral("what was saved is read"));
    Expect(again.Names() == read.Names(), QStringLiteral("with every name"));
    for (const QString& name : read.Names()) {
        Expect(again.Get(name).ToText() == read.Get(name).ToText()
                && again.Get(name).GetKind() == read.Get(name).GetKind(),
            QStringLiteral("and every value: %1").arg(name));
    }
}

} // namespace

TE2_FUZZ_TARGET(HostFiles)
{
    switch (input.Number(3)) {
    case 0: ReadLayout(input.Rest()); break;
    case 1: ReadPanel(input.Text()); break;
    default: ReadOptionVars(input.Rest());
    }
}
