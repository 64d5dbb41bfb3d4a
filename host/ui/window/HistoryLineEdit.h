#pragma once

#include <QLineEdit>
#include <QStringList>

namespace host::ui {

/// A field that brings back what was entered before with the Up and Down keys. What was being typed
/// waits below the newest entry.
class HistoryLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit HistoryLineEdit(QWidget* parent = nullptr);

    static constexpr int MAXIMUM_ENTRIES = 500;

    /// Adds an entry unless it is the newest one already; Up gives it next.
    void Remember(const QString& text);
    const QStringList& GetHistory() const { return m_history; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Step(int direction);

    QStringList m_history; ///< oldest first
    QString m_typed;
    int m_index = 0; ///< m_history.size() stands for what is being typed
};

} // namespace host::ui
