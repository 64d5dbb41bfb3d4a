#include "window/chrome/TabDragData.h"

#include <QFileInfo>
#include <QUrl>

namespace {

constexpr int PAYLOAD_BYTES = 2;
constexpr int LARGEST_BYTE = 255;

bool FitsInByte(int number)
{
    return number >= 0 && number <= LARGEST_BYTE;
}

} // namespace

QString TabDragData::MimeType()
{
    return QStringLiteral("quenholt-te2/move-code-editor");
}

TabDragData::TabDragData(const DraggedTab& tab)
    : m_tab(tab)
{
    QByteArray payload;
    if (FitsInByte(tab.groupId) && FitsInByte(tab.index))
        payload.append(static_cast<char>(tab.groupId)).append(static_cast<char>(tab.index));
    setData(MimeType(), payload);
}

std::optional<DraggedTab> TabDragData::Read(const QMimeData* data)
{
    if (const auto* own = qobject_cast<const TabDragData*>(data))
        return own->m_tab;
    if (!data || !data->hasFormat(MimeType()))
        return std::nullopt;
    const QByteArray payload = data->data(MimeType());
    if (payload.size() != PAYLOAD_BYTES)
        return std::nullopt;
    return DraggedTab{static_cast<uchar>(payload[0]), static_cast<uchar>(payload[1])};
}

QStringList TabDragData::LocalFiles(const QMimeData* data)
{
    QStringList paths;
    if (!data)
        return paths;
    for (const QUrl& url : data->urls()) {
        const QString path = url.toLocalFile();
        if (!path.isEmpty() && !QFileInfo(path).isDir())
            paths.append(path);
    }
    return paths;
}
