#pragma once

#include <QWidget>

class QLabel;

/// The pane beside the editors: one page at a time under a row with its title. Owned by the window.
class SideBar : public QWidget
{
    Q_OBJECT

public:
    enum class Page { Explorer, Search, QuickHelp };

    explicit SideBar(QWidget* parent);

    Page GetPage() const { return m_page; }
    void ShowPage(Page page);

Q_SIGNALS:
    void PageChanged();
    void HideRequested();

protected:
    bool event(QEvent* event) override;

private:
    void UpdateFonts();

    QLabel* m_title = nullptr;
    Page m_page = Page::Explorer;
};
