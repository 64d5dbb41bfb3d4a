#pragma once

#include <QWidget>

class QLabel;

/// What stands in place of the results while there are none. Owned by the search view.
class EmptySearchPage : public QWidget
{
    Q_OBJECT

public:
    explicit EmptySearchPage(QWidget* parent);

    /// What is missing, with a picture unless the title is empty, and what to do about it.
    void SetTexts(const QString& title, const QString& hint);

private:
    void UpdateLook();

    QLabel* m_picture;
    QLabel* m_title;
    QLabel* m_hint;
};
