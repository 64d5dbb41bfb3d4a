#pragma once

#include <QStringList>
#include <QWidget>

/// The bar above the editors that offers unsaved text of a session that did not end well. It asks
/// nothing of anybody: one can work on, and answer when one wants. Whatever closes it but the two
/// plain answers leaves the decision to another time. Owned by the window.
class RecoveryNotice : public QWidget
{
    Q_OBJECT

public:
    /// `lines` name what is offered, one each.
    RecoveryNotice(const QStringList& lines, QWidget* parent);

Q_SIGNALS:
    void RestoreRequested();
    void DropRequested();
    void LaterRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeList(const QStringList& lines);
};
