#pragma once

#include "engine/Script.h"
#include "ui/commands/SceneViewer.h"

#include <QMap>
#include <QObject>

namespace host::ui {

/// The words that scripts put over the view, each at a place of its own. Their scripts run when
/// they are made, when their event comes, and, if they ask for it, when the scene changed. Belongs
/// to the interface model; main thread only.
class HeadsUp : public QObject
{
    Q_OBJECT
public:
    struct Entry
    {
        int id = 0;
        int section = 0; ///< 0 to 4 from left to right at the top, 5 to 9 at the bottom
        int block = 0; ///< from the edge of the view
        QString label;
        Script command;
        QString event;
        bool followsScene = false;
        bool isVisible = true;
        QString data; ///< what the script answered last
        int eventId = 0;
    };
    static constexpr int SECTIONS = 10;

    static HeadsUp& Current();
    ~HeadsUp() override;

    const QMap<QString, Entry>& Entries() const { return m_entries; }
    /// "" when the place is free.
    QString NameAt(int section, int block) const;
    int NextFreeBlock(int section) const;
    /// Adds or replaces. False when there is no such event.
    bool Put(const QString& name, const Entry& entry);
    void Remove(const QString& name);
    void Run(const QString& name);

Q_SIGNALS:
    void Changed();

private:
    explicit HeadsUp(QObject* parent);

    QMap<QString, Entry> m_entries;
    SceneViewer m_viewer;
    int m_lastId = 0;
};

} // namespace host::ui
