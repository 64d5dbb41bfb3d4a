#include "ui/window/HeadsUp.h"

#include "engine/Engine.h"
#include "ui/model/InterfaceModel.h"

#include <QPointer>

namespace host::ui {

HeadsUp& HeadsUp::Current()
{
    static QPointer<HeadsUp> current;
    if (!current)
        current = new HeadsUp(&InterfaceModel::Current());
    return *current;
}

HeadsUp::HeadsUp(QObject* parent)
    : QObject(parent)
    , m_viewer([this] {
        for (const QString& name : m_entries.keys()) {
            if (m_entries.value(name).followsScene)
                Run(name);
        }
    })
{ }

HeadsUp::~HeadsUp()
{
    for (const Entry& entry : qAsConst(m_entries)) {
        if (Engine::Exists())
            Engine::Current().events.Remove(entry.eventId);
    }
}

QString HeadsUp::NameAt(int section, int block) const
{
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->section == section && it->block == block)
            return it.key();
    }
    return {};
}

int HeadsUp::NextFreeBlock(int section) const
{
    int block = 0;
    while (!NameAt(section, block).isEmpty())
        ++block;
    return block;
}

bool HeadsUp::Put(const QString& name, const Entry& entry)
{
    if (!entry.event.isEmpty() && !Events::Names().contains(entry.event))
        return false;
    const bool isKnown = m_entries.contains(name);
    const int id = isKnown ? m_entries.value(name).id : ++m_lastId;
    if (isKnown)
        Engine::Current().events.Remove(m_entries.value(name).eventId);
    Entry& kept = m_entries[name];
    kept = entry;
    kept.id = id;
    kept.eventId = 0;
    if (!entry.event.isEmpty())
        kept.eventId = Engine::Current().events.Add(entry.event, [this, name] { Run(name); });
    Run(name);
    return true;
}

void HeadsUp::Remove(const QString& name)
{
    Engine::Current().events.Remove(m_entries.value(name).eventId);
    m_entries.remove(name);
    Q_EMIT Changed();
}

/// The script may remove its own entry.
void HeadsUp::Run(const QString& name)
{
    const Outcome outcome = m_entries.value(name).command.Run();
    const Value value = outcome.Ok() ? outcome.GetValue() : Value();
    const auto entry = m_entries.find(name);
    if (entry != m_entries.end()) {
        entry->data = value.IsArray() ? value.ToTextList().join(QLatin1Char(' ')) : value.ToText();
        Q_EMIT Changed();
    }
}

} // namespace host::ui
