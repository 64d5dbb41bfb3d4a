#include "window/AboutDialog.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <QtMath>

namespace {

// Design pixels.
constexpr int WIDTH = 420;
constexpr int MARGIN = 16;
constexpr int GAP = 14;
constexpr int HEAD_GAP = 20;
constexpr int ICON_SIZE = 44;
constexpr int LICENCES_WIDTH = 620;
constexpr int LICENCES_HEIGHT = 460;
constexpr int MAXIMUM_DETAILS = 260; ///< height

constexpr double NAME_SIZE = 1.35; ///< of the dialog's font

/// The texts in a window of their own.
class LicencesDialog : public QDialog
{
public:
    explicit LicencesDialog(QWidget* parent)
        : QDialog(parent)
    {
        setWindowTitle(AboutDialog::tr("Licences"));
        setWindowFlag(Qt::WindowContextHelpButtonHint, false);
        auto* text = new QPlainTextEdit(AboutText::Licences(), this);
        text->setObjectName(QStringLiteral("m_licences"));
        text->setAccessibleName(windowTitle());
        text->setReadOnly(true);
        text->setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(text);
        layout->addWidget(buttons);
        FollowLook(this, [layout] {
            const int margin = Theme::Dp(MARGIN);
            layout->setContentsMargins(margin, margin, margin, margin);
            layout->setSpacing(Theme::Dp(GAP));
        });
        resize(Theme::Dp(LICENCES_WIDTH), Theme::Dp(LICENCES_HEIGHT));
    }
};

} // namespace

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent)
    , m_rows(AboutText::Rows())
{
    setObjectName(QStringLiteral("m_aboutDialog"));
    setWindowTitle(tr("About %1").arg(Settings::APPLICATION_TITLE));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    CreateWidgets();
    CreateLayout();
    m_closeButton->setFocus();
}

void AboutDialog::CreateWidgets()
{
    m_icon = new QLabel(this);
    m_icon->setObjectName(QStringLiteral("m_icon"));
    m_name = new QLabel(Settings::APPLICATION_TITLE, this);
    m_name->setObjectName(QStringLiteral("m_name"));
    m_version = new QLabel(tr("Version %1").arg(Settings::VERSION_STRING), this);
    m_version->setObjectName(QStringLiteral("m_version"));
    for (QLabel* label : {m_name, m_version}) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_details = new QTextBrowser(this);
    m_details->setObjectName(QStringLiteral("m_details"));
    m_details->setAccessibleName(tr("Details"));
    m_details->setFrameShape(QFrame::NoFrame);
    m_details->viewport()->setAutoFillBackground(false);
    m_details->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_details->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_details->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    m_details->document()->setDocumentMargin(0);
    m_details->setOpenLinks(false);
    connect(m_details, &QTextBrowser::anchorClicked, this,
        [](const QUrl& url) { MayaUtil::RevealInFolder(url.toLocalFile()); });
    m_copyButton = CreateButton("m_copyButton", tr("Copy"));
    m_licencesButton = CreateButton("m_licencesButton", tr("Licences..."));
    m_closeButton = CreateButton("m_closeButton", tr("Close"));
    m_closeButton->setDefault(true);
    connect(m_copyButton, &QPushButton::clicked, this, &AboutDialog::CopyDetails);
    connect(m_licencesButton, &QPushButton::clicked, this, &AboutDialog::ShowLicences);
    connect(m_closeButton, &QPushButton::clicked, this, &AboutDialog::accept);
}

QPushButton* AboutDialog::CreateButton(const char* name, const QString& text)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

void AboutDialog::CreateLayout()
{
    auto* titles = new QVBoxLayout;
    titles->setSpacing(0);
    titles->addStretch(1);
    titles->addWidget(m_name);
    titles->addWidget(m_version);
    titles->addStretch(1);
    auto* head = new QHBoxLayout;
    head->addWidget(m_icon);
    head->addLayout(titles, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_copyButton);
    buttons->addWidget(m_licencesButton);
    buttons->addStretch(1);
    buttons->addWidget(m_closeButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(m_details);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    FollowLook(this, [this] { UpdateLook(); });
}

/// The font that the texts are shown in is known only now.
void AboutDialog::showEvent(QShowEvent* event)
{
    UpdateLook();
    QDialog::showEvent(event);
}

void AboutDialog::UpdateLook()
{
    const int margin = Theme::Dp(MARGIN);
    layout()->setContentsMargins(margin, margin, margin, margin);
    layout()->setSpacing(Theme::Dp(GAP));
    layout()->itemAt(0)->layout()->setSpacing(Theme::Dp(HEAD_GAP));
    m_icon->setPixmap(Theme::Pixmap(QStringLiteral("tarnwick"), ICON_SIZE, devicePixelRatioF()));
    QFont large = font();
    large.setWeight(QFont::DemiBold);
    large.setPixelSize(qRound(QFontInfo(font()).pixelSize() * NAME_SIZE));
    m_name->setFont(large);
    m_version->setFont(Theme::SmallFont(font()));
    QPalette quiet = m_version->palette();
    quiet.setColor(QPalette::WindowText, Theme::Color(Theme::Role::Soft));
    m_version->setPalette(quiet);
    const int width = Theme::Dp(WIDTH);
    m_details->setFont(font());
    m_details->setHtml(AboutText::Html(m_rows));
    m_details->document()->setTextWidth(width);
    const int height = qCeil(m_details->document()->size().height());
    m_details->setFixedSize(width, qMin(height + 1, Theme::Dp(MAXIMUM_DETAILS)));
}

void AboutDialog::CopyDetails() const
{
    QApplication::clipboard()->setText(AboutText::Plain(m_rows));
}

void AboutDialog::ShowLicences()
{
    LicencesDialog dialog(this);
    dialog.exec();
}
