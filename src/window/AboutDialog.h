#pragma once

#include "window/AboutText.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTextBrowser;

/// Tells which program this is, what it runs in and where its files are. Lives as long as it is
/// executed.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void CreateWidgets();
    void CreateLayout();
    void UpdateLook();
    QPushButton* CreateButton(const char* name, const QString& text);
    void CopyDetails() const;
    void ShowLicences();

    QVector<AboutRow> m_rows;
    QLabel* m_icon = nullptr;
    QLabel* m_name = nullptr;
    QLabel* m_version = nullptr;
    QTextBrowser* m_details = nullptr;
    QPushButton* m_copyButton = nullptr;
    QPushButton* m_licencesButton = nullptr;
    QPushButton* m_closeButton = nullptr;
};
