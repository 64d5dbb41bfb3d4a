#pragma once

#include <QApplication>
#include <QPlainTextEdit>
#include <QtTest>

/// The editors of the window, which tests that do not link its classes know by their names only.
namespace EditorTabs {

inline QList<QPlainTextEdit*> TextEditsOfClass(const char* className)
{
    QList<QPlainTextEdit*> found;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qstrcmp(widget->metaObject()->className(), className) == 0)
            found += static_cast<QPlainTextEdit*>(widget);
    }
    return found;
}

inline QList<QPlainTextEdit*> Editors()
{
    return TextEditsOfClass("CodeEditor");
}

inline QString LabelOf(const QPlainTextEdit* editor)
{
    return editor->accessibleName().section(',', 0, 0);
}

/// Walks through the tabs by keys, as their places are nobody else's business, and gives the
/// editor the focus, which it has once its window is active.
inline void GoTo(QPlainTextEdit* editor)
{
    editor->window()->activateWindow();
    const QList<QPlainTextEdit*> editors = Editors();
    for (int i = 0; i < editors.size() && !editor->isVisible(); ++i) {
        for (QPlainTextEdit* shown : editors) {
            if (!shown->isVisible())
                continue;
            shown->setFocus();
            QTest::keyClick(shown, Qt::Key_PageDown, Qt::ControlModifier);
            break;
        }
    }
    editor->window()->activateWindow();
    editor->setFocus();
}

} // namespace EditorTabs
