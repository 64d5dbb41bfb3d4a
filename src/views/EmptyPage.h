#pragma once

#include <QWidget>

class QLabel;

/// What stands in place of a view's content while there is none. Owned by the view.
class EmptyPage : public QWidget
{
    Q_OBJECT

public:
    /// `picture` names one of the icon folder.
    EmptyPage(const QString& picture, QWidget* parent);

    /// What is missing, with a picture unless the title is empty, and what to do about it.
    void SetTexts(const QString& title, const QString& hint);

private:
    void UpdateLook();

    QString m_pictureName;
    QLabel* m_picture;
    QLabel* m_title;
    QLabel* m_hint;
};
