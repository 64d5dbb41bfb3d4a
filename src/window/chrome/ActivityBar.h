#pragma once

#include <QVector>
#include <QWidget>

class ActivityButton;

/// The strip of large icons at the window's edge that shows the pages of the side bar. Owned by the
/// window, which answers every press. Only what there is a page for is shown. With the keyboard the
/// bar is one stop: Up and Down go between its entries.
class ActivityBar : public QWidget
{
    Q_OBJECT

public:
    enum class Item { Explorer, Search, QuickHelp, Preferences };

    explicit ActivityBar(QWidget* parent);

    void SetItemShown(Item item, bool shown);
    bool IsItemShown(Item item) const;
    /// Marks the entry of the page that is shown.
    void SetCurrent(Item item);
    void ClearCurrent();
    bool IsCurrent(Item item) const;
    /// A number in the entry; 0 for none.
    void SetCount(Item item, int count);
    void SetToolTip(Item item, const QString& toolTip);
    static QString GetLabel(Item item);
    /// At the left or at the right edge of the window.
    void SetLeft(bool left);

    QSize sizeHint() const override;

Q_SIGNALS:
    void ItemPressed(ActivityBar::Item item);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    ActivityButton* GetButton(Item item) const;
    void UpdateFocusPolicies();
    void MoveFocus(int step);

    QVector<ActivityButton*> m_buttons; ///< by item
    bool m_left = true;
};
