// What other programs drag or put on the clipboard: read without doubt or not at all.

#include "editing/FlagText.h"
#include "fuzz/Fuzz.h"
#include "views/explorer/WorkspacePaths.h"
#include "window/chrome/TabDragData.h"

#include <QFileInfo>
#include <QMimeData>

using fuzz::Expect;

TE2_FUZZ_TARGET(DragPayloads)
{
    QMimeData data;
    while (!input.AtEnd()) {
        const QByteArray format = input.Bytes();
        data.setData(QString::fromLatin1(format), input.Bytes());
    }
    const auto tab = TabDragData::Read(&data);
    Expect(!tab || (tab->groupId >= 0 && tab->index >= 0), QStringLiteral("a tab has a place"));
    const QStringList files = TabDragData::LocalFiles(&data);
    const QStringList folders = WorkspacePaths::DroppedFolders(&data);
    for (const QString& file : files) {
        Expect(!file.isEmpty() && !folders.contains(file),
            QStringLiteral("a file is no folder: %1").arg(file));
    }
    for (const QString& folder : folders)
        Expect(QFileInfo(folder).isDir(), QStringLiteral("a folder is one: %1").arg(folder));
    const QString flag = QString::fromUtf8(data.data(QLatin1String(FlagText::MIME_FORMAT)));
    Expect(FlagText::InMel(flag, data.text()).contains(flag), QStringLiteral("a flag is put in"));
    FlagText::InPython(flag, data.text());
}
