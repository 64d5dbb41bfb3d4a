#pragma once

#include "engine/Engine.h"
#include "mel/MelLanguage.h"
#include "ui/model/InterfaceModel.h"

#include <QTemporaryDir>

/// A host with MEL, its commands and the interface commands, but without its main window, in a
/// preferences folder of its own.
class UiFixture
{
public:
    UiFixture();
    ~UiFixture();

    /// Runs a text. Its value as a result line shows it; of a failed text "error: " and why.
    QString Run(const QString& text);
    /// What the scripts printed since the last call.
    QString TakePrinted();
    host::ui::InterfaceModel& Model() { return *m_model; }
    host::Engine& GetEngine() { return *m_engine; }
    host::ui::Element* Find(const QString& name) { return m_model->Find(name); }
    template <typename T>
    T* Widget(const QString& name)
    {
        const host::ui::Element* element = m_model->Find(name);
        return element ? qobject_cast<T*>(element->GetWidget()) : nullptr;
    }
    /// A new host on the same preferences, as after a restart.
    void Restart();
    /// What the event loop does with elements that were deleted.
    static void DeleteDeferred();

private:
    void Start();
    void Stop();

    QTemporaryDir m_directory;
    std::unique_ptr<host::Engine> m_engine;
    std::unique_ptr<host::mel::MelLanguage> m_mel;
    std::unique_ptr<host::ui::InterfaceModel> m_model;
    QString m_printed;
};
